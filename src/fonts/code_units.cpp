#include "fonts/code_units.h"

void join_surrogates(std::wstring& text) {
    if constexpr (sizeof(wchar_t) == sizeof(char16_t)) return;
    const auto unit = [&text](std::size_t at) { return static_cast<char16_t>(text[at]); };
    std::size_t end = 0;
    while (end < text.size() && !is_high_surrogate(unit(end))) ++end;
    for (std::size_t at = end; at < text.size(); ++at, ++end) {
        text[end] = text[at];
        if (!is_high_surrogate(unit(at)) || at + 1 == text.size() || !is_low_surrogate(unit(at + 1))) continue;
        const char32_t high = unit(at) - 0xD800u;
        const char32_t low = unit(++at) - 0xDC00u;
        text[end] = static_cast<wchar_t>(0x10000u + (high << 10) + low);
    }
    text.resize(end);
}

tstringW wide_from_units(std::u16string_view units) {
    tstringW text;
    text.assign(units.begin(), units.end());
    join_surrogates(text);
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
