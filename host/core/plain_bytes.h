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

constexpr bool is_special(char c) {
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

/// As operator==, without a call for most keys.
[[gnu::always_inline]] inline bool is_same(std::string_view a, std::string_view b) {
    const std::size_t size = a.size();
    if (size != b.size()) return false;
    constexpr std::size_t word = sizeof(std::uint64_t);
    if (size < word || size > 4 * word) return std::memcmp(a.data(), b.data(), size) == 0;
    const auto difference = [&](std::size_t at) { return eight_bytes(a.data() + at) ^ eight_bytes(b.data() + at); };
    // The words overlap where there are fewer bytes.
    std::uint64_t different = difference(0) | difference(size - word);
    if (size > 2 * word) different |= difference(word) | difference(size - 2 * word);
    return different == 0;
}

}  // namespace host
