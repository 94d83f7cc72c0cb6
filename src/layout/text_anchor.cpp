#include "layout/text_anchor.h"

#include "layout/rounding.h"

namespace {

// An edge plus a share of the size. Near edges stay whole numbers; the others go through 32-bit floats and one
// rounding, as the text positions of existing projects do.
std::int32_t along(std::int32_t near_edge, std::int32_t size, float share) {
    if (share == 0.0f) return near_edge;
    return round_half_up(static_cast<float>(near_edge) + static_cast<float>(size) * share);
}

// Share of the width by column, of the height by row. Baseline texts hang on the same point as top ones; they differ
// in how the font lays them around it.
constexpr float column_share[] = {0.0f, 0.5f, 1.0f};
constexpr float row_share[] = {0.0f, 0.0f, 0.5f, 1.0f};

}  // namespace

bool text_anchor(const CRect& rect, int position, CPoint& anchor) {
    if (position < FONT_LEFT_TOP || position > FONT_RIGHT_BOTTOM) return false;
    anchor = {along(rect.left, rect.Width(), column_share[position / 4]),
              along(rect.top, rect.Height(), row_share[position % 4])};
    return true;
}
