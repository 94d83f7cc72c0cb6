#include "script/moved_rect.h"

#include <iterator>

#include "layout/anchors.h"
#include "layout/rounding.h"

namespace {

// How far each point of a rectangle lies from its left top corner, in halves of its size.
constexpr HalfSteps corners[] = {{0, 0}, {2, 0}, {0, 2}, {2, 2}, {1, 1}};

std::int64_t part_of(std::int32_t size, int halves) {
    return halves == 1 ? size / 2 : std::int64_t{size} * (halves / 2);
}

struct Span {
    std::int32_t near_edge;
    std::int32_t far_edge;
};

Span moved_span(std::int32_t size, float position, std::int64_t shift) {
    return {saturated(trunc_to_int(position) + shift),
            saturated(trunc_to_int(static_cast<float>(size) + position) + shift)};
}

Span resized_span(Span span, std::int64_t change, int halves) {
    if (halves == 0) return {span.near_edge, saturated(span.far_edge + change)};
    if (halves == 2) return {saturated(span.near_edge - change), span.far_edge};
    return {saturated(span.near_edge - change / 2), saturated(span.far_edge + change / 2)};
}

}  // namespace

VEC4 float_edges(const CRect& rect) {
    return {static_cast<float>(rect.left), static_cast<float>(rect.top), static_cast<float>(rect.right),
            static_cast<float>(rect.bottom)};
}

CRect truncated_rect(const VEC4& edges) {
    return {trunc_to_int(edges.x), trunc_to_int(edges.y), trunc_to_int(edges.z), trunc_to_int(edges.w)};
}

CRect moved_rect(const CRect& rect, bool relative, int corner, const VEC2& origin, const VEC2& position) {
    const bool known = corner >= 0 && corner < static_cast<int>(std::size(corners));
    const HalfSteps steps = known ? corners[corner] : HalfSteps{0, 0};
    const auto shift = [&](std::int32_t size, float from, int halves) {
        return (relative ? std::int64_t{trunc_to_int(from)} : 0) - part_of(size, halves);
    };
    const Span across = moved_span(rect.Width(), position.x, shift(rect.Width(), origin.x, steps.x));
    const Span down = moved_span(rect.Height(), position.y, shift(rect.Height(), origin.y, steps.y));
    return {across.near_edge, down.near_edge, across.far_edge, down.far_edge};
}

CRect resized_about(const CRect& rect, int align, std::int32_t width, std::int32_t height) {
    const HalfSteps steps = anchors[align];
    const Span across = resized_span({rect.left, rect.right}, std::int64_t{width} - rect.Width(), steps.x);
    const Span down = resized_span({rect.top, rect.bottom}, std::int64_t{height} - rect.Height(), steps.y);
    return {across.near_edge, down.near_edge, across.far_edge, down.far_edge};
}
