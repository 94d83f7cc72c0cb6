#pragma once

// Fetches what a walk over many shapes will read a few steps on. The shapes of a large project lie all over the memory,
// and waiting for them one by one takes longer than all that is done with them.

#include <cstddef>

#include "layout/shape.h"

inline void fetch(const void* address) {
#if defined(__GNUC__)
    __builtin_prefetch(address);
#else
    (void)address;
#endif
}

/// In bytes, of what is fetched at once.
inline constexpr std::size_t cache_line = 64;

inline void fetch_all(const void* begin, std::size_t bytes) {
    if (!begin) return;
    for (std::size_t at = 0; at < bytes; at += cache_line) fetch(static_cast<const char*>(begin) + at);
}

inline constexpr std::size_t fetch_distance = 8;

/// Goes ahead of a walk over pointers to shapes from `at` to `end`: call next() at each step of it. `far` fetches parts
/// of a shape without reading them, so many steps ahead; `near`, half as far ahead, what those parts point to.
template <class Iterator, class Far, class Near>
class Approach {
public:
    Approach(Iterator at, Iterator end, Far far, Near near, std::size_t distance = fetch_distance)
        : m_far_at(at), m_near_at(at), m_end(end), m_far(far), m_near(near) {
        for (std::size_t step = 0; step < distance; ++step) go(m_far_at, m_far);
        for (std::size_t step = 0; step < distance / 2; ++step) go(m_near_at, m_near);
    }

    void next() {
        go(m_far_at, m_far);
        go(m_near_at, m_near);
    }

private:
    template <class Visit>
    void go(Iterator& at, Visit visit) {
        if (at == m_end) return;
        if (const CSimpleGUIShape* shape = *at++) visit(*shape);
    }

    Iterator m_far_at;
    Iterator m_near_at;
    Iterator m_end;
    Far m_far;
    Near m_near;
};
