#pragma once

#include <tsl/robin_set.h>

#include <cstdint>
#include <map>
#include <unordered_map>
#include <utility>

namespace host {

/// Finds actors by a key that several may share: the earliest created answers. Constant time whatever the number of
/// keys, and no copy of a key: `KeyOf` reads it from the actor, so it must not change while the actor is in the index.
template <class Actor, class KeyOf, class KeyHash>
class EarliestIndex {
public:
    /// The actor is not in the index yet.
    void add(Actor* actor) {
        const auto [entry, is_first] = m_entries.insert(Entry{actor});
        if (is_first) return;
        Others others = taken_others(entry->first);
        if (actor->serial() < entry->first->serial()) std::swap(actor, entry->first);
        others.emplace(actor->serial(), actor);
        m_others.emplace(entry->first, std::move(others));
    }
    /// An actor that is not in the index is passed over.
    void remove(const Actor* actor) {
        const auto entry = m_entries.find(KeyOf()(*actor));
        if (entry == m_entries.end()) return;
        Others others = taken_others(entry->first);
        if (entry->first != actor) {
            others.erase(actor->serial());
        } else if (others.empty()) {
            m_entries.erase(entry);
            return;
        } else {
            entry->first = others.extract(others.begin()).mapped();
        }
        if (!others.empty()) m_others.emplace(entry->first, std::move(others));
    }
    /// Null if there is none.
    template <class Key>
    Actor* find(const Key& key) const {
        const auto entry = m_entries.find(key);
        return entry == m_entries.end() ? nullptr : entry->first;
    }

private:
    using Others = std::map<std::uint64_t, Actor*>;
    // Exchanging the first of a key for another of them leaves the key what it is.
    struct Entry {
        mutable Actor* first;
    };
    Others taken_others(const Actor* first) {
        auto node = m_others.extract(first);
        return node.empty() ? Others() : std::move(node.mapped());
    }
    struct Hash {
        using is_transparent = void;
        std::size_t operator()(const Entry& entry) const { return KeyHash()(KeyOf()(*entry.first)); }
        template <class Key>
        std::size_t operator()(const Key& key) const {
            return KeyHash()(key);
        }
    };
    struct Equal {
        using is_transparent = void;
        bool operator()(const Entry& a, const Entry& b) const { return KeyOf()(*a.first) == KeyOf()(*b.first); }
        template <class Key>
        bool operator()(const Key& key, const Entry& entry) const {
            return key == KeyOf()(*entry.first);
        }
        template <class Key>
        bool operator()(const Entry& entry, const Key& key) const {
            return key == KeyOf()(*entry.first);
        }
    };
    // In one block, with the hashes beside the entries: a look-up reads one place, then the actor itself.
    tsl::robin_set<Entry, Hash, Equal, std::allocator<Entry>, true> m_entries;
    // Those behind the first of a key, by that first; most keys have none.
    std::unordered_map<const Actor*, Others> m_others;
};

}  // namespace host
