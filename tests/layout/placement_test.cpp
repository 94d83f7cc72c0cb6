#include "layout/placement.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "layout/rounding.h"
#include "layout/text_anchor.h"

namespace {

constexpr std::int32_t least = INT32_MIN;
constexpr std::int32_t most = INT32_MAX;
constexpr float infinite = std::numeric_limits<float>::infinity();

Placement aligned(int align, int x = 0, int y = 0) { return {align, x, y, 0, 0, 0, 0, 0}; }
Placement scaled(float left, float right, float top, float bottom) { return {0, 0, 0, 1, left, right, top, bottom}; }

}  // namespace

TEST(Rounding, TakesHalvesUp) {
    const std::pair<float, std::int32_t> rows[] = {
        {2.5f, 3},        {-2.5f, -2},        {2.49f, 2},      {-2.51f, -3},     {0.5f, 1},
        {-0.5f, 0},       {-0.51f, -1},       {1023.5f, 1024}, {3e9f, most},     {-3e9f, least},
        {infinite, most}, {-infinite, least}, {NAN, 0},        {0.49999997f, 0}, {8388609.0f, 8388609},
    };
    for (const auto& [value, expected] : rows) EXPECT_EQ(round_half_up(value), expected) << value;
    EXPECT_EQ(trunc_to_int(-2.9), -2);
    EXPECT_EQ(trunc_to_int(1e300), most);
}

// {alignment, offsets of a corner at (300, 250) in 801 x 601, and where the next layout puts it}
TEST(Placement, OfOddFramesRoundsOneWayAndTruncatesTheOther) {
    const int rows[][5] = {
        {0, 300, 250, 300, 250},  {1, -101, 250, 299, 250},  {2, -501, 250, 300, 250},
        {3, -501, -51, 300, 249}, {4, -501, -351, 300, 250}, {5, -101, -351, 299, 250},
        {6, 300, -351, 300, 250}, {7, 300, -51, 300, 249},   {8, -101, -51, 299, 249},
    };
    const CRect frame(0, 0, 801, 601);
    for (const auto& [align, x, y, left, top] : rows) {
        SCOPED_TRACE(align);
        Placement place = aligned(align);
        update_placement(place, frame, {300, 250, 340, 260});
        EXPECT_EQ(place.offset_x, x);
        EXPECT_EQ(place.offset_y, y);
        EXPECT_EQ(rect_from_placement(place, frame, {0, 0, 40, 10}), CRect(left, top, left + 40, top + 10));
    }
}

TEST(Placement, OfEvenFramesGoesAndComesBackInEveryAlignment) {
    const CRect frame(100, 50, 900, 650);
    const CRect rect(-30, 70, 1000, 71);
    for (int align = 0; align < 9; ++align) {
        Placement place = aligned(align);
        update_placement(place, frame, rect);
        EXPECT_EQ(rect_from_placement(place, frame, rect), rect) << align;
        EXPECT_EQ(place.left, 0.0f);
    }
}

TEST(Placement, WithoutAnchorKeepsOffsetsAndRectangle) {
    for (int align : {-1, 9, least, most}) {
        Placement place = aligned(align, 7, 8);
        update_placement(place, {0, 0, 100, 100}, {1, 2, 3, 4});
        EXPECT_EQ(place.offset_x, 7);
        EXPECT_EQ(place.offset_y, 8);
        EXPECT_EQ(rect_from_placement(place, {5, 5, 100, 100}, {1, 2, 3, 4}), CRect(1, 2, 3, 4));
    }
}

TEST(Placement, RoundsEachScaledEdgeForItselfAheadOfTheOrigin) {
    EXPECT_EQ(rect_from_placement(scaled(0.25f, 0.75f, 0.5f, 1.0f), {0, 0, 801, 801}, {}), CRect(200, 401, 601, 801));
    EXPECT_EQ(rect_from_placement(scaled(-0.5f, 1.5f, 0, 0), {-7, 3, -6, 3}, {}), CRect(-7, 3, -5, 3));
    Placement place = scaled(9, 9, 9, 9);
    update_placement(place, {100, 50, 500, 250}, {0, 60, 300, 350});
    EXPECT_FLOAT_EQ(place.left, -0.25f);
    EXPECT_FLOAT_EQ(place.right, 0.5f);
    EXPECT_FLOAT_EQ(place.top, 0.05f);
    EXPECT_FLOAT_EQ(place.bottom, 1.5f);
    EXPECT_EQ(place.offset_x, 0);
}

TEST(Placement, ComesBackFromAFrameWithoutASize) {
    Placement place{0, 0, 0, 1, 0.25f, 0.75f, 0.5f, 1};
    update_placement(place, {10, 20, 10, 220}, {10, 30, 50, 60});
    EXPECT_EQ(std::vector({place.left, place.right}), std::vector({0.25f, 0.75f}));
    EXPECT_EQ(std::vector({place.top, place.bottom}), std::vector({0.05f, 0.2f}));
    EXPECT_EQ(resized_rect({10, 10, 20, 20}, {0, 0, 0, 0}, {0, 0, 100, 100}, 8, 0), CRect(-5, -5, 5, 5));
    EXPECT_EQ(resized_rect({10, 10, 20, 20}, {0, 0, 0, 0}, {3, 4, 100, 100}, 0, 1), CRect(3, 4, 3, 4));
}

// Whatever scripts and files store: the undefined behaviour sanitizer watches, and no result may be no number.
TEST(Placement, StandsTheExtremes) {
    const std::int32_t edges[] = {least, -1, 0, 1, most};
    for (std::int32_t a : edges) {
        for (std::int32_t b : edges) {
            const CRect rect(a, b, b, a);
            for (std::int32_t c : edges) {
                const CRect frame(c, a, b, c);
                for (int align = -1; align < 10; ++align) {
                    for (int scale : {0, 1}) {
                        Placement place{align, c, a, scale, infinite, -infinite, NAN, 3e38f};
                        rect_from_placement(place, frame, rect);
                        update_placement(place, frame, rect);
                        ASSERT_TRUE(!scale || std::isfinite(place.left + place.right + place.top + place.bottom));
                        resized_rect(rect, frame, rect, align, scale);
                        resized_rect(frame, rect, frame, align, scale);
                    }
                }
                CPoint anchor;
                for (int position = 0; position < 12; ++position) text_anchor(frame, position, anchor);
            }
        }
    }
}
