#pragma once

#include <cstddef>

/// How often the program has asked for memory so far.
std::size_t allocations();

/// While it lives the allocation with the number `at`, from 0, fails.
class FailingAllocation {
public:
    explicit FailingAllocation(std::size_t at);
    FailingAllocation(const FailingAllocation&) = delete;
    FailingAllocation& operator=(const FailingAllocation&) = delete;
    ~FailingAllocation();
    /// It was asked for.
    bool was_met() const;
};
