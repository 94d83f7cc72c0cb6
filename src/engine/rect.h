#pragma once

#include <cstdint>

#include "platform_types.h"

/// The nearest 32-bit number: scripts and files may ask for places beyond what a pixel number can hold.
constexpr std::int32_t saturated(std::int64_t value) {
    if (value < INT32_MIN) return INT32_MIN;
    if (value > INT32_MAX) return INT32_MAX;
    return static_cast<std::int32_t>(value);
}

/// A rectangle in pixels, x to the right, y downwards. Right and bottom lie outside it. Sizes may be 0 or negative.
struct CRect : tagRECT {
    constexpr CRect() : tagRECT{0, 0, 0, 0} {}
    constexpr CRect(std::int32_t l, std::int32_t t, std::int32_t r, std::int32_t b) : tagRECT{l, t, r, b} {}
    constexpr CRect(const tagRECT& rect) : tagRECT(rect) {}

    constexpr std::int32_t Width() const { return saturated(std::int64_t{right} - left); }
    constexpr std::int32_t Height() const { return saturated(std::int64_t{bottom} - top); }
};
constexpr bool operator==(const CRect& a, const CRect& b) {
    return a.left == b.left && a.top == b.top && a.right == b.right && a.bottom == b.bottom;
}

/// A point in pixels.
struct CPoint : tagPOINT {
    constexpr CPoint() : tagPOINT{0, 0} {}
    constexpr CPoint(std::int32_t x_, std::int32_t y_) : tagPOINT{x_, y_} {}
};

/// Left and top inclusive, right and bottom exclusive; an empty rectangle holds no point.
constexpr bool contains(const tagRECT& rect, const tagPOINT& point) {
    return point.x >= rect.left && point.x < rect.right && point.y >= rect.top && point.y < rect.bottom;
}
