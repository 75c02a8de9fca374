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

// All forms for one object are replaced together, so that a sanitizer never sees one of its own
// meet one of these. Those for arrays come as a whole from the library, by way of these, or from
// the sanitizer.

void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    void* memory = std::malloc(size ? size : 1);
    if (memory) ++taken;
    return memory;
}
void* operator new(std::size_t size) {
    if (void* memory = operator new(size, std::nothrow)) return memory;
    throw std::bad_alloc();
}
void operator delete(void* memory) noexcept {
    if (memory) ++given_back;
    std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
    operator delete(memory);
}
