#pragma once

#include "engine/vectors.h"

/// A colour that stands out against the veil: each part is full where the veil's is below a half, else none.
inline VEC4 mark_color(const VEC4& veil, float alpha) {
    const auto opposite = [](float part) { return 1.0f - part > 0.5f ? 1.0f : 0.0f; };
    return {opposite(veil.x), opposite(veil.y), opposite(veil.z), alpha};
}
