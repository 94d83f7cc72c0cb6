#include "host/core/project_text.h"

#include <algorithm>
#include <array>
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

bool is_digit(char c) { return c >= '0' && c <= '9'; }

char* write_number(char* to, std::int32_t value) {
    constexpr std::size_t longest = 11;
    return std::to_chars(to, to + longest, value).ptr;
}
char* write_number(char* to, float value) {
    constexpr std::size_t longest = 16;
    // Of these the shortest form is that of the whole number; beyond them it has an exponent.
    constexpr float first_with_exponent = 100000.0f;
    if (std::abs(value) < first_with_exponent) {
        const auto whole = static_cast<std::int32_t>(value);
        if (static_cast<float>(whole) == value && (whole != 0 || !std::signbit(value))) return write_number(to, whole);
    }
    if (!std::isnan(value)) return std::to_chars(to, to + longest, value).ptr;
    to = std::copy_n("nan", 3, to);
    const auto bits = std::bit_cast<std::uint32_t>(value);
    if (bits == plain_nan) return to;
    *to++ = ':';
    return std::to_chars(to, to + longest, bits, 16).ptr;
}

template <class Number>
bool parse_number(std::string_view text, Number& value) {
    return read_number(text.data(), text.data() + text.size(), value) == text.data() + text.size();
}

bool next_word(std::string_view& rest, std::string_view& word) {
    rest = trimmed(rest);
    word = rest.substr(0, rest.find_first_of(" \t\r\n"));
    rest.remove_prefix(word.size());
    return !word.empty();
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

const char* read_number(const char* at, const char* end, std::int32_t& value) {
    // Most numbers are so short that none is out of range.
    constexpr std::ptrdiff_t always_in_range = 9;
    const char* digit = at != end && *at == '-' ? at + 1 : at;
    const char* const first = digit;
    const char* const last = end - first > always_in_range ? first + always_in_range : end;
    std::int32_t number = 0;
    for (; digit != last && is_digit(*digit); ++digit) number = number * 10 + (*digit - '0');
    if (digit != first && digit != last) {
        value = first == at ? number : -number;
        return digit;
    }
    const auto read = std::from_chars(at, end, value);
    return read.ec == std::errc() ? read.ptr : nullptr;
}

const char* read_number(const char* at, const char* end, float& value) {
    if (end - at > 1 && is_digit(at[0]) && (at[1] == ' ' || at[1] == '"')) {
        value = static_cast<float>(at[0] - '0');
        return at + 1;
    }
    const std::string_view text(at, static_cast<std::size_t>(end - at));
    if (text.starts_with("nan")) {
        value = std::bit_cast<float>(plain_nan);
        if (!text.starts_with("nan:")) return at + 3;
        std::uint32_t bits = 0;
        const auto read = std::from_chars(at + 4, end, bits, 16);
        value = std::bit_cast<float>(bits);
        return read.ec == std::errc() && std::isnan(value) ? read.ptr : nullptr;
    }
    // What the library itself takes as "nan(...)" or "infinity" is not how a project writes it.
    const std::size_t sign = text.starts_with('-') ? 1 : 0;
    const bool is_named = text.size() > sign && !is_digit(text[sign]) && text[sign] != '.';
    if (is_named && !text.substr(sign).starts_with("inf")) return nullptr;
    const auto read = std::from_chars(at, is_named ? at + sign + 3 : end, value);
    return read.ec == std::errc() ? read.ptr : nullptr;
}

char* write_value(char* to, const PropertyValue& value) {
    const auto write = [to](const auto& held) {
        char* at = to;
        if constexpr (!std::is_same_v<const tstringW&, decltype(held)>) {
            const auto write_one = [&at, to](auto number) {
                if (at != to) *at++ = ' ';
                at = write_number(at, number);
            };
            std::apply([&](const auto&... numbers) { (write_one(numbers), ...); }, numbers_of(held));
        }
        return at;
    };
    return std::visit(write, value);
}

std::string format_value(const PropertyValue& value) {
    if (const tstringW* text = std::get_if<tstringW>(&value)) return to_utf8(*text);
    char text[longest_value];
    return {text, write_value(text, value)};
}

std::optional<PropertyValue> parse_value(std::string_view text, const PropertyValue& kind) {
    const auto parse = [text](auto& value) {
        if constexpr (std::is_same_v<tstringW&, decltype(value)>) {
            return false;
        } else {
            std::string_view rest = text;
            std::string_view word;
            const auto parse_next = [&](auto& number) { return next_word(rest, word) && parse_number(word, number); };
            const bool good =
                std::apply([&](auto&... numbers) { return (parse_next(numbers) && ...); }, numbers_of(value));
            return good && trimmed(rest).empty();
        }
    };
    PropertyValue value = kind;
    if (!std::visit(parse, value)) return {};
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

namespace {

// Where the pairs of digits stand in the text.
constexpr std::size_t place_of_pair[16] = {0, 2, 4, 6, 9, 11, 14, 16, 19, 21, 24, 26, 28, 30, 32, 34};
constexpr std::size_t dashes[] = {8, 13, 18, 23};
constexpr std::string_view digits = "0123456789ABCDEF";
// Of what is no digit it is greater than any.
constexpr std::array<std::uint8_t, 256> all_digit_values() {
    std::array<std::uint8_t, 256> values{};
    for (std::size_t c = 0; c < values.size(); ++c) {
        const int value = guid_text::digit(static_cast<wchar_t>(c));
        values[c] = value < 0 ? 0xFF : static_cast<std::uint8_t>(value);
    }
    return values;
}
constexpr std::array<std::uint8_t, 256> digit_values = all_digit_values();

}  // namespace

char* write_guid(char* to, const CGuid& id) {
    for (std::size_t pair = 0; pair < 16; ++pair) {
        const std::uint8_t byte = id.bytes()[guid_text::byte_of_pair[pair]];
        to[place_of_pair[pair]] = digits[byte >> 4];
        to[place_of_pair[pair] + 1] = digits[byte & 15];
    }
    for (const std::size_t dash : dashes) to[dash] = '-';
    return to + guid_text::length;
}

std::string format_guid(const CGuid& id) {
    std::string text(guid_text::length, '\0');
    write_guid(text.data(), id);
    return text;
}

std::optional<CGuid> parse_guid(std::string_view text) {
    if (text.size() != guid_text::length) return {};
    std::array<std::uint8_t, sizeof(GUID)> bytes{};
    unsigned wrong = 0;
    for (std::size_t pair = 0; pair < 16; ++pair) {
        const unsigned high = digit_values[static_cast<unsigned char>(text[place_of_pair[pair]])];
        const unsigned low = digit_values[static_cast<unsigned char>(text[place_of_pair[pair] + 1])];
        wrong |= high | low;
        bytes[static_cast<std::size_t>(guid_text::byte_of_pair[pair])] = static_cast<std::uint8_t>(high * 16 + low);
    }
    const bool has_dashes =
        std::all_of(std::begin(dashes), std::end(dashes), [text](std::size_t dash) { return text[dash] == '-'; });
    if (wrong > 15 || !has_dashes) return {};
    return CGuid(std::bit_cast<GUID>(bytes));
}

namespace {

// So many bytes are looked at together.
constexpr std::size_t plain_step = 32;

// True if each of them is a character of ASCII that XML can hold, other than the one that begins a reference. Without a
// way out of the loop, so that compilers make few steps of it.
bool are_plain(const char* bytes) {
    unsigned char wrong = 0;
    for (std::size_t at = 0; at < plain_step; ++at) {
        // What is not of ASCII is below 0.
        const auto c = static_cast<signed char>(bytes[at]);
        const bool is_break = (c == '\n') | (c == '\t') | (c == '\r');
        const bool is_wrong = ((c < 0x20) & !is_break) | (c == '&');
        wrong = static_cast<unsigned char>(wrong | static_cast<unsigned char>(is_wrong));
    }
    return wrong == 0;
}

// Bytes of the character at the start, 0 if XML can't hold it, or what it refers to.
std::size_t good_character(std::string_view text) {
    std::uint32_t code = 0;
    const std::size_t length = read_utf8(text, code);
    if (length == 0 || !is_xml_character(code)) return 0;
    const auto referenced = code == '&' ? referenced_character(text.substr(0, 16)) : std::nullopt;
    return referenced && !is_xml_character(*referenced) ? 0 : length;
}

}  // namespace

std::size_t first_bad_byte(std::string_view text) {
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t next_look = std::min(at + plain_step, text.size());
        if (next_look == at + plain_step && are_plain(text.data() + at)) {
            at = next_look;
            continue;
        }
        while (at < next_look) {
            const std::size_t length = good_character(text.substr(at));
            if (length == 0) return at;
            at += length;
        }
    }
    return std::string_view::npos;
}

}  // namespace host
