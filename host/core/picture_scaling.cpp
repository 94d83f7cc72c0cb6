#include "host/core/picture_scaling.h"

#include <algorithm>
#include <cmath>

namespace host {
namespace {

// What one pixel of the result takes of the picture along one axis.
struct Share {
    int first;
    std::vector<float> weights;
};

// A triangle over the pixel's place, as wide as the pixel where the picture shrinks and two picture pixels where it
// grows. Beyond the edge the picture's last pixel goes on.
Share share_of(int at, int picture_size, int size) {
    const double step = double{1} * picture_size / size;
    const double reach = std::max(step, 1.0);
    const double center = (at + 0.5) * step - 0.5;
    const int from = static_cast<int>(std::ceil(center - reach)), to = static_cast<int>(std::floor(center + reach));
    Share share{std::clamp(from, 0, picture_size - 1), {}};
    const int last = std::clamp(to, 0, picture_size - 1);
    share.weights.assign(static_cast<std::size_t>(last) - static_cast<std::size_t>(share.first) + 1, 0.0f);
    double sum = 0.0;
    for (int i = from; i <= to; ++i) {
        const double weight = std::max(0.0, 1.0 - std::abs(i - center) / reach);
        share.weights[static_cast<std::size_t>(std::clamp(i, 0, picture_size - 1) - share.first)] +=
            static_cast<float>(weight);
        sum += weight;
    }
    for (float& weight : share.weights) weight /= static_cast<float>(sum);
    return share;
}

std::vector<Share> shares(int from, int to, int picture_size, int size) {
    std::vector<Share> all;
    all.reserve(static_cast<std::size_t>(to - from));
    for (int at = from; at < to; ++at) all.push_back(share_of(at, picture_size, size));
    return all;
}

// Alpha, then colours multiplied by it: clear pixels of any colour must not stain their neighbours.
struct Weighed {
    float a, r, g, b;
};

Weighed weighed(std::uint32_t argb) {
    const float alpha = static_cast<float>(argb >> 24);
    const float part = alpha * (1.0f / 255.0f);
    return {alpha, static_cast<float>(argb >> 16 & 255) * part, static_cast<float>(argb >> 8 & 255) * part,
            static_cast<float>(argb & 255) * part};
}

std::uint32_t plain(const Weighed& pixel) {
    if (pixel.a < 0.5f) return 0;
    const auto byte = [](float value) { return static_cast<std::uint32_t>(std::min(value + 0.5f, 255.0f)); };
    const float back = 255.0f / pixel.a;
    return byte(pixel.a) << 24 | byte(pixel.r * back) << 16 | byte(pixel.g * back) << 8 | byte(pixel.b * back);
}

void add(Weighed& sum, const Weighed& pixel, float weight) {
    sum.a += pixel.a * weight;
    sum.r += pixel.r * weight;
    sum.g += pixel.g * weight;
    sum.b += pixel.b * weight;
}

// Pixel x of the row takes its share of the picture's row, which begins at the pixel number `first`.
std::uint32_t row_pixel(const std::vector<Weighed>& row, int first, const Share& share) {
    Weighed sum{};
    const Weighed* pixel = row.data() + (share.first - first);
    for (float weight : share.weights) add(sum, *pixel++, weight);
    return plain(sum);
}

std::vector<std::uint32_t> copied_part(const Picture& picture, const CRect& part) {
    std::vector<std::uint32_t> pixels;
    for (int y = part.top; y < part.bottom; ++y) {
        const auto row = picture.argb.begin() + static_cast<std::ptrdiff_t>(y) * static_cast<int>(picture.width);
        pixels.insert(pixels.end(), row + part.left, row + part.right);
    }
    return pixels;
}

}  // namespace

std::vector<std::uint32_t> scaled_pixels(const Picture& picture, int width, int height, const CRect& part) {
    const int picture_width = static_cast<int>(picture.width), picture_height = static_cast<int>(picture.height);
    if (width == picture_width && height == picture_height) return copied_part(picture, part);
    const std::vector<Share> columns = shares(part.left, part.right, picture_width, width);
    const std::vector<Share> rows = shares(part.top, part.bottom, picture_height, height);
    const int first = columns.front().first;
    const int end = columns.back().first + static_cast<int>(columns.back().weights.size());

    // The picture's rows that one row of the result takes are summed first, then its pixels are taken from the sum.
    std::vector<std::uint32_t> pixels;
    pixels.reserve(rows.size() * columns.size());
    std::vector<Weighed> summed(static_cast<std::size_t>(end - first));
    for (const Share& row : rows) {
        std::fill(summed.begin(), summed.end(), Weighed{});
        const std::uint32_t* from =
            picture.argb.data() + static_cast<std::ptrdiff_t>(row.first) * picture_width + first;
        for (float weight : row.weights) {
            for (std::size_t x = 0; x < summed.size(); ++x) add(summed[x], weighed(from[x]), weight);
            from += picture_width;
        }
        for (const Share& column : columns) pixels.push_back(row_pixel(summed, first, column));
    }
    return pixels;
}

}  // namespace host
