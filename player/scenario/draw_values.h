#pragma once

#include "fonts/font_info.h"
#include "host/core/recording_device.h"
#include "player/scenario/value.h"

namespace scenario {

/// The draw call as a table. Texts name their font by its slot in `fonts`; any other font is "default".
Value draw_call_value(const host::DrawCall& call, const CGlobalFontInfo& fonts, const IBaseFont* default_font);

}  // namespace scenario
