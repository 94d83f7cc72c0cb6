#pragma once

#include "engine/font.h"

// Layout flags of a legacy text, which run like those of the system that old projects were drawn on: columns in the
// lowest two bits, rows in the next two.

inline constexpr int LEGACY_FORMAT_MIRRORED = 0x20000;
inline constexpr int LEGACY_FORMAT_LAST = 26;

/// Whether the flags are some that an old editor wrote.
constexpr bool is_legacy_text_format(int format) {
    const int plain = format >= LEGACY_FORMAT_MIRRORED ? format - LEGACY_FORMAT_MIRRORED : format;
    return plain >= 0 && plain <= LEGACY_FORMAT_LAST;
}

/// Where the text hangs. Flags that no old editor wrote, and corners that there are none of, give the centre.
constexpr font_org_position legacy_text_position(int format) {
    struct Row {
        int flags;
        font_org_position plain;
        font_org_position mirrored;
    };
    constexpr Row rows[] = {
        {0, FONT_LEFT_TOP, FONT_RIGHT_TOP},          {1, FONT_CENTER_TOP, FONT_CENTER_TOP},
        {2, FONT_RIGHT_TOP, FONT_LEFT_TOP},          {4, FONT_LEFT_MIDDLE, FONT_RIGHT_MIDDLE},
        {5, FONT_CENTER_MIDDLE, FONT_CENTER_MIDDLE}, {6, FONT_RIGHT_MIDDLE, FONT_LEFT_MIDDLE},
        {8, FONT_LEFT_BOTTOM, FONT_RIGHT_BOTTOM},    {9, FONT_CENTER_BOTTOM, FONT_CENTER_BOTTOM},
        {10, FONT_RIGHT_BOTTOM, FONT_LEFT_BOTTOM},
    };
    if (!is_legacy_text_format(format)) return FONT_CENTER_MIDDLE;
    for (const Row& row : rows) {
        if (row.flags == (format & 15)) return format >= LEGACY_FORMAT_MIRRORED ? row.mirrored : row.plain;
    }
    return FONT_CENTER_MIDDLE;
}
