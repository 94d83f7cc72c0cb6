#pragma once

// Text that grows at its end, written without a look at its size for each piece.

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>
#include <memory>
#include <string_view>

namespace host {

/// A place for a line of a usual length.
using LineText = std::array<char, 96>;

class TextBuffer {
public:
    void reserve(std::size_t size) {
        if (size > m_capacity) move_to(size);
    }
    /// Where the next byte goes; so many bytes may be written there ahead of end_at.
    char* room(std::size_t most) {
        if (most > m_capacity - m_size) move_to(std::max(m_size + most, m_capacity * 2));
        return m_bytes.get() + m_size;
    }
    /// The text now ends there; `end` lies in the last room.
    void end_at(const char* end) { m_size = static_cast<std::size_t>(end - m_bytes.get()); }
    void append(std::string_view text) { end_at(put(room(text.size()), text)); }

    /// The first bytes of a line that is kept.
    void append(const LineText& line, std::size_t size) {
        // A copy of a size known in advance takes a few steps. What it brings along lies behind the end.
        std::memcpy(room(line.size()), line.data(), line.size());
        m_size += size;
    }

    std::size_t size() const { return m_size; }
    void clear() { m_size = 0; }
    /// Valid until the text grows.
    std::string_view from(std::size_t begin) const { return {m_bytes.get() + begin, m_size - begin}; }

    /// Copies the text and gives the place behind it.
    static char* put(char* to, std::string_view text) {
        std::memcpy(to, text.data(), text.size());
        return to + text.size();
    }
    /// The same of a literal.
    template <std::size_t Size>
    static char* put(char* to, const char (&text)[Size]) {
        std::memcpy(to, text, Size - 1);
        return to + Size - 1;
    }

private:
    void move_to(std::size_t capacity) {
        std::unique_ptr<char[]> moved(new char[capacity]);
        if (m_size > 0) std::memcpy(moved.get(), m_bytes.get(), m_size);
        m_bytes = std::move(moved);
        m_capacity = capacity;
    }

    std::unique_ptr<char[]> m_bytes;
    std::size_t m_size = 0;
    std::size_t m_capacity = 0;
};

}  // namespace host
