#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "host/core/fetch.h"

namespace host {

/// Finds the places of a list by a hash. A slot is 8 bytes, so that a look reads one line of the processor's cache, and
/// then as a rule the place that it looks for and no other. The hash must be one that no one can foresee.
class SlotTable {
public:
    using Place = std::uint32_t;
    static constexpr Place none = 0xFFFFFFFF;

    /// What is kept of an entry where it can be had at once, so that nothing need be looked for to take it out.
    struct Spot {
        Place place = none;
        /// The lower half of the hash, which says where looks begin in a table of whatever size.
        std::uint32_t tag = 0;
    };
    static std::uint32_t tag_of(std::uint64_t hash) { return static_cast<std::uint32_t>(hash); }

    /// The place put in with that hash which is the one meant, or none.
    template <class IsIt>
    Place find(std::uint64_t hash, IsIt is_it) const {
        if (m_slots.empty()) return none;
        for (std::size_t at = hash & m_mask;; at = (at + 1) & m_mask) {
            const Spot& slot = m_slots[at];
            if (slot.place == none) return none;
            if (slot.tag == tag_of(hash) && is_it(slot.place)) return slot.place;
        }
    }
    /// For so many in all. This and the next are the only ones that ask for memory.
    void make_room(std::size_t count) {
        if (count * 4 <= m_slots.size() * 3) return;
        std::size_t larger = m_slots.empty() ? fewest : m_slots.size() * 2;
        while (count * 4 > larger * 3) larger *= 2;
        std::vector<Spot> former(larger);
        former.swap(m_slots);
        m_mask = m_slots.size() - 1;
        for (const Spot& slot : former)
            if (slot.place != none) put_in(slot);
    }
    void make_room_for_one() { make_room(m_count + 1); }
    void put(const Spot& spot) {
        put_in(spot);
        ++m_count;
    }
    /// It is there.
    void erase(const Spot& spot) {
        std::size_t hole = spot.tag & m_mask;
        while (m_slots[hole].place != spot.place) hole = (hole + 1) & m_mask;
        --m_count;
        // Each behind the hole moves up into it, unless that would take it ahead of where looks for it begin.
        for (std::size_t at = (hole + 1) & m_mask; m_slots[at].place != none; at = (at + 1) & m_mask) {
            if (((at - m_slots[at].tag) & m_mask) < ((at - hole) & m_mask)) continue;
            m_slots[hole] = m_slots[at];
            hole = at;
        }
        m_slots[hole] = Spot();
    }
    void fetch_slot_of(const Spot& spot) const {
        if (!m_slots.empty()) fetch(&m_slots[spot.tag & m_mask]);
    }
    void clear() {
        m_slots = {};
        m_count = 0;
    }

private:
    static constexpr std::size_t fewest = 16;
    void put_in(const Spot& slot) {
        std::size_t at = slot.tag & m_mask;
        while (m_slots[at].place != none) at = (at + 1) & m_mask;
        m_slots[at] = slot;
    }

    // A power of two of them, three quarters in use at most.
    std::vector<Spot> m_slots;
    std::size_t m_mask = 0;
    std::size_t m_count = 0;
};

}  // namespace host
