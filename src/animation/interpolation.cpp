#include "animation/interpolation.h"

#include "layout/anchors.h"
#include "layout/rounding.h"

CRect rect_of_key(const VEC2& offset, const VEC2& size, int align, const CRect& frame) {
    const HalfSteps anchor = anchor_of(align);
    const auto steps = [](int halves, std::int32_t pixels) {
        return static_cast<float>(halves) * (static_cast<float>(pixels) / 2.0f);
    };
    const float across = steps(anchor.x, frame.Width());
    const float down = steps(anchor.y, frame.Height());
    const auto placed = [](float edge, float to_anchor, std::int32_t origin) {
        return round_half_up(edge + to_anchor + static_cast<float>(origin));
    };
    return {placed(offset.x, across, frame.left), placed(offset.y, down, frame.top),
            placed(offset.x + size.x, across, frame.left), placed(offset.y + size.y, down, frame.top)};
}
