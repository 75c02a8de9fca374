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

void* operator new(std::size_t size) {
    void* memory = std::malloc(size ? size : 1);
    if (!memory) throw std::bad_alloc();
    ++taken;
    return memory;
}

void operator delete(void* memory) noexcept {
    if (memory) ++given_back;
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept {
    operator delete(memory);
}
