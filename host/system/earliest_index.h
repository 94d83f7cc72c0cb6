#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <unordered_set>

namespace host {

/// Finds actors by a key that several may share: the earliest created answers. Constant time whatever the number of
/// keys, and no copy of a key: `KeyOf` reads it from the actor, so it must not change while the actor is in the index.
template <class Actor, class KeyOf, class KeyHash>
class EarliestIndex {
public:
    /// The actor is not in the index yet.
    void add(Actor* actor) {
        const auto [entry, is_first] = m_entries.insert(Entry{actor, nullptr});
        if (is_first) return;
        if (actor->serial() < entry->first->serial()) std::swap(actor, entry->first);
        if (!entry->others) entry->others = std::make_unique<Others>();
        entry->others->emplace(actor->serial(), actor);
    }
    /// An actor that is not in the index is passed over.
    void remove(const Actor* actor) {
        const auto entry = m_entries.find(KeyOf()(*actor));
        if (entry == m_entries.end()) return;
        if (entry->first != actor) {
            if (entry->others) entry->others->erase(actor->serial());
        } else if (entry->others && !entry->others->empty()) {
            entry->first = entry->others->extract(entry->others->begin()).mapped();
        } else {
            m_entries.erase(entry);
        }
    }
    /// Null if there is none.
    template <class Key>
    Actor* find(const Key& key) const {
        const auto entry = m_entries.find(key);
        return entry == m_entries.end() ? nullptr : entry->first;
    }

private:
    using Others = std::map<std::uint64_t, Actor*>;
    // Those that share a key; exchanging the first for another of them leaves the key what it is.
    struct Entry {
        mutable Actor* first;
        mutable std::unique_ptr<Others> others;
    };
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
    std::unordered_set<Entry, Hash, Equal> m_entries;
};

}  // namespace host
