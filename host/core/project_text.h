#pragma once

// Values of a project as the text of its file, and back. Independent of the C locale.

#include <optional>
#include <string>
#include <string_view>

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

/// Any value but a text. The shortest form that reads back bit for bit.
void append_value(std::string& out, const PropertyValue& value);
std::string format_value(const PropertyValue& value);
/// A value of the same kind as `kind`; empty if the text is none.
std::optional<PropertyValue> parse_value(std::string_view text, const PropertyValue& kind);
/// What such a text must look like, for errors.
const char* expected_value(const PropertyValue& kind);

std::optional<long long> parse_whole_number(std::string_view text);
std::string format_guid(const CGuid& id);
std::optional<CGuid> parse_guid(std::string_view text);

/// Offset of the first byte that is no part of UTF-8 text which XML can hold, or npos. References to characters
/// count with what they stand for.
std::size_t first_bad_byte(std::string_view text);

}  // namespace host
