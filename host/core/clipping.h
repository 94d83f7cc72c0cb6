#pragma once

#include <algorithm>
#include <cstdint>

#include "engine/device.h"
#include "engine/rect.h"

// Which pixels a drawing may touch. Viewports and rectangles come from scripts and may lie anywhere.

namespace host {

inline bool is_empty(const CRect& rect) { return rect.right <= rect.left || rect.bottom <= rect.top; }

/// What both hold; empty, and all zeros, if they hold nothing together.
inline CRect intersection(const CRect& a, const CRect& b) {
    const CRect common(std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right),
                       std::min(a.bottom, b.bottom));
    return is_empty(common) ? CRect() : common;
}

/// Towards 0, then the nearest 32-bit number; 0 for what is no number.
inline std::int32_t truncated(double value) {
    if (!(value == value)) return 0;
    return static_cast<std::int32_t>(std::clamp(value, double{INT32_MIN}, double{INT32_MAX}));
}

/// The pixels of the viewport that lie in the view.
inline CRect visible_part(const x3d_viewport& viewport, int view_width, int view_height) {
    const CRect asked(truncated(viewport.x), truncated(viewport.y), truncated(double{viewport.x} + viewport.width),
                      truncated(double{viewport.y} + viewport.height));
    return intersection(asked, CRect(0, 0, view_width, view_height));
}

}  // namespace host
