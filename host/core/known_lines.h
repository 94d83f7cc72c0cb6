#pragma once

// How lines of a project file begin. Thousands of its lines begin alike, with the same key behind the same blanks, and
// mostly follow one another in the same order: such a beginning is compared as a whole instead of being read.

#include <cstdint>
#include <cstring>
#include <deque>
#include <string>
#include <string_view>
#include <unordered_map>

#include "host/core/plain_bytes.h"

namespace host {

/// What stands ahead of a property's value, up to its quotation mark, or the whole tag that begins a node.
struct KnownLine {
    enum Kind : std::uint8_t { INT, BOOL, FLOAT, RECT, VEC3, VEC4, TEXT, NODE, EMPTY_NODE };

    std::string text;
    Kind kind;
    /// Of the property, or the name of the node.
    std::string key;
    int line_breaks;
    /// What stood behind it, the last time and before that; null where nothing did.
    KnownLine* behind[2] = {};
};

class KnownLines {
public:
    KnownLines() = default;
    KnownLines(const KnownLines&) = delete;
    KnownLines& operator=(const KnownLines&) = delete;

    /// The line that stands there, if it stood behind the one found last before; else null, and it is to be read.
    const KnownLine* find(const char* at, const char* end) {
        KnownLine*(&likely)[2] = m_last->behind;
        for (KnownLine*& line : likely) {
            if (!line) break;
            const std::size_t size = line->text.size();
            if (static_cast<std::size_t>(end - at) < size || !is_same(line->text, {at, size})) continue;
            m_last = line;
            std::swap(line, likely[0]);
            return m_last;
        }
        return nullptr;
    }
    /// A line that was read. `key` holds no references.
    void learn(std::string_view text, KnownLine::Kind kind, std::string_view key);

private:
    // Ahead of the first line.
    KnownLine m_none{};
    KnownLine* m_last = &m_none;
    std::deque<KnownLine> m_lines;
    std::unordered_map<std::string_view, KnownLine*> m_by_text;
};

}  // namespace host
