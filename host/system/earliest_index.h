#pragma once

#include <cstdint>
#include <map>
#include <type_traits>
#include <unordered_map>
#include <utility>
#include <vector>

#include "host/core/slot_table.h"

namespace host {

/// Finds actors by a key that several may share: the earliest created answers. Constant time whatever the number of
/// keys. `KeyOf` reads the key from the actor, which the index keeps beside it, so that a look-up reads no actor: what
/// a key stands for must not change while the actor is in the index. No one may be able to make keys whose hashes meet:
/// such would make every look-up a walk. `spot` is a field of the actor, which belongs to the index; `in_turn` is for
/// indexes of which find_in_turn is asked.
template <class Actor, class KeyOf, class KeyHash, SlotTable::Spot Actor::*spot, bool in_turn = false>
class EarliestIndex {
public:
    using Key = std::invoke_result_t<KeyOf, const Actor&>;

    /// The actor is not in the index yet.
    void add(Actor* actor) {
        const Key key = key_of(*actor);
        const std::uint64_t hash = KeyHash()(key);
        if (const Place place = place_of(hash, key); place != SlotTable::none) {
            add_behind(m_entries[place], actor);
            actor->*spot = {place, SlotTable::tag_of(hash)};
            return;
        }
        // What asks for memory comes ahead of all changes.
        m_slots.make_room_for_one();
        const auto end = static_cast<Place>(m_entries.size());
        const Place place = m_free == SlotTable::none ? end : m_free;
        if (place == end) {
            if constexpr (in_turn) m_behind.resize(m_entries.size() + 1);
            m_entries.push_back({key, {actor}});
        } else {
            m_free = m_entries[place].next_free;
            m_entries[place] = {key, {actor}};
        }
        if constexpr (in_turn) m_behind[place] = place + 1;
        actor->*spot = {place, SlotTable::tag_of(hash)};
        m_slots.put(actor->*spot);
    }
    /// Has fetched what remove will read.
    void approach(const Actor& actor) const {
        const SlotTable::Spot& at = actor.*spot;
        if (at.place >= m_entries.size()) return;
        m_slots.fetch_slot_of(at);
        fetch_entry(at.place);
    }
    /// An actor that is not in the index is passed over. Asks for no memory.
    void remove(Actor* actor) {
        const SlotTable::Spot at = std::exchange(actor->*spot, {});
        // Also of an index that was cleared meanwhile.
        if (at.place >= m_entries.size()) return;
        Entry& entry = m_entries[at.place];
        auto others = m_others.empty() ? typename OthersByFirst::node_type() : m_others.extract(entry.first);
        if (entry.first != actor) {
            if (!others.empty()) others.mapped().erase(actor->serial());
            put_back(std::move(others), entry, entry.first);
        } else if (others.empty() || others.mapped().empty()) {
            m_slots.erase(at);
            entry.next_free = m_free;
            m_free = at.place;
            if constexpr (in_turn) m_behind[at.place] = SlotTable::none;
            if (m_last_asked == at.place) m_last_asked = SlotTable::none;
        } else {
            Actor* const next = others.mapped().extract(others.mapped().begin()).mapped();
            put_back(std::move(others), entry, next);
        }
    }
    void clear() {
        m_slots.clear();
        m_entries = {};
        m_behind = {};
        m_free = m_last_asked = SlotTable::none;
        m_others.clear();
    }
    static auto key_of(const Actor& actor) { return KeyOf()(actor); }
    /// Null if there is none.
    Actor* find(const Key& key) const {
        const Place place = place_of(KeyHash()(key), key);
        return place == SlotTable::none ? nullptr : m_entries[place].first;
    }
    /// The same, for who asks for many keys in the same order each time; at first that of the entries is expected. As a
    /// rule it reads the entry itself, which was fetched while the look-up ahead of it was answered, and no slot.
    Actor* find_in_turn(const Key& key) requires in_turn {
        if (m_last_asked != SlotTable::none) {
            const Place expected = m_behind[m_last_asked];
            const bool is_there = expected < m_entries.size() && m_behind[expected] != SlotTable::none;
            if (is_there && m_entries[expected].key == key) {
                m_last_asked = expected;
                fetch_entry(m_behind[expected]);
                return m_entries[expected].first;
            }
        }
        const Place place = place_of(KeyHash()(key), key);
        if (place == SlotTable::none) return nullptr;
        if (m_last_asked != SlotTable::none) m_behind[m_last_asked] = place;
        m_last_asked = place;
        return m_entries[place].first;
    }
    /// The key of the actor that find gives, as it was read from it, or null.
    const Key* find_key(const Key& key) const {
        const Place place = place_of(KeyHash()(key), key);
        return place == SlotTable::none ? nullptr : &m_entries[place].key;
    }

private:
    using Place = SlotTable::Place;
    // The earliest with its key; of an entry that is free, the next one that is.
    struct Entry {
        Key key;
        union {
            Actor* first;
            Place next_free;
        };
    };
    using Others = std::map<std::uint64_t, Actor*>;
    using OthersByFirst = std::unordered_map<const Actor*, Others>;

    Place place_of(std::uint64_t hash, const Key& key) const {
        return m_slots.find(hash, [&](Place place) { return m_entries[place].key == key; });
    }
    void fetch_entry(Place place) const {
        if (place >= m_entries.size()) return;
        fetch(&m_entries[place]);
        fetch(&m_entries[place].first);
    }
    void add_behind(Entry& entry, Actor* actor) {
        const bool is_earliest = actor->serial() < entry.first->serial();
        Actor* const later = is_earliest ? entry.first : actor;
        // What asks for memory comes ahead of all changes.
        m_others[entry.first].emplace(later->serial(), later);
        if (is_earliest) put_back(m_others.extract(entry.first), entry, actor);
    }
    // A node that was taken out goes in again without a question for memory: there is room for as many as before.
    void put_back(typename OthersByFirst::node_type others, Entry& entry, Actor* first) {
        // The key may stand on a name of the former first.
        entry = {key_of(*first), {first}};
        if (others.empty() || others.mapped().empty()) return;
        others.key() = first;
        m_others.insert(std::move(others));
    }

    SlotTable m_slots;
    std::vector<Entry> m_entries;
    Place m_free = SlotTable::none;
    // For find_in_turn: what was asked for behind each entry, none in one that is free.
    std::vector<Place> m_behind;
    // Never a free one.
    Place m_last_asked = SlotTable::none;
    // Those behind the first of a key, by that first; most keys have none.
    OthersByFirst m_others;
};

}  // namespace host
