#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "engine/guid.h"
#include "host/core/chance_hash.h"
#include "host/core/slot_table.h"

namespace host {

struct IdHash {
    std::uint64_t operator()(const CGuid& id) const { return chance_hash(id.bytes(), sizeof(GUID)); }
};

/// Identifiers, each once.
class IdSet {
public:
    /// For about so many.
    void reserve(std::size_t count) {
        m_ids.reserve(count);
        m_slots.make_room(count);
    }
    bool contains(const CGuid& id) const { return place_of(IdHash()(id), id) != SlotTable::none; }
    /// False if it is there already.
    bool insert(const CGuid& id) {
        const std::uint64_t hash = IdHash()(id);
        if (place_of(hash, id) != SlotTable::none) return false;
        m_slots.make_room_for_one();
        m_ids.push_back(id);
        m_slots.put({static_cast<SlotTable::Place>(m_ids.size() - 1), SlotTable::tag_of(hash)});
        return true;
    }

private:
    SlotTable::Place place_of(std::uint64_t hash, const CGuid& id) const {
        return m_slots.find(hash, [&](SlotTable::Place place) { return m_ids[place] == id; });
    }

    SlotTable m_slots;
    std::vector<CGuid> m_ids;
};

}  // namespace host
