#pragma once

#include "engine/font.h"
#include "engine/rect.h"

/// The point of a rectangle that a text of that position hangs on, in the rectangle's coordinates. False for a
/// position that has no anchor; the point is then untouched.
bool text_anchor(const CRect& rect, int position, CPoint& anchor);
