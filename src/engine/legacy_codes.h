#pragma once

#include <cstddef>

/// How the value of a legacy key is laid out: the `type` of CPakNode::find_data.
enum legacy_code : int {
    /// 4 bytes, nearly always a signed number. Moments of animations are 32-bit floats under this code.
    LEGACY_INT = 3,
    /// 16-bit units up to a zero; see legacy_buffer_units. A path, a name, any other text.
    LEGACY_PATH = 4,
    LEGACY_NAME = 6,
    LEGACY_TEXT = 20,
    /// 12 bytes.
    LEGACY_VEC3 = 8,
    /// 4 bytes.
    LEGACY_FLOAT = 9,
    /// 16 bytes.
    LEGACY_GUID = 11,
    /// Two signed 32-bit numbers.
    LEGACY_PAIR = 15,
};

/// Size of the buffer that the module hands to find_data for a text of that code, in 16-bit units, the zero at its end
/// included; 0 for codes of other values. An engine cuts a longer text so that it fits with its zero.
constexpr std::size_t legacy_buffer_units(int code) {
    constexpr struct {
        int code;
        std::size_t units;
    } texts[] = {{LEGACY_PATH, 260}, {LEGACY_NAME, 64}, {LEGACY_TEXT, 256}};
    for (const auto& row : texts) {
        if (row.code == code) return row.units;
    }
    return 0;
}
