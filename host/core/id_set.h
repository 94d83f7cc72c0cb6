#pragma once

#include <cstdint>
#include <cstring>
#include <utility>
#include <vector>

#include "engine/guid.h"

namespace host {

/// Identifiers in one table without a piece of memory for each. All bytes 0 is no identifier and never in it.
class IdSet {
public:
    /// False if it is there already.
    bool insert(const CGuid& id) {
        if ((m_count + 1) * 2 > m_places.size()) grow();
        CGuid& place = m_places[place_of(id)];
        if (!place.is_empty()) return false;
        place = id;
        ++m_count;
        return true;
    }
    bool contains(const CGuid& id) const { return m_count > 0 && m_places[place_of(id)] == id; }

private:
    // Where it stands, or the free place where it belongs. Half of the table is free.
    std::size_t place_of(const CGuid& id) const {
        std::uint64_t halves[2];
        std::memcpy(halves, id.bytes(), sizeof halves);
        // Identifiers may differ in any of their bytes alone, and each must reach the low bits.
        std::uint64_t mixed = (halves[1] ^ (halves[1] >> 32)) * 0x9E3779B97F4A7C15u;
        mixed ^= halves[0];
        mixed = (mixed ^ (mixed >> 32)) * 0xD6E8FEB86659FD93u;
        mixed ^= mixed >> 32;
        const std::size_t mask = m_places.size() - 1;
        std::size_t at = mixed & mask;
        while (!m_places[at].is_empty() && !(m_places[at] == id)) at = (at + 1) & mask;
        return at;
    }
    void grow() {
        constexpr std::size_t first_size = 64;
        std::vector<CGuid> former(m_places.empty() ? first_size : m_places.size() * 2);
        former.swap(m_places);
        for (const CGuid& id : former)
            if (!id.is_empty()) m_places[place_of(id)] = id;
    }

    std::vector<CGuid> m_places;
    std::size_t m_count = 0;
};

}  // namespace host
