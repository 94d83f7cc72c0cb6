#pragma once

#include <tsl/robin_set.h>

#include <cstdint>
#include <map>
#include <unordered_map>
#include <utility>

namespace host {

/// Finds actors by a key that several may share: the earliest created answers. Constant time whatever the number of
/// keys, and no copy of a key: `KeyOf` reads it from the actor, so it must not change while the actor is in the index.
/// No one may be able to make keys whose hashes meet: such would let the table grow without end.
template <class Actor, class KeyOf, class KeyHash>
class EarliestIndex {
public:
    /// The actor is not in the index yet.
    void add(Actor* actor) {
        const auto [entry, is_first] = m_entries.insert(Entry{actor});
        if (is_first) return;
        const bool is_earliest = actor->serial() < entry->first->serial();
        Actor* const later = is_earliest ? entry->first : actor;
        // What asks for memory comes ahead of all changes.
        m_others[entry->first].emplace(later->serial(), later);
        if (is_earliest) put_back(m_others.extract(entry->first), *entry, actor);
    }
    /// An actor that is not in the index is passed over. Asks for no memory.
    void remove(const Actor* actor) {
        const auto entry = m_entries.find(KeyOf()(*actor));
        if (entry == m_entries.end()) return;
        auto others = m_others.extract(entry->first);
        if (entry->first != actor) {
            if (!others.empty()) others.mapped().erase(actor->serial());
            put_back(std::move(others), *entry, entry->first);
        } else if (others.empty() || others.mapped().empty()) {
            m_entries.erase(entry);
        } else {
            Actor* const next = others.mapped().extract(others.mapped().begin()).mapped();
            put_back(std::move(others), *entry, next);
        }
    }
    void clear() {
        m_entries.clear();
        m_others.clear();
    }
    static auto key_of(const Actor& actor) { return KeyOf()(actor); }
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
    using OthersByFirst = std::unordered_map<const Actor*, Others>;
    // A node that was taken out goes in again without a question for memory: there is room for as many as before.
    void put_back(typename OthersByFirst::node_type others, const Entry& entry, Actor* first) {
        entry.first = first;
        if (others.empty() || others.mapped().empty()) return;
        others.key() = first;
        m_others.insert(std::move(others));
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
    // In one block, with the hashes beside the entries: a look-up reads one place, then the actor itself. It holds
    // twice as many in its room as it does by itself.
    struct Table : tsl::robin_set<Entry, Hash, Equal, std::allocator<Entry>, true> {
        Table() { this->max_load_factor(0.75f); }
    };
    Table m_entries;
    // Those behind the first of a key, by that first; most keys have none.
    OthersByFirst m_others;
};

}  // namespace host
