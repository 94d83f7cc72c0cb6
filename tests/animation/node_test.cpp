// Keys are made from an item where a moment finds its key, and stay true when its frame changes.

#include "animation/anim_node.h"
#include "animation/keys.h"
#include "support/allocations.h"
#include "support/gui_test.h"

namespace {

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
    void align_keys(CSimpleGUIAnimNode& node, const std::vector<AlignKey>& keys) {
        for (const AlignKey& at : keys) key<SGuiAlign>(node, TRACK_TYPE_ALIGN, at.time).m_align = at.align;
    }

    std::vector<CMyComPtr<CSimpleGUIAnimNode>> nodes;
};

}  // namespace

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

TEST_F(NodeTest, ARecordingWithoutMemoryForAKeySaysSo) {
    CSimpleGUIDialog* parent = dialog({0, 0, 400, 200});
    CSimpleGUIAnimNode& node = node_of(shape(parent, {10, 10, 20, 20}));
    const auto recorded = [&](std::size_t failing, float time) {
        SAnimateContext context;
        context.m_time = time;
        const FailingAllocation failure(failing);
        const bool said = node.record_key(context);
        EXPECT_EQ(said, !failure.was_met()) << "allocation " << failing;
        return said;
    };
    std::size_t at = 0;
    while (!recorded(at, static_cast<float>(at))) ++at;
    EXPECT_GE(at, 5u) << "one for each key";
    for (std::size_t again = 0; again < at; ++again) EXPECT_TRUE(recorded(1000, static_cast<float>(again)));
    for (ITrack* track : node.get_tracklist()) EXPECT_EQ(track->get_key_count(), static_cast<int>(at) + 1);
}

TEST_F(NodeTest, AViewThatChangesWithoutMemoryKeepsItsLayoutAndGetsItsKeysLater) {
    CSimpleGUIDialog* parent = dialog({0, 0, 400, 300});
    parent->set_scale_mode(1);
    CSimpleGUIShape* child = shape(parent, {0, 0, 200, 150});
    child->set_scale_mode(1);
    std::size_t at = 0;
    for (bool failed = true; failed; ++at) {
        // So many more that the index of the nodes has to grow, whatever it has held before.
        for (const std::size_t all = nodes.size() * 2 + 101; nodes.size() < all;) node_of(child);
        key<SGuiOffset>(*nodes.back(), TRACK_TYPE_OFFSET, 0).m_offset_percent = {0.5f, 0.5f};
        {
            const FailingAllocation failure(at);
            engine.resize(1600, 1200);
            failed = failure.was_met();
        }
        EXPECT_EQ(parent->m_rect, CRect(0, 0, 800, 600)) << "allocation " << at;
        EXPECT_EQ(child->m_rect, CRect(0, 0, 400, 300)) << "allocation " << at;
        EXPECT_EQ(gui.m_view_rect, CRect(0, 0, 1600, 1200)) << "allocation " << at;
        // Not the size that the keys stand for already.
        const int width = 1000 + 10 * static_cast<int>(at);
        engine.resize(width, 800);
        const auto& place = static_cast<SGuiOffset&>(*nodes.back()->get_track(TRACK_TYPE_OFFSET)->find_key(0));
        EXPECT_EQ(place.m_offset.x, static_cast<float>(width) / 4) << "allocation " << at;
    }
    EXPECT_GT(at, 2u);
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
