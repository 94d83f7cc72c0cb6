#pragma once

#include "engine/rect.h"
#include "engine/vectors.h"

// Where the script functions put rectangles. Floats become pixels by truncation.

/// The edges as floats, left, top, right, bottom.
VEC4 float_edges(const CRect& rect);
/// The rectangle whose edges are those four numbers.
CRect truncated_rect(const VEC4& edges);
/// `rect` with its point `corner` (0 left top, 1 right top, 2 left bottom, 3 right bottom, 4 centre; any other as 0)
/// at a position; with `relative` the position counts from `origin`.
CRect moved_rect(const CRect& rect, bool relative, int corner, const VEC2& origin, const VEC2& position);
/// `rect` at a new size in pixels, grown about the anchor of an alignment, which must have one. A centred anchor moves
/// both edges by the truncated half, so an odd change comes out one pixel short.
CRect resized_about(const CRect& rect, int align, std::int32_t width, std::int32_t height);
