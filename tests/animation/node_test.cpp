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
        {"from the scale mode", {{0, {200, 100}}, {1, {0, 0}}}, {{0, 9}, {1, 8}}, 0.5f, 1, {300, 200, 360, 240}},
        {"hardly ahead of the other anchor",
         {{0, {0, 0}}, {1, {-100, -100}}},
         {{0, 0}, {1, 4}},
         0.98f,
         1,
         {702, 502, 762, 542}},
        {"back from the other anchor", {{0, {0, 0}}, {1, {-100, -100}}}, {{0, 0}, {1, 4}}, 1, -1, {700, 500, 760, 540}},
        {"by anchors between its places",
         {{0, {0, 0}}, {2, {100, 0}}},
         {{0, 0}, {1, 2}, {1.5f, 0}},
         0.5f,
         1,
         {225, 0, 285, 40}},
        {"at two keys of one time", {{1, {10, 20}}, {1, {100, 0}}}, {}, 1, 1, {10, 20, 70, 60}},
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

TEST_F(NodeTest, RecordsIntoTheKeyThatTheMomentFinds) {
    CSimpleGUIDialog* parent = dialog({0, 0, 400, 200});
    parent->set_align_type(4);
    CSimpleGUIAnimNode& node = node_of(parent);
    align_keys(node, {{1, 7}});
    node.remove_track(node.get_track(TRACK_TYPE_SIZE));
    SAnimateContext context;
    context.m_time = 0.99f;
    ASSERT_TRUE(node.record_key(context));
    EXPECT_EQ(node.m_size_track, nullptr) << "a track that is gone gets no key";
    const std::vector<IKey*>& aligns = node.get_track(TRACK_TYPE_ALIGN)->get_keys();
    ASSERT_EQ(aligns.size(), 2u);
    EXPECT_EQ(static_cast<SGuiAlign*>(aligns[1])->m_align, 4) << "the older key is the later one at the moment";
    EXPECT_EQ(static_cast<SGuiAlign*>(aligns[0])->m_align, 0) << "nobody has filled the new one";
    EXPECT_EQ(node.get_track(TRACK_TYPE_COLOR)->get_key_count(), 0) << "a dialog has no colour";
    context.m_time = 1.02f;
    ASSERT_TRUE(node.record_key(context));
    EXPECT_EQ(aligns.size(), 2u) << "a moment that is taken keeps its key";
}

TEST_F(NodeTest, KeysDoNotDrift) {
    CSimpleGUIDialog* parent = dialog({100, 100, 333, 417});
    parent->set_scale_mode(1);
    std::vector<CSimpleGUIAnimNode*> animated{&node_of(parent), &node_of(shape(parent, {0, 0, 10, 10}))};
    for (CSimpleGUIAnimNode* node : animated) {
        align_keys(*node, {{0, 9}, {1, 4}, {2, 9}});
        for (int at = 0; at < 3; ++at) {
            const float part = 0.1f + static_cast<float>(at) / 7;
            auto& place = key<SGuiOffset>(*node, TRACK_TYPE_OFFSET, static_cast<float>(at));
            place.m_offset = {part * 97, -part};
            place.m_offset_percent = {part, -part};
            key<SGuiSize>(*node, TRACK_TYPE_SIZE, static_cast<float>(at)).m_size_percent = {part, 1 / part};
        }
    }
    const auto all_numbers = [&] {
        std::vector<float> numbers;
        for (CSimpleGUIAnimNode* node : animated) {
            for (const IKey* any_key : node->get_track(TRACK_TYPE_OFFSET)->get_keys()) {
                const auto& place = static_cast<const SGuiOffset&>(*any_key);
                const VEC2 &pixels = place.m_offset, &percent = place.m_offset_percent;
                numbers.insert(numbers.end(), {pixels.x, pixels.y, percent.x, percent.y});
            }
            for (const IKey* any_key : node->get_track(TRACK_TYPE_SIZE)->get_keys()) {
                const auto& extent = static_cast<const SGuiSize&>(*any_key);
                const VEC2 &pixels = extent.m_size, &percent = extent.m_size_percent;
                numbers.insert(numbers.end(), {pixels.x, pixels.y, percent.x, percent.y});
            }
        }
        return numbers;
    };
    engine.resize(400, 300);
    engine.resize(801, 600);
    const std::vector<float> before = all_numbers();
    const CRect rect = parent->m_rect;
    for (int at = 0; at < 10000; ++at) engine.resize(at % 1999, at % 1201);
    EXPECT_NE(all_numbers(), before);
    engine.resize(801, 600);
    EXPECT_EQ(all_numbers(), before);
    EXPECT_EQ(parent->m_rect, rect);
}
