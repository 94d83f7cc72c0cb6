#pragma once

#include <cstdint>
#include <cstdlib>

#include "engine/vectors.h"

/// A colour that a legacy project stores as one number, opaque. The number is the distance from white, byte by byte;
/// its sign means nothing. What is full white from blue on becomes none, so that 0 is black, as old players showed it.
inline VEC4 decode_legacy_color(std::int32_t stored) {
    // In 64 bits, where the smallest number has an absolute value.
    const std::int64_t distance = std::abs(std::int64_t{stored});
    const auto channel = [&](int shift) { return static_cast<int>(255 - ((distance >> shift) & 255)); };
    int blue = channel(0);
    int green = channel(8);
    int red = channel(16);
    if (blue == 255) {
        blue = 0;
        if (green == 255) {
            green = 0;
            if (red == 255) red = 0;
        }
    }
    const auto share = [](int byte) { return static_cast<float>(byte / 255.0); };
    return {share(red), share(green), share(blue), 1.0f};
}

/// The opacity that a legacy project stores as 0 to 255; numbers beyond are kept as they are.
inline float legacy_opacity(std::int32_t stored) { return static_cast<float>(stored / 255.0); }
