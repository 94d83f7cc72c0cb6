#pragma once

// Values of a legacy tree and their bytes.

#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include "engine/guid.h"
#include "engine/legacy_codes.h"
#include "engine/rect.h"
#include "engine/text.h"
#include "engine/vectors.h"

namespace host {

/// What a value means; which of them, its code says.
using LegacyContent = std::variant<std::int32_t, float, VEC3, CPoint, CGuid, tstringW>;

/// A value of that kind, or null for a code whose values nobody can tell the meaning of.
const LegacyContent* legacy_content_kind(int code);

/// As it lies in memory; a text ends with its zero.
std::string legacy_bytes(const LegacyContent& content);
/// The units of a text alone, without a zero.
std::string legacy_units(const std::wstring& text);
/// Empty unless these are just the bytes that a value of that code has.
std::optional<LegacyContent> legacy_content(int code, std::string_view bytes);

/// Writes a value to where find_data was told to, `out` being as large as `asked` wants it. False, and `out` untouched,
/// where the value is of another layout or has too few bytes; a text is cut where it is too long, and ends with a zero.
/// `stored` is 0 for bytes without a code, which are of any layout.
bool copy_legacy_value(std::string_view bytes, int stored, int asked, void* out);

}  // namespace host
