#include "host/core/project_text.h"

#include <algorithm>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>

#include "host/core/text_conversion.h"

namespace host {
namespace {

bool is_surrogate(std::uint32_t c) { return c >= 0xD800 && c <= 0xDFFF; }

// What XML 1.0 can hold. A carriage return can stand in it, but only as a reference.
bool is_xml_character(std::uint32_t c) {
    if (c < 0x20) return c == '\t' || c == '\n' || c == '\r';
    return !is_surrogate(c) && c != 0xFFFE && c != 0xFFFF && c <= 0x10FFFF;
}

// One character of a wide text and the units that it takes. Pairs of surrogates count as one where wchar_t has 16 bits.
struct WideCharacter {
    std::uint32_t code;
    std::size_t units;
};
WideCharacter character_at(std::wstring_view text, std::size_t at) {
    const auto code = static_cast<std::uint32_t>(text[at]);
    if constexpr (sizeof(wchar_t) == 2) {
        const bool pair = code >= 0xD800 && code < 0xDC00 && at + 1 < text.size() && text[at + 1] >= 0xDC00 &&
                          static_cast<std::uint32_t>(text[at + 1]) <= 0xDFFF;
        if (pair) {
            const std::uint32_t low = static_cast<std::uint32_t>(text[at + 1]) - 0xDC00;
            return {0x10000 + ((code - 0xD800) << 10) + low, 2};
        }
    }
    return {code, 1};
}

void append_escaped(std::string& out, std::uint32_t code) {
    char digits[8];
    const auto end = std::to_chars(digits, digits + sizeof digits, code, 16).ptr;
    out += "\\u{";
    out.append(digits, end);
    out += '}';
}

bool needs_escape(std::wstring_view text) {
    for (std::size_t at = 0; at < text.size();) {
        const WideCharacter c = character_at(text, at);
        if (!is_xml_character(c.code)) return true;
        at += c.units;
    }
    return false;
}

// Length of the UTF-8 sequence at the start, its character in `code`; 0 if it is broken.
std::size_t read_utf8(std::string_view bytes, std::uint32_t& code) {
    const auto first = static_cast<unsigned char>(bytes[0]);
    const std::size_t length = first < 0x80 ? 1 : first < 0xC2 ? 0 : first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
    if (length == 0 || first > 0xF4 || bytes.size() < length) return 0;
    constexpr std::uint32_t lead_mask[] = {0, 0x7F, 0x1F, 0x0F, 0x07};
    constexpr std::uint32_t least[] = {0, 0, 0x80, 0x800, 0x10000};
    code = first & lead_mask[length];
    for (std::size_t at = 1; at < length; ++at) {
        const auto next = static_cast<unsigned char>(bytes[at]);
        if ((next & 0xC0) != 0x80) return 0;
        code = (code << 6) | (next & 0x3Fu);
    }
    return code < least[length] || is_surrogate(code) || code > 0x10FFFF ? 0 : length;
}

// The character that a reference like "&#65;" or "&#x41;" stands for; empty for other text.
std::optional<std::uint32_t> referenced_character(std::string_view text) {
    if (!text.starts_with("&#")) return {};
    text.remove_prefix(2);
    const bool hex = text.starts_with("x");
    if (hex) text.remove_prefix(1);
    std::uint32_t code = 0;
    const auto read = std::from_chars(text.data(), text.data() + text.size(), code, hex ? 16 : 10);
    if (read.ec == std::errc::result_out_of_range) return UINT32_MAX;
    if (read.ec != std::errc()) return {};
    return code;
}

std::string_view trimmed(std::string_view text) {
    const std::size_t first = text.find_first_not_of(" \t\r\n");
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(" \t\r\n") - first + 1);
}

constexpr std::uint32_t plain_nan = 0x7FC00000;

void append_number(std::string& out, float value) {
    char buffer[32];
    if (!std::isnan(value)) {
        out.append(buffer, std::to_chars(buffer, buffer + sizeof buffer, value).ptr);
        return;
    }
    out += "nan";
    const auto bits = std::bit_cast<std::uint32_t>(value);
    if (bits == plain_nan) return;
    out += ':';
    out.append(buffer, std::to_chars(buffer, buffer + sizeof buffer, bits, 16).ptr);
}
void append_number(std::string& out, std::int32_t value) {
    char buffer[16];
    out.append(buffer, std::to_chars(buffer, buffer + sizeof buffer, value).ptr);
}

bool parse_number(std::string_view text, std::int32_t& value) {
    const auto read = std::from_chars(text.data(), text.data() + text.size(), value);
    return read.ec == std::errc() && read.ptr == text.data() + text.size();
}

bool parse_number(std::string_view text, float& value) {
    const char* end = text.data() + text.size();
    if (text == "nan") {
        value = std::bit_cast<float>(plain_nan);
        return true;
    }
    if (text.starts_with("nan:")) {
        std::uint32_t bits = 0;
        const auto read = std::from_chars(text.data() + 4, end, bits, 16);
        value = std::bit_cast<float>(bits);
        return read.ec == std::errc() && read.ptr == end && std::isnan(value);
    }
    const auto read = std::from_chars(text.data(), end, value);
    // What the library itself takes as "nan(...)" or "infinity" is not how a project writes it.
    const bool named = text.find_first_of("nN(") != std::string_view::npos && text != "inf" && text != "-inf";
    return read.ec == std::errc() && read.ptr == end && !named;
}

template <class First, class... Rest>
void append_numbers(std::string& out, const First& first, const Rest&... rest) {
    append_number(out, first);
    ((out += ' ', append_number(out, rest)), ...);
}

bool next_word(std::string_view& rest, std::string_view& word) {
    rest = trimmed(rest);
    word = rest.substr(0, rest.find_first_of(" \t\r\n"));
    rest.remove_prefix(word.size());
    return !word.empty();
}

template <class... Numbers>
bool parse_numbers(std::string_view text, Numbers&... numbers) {
    std::string_view word;
    return ((next_word(text, word) && parse_number(word, numbers)) && ...) && trimmed(text).empty();
}

}  // namespace

XmlText to_xml_text(std::wstring_view text) {
    if (!needs_escape(text)) return {to_utf8(text), false};
    std::string out;
    for (std::size_t at = 0; at < text.size();) {
        const WideCharacter c = character_at(text, at);
        if (c.code == '\\')
            out += "\\\\";
        else if (is_xml_character(c.code))
            out += to_utf8(text.substr(at, c.units));
        else
            append_escaped(out, c.code);
        at += c.units;
    }
    return {out, true};
}

std::optional<std::wstring> from_xml_text(std::string_view bytes, bool escaped) {
    if (!escaped) return from_utf8(bytes);
    std::wstring out;
    while (!bytes.empty()) {
        const std::size_t plain = std::min(bytes.find('\\'), bytes.size());
        out += from_utf8(bytes.substr(0, plain));
        bytes.remove_prefix(plain);
        if (bytes.empty()) break;
        if (bytes.starts_with("\\\\")) {
            out += L'\\';
            bytes.remove_prefix(2);
            continue;
        }
        std::uint32_t code = 0;
        if (!bytes.starts_with("\\u{")) return {};
        const auto read = std::from_chars(bytes.data() + 3, bytes.data() + bytes.size(), code, 16);
        if (read.ec != std::errc() || read.ptr == bytes.data() + bytes.size() || *read.ptr != '}') return {};
        if (code > static_cast<std::uint64_t>(WCHAR_MAX)) return {};
        out += static_cast<wchar_t>(code);
        bytes.remove_prefix(static_cast<std::size_t>(read.ptr + 1 - bytes.data()));
    }
    return out;
}

void append_value(std::string& out, const PropertyValue& value) {
    struct Formatter {
        std::string& out;
        void operator()(int v) const { append_numbers(out, v); }
        void operator()(StoredBool v) const { append_numbers(out, v.value); }
        void operator()(float v) const { append_numbers(out, v); }
        void operator()(const CRect& v) const { append_numbers(out, v.left, v.top, v.right, v.bottom); }
        void operator()(const VEC3& v) const { append_numbers(out, v.x, v.y, v.z); }
        void operator()(const VEC4& v) const { append_numbers(out, v.x, v.y, v.z, v.w); }
        void operator()(const tstringW& v) const { out += to_utf8(v); }
    };
    std::visit(Formatter{out}, value);
}

std::string format_value(const PropertyValue& value) {
    std::string text;
    append_value(text, value);
    return text;
}

std::optional<PropertyValue> parse_value(std::string_view text, const PropertyValue& kind) {
    struct Parser {
        std::string_view text;
        bool operator()(int& v) const { return parse_numbers(text, v); }
        bool operator()(StoredBool& v) const { return parse_numbers(text, v.value); }
        bool operator()(float& v) const { return parse_numbers(text, v); }
        bool operator()(CRect& v) const { return parse_numbers(text, v.left, v.top, v.right, v.bottom); }
        bool operator()(VEC3& v) const { return parse_numbers(text, v.x, v.y, v.z); }
        bool operator()(VEC4& v) const { return parse_numbers(text, v.x, v.y, v.z, v.w); }
        bool operator()(tstringW&) const { return false; }
    };
    PropertyValue value = kind;
    if (!std::visit(Parser{text}, value)) return {};
    return value;
}

const char* expected_value(const PropertyValue& kind) {
    constexpr const char* texts[] = {"a whole number",
                                     "0 or 1 (or another whole number)",
                                     "a number, inf, -inf or nan",
                                     "four whole numbers",
                                     "three numbers",
                                     "four numbers",
                                     "a text"};
    static_assert(std::size(texts) == std::variant_size_v<PropertyValue>);
    return texts[kind.index()];
}

std::optional<long long> parse_whole_number(std::string_view text) {
    long long value = 0;
    text = trimmed(text);
    const auto read = std::from_chars(text.data(), text.data() + text.size(), value);
    if (read.ec != std::errc() || read.ptr != text.data() + text.size()) return {};
    return value;
}

std::string format_guid(const CGuid& id) {
    const std::wstring text = id.to_text();
    std::string narrow(text.size(), '\0');
    std::transform(text.begin(), text.end(), narrow.begin(), [](wchar_t c) { return static_cast<char>(c); });
    return narrow;
}

std::optional<CGuid> parse_guid(std::string_view text) {
    wchar_t wide[guid_text::length + 1] = {};
    if (text.size() != guid_text::length) return {};
    std::transform(text.begin(), text.end(), wide, [](char c) { return static_cast<unsigned char>(c); });
    const CGuid id(wide);
    const bool really_zero = text == "00000000-0000-0000-0000-000000000000";
    if (id.is_empty() && !really_zero) return {};
    return id;
}

namespace {

// True if each of the eight bytes is a printable character of ASCII other than the one that begins a reference.
bool are_plain(const char* bytes) {
    constexpr std::uint64_t ones = 0x0101010101010101u;
    constexpr std::uint64_t tops = ones * 0x80;
    std::uint64_t word = 0;
    std::memcpy(&word, bytes, sizeof word);
    const std::uint64_t ampersands = word ^ (ones * '&');
    const std::uint64_t wrong = word | (word - ones * 0x20) | ((ampersands - ones) & ~ampersands);
    return (wrong & tops) == 0;
}

}  // namespace

std::size_t first_bad_byte(std::string_view text) {
    for (std::size_t at = 0; at < text.size();) {
        if (text.size() - at >= 8 && are_plain(text.data() + at)) {
            at += 8;
            continue;
        }
        std::uint32_t code = 0;
        const std::size_t length = read_utf8(text.substr(at), code);
        if (length == 0 || !is_xml_character(code)) return at;
        if (code == '&') {
            const auto referenced = referenced_character(text.substr(at, 16));
            if (referenced && !is_xml_character(*referenced)) return at;
        }
        at += length;
    }
    return std::string_view::npos;
}

}  // namespace host
