#pragma once

// The lines of a project that were written last, for those to come: items of one kind have the same lines in the same
// order, many of them with the same values, and such a line is copied instead of being put together.

#include <cstddef>
#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <unordered_map>

#include "host/core/likely_next.h"
#include "host/core/plain_bytes.h"
#include "host/core/project_tree.h"
#include "host/core/text_buffer.h"

namespace host {

/// The last line of its kind and key.
struct FormerLine {
    enum Node : std::uint8_t { NODE = std::variant_size_v<PropertyValue>, EMPTY_NODE };

    /// The number of the value's kind, or one of the above.
    std::uint8_t kind = 0;
    std::size_t depth = 0;
    /// Of the property, or the name of the node. Without anything that has to be escaped.
    std::string key;
    LineText text;
    /// Up to the key's quotation mark.
    std::size_t head = 0;
    /// As a whole, with its value; 0 if that is not kept.
    std::size_t whole = 0;
    /// Of the value.
    ValueBits bits{};
    LikelyNext<FormerLine> next{};

    void keep(std::string_view line, const ValueBits& value) {
        whole = line.size() <= text.size() ? line.size() : 0;
        std::memcpy(text.data() + head, line.data() + head, whole > 0 ? whole - head : 0);
        bits = value;
    }
};

class FormerLines {
public:
    FormerLines() = default;
    FormerLines(const FormerLines&) = delete;
    FormerLines& operator=(const FormerLines&) = delete;

    /// Null if there is none.
    FormerLine* find(std::uint8_t kind, std::size_t depth, std::string_view key) {
        FormerLine* const line = m_last->next.find([&](const FormerLine& likely) {
            return likely.kind == kind && likely.depth == depth && is_same(likely.key, key);
        });
        if (!line) return find_elsewhere(kind, depth, key);
        return m_last = line;
    }
    /// One that was not found was begun, with `head`; null if it is too long, or there are too many already.
    FormerLine* add(std::uint8_t kind, std::size_t depth, std::string_view key, std::string_view head);

private:
    FormerLine* find_elsewhere(std::uint8_t kind, std::size_t depth, std::string_view key);
    void follow(FormerLine& line);

    // Ahead of the first line.
    FormerLine m_none;
    FormerLine* m_last = &m_none;
    std::deque<FormerLine> m_lines;
    std::unordered_map<std::string, FormerLine*> m_by_name;
};

}  // namespace host
