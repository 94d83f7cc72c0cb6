#pragma once

#include <cstddef>

namespace host {

/// Has the processor bring what will be read soon, while other things are done. The address need not be one of
/// anything.
inline void fetch(const void* address) {
#if defined(__GNUC__)
    __builtin_prefetch(address);
#else
    (void)address;
#endif
}

/// Null is passed over.
inline void fetch_all(const void* begin, std::size_t bytes) {
    if (!begin) return;
    constexpr std::size_t cache_line = 64;
    for (std::size_t at = 0; at < bytes; at += cache_line) fetch(static_cast<const char*>(begin) + at);
}

}  // namespace host
