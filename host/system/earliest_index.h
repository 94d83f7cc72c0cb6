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
/// such would make every look-up a walk.
template <class Actor, class KeyOf, class KeyHash>
class EarliestIndex {
public:
    using Key = std::invoke_result_t<KeyOf, const Actor&>;

    /// The actor is not in the index yet.
    void add(Actor* actor) {
        const Key key = key_of(*actor);
        const std::uint64_t hash = KeyHash()(key);
        if (const Place place = place_of(hash, key); place != SlotTable::none)
            return add_behind(m_entries[place], actor);
        // What asks for memory comes ahead of all changes.
        m_slots.make_room_for_one();
        if (m_free == SlotTable::none) {
            m_entries.push_back({key, {actor}});
            m_slots.put(hash, static_cast<Place>(m_entries.size() - 1));
        } else {
            const Place place = m_free;
            m_free = m_entries[place].next_free;
            m_entries[place] = {key, {actor}};
            m_slots.put(hash, place);
        }
    }
    /// An actor that is not in the index is passed over. Asks for no memory.
    void remove(const Actor* actor) {
        const Key key = key_of(*actor);
        const std::uint64_t hash = KeyHash()(key);
        const Place place = place_of(hash, key);
        if (place == SlotTable::none) return;
        Entry& entry = m_entries[place];
        auto others = m_others.extract(entry.first);
        if (entry.first != actor) {
            if (!others.empty()) others.mapped().erase(actor->serial());
            put_back(std::move(others), entry, entry.first);
        } else if (others.empty() || others.mapped().empty()) {
            m_slots.erase(hash, place);
            entry.next_free = m_free;
            m_free = place;
        } else {
            Actor* const next = others.mapped().extract(others.mapped().begin()).mapped();
            put_back(std::move(others), entry, next);
        }
    }
    void clear() {
        m_slots.clear();
        m_entries = {};
        m_free = SlotTable::none;
        m_others.clear();
    }
    static auto key_of(const Actor& actor) { return KeyOf()(actor); }
    /// Null if there is none.
    Actor* find(const Key& key) const {
        const Place place = place_of(KeyHash()(key), key);
        return place == SlotTable::none ? nullptr : m_entries[place].first;
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
    // Those behind the first of a key, by that first; most keys have none.
    OthersByFirst m_others;
};

}  // namespace host
