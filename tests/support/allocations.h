#pragma once

#include <cstddef>

/// How often the program has asked for memory so far.
std::size_t allocations();
