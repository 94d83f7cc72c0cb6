#pragma once

#include <cstddef>
#include <vector>

namespace host {

/// Pointers by the hash of a key, in one piece of memory. What their keys are is the caller's business.
template <class T>
class PointerTable {
public:
    struct Place {
        T* pointer = nullptr;
        std::size_t hash = 0;
    };

    /// The place of the pointer of that hash for which `is_meant` holds, or null. Valid until the next change.
    template <class IsMeant>
    const Place* find(std::size_t hash, IsMeant is_meant) const {
        if (m_places.empty()) return nullptr;
        for (std::size_t at = home_of(hash); m_places[at].pointer; at = next(at)) {
            if (m_places[at].hash == hash && is_meant(*m_places[at].pointer)) return &m_places[at];
        }
        return nullptr;
    }
    void insert(std::size_t hash, T* pointer) {
        if ((m_count + 1) * 4 > m_places.size() * 3) resize(m_places.empty() ? least : m_places.size() * 2);
        ++m_count;
        put(hash, pointer);
    }
    void exchange(const Place* place, T* pointer) { m_places[index_of(place)].pointer = pointer; }
    // Those behind move up, so that no search ends ahead of them.
    void erase(const Place* place) {
        std::size_t free = index_of(place);
        for (std::size_t at = next(free); m_places[at].pointer; at = next(at)) {
            const std::size_t way = (at - home_of(m_places[at].hash)) & (m_places.size() - 1);
            const std::size_t gap = (at - free) & (m_places.size() - 1);
            if (way < gap) continue;
            m_places[free] = m_places[at];
            free = at;
        }
        m_places[free] = {};
        --m_count;
        if (m_count == 0 && m_places.size() > least) m_places = {};
    }

private:
    static constexpr std::size_t least = 64;

    std::size_t index_of(const Place* place) const { return static_cast<std::size_t>(place - m_places.data()); }
    std::size_t home_of(std::size_t hash) const { return hash & (m_places.size() - 1); }
    std::size_t next(std::size_t at) const { return (at + 1) & (m_places.size() - 1); }
    void put(std::size_t hash, T* pointer) {
        std::size_t at = home_of(hash);
        while (m_places[at].pointer) at = next(at);
        m_places[at] = {pointer, hash};
    }
    void resize(std::size_t size) {
        std::vector<Place> former(size);
        former.swap(m_places);
        for (const Place& place : former)
            if (place.pointer) put(place.hash, place.pointer);
    }

    // Their number is a power of two, and a quarter of them is free.
    std::vector<Place> m_places;
    std::size_t m_count = 0;
};

}  // namespace host
