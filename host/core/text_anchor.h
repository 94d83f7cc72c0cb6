#pragma once

#include <cstdint>

#include "engine/font.h"

namespace host {

/// Heights of a block of lines, in pixels.
struct BlockHeights {
    std::int64_t block;
    /// From the block's top to the baseline of its first line.
    std::int64_t baseline;
};

/// How far left of the anchor a line of that width begins. Each line of a block is placed for itself.
constexpr std::int64_t left_of_anchor(font_org_position position, std::int64_t width) {
    const std::int64_t halves[] = {0, 1, 2};
    return position < 0 || position > FONT_RIGHT_BOTTOM ? 0 : halves[position / 4] * width / 2;
}

/// How far above the anchor the block begins. Numbers that are no position count as left top.
constexpr std::int64_t above_anchor(font_org_position position, const BlockHeights& heights) {
    const std::int64_t offsets[] = {0, heights.baseline, heights.block / 2, heights.block};
    return position < 0 || position > FONT_RIGHT_BOTTOM ? 0 : offsets[position % 4];
}

}  // namespace host
