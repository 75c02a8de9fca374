#include "tests/support/allocations.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace {

std::atomic<long> taken, given_back;

}  // namespace

long allocations::count() {
    return taken;
}
long allocations::live() {
    return taken - given_back;
}

// All forms are replaced together, so that a sanitizer never sees one of its own meet one of these.

void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    void* memory = std::malloc(size ? size : 1);
    if (memory) ++taken;
    return memory;
}
void* operator new[](std::size_t size, const std::nothrow_t& tag) noexcept {
    return operator new(size, tag);
}
void* operator new(std::size_t size) {
    if (void* memory = operator new(size, std::nothrow)) return memory;
    throw std::bad_alloc();
}
void* operator new[](std::size_t size) {
    return operator new(size);
}

void operator delete(void* memory) noexcept {
    if (memory) ++given_back;
    std::free(memory);
}
void operator delete[](void* memory) noexcept {
    operator delete(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
    operator delete(memory);
}
void operator delete[](void* memory, std::size_t) noexcept {
    operator delete(memory);
}
