#pragma once

#include <cstddef>
#include <vector>

#include "animation/key.h"
#include "layout/approach.h"

/// Fetches what comes next a few lines of the processor's cache at a time, while others are worked on: a processor
/// waits for some two dozen lines at once, and drops what it is asked for beyond them. What is named must stay as it is
/// until all is fetched. What there is no room for is not fetched.
class SpreadFetch {
public:
    void add(const void* begin, std::size_t bytes) {
        if (!begin || m_blocks.is_full()) return;
        const auto* at = static_cast<const char*>(begin);
        m_blocks.add(at, at + bytes);
    }
    void add_keys(const std::vector<IKey*>& keys) {
        if (!m_keys.is_full()) m_keys.add(keys.data(), keys.data() + keys.size());
    }
    void step() {
        constexpr int lines_in_step = 3;
        for (int line = 0; line < lines_in_step; ++line) fetch_one();
    }
    /// What is left, where there was little to work on.
    void finish() {
        while (fetch_one()) {
        }
    }

private:
    template <class T, std::size_t Most>
    class Ranges {
    public:
        bool is_full() const { return m_count == Most; }
        void add(const T* begin, const T* end) { m_all[m_count++] = {begin, end}; }
        /// The next element, of which `width` are passed; null if there is none.
        const T* next(std::size_t width) {
            for (; m_at < m_count; ++m_at) {
                Range& range = m_all[m_at];
                if (range.begin >= range.end) continue;
                const T* const element = range.begin;
                range.begin += width;
                return element;
            }
            return nullptr;
        }

    private:
        struct Range {
            const T* begin;
            const T* end;
        };
        Range m_all[Most];
        std::size_t m_count = 0;
        std::size_t m_at = 0;
    };

    // False if nothing is left.
    bool fetch_one() {
        const char* const block = m_blocks.next(cache_line);
        IKey* const* const key = block ? nullptr : m_keys.next(1);
        if (!block && !key) return false;
        fetch(block ? static_cast<const void*>(block) : *key);
        return true;
    }

    // Of the nodes to come, and the keys of the tracks of the next one that are rescaled.
    Ranges<char, 16> m_blocks;
    Ranges<IKey*, 3> m_keys;
};
