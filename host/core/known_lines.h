#pragma once

// How lines of a project file begin. Thousands of its lines begin alike, with the same key behind the same blanks, and
// mostly follow one another in the same order: such a beginning is compared as a whole instead of being read.

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <deque>
#include <string>
#include <string_view>
#include <unordered_map>

#include "engine/guid.h"
#include "host/core/likely_next.h"
#include "host/core/plain_bytes.h"
#include "host/core/project_tree.h"
#include "host/core/text_buffer.h"

namespace host {

/// What stands ahead of a property's value, up to its quotation mark, or the whole tag that begins a node.
struct KnownLine {
    enum Kind : std::uint8_t { INT, BOOL, FLOAT, RECT, VEC3, VEC4, TEXT, NODE, EMPTY_NODE };

    std::string text;
    Kind kind;
    /// Of the property, or the name of the node.
    std::string key;
    int line_breaks;
    /// All of the line as it stood the last time, up to the end of its tag, and the value that it gave; of size 0 if
    /// that is not kept.
    LineText whole{};
    std::size_t whole_size = 0;
    ValueBits value{};
    LikelyNext<KnownLine> next{};

    /// `line` begins with `text`.
    void keep(std::string_view line, const ValueBits& given) {
        whole_size = line.size() <= whole.size() ? line.size() : 0;
        std::copy_n(line.data(), whole_size, whole.data());
        value = given;
    }
};

/// An identifier with its text, up to the quotation mark behind it; of all bytes 0 if none is known.
struct KnownId {
    std::array<char, guid_text::length + 1> text{};
    CGuid id;
};

inline bool stands_at(std::string_view text, const char* at, const char* end) {
    return static_cast<std::size_t>(end - at) >= text.size() && is_same(text, {at, text.size()});
}

class KnownLines {
public:
    KnownLines() = default;
    KnownLines(const KnownLines&) = delete;
    KnownLines& operator=(const KnownLines&) = delete;

    /// The line that stands there, if it stood behind the one found last before; else null, and it is to be read.
    KnownLine* find(const char* at, const char* end) {
        KnownLine* const line =
            m_last->next.find([at, end](const KnownLine& likely) { return stands_at(likely.text, at, end); });
        if (line) m_last = line;
        return line;
    }
    /// The line found most often behind the last one, if it stands there as it did the last time; else null.
    const KnownLine* find_whole(const char* at, const char* end) {
        KnownLine* const line = m_last->next.first();
        const bool is_there = line && line->whole_size > 0 && static_cast<std::size_t>(end - at) >= line->whole_size &&
                              std::memcmp(line->whole.data(), at, line->whole_size) == 0;
        if (!is_there) return nullptr;
        return m_last = line;
    }
    /// The one read last.
    KnownId& parent() { return m_parent; }
    /// A line that was read. `key` holds no references.
    void learn(std::string_view text, KnownLine::Kind kind, std::string_view key);

private:
    // Ahead of the first line.
    KnownLine m_none{};
    KnownLine* m_last = &m_none;
    std::deque<KnownLine> m_lines;
    KnownId m_parent;
    std::unordered_map<std::string_view, KnownLine*> m_by_text;
};

}  // namespace host
