#include "host/core/patterned_line.h"

#include <algorithm>
#include <cmath>

#include "host/core/clipping.h"

namespace host {
namespace {

// Pixel i of a stretch of `steps` pixels lies i steps along its longer axis; the end belongs to the next stretch.
struct Stretch {
    double x, y;
    double step_x, step_y;
    std::int64_t steps;
};

// Beyond this, pixel numbers lose no meaning for any view but stay exact in a double.
constexpr double farthest = 1e9;

Stretch stretch_between(const VEC2& from, const VEC2& to) {
    const auto pixel = [](float value) { return std::trunc(std::clamp(double{value}, -farthest, farthest)); };
    Stretch stretch{pixel(from.x), pixel(from.y), 0.0, 0.0, 0};
    const double dx = pixel(to.x) - stretch.x, dy = pixel(to.y) - stretch.y;
    stretch.steps = static_cast<std::int64_t>(std::max(std::abs(dx), std::abs(dy)));
    if (stretch.steps == 0) return stretch;
    stretch.step_x = dx / static_cast<double>(stretch.steps);
    stretch.step_y = dy / static_cast<double>(stretch.steps);
    return stretch;
}

struct Range {
    double from, to;
};

// Narrows the steps to those that come near `low` to `high` on one axis, so that a line of millions of pixels costs no
// more than what the view shows of it.
void narrow(Range& range, double start, double step, double low, double high) {
    if (step == 0.0) {
        if (start < low - 1 || start > high + 1) range.to = range.from - 1;
        return;
    }
    double first = (low - 1 - start) / step, last = (high + 1 - start) / step;
    if (first > last) std::swap(first, last);
    range.from = std::max(range.from, std::floor(first));
    range.to = std::min(range.to, std::ceil(last));
}

bool is_set(unsigned long pattern, std::int64_t along, double scale) {
    const auto bit = static_cast<std::int64_t>(static_cast<double>(along) / scale) % 32;
    return (pattern >> bit & 1u) != 0;
}

bool is_finite(const VEC2& point) { return std::isfinite(point.x) && std::isfinite(point.y); }

}  // namespace

std::vector<CPoint> patterned_pixels(const std::vector<VEC2>& points, unsigned long pattern, float pattern_scale,
                                     const CRect& clip) {
    std::vector<CPoint> pixels;
    // A pixel is the least that a bit can stand for.
    const double scale = pattern_scale > 1.0f ? std::min(double{pattern_scale}, farthest) : 1.0;
    std::int64_t along = 0;
    for (std::size_t i = 1; i < points.size(); ++i) {
        if (!is_finite(points[i - 1]) || !is_finite(points[i])) continue;
        const Stretch stretch = stretch_between(points[i - 1], points[i]);
        Range seen{0.0, static_cast<double>(stretch.steps - 1)};
        narrow(seen, stretch.x, stretch.step_x, clip.left, clip.right);
        narrow(seen, stretch.y, stretch.step_y, clip.top, clip.bottom);
        for (double step = seen.from; step <= seen.to; ++step) {
            const CPoint pixel(truncated(std::floor(stretch.x + stretch.step_x * step + 0.5)),
                               truncated(std::floor(stretch.y + stretch.step_y * step + 0.5)));
            const std::int64_t place = along + static_cast<std::int64_t>(step);
            if (contains(clip, pixel) && is_set(pattern, place, scale)) pixels.push_back(pixel);
        }
        along += stretch.steps;
    }
    return pixels;
}

}  // namespace host
