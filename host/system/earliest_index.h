#pragma once

#include <cstdint>
#include <map>
#include <unordered_map>

namespace host {

/// Finds actors by a key that several may share: the earliest created answers. Constant time whatever the number of
/// keys. `Hash` and `Equal` may be transparent, so that a look-up needs no copy of the key.
template <class Key, class Actor, class Hash, class Equal = std::equal_to<>>
class EarliestIndex {
public:
    void add(const Key& key, std::uint64_t serial, Actor* actor) { m_entries[key].emplace(serial, actor); }
    void remove(const Key& key, std::uint64_t serial) {
        const auto entry = m_entries.find(key);
        if (entry == m_entries.end()) return;
        entry->second.erase(serial);
        if (entry->second.empty()) m_entries.erase(entry);
    }
    /// Null if there is none.
    template <class AnyKey>
    Actor* find(const AnyKey& key) const {
        const auto entry = m_entries.find(key);
        return entry == m_entries.end() ? nullptr : entry->second.begin()->second;
    }

private:
    std::unordered_map<Key, std::map<std::uint64_t, Actor*>, Hash, Equal> m_entries;
};

}  // namespace host
