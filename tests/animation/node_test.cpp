// Keys move, size, show, anchor and colour an item, are made from it, and stay true when its frame changes.

#include "animation/anim_node.h"
#include "animation/keys.h"
#include "support/gui_test.h"

namespace {

struct PlaceKey {
    float time;
    VEC2 offset;
};
struct AlignKey {
    float time;
    int align;
};

class NodeTest : public GuiTest {
protected:
    CSimpleGUIAnimNode& node_of(IBaseItem* item) {
        nodes.emplace_back(static_cast<CSimpleGUIAnimNode*>(
            AnimSystemLibrary::create_anim_node_by_type(&engine, ANIM_NODE_TYPE_GUI, item->m_actor->get_id())));
        return *nodes.back();
    }
    template <class Key>
    Key& key(CSimpleGUIAnimNode& node, unsigned type, float time) {
        ITrack* track = node.get_track(type);
        track->create_key(time, true);
        return static_cast<Key&>(*track->get_keys().back());
    }
    void place_keys(CSimpleGUIAnimNode& node, const std::vector<PlaceKey>& keys) {
        for (const PlaceKey& at : keys) key<SGuiOffset>(node, TRACK_TYPE_OFFSET, at.time).m_offset = at.offset;
    }
    void align_keys(CSimpleGUIAnimNode& node, const std::vector<AlignKey>& keys) {
        for (const AlignKey& at : keys) key<SGuiAlign>(node, TRACK_TYPE_ALIGN, at.time).m_align = at.align;
    }
    static void play(CSimpleGUIAnimNode& node, float time, float speed = 1.0f) {
        SAnimateContext context;
        context.m_time = time;
        context.m_speed = speed;
        node.animate(context);
    }

    std::vector<CMyComPtr<CSimpleGUIAnimNode>> nodes;
};

struct Moment {
    const char* what;
    std::vector<PlaceKey> places;
    std::vector<AlignKey> aligns;
    float time;
    float speed;
    CRect expected;
};

}  // namespace

TEST_F(NodeTest, PlacesADialogBetweenItsKeys) {
    const Moment moments[] = {
        {"half-way", {{1, {0, 0}}, {2, {100, 0}}}, {}, 1.5f, 1, {50, 0, 110, 40}},
        {"ahead of the first key", {{1, {10, 20}}, {2, {100, 0}}}, {}, 0, 1, {10, 20, 70, 60}},
        {"behind the last key", {{1, {10, 20}}, {2, {100, 0}}}, {}, 9, 1, {100, 0, 160, 40}},
        {"at a key", {{1, {10, 20}}, {2, {100, 0}}}, {}, 2, 1, {100, 0, 160, 40}},
        {"a pair too close to divide by", {{1, {0, 0}}, {1.00005f, {100, 0}}}, {}, 1.00001f, 1, {50, 0, 110, 40}},
        {"backwards", {{1, {0, 0}}, {2, {100, 0}}}, {}, 1.25f, -1, {25, 0, 85, 40}},
        {"towards another anchor", {{0, {0, 0}}, {1, {-100, -100}}}, {{0, 0}, {1, 4}}, 0.5f, 1, {350, 250, 410, 290}},
        {"at the other anchor", {{0, {0, 0}}, {1, {-100, -100}}}, {{0, 0}, {1, 4}}, 1, 1, {700, 500, 760, 540}},
        {"to the scale mode", {{0, {0, 0}}, {1, {200, 100}}}, {{0, 8}, {1, 9}}, 0.5f, 1, {300, 200, 360, 240}},
        {"without place keys", {}, {{0, 8}}, 0, 1, {403, 305, 463, 345}},
    };
    for (const Moment& moment : moments) {
        SCOPED_TRACE(moment.what);
        CSimpleGUIDialog* moved = dialog({3, 5, 63, 45});
        CSimpleGUIAnimNode& node = node_of(moved);
        place_keys(node, moment.places);
        align_keys(node, moment.aligns);
        play(node, moment.time, moment.speed);
        EXPECT_EQ(moved->m_rect, moment.expected);
    }
}

TEST_F(NodeTest, SizesColoursAndShowsAShape) {
    CSimpleGUIShape* button = shape(dialog({100, 50, 500, 350}), {110, 60, 130, 80});
    CSimpleGUIAnimNode& node = node_of(button);
    key<SGuiSize>(node, TRACK_TYPE_SIZE, 0).m_size = {20, 20};
    key<SGuiSize>(node, TRACK_TYPE_SIZE, 1).m_size = {41, 60};
    key<SGuiColor>(node, TRACK_TYPE_COLOR, 0).m_color = {0, 0, 0, 0};
    key<SGuiColor>(node, TRACK_TYPE_COLOR, 1).m_color = {1, 0.5f, 0, 1};
    key<SGuiVisible>(node, TRACK_TYPE_VISIBLE, 0).m_visible = 1;
    key<SGuiVisible>(node, TRACK_TYPE_VISIBLE, 1).m_visible = 0;
    play(node, 0.5f);
    EXPECT_EQ(button->m_rect, CRect(110, 60, 141, 100)) << "each edge is rounded for itself: 30.5 wide";
    EXPECT_EQ(button->m_color, VEC4(0.5f, 0.25f, 0, 0.5f));
    play(node, 1);
    EXPECT_TRUE(button->m_actor->is_visible()) << "visibility steps behind its key, not at it";
    play(node, 1.5f);
    EXPECT_FALSE(button->m_actor->is_visible());
}

TEST_F(NodeTest, LeavesAShapeWithoutADialogAlone) {
    CSimpleGUIDialog* parent = dialog({0, 0, 100, 100});
    CSimpleGUIShape* orphan = shape(parent, {1, 2, 3, 4});
    CSimpleGUIAnimNode& node = node_of(orphan);
    place_keys(node, {{0, {50, 50}}});
    parent->m_shapes.remove(orphan);
    orphan->m_parent_dialog = nullptr;
    play(node, 0);
    VEC2 results[4] = {{7, 7}, {7, 7}, {7, 7}, {7, 7}};
    node.evaluate_at({}, orphan->m_actor, results[0], results[1], results[2], results[3]);
    EXPECT_EQ(orphan->m_rect, CRect(1, 2, 3, 4));
    EXPECT_EQ(results[3].y, 7);
}

TEST_F(NodeTest, RecordsBothFormsOfAnItem) {
    CSimpleGUIDialog* parent = dialog({0, 0, 400, 200});
    CSimpleGUIShape* scaled = shape(parent, {100, 50, 300, 150});
    scaled->set_scale_mode(1);
    CSimpleGUIAnimNode& node = node_of(scaled);
    ASSERT_TRUE(node.record_key({}));
    const auto& place = static_cast<SGuiOffset&>(*node.get_track(TRACK_TYPE_OFFSET)->get_keys().front());
    const auto& extent = static_cast<SGuiSize&>(*node.get_track(TRACK_TYPE_SIZE)->get_keys().front());
    EXPECT_EQ(place.m_offset.x, 100);
    EXPECT_EQ(place.m_offset_percent.y, 0.25f);
    EXPECT_EQ(extent.m_size.x, 200);
    EXPECT_EQ(extent.m_size_percent.y, 0.5f);
    EXPECT_EQ(static_cast<SGuiAlign&>(*node.get_track(TRACK_TYPE_ALIGN)->get_keys().front()).m_align, 9);
    EXPECT_EQ(static_cast<SGuiColor&>(*node.get_track(TRACK_TYPE_COLOR)->get_keys().front()).m_color, scaled->m_color);
    engine.destroy(scaled);
    EXPECT_FALSE(node.record_key({}));
}

TEST_F(NodeTest, KeysFollowAFrameByTheFormThatLeads) {
    struct Row {
        int align;
        VEC2 pixels;
        VEC2 percent;
    };
    // A shape's key in a dialog that doubles: fractions lead under the scale mode, pixels under an anchor.
    for (const Row& row : {Row{9, {200, 300}, {0.25f, 0.5f}}, Row{0, {100, 150}, {0.125f, 0.25f}}}) {
        CSimpleGUIDialog* parent = dialog({0, 0, 400, 300});
        CSimpleGUIAnimNode& node = node_of(shape(parent, {0, 0, 10, 10}));
        align_keys(node, {{0, row.align}});
        auto& place = key<SGuiOffset>(node, TRACK_TYPE_OFFSET, 1);
        place.m_offset = {100, 150};
        place.m_offset_percent = {0.25f, 0.5f};
        parent->set_rect({50, 50, 450, 350}, false);
        EXPECT_EQ(place.m_offset.x, 100) << "a dialog that only moves leaves the keys alone";
        parent->set_rect({0, 0, 800, 600}, false);
        EXPECT_EQ(place.m_offset.x, row.pixels.x);
        EXPECT_EQ(place.m_offset.y, row.pixels.y);
        EXPECT_EQ(place.m_offset_percent.x, row.percent.x);
        EXPECT_EQ(place.m_offset_percent.y, row.percent.y);
    }
}

TEST_F(NodeTest, KeysOfADialogFollowTheView) {
    CSimpleGUIAnimNode& scaled = node_of(dialog({0, 0, 100, 100}));
    CSimpleGUIAnimNode& trackless = node_of(dialog({0, 0, 100, 100}));
    trackless.remove_track(trackless.get_track(TRACK_TYPE_ALIGN));
    align_keys(scaled, {{0, 9}});
    for (CSimpleGUIAnimNode* node : {&scaled, &trackless}) {
        auto& extent = key<SGuiSize>(*node, TRACK_TYPE_SIZE, 0);
        extent.m_size = {400, 300};
        extent.m_size_percent = {0.5f, 0.5f};
    }
    engine.resize(1000, 0);
    const auto size_of = [](CSimpleGUIAnimNode& node) {
        return static_cast<SGuiSize*>(node.get_track(TRACK_TYPE_SIZE)->get_keys().front());
    };
    EXPECT_EQ(size_of(scaled)->m_size.x, 500);
    EXPECT_EQ(size_of(scaled)->m_size.y, 0);
    EXPECT_EQ(size_of(trackless)->m_size.x, 400) << "without an alignment track nothing says which form leads";
}
