#pragma once

// Where an element lies in its frame, as values: alignment and offset, or fractions of the frame. Knows no engine and
// no element class; dialogs and shapes use it with different frames.

#include <cstdint>

#include "engine/rect.h"
#include "engine/vectors.h"

/// The description of a place that is stored in projects. Only the form in force is kept up to date.
struct Placement {
    int align;
    std::int32_t offset_x;
    std::int32_t offset_y;
    /// Not 0: the fractions are in force; 0: alignment and offset.
    int scale;
    float left;
    float right;
    float top;
    float bottom;
};

/// The rectangle that the description gives in the frame. Without scale the size of `rect` is kept; with an alignment
/// that has no anchor all of `rect` is kept.
CRect rect_from_placement(const Placement& placement, const CRect& frame, const CRect& rect);

/// Brings the form in force in line with `rect`; the other form stays. An alignment without an anchor keeps its offset.
void update_placement(Placement& placement, const CRect& frame, const CRect& rect);

/// An offset given under `from_align`, as the offset of the same point under `to_align`, in a frame of that size. No
/// rounding; alignments without an anchor count as the left top corner.
VEC2 offset_under_alignment(int to_align, int from_align, VEC2 frame_size, VEC2 offset);

/// The rectangle that an element must have when its frame changes from `old_root` to `new_root`. An old root of width
/// or height 0 scales by 0.
CRect resized_rect(const CRect& rect, const CRect& old_root, const CRect& new_root, int align, int scale);
