#include "support/allocations.h"

#include <cstdlib>
#include <new>

namespace {

std::size_t count = 0;
// Of the one that fails, in the same count; 0 is none.
std::size_t failing = 0;

void* taken(std::size_t size) { return ++count == failing ? nullptr : std::malloc(size); }

}  // namespace

std::size_t allocations() { return count; }

FailingAllocation::FailingAllocation(std::size_t at) { failing = count + 1 + at; }
FailingAllocation::~FailingAllocation() { failing = 0; }
bool FailingAllocation::was_met() const { return count >= failing; }

void* operator new(std::size_t size) {
    if (void* memory = taken(size)) return memory;
    throw std::bad_alloc();
}

void* operator new(std::size_t size, const std::nothrow_t&) noexcept { return taken(size); }

void operator delete(void* memory) noexcept { std::free(memory); }

void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }
