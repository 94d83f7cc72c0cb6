#pragma once

// The names that a font file declares, read from its bytes. Knows nothing of files, of text encodings or of the table
// of fonts: where bytes come from is the caller's, and what narrow text means is asked for later.

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

/// A full name or a PostScript name as the file holds it. Never empty.
struct StoredName {
    enum Text {
        /// `narrow` holds bytes in the engine's narrow encoding.
        NARROW,
        /// `narrow` holds Big5 bytes.
        BIG5,
        /// `wide` holds the text.
        WIDE,
    };
    Text text = NARROW;
    std::string narrow;
    std::u16string wide;
};

/// The bytes of a file. What is read is many pieces of a few bytes, near each other.
class ByteSource {
public:
    ByteSource() = default;
    ByteSource(const ByteSource&) = delete;
    ByteSource& operator=(const ByteSource&) = delete;

    /// So many bytes from that position on, fewer only where the file ends. Valid until the next look.
    std::span<const unsigned char> look(std::uint64_t position, std::size_t count) {
        const std::uint64_t begin = position - m_start;
        const bool is_there = position >= m_start && begin <= m_there.size() && count <= m_there.size() - begin;
        return is_there ? m_there.subspan(static_cast<std::size_t>(begin), count) : fetch(position, count);
    }

protected:
    ~ByteSource() = default;
    /// The same for bytes that are not there. May put more there, for the next looks.
    virtual std::span<const unsigned char> fetch(std::uint64_t position, std::size_t count) = 0;

    /// What is there, and where it stands in the file.
    std::uint64_t m_start = 0;
    std::span<const unsigned char> m_there;
};

// Both give the names in the order in which they are met, repetitions included. Any bytes whatever end in a list of
// moderate size after moderate work:
// - Where a read comes short, reading ends; the names met before it count. A count that promises more than the file
//   holds is such a read, so a collection whose list of offsets is cut off gives nothing.
// - A text is cut to 16382 bytes or units, which is what longest_text says. Once a file has given most_text bytes of
//   texts, those that don't fit any more are passed over; the walk goes on.
// - A file that asks for more than most_bytes altogether, as one with a million entries on the same tables does, ends
//   there like a short one.

constexpr std::size_t longest_text = 16382;
/// Hundreds of times what a font needs, which is about two thousand bytes.
constexpr std::size_t most_text = 256u << 10;
constexpr std::uint64_t most_bytes = 32u << 20;

/// Of a file with one font; nothing of a file that doesn't begin as one, such as a collection.
std::vector<StoredName> names_of_font(ByteSource& source);
/// Of all fonts of a collection, by ascending offset, each offset once. The file's tag is not looked at.
std::vector<StoredName> names_of_collection(ByteSource& source);
