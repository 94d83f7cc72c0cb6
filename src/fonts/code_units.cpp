#include "fonts/code_units.h"

tstringW wide_from_units(std::u16string_view units) {
    tstringW text;
    text.reserve(units.size());
    for (std::size_t at = 0; at < units.size(); ++at) {
        const char16_t unit = units[at];
        const bool pair = is_high_surrogate(unit) && at + 1 < units.size() && is_low_surrogate(units[at + 1]);
        if (sizeof(wchar_t) == sizeof(char16_t) || !pair) {
            text.push_back(static_cast<wchar_t>(unit));
            continue;
        }
        const char32_t high = unit - 0xD800u;
        const char32_t low = units[++at] - 0xDC00u;
        text.push_back(static_cast<wchar_t>(0x10000u + (high << 10) + low));
    }
    return text;
}

std::u16string units_from_wide(const std::wstring& text) {
    std::u16string units;
    for (wchar_t character : text) {
        const auto code = static_cast<char32_t>(character);
        if (code < 0x10000u) {
            units.push_back(static_cast<char16_t>(code));
        } else if (code < 0x110000u) {
            units.push_back(static_cast<char16_t>(0xD800u + ((code - 0x10000u) >> 10)));
            units.push_back(static_cast<char16_t>(0xDC00u + ((code - 0x10000u) & 0x3FFu)));
        } else {
            units.push_back(u'\xFFFD');
        }
    }
    return units;
}
