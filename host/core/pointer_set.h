#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "host/core/fetch.h"

namespace host {

/// Which pointers are known, so that one from outside is checked ahead of use. Nothing that they lead to is touched. A
/// look reads one line of the processor's cache as a rule.
template <class T>
class PointerSet {
public:
    bool contains(const T* pointer) const { return pointer && !m_slots.empty() && m_slots[slot_of(pointer)]; }
    void fetch_place_of(const T* pointer) const {
        if (!m_slots.empty()) fetch(&m_slots[home_of(pointer)]);
    }
    /// It is not there yet, and not null. Without memory nothing changes.
    void insert(const T* pointer) {
        if ((m_count + 1) * 4 > m_slots.size() * 3) grow();
        m_slots[slot_of(pointer)] = pointer;
        ++m_count;
    }
    /// It need not be there.
    void erase(const T* pointer) {
        if (!contains(pointer)) return;
        std::size_t hole = slot_of(pointer);
        --m_count;
        // Each behind the hole moves up into it, unless that would take it ahead of where looks for it begin.
        for (std::size_t at = next(hole); m_slots[at]; at = next(at)) {
            if (distance(home_of(m_slots[at]), at) < distance(hole, at)) continue;
            m_slots[hole] = m_slots[at];
            hole = at;
        }
        m_slots[hole] = nullptr;
    }

private:
    static constexpr std::size_t fewest = 16;

    // Objects lie on multiples of their alignment, and one behind the other.
    std::size_t home_of(const T* pointer) const {
        const auto number = static_cast<std::uint64_t>(reinterpret_cast<std::uintptr_t>(pointer)) / alignof(T);
        return static_cast<std::size_t>(number * 0x9E3779B97F4A7C15u >> 20) & (m_slots.size() - 1);
    }
    std::size_t next(std::size_t at) const { return (at + 1) & (m_slots.size() - 1); }
    std::size_t distance(std::size_t from, std::size_t to) const { return (to - from) & (m_slots.size() - 1); }
    // Where it is, or where it would go in.
    std::size_t slot_of(const T* pointer) const {
        std::size_t at = home_of(pointer);
        while (m_slots[at] && m_slots[at] != pointer) at = next(at);
        return at;
    }
    void grow() {
        std::vector<const T*> former(m_slots.empty() ? fewest : m_slots.size() * 2);
        former.swap(m_slots);
        for (const T* pointer : former)
            if (pointer) m_slots[slot_of(pointer)] = pointer;
    }

    // A power of two of them, three quarters in use at most; null where there is none.
    std::vector<const T*> m_slots;
    std::size_t m_count = 0;
};

}  // namespace host
