#pragma once

// Values between keys. Nothing here knows a key, a track or an element.

#include "engine/rect.h"
#include "engine/vectors.h"

/// How far a moment lies between two times, 0 at the first and 1 at the second. Times that hardly differ have only a
/// middle: dividing by their distance would make anything of a rounding error.
inline float place_in_time(float moment, float first, float second) {
    constexpr float least_distance = 0.0001f;
    const float distance = second - first;
    return distance > least_distance ? (moment - first) / distance : 0.5f;
}

inline VEC2 mixed(const VEC2& a, const VEC2& b, float t) {
    const float u = 1.0f - t;
    return {u * a.x + t * b.x, u * a.y + t * b.y};
}

inline VEC4 mixed(const VEC4& a, const VEC4& b, float t) {
    const float u = 1.0f - t;
    return {u * a.x + t * b.x, u * a.y + t * b.y, u * a.z + t * b.z, u * a.w + t * b.w};
}

/// The rectangle in view pixels of an element at that offset and size under an alignment. `frame` is where its anchors
/// lie; halves are exact here, unlike those of the layout, so that a moving element does not jump by a pixel.
CRect rect_of_key(const VEC2& offset, const VEC2& size, int align, const CRect& frame);
