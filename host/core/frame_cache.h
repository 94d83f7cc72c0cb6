#pragma once

#include <cstddef>
#include <cstdint>
#include <list>
#include <unordered_map>
#include <utility>

namespace host {

/// Keeps made things as long as frames ask for them. A look-up that finds allocates nothing. A key may be a view into
/// its own value, if moving the value leaves what the view names where it is.
template <class Key, class Value, class Hash>
class FrameCache {
public:
    /// What was not asked for in `frames_kept` frames goes; so does the longest unused when the costs of all pass the
    /// limit. The entry just added always stays, whatever it costs.
    FrameCache(std::size_t cost_limit, std::uint64_t frames_kept)
        : m_cost_limit(cost_limit), m_frames_kept(frames_kept) {}

    /// Null if there is none. Valid until the next call to add, next_frame or clear.
    Value* find(const Key& key) {
        const auto found = m_index.find(key);
        if (found == m_index.end()) return nullptr;
        const auto entry = found->second;
        entry->last_used = m_frame;
        m_entries.splice(m_entries.begin(), m_entries, entry);
        return &entry->value;
    }

    /// There must be no entry of that key yet.
    Value& add(const Key& key, Value value, std::size_t cost) {
        m_entries.push_front({key, std::move(value), cost, m_frame});
        try {
            m_index.emplace(key, m_entries.begin());
        } catch (...) {
            m_entries.pop_front();
            throw;
        }
        m_cost += cost;
        while (m_cost > m_cost_limit && m_entries.size() > 1) drop_last();
        return m_entries.front().value;
    }

    void next_frame() {
        ++m_frame;
        while (!m_entries.empty() && m_entries.back().last_used + m_frames_kept < m_frame) drop_last();
    }

    void clear() {
        m_index.clear();
        m_entries.clear();
        m_cost = 0;
    }

    std::size_t size() const { return m_entries.size(); }

private:
    struct Entry {
        Key key;
        Value value;
        std::size_t cost;
        std::uint64_t last_used;
    };

    void drop_last() {
        m_cost -= m_entries.back().cost;
        m_index.erase(m_entries.back().key);
        m_entries.pop_back();
    }

    // The last used first.
    std::list<Entry> m_entries;
    std::unordered_map<Key, typename std::list<Entry>::iterator, Hash> m_index;
    std::size_t m_cost = 0;
    std::size_t m_cost_limit;
    std::uint64_t m_frames_kept;
    std::uint64_t m_frame = 0;
};

/// Joins the hash of one more part to that of the parts before it.
inline std::size_t joined_hash(std::size_t before, std::size_t part) {
    return before ^ (part + 0x9E3779B97F4A7C15u + (before << 6) + (before >> 2));
}

}  // namespace host
