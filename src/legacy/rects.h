#pragma once

// Where the elements of a legacy project lie, as values.

#include "engine/rect.h"
#include "engine/vectors.h"
#include "layout/anchors.h"
#include "layout/rounding.h"

/// From a place and a size.
constexpr CRect legacy_rect(std::int64_t left, std::int64_t top, std::int32_t width, std::int32_t height) {
    return {saturated(left), saturated(top), saturated(left + width), saturated(top + height)};
}

/// The place of a panel as it is stored, for the panel itself and for the keys of its animation.
struct PanelPlace {
    /// 1: the fractions are in force; else anchor, offset and size.
    int locate_mode = 0;
    /// 1 to 9: the anchor, row by row from the left top.
    int align_mode = 0;
    /// From the anchor, in pixels; at the right and the lower edge it counts inwards.
    VEC2 offset;
    /// In pixels.
    std::int32_t width = 0;
    std::int32_t height = 0;
    /// The edges as fractions of the frame.
    float left = 0.0f;
    float top = 0.0f;
    float right = 0.0f;
    float bottom = 0.0f;
};

// Row by row in old projects, once around and then the centre in present ones.
inline constexpr int panel_alignments[] = {0, 1, 2, 7, 8, 3, 6, 5, 4};
static_assert(sizeof panel_alignments / sizeof panel_alignments[0] == anchor_count);

constexpr bool has_panel_anchor(int align_mode) { return align_mode >= 1 && align_mode <= anchor_count; }

/// The alignment in present numbers; the left top corner for what has no anchor.
constexpr int panel_alignment(int align_mode) {
    return has_panel_anchor(align_mode) ? panel_alignments[align_mode - 1] : 0;
}

namespace legacy_place {

// One axis: the near edge of an element in its frame. `halves` as in HalfSteps.
inline std::int32_t near_edge(int halves, std::int32_t frame, std::int32_t size, std::int32_t offset) {
    if (halves == 0) return offset;
    if (halves == 2) return saturated(std::int64_t{frame} - size - offset);
    return round_half_up(static_cast<float>(frame / 2.0 - size / 2.0 + offset));
}

// One axis: from the anchor to the near edge of an element.
inline float from_anchor(int halves, float size, float offset) {
    if (halves == 0) return offset;
    return halves == 2 ? -offset - size : offset - size / 2.0f;
}

inline std::int32_t edge_at(float share, std::int32_t frame) {
    return round_half_up(share * static_cast<float>(frame));
}

}  // namespace legacy_place

/// The rectangle of a panel in a frame of that size, whose left top corner is 0, 0. Without an anchor it lies there.
inline CRect panel_rect(const PanelPlace& place, std::int32_t frame_width, std::int32_t frame_height) {
    using namespace legacy_place;
    if (place.locate_mode == 1) {
        return {edge_at(place.left, frame_width), edge_at(place.top, frame_height), edge_at(place.right, frame_width),
                edge_at(place.bottom, frame_height)};
    }
    if (!has_panel_anchor(place.align_mode)) return legacy_rect(0, 0, place.width, place.height);
    const HalfSteps anchor = anchors[panel_alignment(place.align_mode)];
    return legacy_rect(near_edge(anchor.x, frame_width, place.width, round_half_up(place.offset.x)),
                       near_edge(anchor.y, frame_height, place.height, round_half_up(place.offset.y)), place.width,
                       place.height);
}

/// The offset of a panel's key: from the anchor to the left top corner, nothing rounded. 0, 0 without an anchor.
inline VEC2 panel_key_offset(const PanelPlace& place) {
    if (!has_panel_anchor(place.align_mode)) return {};
    const HalfSteps anchor = anchors[panel_alignment(place.align_mode)];
    return {legacy_place::from_anchor(anchor.x, static_cast<float>(place.width), place.offset.x),
            legacy_place::from_anchor(anchor.y, static_cast<float>(place.height), place.offset.y)};
}
