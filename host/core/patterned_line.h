#pragma once

#include <cstdint>
#include <vector>

#include "engine/rect.h"
#include "engine/vectors.h"

namespace host {

/// The pixels of a polyline that lie in `clip` and whose bit of the pattern is set. Bit i of the lower 32 bits, the
/// lowest first, stands for `pattern_scale` pixels along the line; the pattern begins anew behind its end and runs on
/// round the corners. Stretches of the line with an end that is no number, or is infinite, are left out.
std::vector<CPoint> patterned_pixels(const std::vector<VEC2>& points, unsigned long pattern, float pattern_scale,
                                     const CRect& clip);

}  // namespace host
