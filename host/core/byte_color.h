#pragma once

#include <cstdint>

#include "engine/vectors.h"

namespace host {

struct ByteColor {
    std::uint8_t r, g, b, a;
};

/// 0 to 1 becomes 0 to 255. Scripts may store any number: what lies outside takes the nearer end, no number counts as
/// 0.
inline std::uint8_t to_byte(float part) {
    if (!(part > 0.0f)) return 0;
    return part >= 1.0f ? std::uint8_t{255} : static_cast<std::uint8_t>(part * 255.0f + 0.5f);
}

inline ByteColor to_bytes(const VEC4& color) {
    return {to_byte(color.x), to_byte(color.y), to_byte(color.z), to_byte(color.w)};
}

}  // namespace host
