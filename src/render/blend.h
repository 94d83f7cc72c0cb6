#pragma once

#include "engine/device.h"

/// The one blend of the whole GUI: by the alpha of the new colour.
inline constexpr x3d_blend_desc gui_blend(1, 5, 6, 1, 8, 2, 1, 0);
