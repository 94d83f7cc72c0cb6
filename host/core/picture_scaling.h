#pragma once

#include <cstdint>
#include <vector>

#include "engine/rect.h"
#include "host/core/picture_file.h"

namespace host {

/// The picture at width × height, of which only `part` is computed: its pixels row by row, 0xAARRGGBB. Enlarging runs
/// evenly from pixel to pixel, shrinking takes the mean of all that a pixel covers. `part` lies within the size and is
/// not empty; the picture has pixels.
std::vector<std::uint32_t> scaled_pixels(const Picture& picture, int width, int height, const CRect& part);

}  // namespace host
