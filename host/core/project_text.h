#pragma once

// Values of a project as the text of its file, and back. Independent of the C locale.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>
#include <type_traits>

#include "engine/guid.h"
#include "host/core/project_tree.h"

namespace host {

/// A text for an XML attribute or content. Some characters have no place in XML; a text with one of them is escaped as
/// a whole: "\\" for the backslash, "\u{HEX}" for such a character.
struct XmlText {
    std::string bytes;
    bool escaped = false;
};
XmlText to_xml_text(std::wstring_view text);
/// Empty for a broken escape or bytes that are no UTF-8.
std::optional<std::wstring> from_xml_text(std::string_view bytes, bool escaped);

/// Any value but a text, written to where `longest_value` bytes have room; gives the place behind it. The shortest form
/// that reads back bit for bit.
char* write_value(char* to, const PropertyValue& value);
inline constexpr std::size_t longest_value = 80;
/// Any value.
std::string format_value(const PropertyValue& value);
/// A value of the same kind as `kind`; empty if the text is none.
std::optional<PropertyValue> parse_value(std::string_view text, const PropertyValue& kind);
/// What such a text must look like, for errors.
const char* expected_value(const PropertyValue& kind);

/// The numbers that a value is made of, in file order.
template <class Value>
constexpr auto numbers_of(Value& value) {
    using Plain = std::remove_const_t<Value>;
    if constexpr (std::is_same_v<Plain, StoredBool>)
        return std::tie(value.value);
    else if constexpr (std::is_same_v<Plain, CRect>)
        return std::tie(value.left, value.top, value.right, value.bottom);
    else if constexpr (std::is_same_v<Plain, VEC3>)
        return std::tie(value.x, value.y, value.z);
    else if constexpr (std::is_same_v<Plain, VEC4>)
        return std::tie(value.x, value.y, value.z, value.w);
    else
        return std::tie(value);
}
/// The number at the start of the text; gives the place behind it, or null if there is none.
const char* read_number(const char* at, const char* end, std::int32_t& value);
const char* read_number(const char* at, const char* end, float& value);

std::optional<long long> parse_whole_number(std::string_view text);
/// Writes guid_text::length bytes and gives the place behind them.
char* write_guid(char* to, const CGuid& id);
std::string format_guid(const CGuid& id);
std::optional<CGuid> parse_guid(std::string_view text);

/// Offset of the first byte that is no part of UTF-8 text which XML can hold, or npos. References to characters
/// count with what they stand for.
std::size_t first_bad_byte(std::string_view text);

}  // namespace host
