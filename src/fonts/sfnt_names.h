#pragma once

// The names that a font file declares, read from its bytes. Knows nothing of files, of text encodings or of the table
// of fonts: where bytes come from is the caller's, and what narrow text means is asked for later.

#include <cstddef>
#include <cstdint>
#include <functional>
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

/// Copies `count` bytes from a position of the file to `target` and gives how many there were; fewer only where the
/// file ends.
using ByteReader = std::function<std::size_t(std::uint64_t position, unsigned char* target, std::size_t count)>;

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
std::vector<StoredName> names_of_font(const ByteReader& read);
/// Of all fonts of a collection, by ascending offset, each offset once. The file's tag is not looked at.
std::vector<StoredName> names_of_collection(const ByteReader& read);
