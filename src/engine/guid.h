#pragma once

#include <cstdint>
#include <cstring>
#include <string>

#include "platform_types.h"

/// A 128-bit identifier, 16 plain bytes in the order of a GUID record. Passed by value.
class CGuid {
public:
    /// All bytes 0: no identifier.
    CGuid() = default;
    CGuid(const GUID& guid) { std::memcpy(m_bytes, &guid, sizeof m_bytes); }
    /// From text like "283B689B-6775-0F82-3171-70E93AFF15F6", in upper or lower case. Any other text gives all bytes 0.
    explicit CGuid(const wchar_t* text);

    /// The same form, in upper case.
    std::wstring to_text() const;
    bool is_empty() const { return *this == CGuid(); }

    friend bool operator==(const CGuid& a, const CGuid& b) { return std::memcmp(a.m_bytes, b.m_bytes, 16) == 0; }
    friend bool operator<(const CGuid& a, const CGuid& b) { return std::memcmp(a.m_bytes, b.m_bytes, 16) < 0; }

    const std::uint8_t* bytes() const { return m_bytes; }

private:
    std::uint8_t m_bytes[16] = {};
};
static_assert(sizeof(CGuid) == 16);

namespace guid_text {

// Where the text's pairs of digits go. The first three groups of a GUID record are little-endian numbers.
inline constexpr int byte_of_pair[16] = {3, 2, 1, 0, 5, 4, 7, 6, 8, 9, 10, 11, 12, 13, 14, 15};
inline constexpr int length = 36;

constexpr bool is_dash(int at) { return at == 8 || at == 13 || at == 18 || at == 23; }

constexpr int digit(wchar_t c) {
    if (c >= L'0' && c <= L'9') return c - L'0';
    if (c >= L'a' && c <= L'f') return c - L'a' + 10;
    if (c >= L'A' && c <= L'F') return c - L'A' + 10;
    return -1;
}

}  // namespace guid_text

inline CGuid::CGuid(const wchar_t* text) {
    std::uint8_t bytes[16] = {};
    int digits = 0;
    for (int at = 0; at < guid_text::length; ++at) {
        const wchar_t c = text[at];
        if (guid_text::is_dash(at) && c == L'-') continue;
        const int value = guid_text::is_dash(at) ? -1 : guid_text::digit(c);
        if (value < 0) return;
        std::uint8_t& byte = bytes[guid_text::byte_of_pair[digits / 2]];
        byte = static_cast<std::uint8_t>(byte * 16 + value);
        ++digits;
    }
    if (text[guid_text::length] == L'\0') std::memcpy(m_bytes, bytes, sizeof m_bytes);
}

inline std::wstring CGuid::to_text() const {
    std::wstring text;
    text.reserve(guid_text::length);
    for (int byte : guid_text::byte_of_pair) {
        if (guid_text::is_dash(static_cast<int>(text.size()))) text += L'-';
        text += L"0123456789ABCDEF"[m_bytes[byte] >> 4];
        text += L"0123456789ABCDEF"[m_bytes[byte] & 15];
    }
    return text;
}
