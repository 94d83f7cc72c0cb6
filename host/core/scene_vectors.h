#pragma once

#include <algorithm>
#include <cmath>

#include "engine/vectors.h"

// Arithmetic of the scene: y is up, units are metres.

namespace host::scene {

inline VEC3 operator+(const VEC3& a, const VEC3& b) { return {a.x + b.x, a.y + b.y, a.z + b.z}; }
inline VEC3 operator-(const VEC3& a, const VEC3& b) { return {a.x - b.x, a.y - b.y, a.z - b.z}; }
inline VEC3 operator*(const VEC3& a, float s) { return {a.x * s, a.y * s, a.z * s}; }
/// Member by member, as light meets a colour.
inline VEC3 operator*(const VEC3& a, const VEC3& b) { return {a.x * b.x, a.y * b.y, a.z * b.z}; }

inline float dot(const VEC3& a, const VEC3& b) { return a.x * b.x + a.y * b.y + a.z * b.z; }
inline VEC3 cross(const VEC3& a, const VEC3& b) {
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}
/// Of length 1; a vector of length 0 stays.
inline VEC3 unit(const VEC3& a) {
    const float length = std::sqrt(dot(a, a));
    return length > 0.0f ? a * (1.0f / length) : a;
}
inline VEC3 mix(const VEC3& a, const VEC3& b, float share) { return a + (b - a) * share; }
/// 0 at `from`, 1 at `to` and beyond, with no corner at either end. `from` may be the larger.
inline float smooth_step(float from, float to, float at) {
    const float share = std::clamp((at - from) / (to - from), 0.0f, 1.0f);
    return share * share * (3.0f - 2.0f * share);
}
inline VEC4 with_alpha(const VEC3& color, float alpha) { return {color.x, color.y, color.z, alpha}; }

/// About the vertical axis.
inline VEC3 turned(const VEC3& a, float radians) {
    const float c = std::cos(radians), s = std::sin(radians);
    return {a.x * c + a.z * s, a.y, a.z * c - a.x * s};
}

}  // namespace host::scene
