#pragma once

// The points of a frame that an element can hang on.

#include <cstdint>

/// An anchor in halves of the frame's width and height.
struct HalfSteps {
    int x;
    int y;
};

// Index = the alignment number stored in projects: left top, top, right top, right, right bottom, bottom, left bottom,
// left, centre.
inline constexpr HalfSteps anchors[] = {{0, 0}, {1, 0}, {2, 0}, {2, 1}, {2, 2}, {1, 2}, {0, 2}, {0, 1}, {1, 1}};
inline constexpr int anchor_count = 9;
static_assert(sizeof anchors / sizeof anchors[0] == anchor_count);

/// Stands for the scale mode wherever an alignment is passed as one number; no anchor.
inline constexpr int ALIGN_SCALE = 9;

constexpr bool has_anchor(int align) { return align >= 0 && align < anchor_count; }

/// The anchor of an alignment; the frame's left top corner for what has none.
constexpr HalfSteps anchor_of(int align) { return has_anchor(align) ? anchors[align] : HalfSteps{0, 0}; }
