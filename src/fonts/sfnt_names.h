#pragma once

// The names that a font file declares, read from its bytes. Knows nothing of files, of text encodings or of the table
// of fonts: where bytes come from is the caller's, and what narrow text means is asked for later.

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

/// A full name or a PostScript name as the file holds it: without a zero, and never empty.
struct StoredName {
    enum Text {
        /// Bytes in the engine's narrow encoding.
        NARROW,
        /// Big5 bytes.
        BIG5,
        /// 16-bit units, the upper byte first; units_of reads them.
        WIDE,
    };
    Text text;
    /// Valid only while the sink takes it.
    std::span<const unsigned char> bytes;
};

/// Whoever wants the names.
class NameSink {
public:
    virtual void take(const StoredName& name) = 0;

protected:
    ~NameSink() = default;
};

/// The units of a wide name, each as a character of its own. An odd last byte is the upper half of a unit whose lower
/// half is 0.
std::wstring units_of(std::span<const unsigned char> bytes);

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
    /// What there is from that position on without a fetch; may be nothing.
    std::span<const unsigned char> at_hand(std::uint64_t position) const {
        const bool is_there = position >= m_start && position - m_start <= m_there.size();
        return is_there ? m_there.subspan(static_cast<std::size_t>(position - m_start)) : m_there.first(0);
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
void names_of_font(ByteSource& source, NameSink& sink);
/// Of all fonts of a collection, by ascending offset, each offset once. The file's tag is not looked at.
void names_of_collection(ByteSource& source, NameSink& sink);
