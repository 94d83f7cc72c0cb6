#pragma once

// The ways from real numbers to pixels. Each has its fixed places in the layout and they must not be exchanged: halves
// stored in projects are rounded, anchors are truncated, and mixing them moves elements by a pixel.

#include <cmath>
#include <cstdint>

#include "engine/rect.h"

/// The nearest 32-bit number to a whole number held in floating point; 0 for what is not a number.
inline std::int32_t to_int(double whole) {
    if (std::isnan(whole)) return 0;
    if (whole <= static_cast<double>(INT32_MIN)) return INT32_MIN;
    if (whole >= static_cast<double>(INT32_MAX)) return INT32_MAX;
    return static_cast<std::int32_t>(whole);
}

/// Halves go up: 2.5 gives 3, −2.5 gives −2.
inline std::int32_t round_half_up(float x) {
    const double below = std::floor(static_cast<double>(x));
    return to_int(static_cast<double>(x) - below < 0.5 ? below : std::ceil(static_cast<double>(x)));
}

/// Towards zero, of a value that was not rounded to float before.
inline std::int32_t trunc_to_int(double x) { return to_int(std::trunc(x)); }

/// A part of a whole; 0 where the whole is 0, so that no frame without a size ever leaves a number that is none.
inline float fraction(float part, float whole) { return whole == 0.0f ? 0.0f : part / whole; }
