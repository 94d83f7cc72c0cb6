#pragma once

#include <cstdint>
#include <map>
#include <unordered_map>
#include <utility>

#include "host/system/pointer_table.h"

namespace host {

/// Finds actors by a key that several may share: the earliest created answers. Constant time whatever the number of
/// keys, and no copy of a key: `KeyOf` reads it from the actor, so it must not change while the actor is in the index.
template <class Actor, class KeyOf, class KeyHash>
class EarliestIndex {
public:
    /// The actor is not in the index yet.
    void add(Actor* actor) {
        const auto key = KeyOf()(*actor);
        const std::size_t hash = KeyHash()(key);
        const Place* place = place_of(key, hash);
        if (!place) {
            m_firsts.insert(hash, actor);
            return;
        }
        Others others = taken_others(place->pointer);
        if (actor->serial() < place->pointer->serial()) {
            Actor* const later = place->pointer;
            m_firsts.exchange(place, actor);
            actor = later;
        }
        others.emplace(actor->serial(), actor);
        m_others.emplace(place->pointer, std::move(others));
    }
    /// An actor that is not in the index is passed over.
    void remove(const Actor* actor) {
        const auto key = KeyOf()(*actor);
        const Place* place = place_of(key, KeyHash()(key));
        if (!place) return;
        Others others = taken_others(place->pointer);
        if (place->pointer != actor) {
            others.erase(actor->serial());
        } else if (others.empty()) {
            m_firsts.erase(place);
            return;
        } else {
            m_firsts.exchange(place, others.extract(others.begin()).mapped());
        }
        if (!others.empty()) m_others.emplace(place->pointer, std::move(others));
    }
    /// Null if there is none.
    template <class Key>
    Actor* find(const Key& key) const {
        const Place* place = place_of(key, KeyHash()(key));
        return place ? place->pointer : nullptr;
    }

private:
    using Others = std::map<std::uint64_t, Actor*>;
    using Place = typename PointerTable<Actor>::Place;

    template <class Key>
    const Place* place_of(const Key& key, std::size_t hash) const {
        return m_firsts.find(hash, [&key](const Actor& actor) { return key == KeyOf()(actor); });
    }
    Others taken_others(const Actor* first) {
        if (m_others.empty()) return {};
        auto node = m_others.extract(first);
        return node.empty() ? Others() : std::move(node.mapped());
    }

    PointerTable<Actor> m_firsts;
    // Those behind the first of a key, by that first; most keys have none.
    std::unordered_map<const Actor*, Others> m_others;
};

}  // namespace host
