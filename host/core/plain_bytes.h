#pragma once

// Short texts of ASCII looked at eight bytes at a time, since most of a project file is keys and words of that length.

#include <bit>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace host {

inline std::uint64_t eight_bytes(const char* at) {
    std::uint64_t word = 0;
    std::memcpy(&word, at, sizeof word);
    return word;
}

/// A byte that is not 0 where one of the eight, the first at least, is no printable ASCII or has a meaning in XML.
inline std::uint64_t special_bytes(std::uint64_t word) {
    constexpr std::uint64_t ones = 0x0101010101010101u;
    const auto equals = [word](char c) {
        const std::uint64_t other = word ^ (ones * static_cast<unsigned char>(c));
        return (other - ones) & ~other;
    };
    const std::uint64_t below = (word - ones * 0x20) & ~word;
    return (word | below | equals('"') | equals('&') | equals('<') | equals('>')) & (ones * 0x80);
}

inline bool is_special(char c) {
    return static_cast<signed char>(c) < 0x20 || c == '"' || c == '&' || c == '<' || c == '>';
}

/// The first special byte, or the end.
inline const char* find_special(const char* at, const char* end) {
    if constexpr (std::endian::native == std::endian::little) {
        for (; end - at >= 8; at += 8)
            if (const std::uint64_t special = special_bytes(eight_bytes(at))) return at + std::countr_zero(special) / 8;
    }
    while (at != end && !is_special(*at)) ++at;
    return at;
}

inline bool has_special(std::string_view text) {
    const char* const end = text.data() + text.size();
    if (text.size() < 8) return find_special(text.data(), end) != end;
    std::uint64_t special = special_bytes(eight_bytes(end - 8));
    for (const char* at = text.data(); end - at > 8; at += 8) special |= special_bytes(eight_bytes(at));
    return special != 0;
}

/// As operator==, without a call.
inline bool is_same(std::string_view a, std::string_view b) {
    if (a.size() != b.size()) return false;
    if (a.size() < 8) {
        for (std::size_t at = 0; at < a.size(); ++at)
            if (a[at] != b[at]) return false;
        return true;
    }
    const std::size_t last = a.size() - 8;
    // Ends where they differ, for most that differ do so early; compilers make more of the loop than it is worth, else.
    for (std::size_t at = 0; at < last; at += 8)
        if (eight_bytes(a.data() + at) != eight_bytes(b.data() + at)) return false;
    return eight_bytes(a.data() + last) == eight_bytes(b.data() + last);
}

}  // namespace host
