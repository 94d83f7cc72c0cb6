#pragma once

#include <string>

#include "engine/text.h"

// Text in memory is wide; wherever bytes have a fixed layout it is 16-bit units. These two stand between them.

constexpr bool is_high_surrogate(char16_t unit) { return unit >= 0xD800 && unit < 0xDC00; }
constexpr bool is_low_surrogate(char16_t unit) { return unit >= 0xDC00 && unit < 0xE000; }

/// Joins surrogate pairs where a wide character has 32 bits. A half without its other half stays as it is.
tstringW wide_from_units(std::u16string_view units);
/// The same in a text whose characters are such units.
void join_surrogates(std::wstring& text);
/// Splits characters beyond 16 bits into surrogate pairs. What is no character becomes U+FFFD.
std::u16string units_from_wide(const std::wstring& text);
