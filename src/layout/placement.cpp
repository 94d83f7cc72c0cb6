#include "layout/placement.h"

#include <cmath>

#include "layout/anchors.h"
#include "layout/rounding.h"

namespace {

CRect moved_to(const CRect& rect, std::int64_t left, std::int64_t top) {
    return {saturated(left), saturated(top), saturated(left + rect.right - rect.left),
            saturated(top + rect.bottom - rect.top)};
}

// Anchors truncate their half; offsets round it. So a frame of odd size moves an element by one pixel when its
// offsets are stored again, as projects have always had it.
std::int64_t truncated_steps(int halves, std::int32_t size) {
    return halves == 1 ? std::int64_t{size / 2} : std::int64_t{halves / 2} * size;
}

std::int64_t rounded_steps(int halves, std::int32_t size) {
    return halves == 1 ? std::int64_t{round_half_up(static_cast<float>(size / 2.0))} : std::int64_t{halves / 2} * size;
}

std::int32_t edge_at(float share, std::int32_t frame_size, std::int32_t origin) {
    return saturated(std::int64_t{round_half_up(static_cast<float>(frame_size) * share)} + origin);
}

// In a frame without a size nothing can be measured: what is known stays, so that the element comes back with the
// frame.
float share_of(std::int32_t edge, std::int32_t origin, std::int32_t frame_size, float known) {
    if (frame_size == 0) return std::isfinite(known) ? known : 0.0f;
    return static_cast<float>(static_cast<double>(std::int64_t{edge} - origin) / frame_size);
}

}  // namespace

CRect rect_from_placement(const Placement& placement, const CRect& frame, const CRect& rect) {
    const std::int32_t width = frame.Width();
    const std::int32_t height = frame.Height();
    if (placement.scale) {
        return {edge_at(placement.left, width, frame.left), edge_at(placement.top, height, frame.top),
                edge_at(placement.right, width, frame.left), edge_at(placement.bottom, height, frame.top)};
    }
    if (!has_anchor(placement.align)) return rect;
    const HalfSteps anchor = anchors[placement.align];
    return moved_to(rect, std::int64_t{placement.offset_x} + truncated_steps(anchor.x, width) + frame.left,
                    std::int64_t{placement.offset_y} + truncated_steps(anchor.y, height) + frame.top);
}

void update_placement(Placement& placement, const CRect& frame, const CRect& rect) {
    const std::int32_t width = frame.Width();
    const std::int32_t height = frame.Height();
    if (placement.scale) {
        placement.left = share_of(rect.left, frame.left, width, placement.left);
        placement.right = share_of(rect.right, frame.left, width, placement.right);
        placement.top = share_of(rect.top, frame.top, height, placement.top);
        placement.bottom = share_of(rect.bottom, frame.top, height, placement.bottom);
        return;
    }
    if (!has_anchor(placement.align)) return;
    const HalfSteps anchor = anchors[placement.align];
    placement.offset_x = saturated(std::int64_t{rect.left} - frame.left - rounded_steps(anchor.x, width));
    placement.offset_y = saturated(std::int64_t{rect.top} - frame.top - rounded_steps(anchor.y, height));
}

VEC2 offset_under_alignment(int to_align, int from_align, VEC2 frame_size, VEC2 offset) {
    if (from_align == to_align) return offset;
    const HalfSteps to = anchor_of(to_align);
    const HalfSteps from = anchor_of(from_align);
    const auto steps = [](int halves, float size) { return size * (static_cast<float>(halves) / 2.0f); };
    return {offset.x - steps(to.x, frame_size.x) + steps(from.x, frame_size.x),
            offset.y - steps(to.y, frame_size.y) + steps(from.y, frame_size.y)};
}

namespace {

// One axis of a rectangle: its near and its far edge.
struct Span {
    std::int32_t near_edge;
    std::int32_t far_edge;
};

Span resized_span(Span rel, Span old_root, Span new_root, int halves, bool scale) {
    const float old_size = static_cast<float>(std::int64_t{old_root.far_edge} - old_root.near_edge);
    const float new_size = static_cast<float>(std::int64_t{new_root.far_edge} - new_root.near_edge);
    const float factor = fraction(new_size, old_size);
    const double origin = new_root.near_edge;
    const auto placed = [origin](double edge) { return trunc_to_int(edge + origin); };

    if (scale) return {placed(double{factor} * rel.near_edge), placed(double{factor} * rel.far_edge)};
    if (halves == 1) {
        const double middle = (static_cast<double>(rel.near_edge) + rel.far_edge) / 2.0;
        const float center = static_cast<float>(middle * factor);
        const float half = static_cast<float>(std::int64_t{rel.far_edge} - rel.near_edge) / 2.0f;
        return {placed(double{center} - half), placed(double{half} + center)};
    }
    if (halves == 2) {
        const double grown = double{new_size - old_size};
        return {placed(rel.near_edge + grown), placed(rel.far_edge + grown)};
    }
    return {saturated(std::int64_t{rel.near_edge} + new_root.near_edge),
            saturated(std::int64_t{rel.far_edge} + new_root.near_edge)};
}

}  // namespace

CRect resized_rect(const CRect& rect, const CRect& old_root, const CRect& new_root, int align, int scale) {
    const auto relative = [](std::int32_t edge, std::int32_t origin) { return saturated(std::int64_t{edge} - origin); };
    const HalfSteps anchor = anchor_of(align);
    const Span across =
        resized_span({relative(rect.left, old_root.left), relative(rect.right, old_root.left)},
                     {old_root.left, old_root.right}, {new_root.left, new_root.right}, anchor.x, scale != 0);
    const Span down =
        resized_span({relative(rect.top, old_root.top), relative(rect.bottom, old_root.top)},
                     {old_root.top, old_root.bottom}, {new_root.top, new_root.bottom}, anchor.y, scale != 0);
    return {across.near_edge, down.near_edge, across.far_edge, down.far_edge};
}
