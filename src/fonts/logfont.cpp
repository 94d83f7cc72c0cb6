#include "fonts/logfont.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>

#include "fonts/code_units.h"

tstringW face_name(const LOGFONTW& record) {
    const auto* end = std::find(std::begin(record.lfFaceName), std::end(record.lfFaceName), 0);
    return wide_from_units(std::u16string(std::begin(record.lfFaceName), end));
}

void set_face_name(LOGFONTW& record, const tstringW& name) {
    std::u16string units = units_from_wide(name);
    constexpr std::size_t most = sizeof(LOGFONTW::lfFaceName) / sizeof(char16_t) - 1;
    if (units.size() > most) {
        units.resize(most);
        // Half of a surrogate pair would be no character at all.
        if (is_high_surrogate(units.back())) units.pop_back();
    }
    std::fill(std::begin(record.lfFaceName), std::end(record.lfFaceName), 0);
    std::copy(units.begin(), units.end(), record.lfFaceName);
}

unsigned font_size(const LOGFONTW& record) { return static_cast<unsigned>(std::abs(std::int64_t{record.lfHeight})); }
