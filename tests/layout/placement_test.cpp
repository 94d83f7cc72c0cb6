#include "layout/placement.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "layout/rounding.h"
#include "layout/text_anchor.h"
#include "support/gui_test.h"

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

TEST(Placement, InAFrameWithoutASizeStoresZeros) {
    Placement place = scaled(1, 1, 1, 1);
    update_placement(place, {10, 20, 10, 20}, {10, 30, 50, 60});
    for (float share : {place.left, place.right, place.top, place.bottom}) EXPECT_EQ(share, 0.0f);
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

TEST_F(GuiTest, OffsetsChangeTheirAlignmentWithExactHalves) {
    struct Row {
        int to, from;
        float x, y;
    };
    const Row rows[] = {
        {0, 8, 410.5f, 320.5f}, {8, 0, -390.5f, -280.5f}, {4, 0, -791, -581}, {0, 5, 410.5f, 621},     {9, 2, 811, 20},
        {3, 9, -791, -280.5f},  {7, 7, 10, 20},           {-4, 6, 10, 621},   {1, 7, -390.5f, 320.5f},
    };
    for (const Row& row : rows) {
        const VEC2 got = gui.get_offset_of_dif_align(row.to, row.from, {5, 6, 806, 607}, {10, 20});
        EXPECT_FLOAT_EQ(got.x, row.x) << row.from << " to " << row.to;
        EXPECT_FLOAT_EQ(got.y, row.y) << row.from << " to " << row.to;
    }
}

TEST_F(GuiTest, RectanglesFollowTheirRootByAlignment) {
    struct Row {
        int align, scale;
        CRect expected;
    };
    // A rectangle of odd width in a root that moves by (5, 7) and grows from 800 x 600 to 1000 x 900.
    const Row rows[] = {
        {0, 0, {105, 57, 156, 77}},   {1, 0, {136, 57, 187, 77}},   {2, 0, {305, 57, 356, 77}},
        {3, 0, {305, 87, 356, 107}},  {4, 0, {305, 357, 356, 377}}, {5, 0, {136, 357, 187, 377}},
        {6, 0, {105, 357, 156, 377}}, {7, 0, {105, 87, 156, 107}},  {8, 0, {136, 87, 187, 107}},
        {9, 0, {105, 57, 156, 77}},   {8, 1, {130, 82, 193, 112}},  {0, 7, {130, 82, 193, 112}},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(gui.resize_rect_according_to_root({110, 60, 161, 80}, {10, 10, 810, 610}, {5, 7, 1005, 907},
                                                    row.align, row.scale),
                  row.expected)
            << row.align << " " << row.scale;
    }
    const auto centred = [&](const CRect& rect) {
        return gui.resize_rect_according_to_root(rect, {10, 10, 810, 610}, {5, 7, 1005, 907}, 1, 0);
    };
    EXPECT_EQ(centred({112, 60, 163, 80}), CRect(138, 57, 189, 77)) << "138.875 and 189.875";
    EXPECT_EQ(centred({-90, 60, -39, 80}), CRect(-113, 57, -62, 77)) << "-113.625 and -62.625";
    EXPECT_EQ(gui.resize_rect_according_to_root({-11, 0, -10, 3}, {0, 0, 800, 600}, {0, 0, 400, 600}, 0, 1),
              CRect(-5, 0, -5, 3))
        << "cut off towards zero, not down";
}

TEST_F(GuiTest, ConvertsPercentsAgainstTheFrameOfTheActorsItem) {
    CSimpleGUIDialog* parent = dialog({100, 100, 300, 150});
    CSimpleGUIShape* child = shape(parent, {});
    CSimpleGUIShape* orphan = engine.make<CSimpleGUIShape>(ITEM_TYPE_SHAPE);
    const CMyComPtr<IBaseItem> stranger(new IBaseItem);
    IActor* strange = engine.scene.create_actor(stranger.get(), nullptr, 1);
    IActor* empty = engine.scene.create_actor(nullptr, nullptr, 1);
    // The view on record counts for dialogs, not the view of the moment.
    engine.client = {0, 0, 1, 1};
    struct Row {
        IActor* actor;
        float width, height;
    };
    const Row rows[] = {{parent->m_actor, 800, 600},
                        {child->m_actor, 200, 50},
                        {orphan->m_actor, 0, 0},
                        {strange, 0, 0},
                        {empty, 0, 0},
                        {nullptr, 0, 0}};
    for (const Row& row : rows) {
        for (const VEC2 pixels :
             {gui.get_offset_by_percent({0.5f, 2}, row.actor), gui.get_size_by_percent({0.5f, 2}, row.actor)}) {
            EXPECT_FLOAT_EQ(pixels.x, row.width * 0.5f);
            EXPECT_FLOAT_EQ(pixels.y, row.height * 2);
        }
        for (const VEC2 share : {gui.get_percent_offset_by_pixel({20, 30}, row.actor),
                                 gui.get_percent_size_by_pixel({20, 30}, row.actor)}) {
            EXPECT_FLOAT_EQ(share.x, row.width > 0 ? 20 / row.width : 0);
            EXPECT_FLOAT_EQ(share.y, row.height > 0 ? 30 / row.height : 0);
        }
    }
    parent->m_rect = {5, 5, 5, 5};
    EXPECT_EQ(gui.get_percent_offset_by_pixel({20, 30}, child->m_actor).x, 0.0f);
}

TEST_F(GuiTest, TextsHangOnTwelveAnchorsRelativeToTheDialog) {
    CSimpleGUIDialog* parent = dialog({100, 50, 400, 300});
    CSimpleGUIShape* child = shape(parent, {110, 60, 131, 71});
    constexpr int x[] = {10, 21, 31};
    constexpr int y[] = {10, 10, 16, 21};
    for (int position = 0; position < 12; ++position) {
        child->m_font_org_position = static_cast<font_org_position>(position);
        child->update_fontpos();
        EXPECT_EQ(child->m_font_pos_x, x[position / 4]) << position;
        EXPECT_EQ(child->m_font_pos_y, y[position % 4]) << position;
    }
    for (int position : {-1, 12, INT32_MAX}) {
        child->m_font_org_position = static_cast<font_org_position>(position);
        child->update_fontpos();
        EXPECT_EQ(child->m_font_pos_x, 31) << "the last anchor stays";
    }
}
