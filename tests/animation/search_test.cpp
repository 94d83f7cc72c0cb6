// Searches that halve or look up give what the plain walks give.

#include <algorithm>
#include <array>
#include <cstring>
#include <limits>
#include <random>

#include "animation/anim_node.h"
#include "animation/track.h"
#include "layout/anchors.h"
#include "support/allocations.h"
#include "support/gui_test.h"

namespace {

using Keys = std::vector<IKey*>;

// The walks, word for word.
bool is_at(const IKey* key, float time) { return key->m_time - 0.03003003f < time && time < key->m_time + 0.03003003f; }
template <class Range, class Condition>
IKey* first_of(const Range& keys, Condition condition) {
    for (IKey* key : keys) {
        if (condition(key)) return key;
    }
    return nullptr;
}
template <class Condition>
IKey* last_of(const Keys& keys, Condition condition) {
    return first_of(Keys(keys.rbegin(), keys.rend()), condition);
}
std::array<IKey*, 2> near(const Keys& keys, float time, float speed) {
    std::array<IKey*, 2> found{};
    Keys walk = keys;
    if (speed >= 0) std::reverse(walk.begin(), walk.end());
    for (IKey* key : walk) {
        const bool is_past = speed >= 0 ? time > key->m_time : time < key->m_time;
        found[(speed >= 0) == is_past ? 0 : 1] = key;
        if (is_past) break;
    }
    return found;
}

void expect_plain_results(ITrack& track, const Keys& keys, float time) {
    EXPECT_EQ(track.find_key(time), last_of(keys, [&](IKey* key) { return is_at(key, time); })) << time;
    EXPECT_EQ(track.find_key_before(time), last_of(keys, [&](IKey* key) { return key->m_time < time; })) << time;
    for (const float speed : {1.0f, -1.0f}) {
        SAnimateContext context;
        context.m_time = time;
        context.m_speed = speed;
        std::array<IKey*, 2> found{};
        track.get_near_keys(context, found[0], found[1]);
        EXPECT_EQ(found, near(keys, time, speed)) << time << " by " << speed;
    }
}

const Keys& keys_of(ITrack& track) {
    if (const auto* offsets = dynamic_cast<TBaseTrack<SGuiOffset>*>(&track)) return offsets->all_keys();
    if (const auto* sizes = dynamic_cast<TBaseTrack<SGuiSize>*>(&track)) return sizes->all_keys();
    return static_cast<TBaseTrack<SGuiAlign>&>(track).all_keys();
}

class Searches : public GuiTest {
protected:
    // Many equal ones, many within the tolerance, and some that are far or no numbers.
    float any_time() {
        const float special[] = {
            0, -0.0f, 1e9f, -1e30f, std::numeric_limits<float>::infinity(), std::numeric_limits<float>::quiet_NaN()};
        const auto kind = random() % 40;
        return kind < std::size(special) ? special[kind] : static_cast<float>(random() % 400) * 0.01f;
    }
    std::mt19937 random{5};
};

}  // namespace

TEST_F(Searches, GiveWhatTheWalksGiveInAnyOrderOfKeys) {
    for (int trial = 0; trial < 600; ++trial) {
        const CMyComPtr<ITrack> track(create_track(TRACK_TYPE_VISIBLE));
        // The order that a track is in, and how it came to be.
        const int way = trial % 5;
        const int count = static_cast<int>(random() % 30);
        for (int key = 0; key < count; ++key) track->create_key(any_time(), way != 1);
        if (way >= 2) track->sort_keys();
        if (way == 3) track->remove_key(any_time());
        if (way == 3) track->create_key(any_time(), true);
        const Keys& present = static_cast<TBaseTrack<SGuiVisible>&>(*track).keys();
        Keys* held = way == 4 ? &track->get_keys() : nullptr;
        for (int question = 0; question < 20; ++question) {
            if (held) std::shuffle(held->begin(), held->end(), random);
            const Keys keys = present;
            expect_plain_results(*track, keys, any_time());
            if (keys.empty()) continue;
            const float time = keys[random() % keys.size()]->m_time;
            for (const float at : {time, time - 0.03003003f, time + 0.03003003f}) {
                expect_plain_results(*track, keys, at);
            }
        }
        const float gone = any_time();
        Keys left = present;
        if (IKey* first = first_of(left, [&](IKey* key) { return is_at(key, gone); })) std::erase(left, first);
        track->remove_key(gone);
        EXPECT_EQ(present, left) << gone;
    }
}

TEST_F(Searches, FindTheNodesThatTheLookUpsFind) {
    for (int trial = 0; trial < 200; ++trial) {
        std::vector<CSimpleGUIDialog*> dialogs;
        std::vector<IActor*> actors;
        for (int at = 0; at < 4; ++at) {
            dialogs.push_back(dialog({0, 0, 100, 100}));
            for (int child = 0; child < 6; ++child) actors.push_back(shape(dialogs.back(), {0, 0, 9, 9})->m_actor);
        }
        // Those change their size with the view.
        for (std::size_t at = 0; at < 2; ++at) dialogs[at]->set_scale_mode(1);
        // Few identifiers, so that several actors share one, and some have no node.
        const auto any_id = [&] {
            GUID id{};
            id.Data1 = 1 + static_cast<std::uint32_t>(random() % 12);
            return CGuid(id);
        };
        for (IActor* actor : actors) actor->set_id(any_id());
        dialogs[3]->m_actor->set_id(any_id());
        std::vector<CMyComPtr<CSimpleGUIAnimNode>> nodes;
        std::vector<SGuiOffset*> keys;
        for (int at = 0; at < 12; ++at) {
            nodes.emplace_back(static_cast<CSimpleGUIAnimNode*>(
                AnimSystemLibrary::create_anim_node_by_type(&engine, ANIM_NODE_TYPE_GUI, any_id())));
            ITrack* track = nodes.back()->get_track(TRACK_TYPE_OFFSET);
            track->create_key(0, true);
            keys.push_back(static_cast<SGuiOffset*>(track->find_key(0)));
        }
        for (int resize = 0; resize < 12; ++resize) {
            CSimpleGUIDialog* resized = dialogs[random() % dialogs.size()];
            // What an earlier resize has found may be gone.
            if (random() % 2 == 0) actors[random() % actors.size()]->set_id(any_id());
            if (random() % 2 == 0) nodes[random() % nodes.size()]->rebind_id(any_id());
            for (SGuiOffset* key : keys) key->m_offset_percent = {-1, -1};
            resized->set_rect({0, 0, 100, resized->m_rect.bottom + 10}, false);
            for (std::size_t at = 0; at < nodes.size(); ++at) {
                const CSimpleGUIShape* moved = gui.get_shape_by_guid(nodes[at]->get_internal_item_id());
                EXPECT_EQ(keys[at]->m_offset_percent.x != -1, moved && resized->m_shapes.contains(moved));
            }
        }
        for (int resize = 0; resize < 5; ++resize) {
            if (random() % 2 == 0) actors[random() % actors.size()]->set_id(any_id());
            if (random() % 4 == 0) dialogs[3]->m_actor->set_id(any_id());
            for (SGuiOffset* key : keys) key->m_offset_percent = {-1, -1};
            engine.resize(1600 + 800 * ((trial + resize) % 2), 600);
            for (std::size_t at = 0; at < nodes.size(); ++at) {
                const bool moves_dialog = gui.get_dialog_by_guid(nodes[at]->get_internal_item_id()) != nullptr;
                const CSimpleGUIShape* moved = gui.get_shape_by_guid(nodes[at]->get_internal_item_id());
                const bool moves_shape = dialogs[0]->m_shapes.contains(moved) || dialogs[1]->m_shapes.contains(moved);
                EXPECT_EQ(keys[at]->m_offset_percent.x != -1, moves_dialog || moves_shape) << resize;
            }
        }
        for (CSimpleGUIDialog* gone : dialogs) engine.destroy(gone);
    }
}

// Of two shapes that are animated alike, one has tracks whose lists somebody holds: each of its searches is a walk.
TEST_F(Searches, AStepGoesOnWhereWalksWouldGo) {
    CSimpleGUIDialog* parent = dialog({0, 0, 400, 300});
    const auto any_tick = [&] { return static_cast<float>(random() % 400); };
    for (int trial = 0; trial < 150; ++trial) {
        std::array<CSimpleGUIShape*, 2> shapes{};
        std::array<CMyComPtr<CAnimNodeBase>, 2> nodes;
        for (std::size_t at = 0; at < 2; ++at) {
            shapes[at] = shape(parent, {10, 10, 90, 40});
            nodes[at] =
                AnimSystemLibrary::create_anim_node_by_type(&engine, ANIM_NODE_TYPE_GUI, shapes[at]->m_actor->get_id());
        }
        const auto with_both = [&](auto change) {
            for (const auto& node : nodes) change(*node);
        };
        const auto set_key = [&](unsigned type, float time, bool append) {
            const auto number = static_cast<float>(random() % 200);
            with_both([&](CAnimNodeBase& node) {
                ITrack* track = node.get_track(type);
                if (!track) return;
                track->create_key(time, append);
                IKey* key = track->find_key(time);
                if (auto* offset = dynamic_cast<SGuiOffset*>(key)) offset->m_offset = {number, 2 * number};
                if (auto* size = dynamic_cast<SGuiSize*>(key)) size->m_size = {number, number + 1};
                if (auto* visible = dynamic_cast<SGuiVisible*>(key)) visible->m_visible = number < 100;
                if (auto* align = dynamic_cast<SGuiAlign*>(key)) align->m_align = static_cast<int>(number) % 10;
                if (auto* color = dynamic_cast<SGuiColor*>(key)) color->m_color.x = number;
            });
        };
        const auto any_type = [&] { return TRACK_TYPE_OFFSET + static_cast<unsigned>(random() % 5); };
        for (int key = 0; key < 30; ++key) set_key(any_type(), any_tick() * 0.01f, trial % 3 == 0);
        with_both([](CAnimNodeBase& node) {
            for (ITrack* track : node.get_tracklist()) track->sort_keys();
        });
        for (ITrack* track : nodes[1]->get_tracklist()) track->get_keys();
        SAnimateContext context;
        if (trial % 2 == 0) context.m_speed = -1;
        auto ticks = static_cast<int>(any_tick());
        for (int step = 0; step < 80; ++step) {
            const auto type = any_type();
            const float time = any_tick() * 0.01f;
            switch (random() % (trial % 4 == 0 ? 40 : 400)) {
                case 0:
                    set_key(type, time, true);
                    break;
                case 1:
                    set_key(type, time, false);
                    break;
                case 2:
                    with_both([&](CAnimNodeBase& node) { node.remove_track(node.get_track(type)); });
                    break;
                case 3:
                    with_both([&](CAnimNodeBase& node) { node.add_track(type); });
                    break;
                case 4:
                    with_both([&](CAnimNodeBase& node) { std::ranges::reverse(node.get_tracklist()); });
                    break;
                case 5:
                    context.m_speed = -context.m_speed;
                    break;
                case 6:
                    context.m_time = time;
                    break;
                default:
                    break;
            }
            with_both([&, change = random() % (trial % 3 == 0 ? 30 : 100)](CAnimNodeBase& node) {
                ITrack* track = node.get_track(type);
                if (!track) return;
                IKey* key = track->find_key(context.m_time);
                if (change == 0) track->remove_key(context.m_time);
                if (change == 1) track->sort_keys();
                if (change == 3 && key) key->m_time = time;
                if (change == 3) track->update_keys();
                if (change == 2) track->set_track_type(static_cast<int>(TRACK_TYPE_COLOR));
            });
            context.m_time = static_cast<float>(ticks += context.m_speed < 0 ? -1 : 1) * 0.01f;
            with_both([&](CAnimNodeBase& node) { node.animate(context); });
            EXPECT_EQ(shapes[0]->m_rect, shapes[1]->m_rect) << trial << ", " << step;
            EXPECT_EQ(shapes[0]->m_color, shapes[1]->m_color) << trial << ", " << step;
            EXPECT_EQ(shapes[0]->m_actor->is_visible(), shapes[1]->m_actor->is_visible()) << trial << ", " << step;
            EXPECT_EQ(shapes[0]->m_bScaleMode, shapes[1]->m_bScaleMode) << trial << ", " << step;
        }
        for (CSimpleGUIShape* gone : shapes) engine.destroy(gone);
    }
}

TEST_F(Searches, BringEachKeyToWhatItsMomentSays) {
    for (int trial = 0; trial < 400; ++trial) {
        CSimpleGUIDialog* parent = dialog({0, 0, 400, 300});
        CSimpleGUIShape* moved = shape(parent, {10, 10, 90, 40});
        const CMyComPtr<CSimpleGUIAnimNode> node(static_cast<CSimpleGUIAnimNode*>(
            AnimSystemLibrary::create_anim_node_by_type(&engine, ANIM_NODE_TYPE_GUI, moved->m_actor->get_id())));
        for (const unsigned type : {TRACK_TYPE_OFFSET, TRACK_TYPE_SIZE, TRACK_TYPE_ALIGN}) {
            ITrack* track = node->get_track(type);
            // Few moments, so that some are taken twice, and some that lie within the tolerance of others.
            const auto any_moment = [&] {
                const float jitter = random() % 4 == 0 ? 0.00005f : random() % 4 == 0 ? 0.02f : 0;
                return random() % 8 == 0 ? any_time() : static_cast<float>(random() % 12) * 0.5f + jitter;
            };
            for (auto keys = random() % 12; keys > 0; --keys) track->create_key(any_moment(), trial % 4 != 1);
            if (trial % 4 != 0) track->sort_keys();
            for (IKey* key : Keys(trial % 4 == 3 ? track->get_keys() : keys_of(*track))) {
                const auto number = static_cast<float>(random() % 200);
                if (auto* offset = dynamic_cast<SGuiOffset*>(key)) {
                    offset->m_offset = {number, -number};
                    offset->m_offset_percent = {number / 50, 0.25f};
                }
                if (auto* size = dynamic_cast<SGuiSize*>(key)) {
                    size->m_size = {number, 1};
                    size->m_size_percent = {0.5f, number / 70};
                }
                if (auto* align = dynamic_cast<SGuiAlign*>(key)) align->m_align = number < 100 ? ALIGN_SCALE : 4;
            }
        }
        const auto forms_of_all = [&](auto forms_of) {
            std::vector<std::array<VEC2, 4>> all;
            for (const unsigned type : {TRACK_TYPE_OFFSET, TRACK_TYPE_SIZE}) {
                for (IKey* key : keys_of(*node->get_track(type))) all.push_back(forms_of(*key));
            }
            return all;
        };
        // The others of the four belong to the other track.
        const auto of_kind = [](IKey& key, std::array<VEC2, 4> at) {
            const std::size_t other = dynamic_cast<SGuiOffset*>(&key) ? 2 : 0;
            at[other] = at[other + 1] = {};
            return at;
        };
        parent->set_rect({0, 0, 500, 200 * (trial % 3)}, true);
        const auto said = forms_of_all([&](IKey& key) {
            SAnimateContext context;
            context.m_time = key.m_time;
            std::array<VEC2, 4> at{};
            node->evaluate_at(context, moved->m_actor, at[0], at[2], at[1], at[3]);
            return of_kind(key, at);
        });
        parent->set_rect(CRect(parent->m_rect), false);
        const auto kept = forms_of_all([](IKey& key) {
            std::array<VEC2, 4> at{};
            if (const auto* offset = dynamic_cast<SGuiOffset*>(&key)) at = {offset->m_offset, offset->m_offset_percent};
            if (const auto* size = dynamic_cast<SGuiSize*>(&key))
                at = {VEC2(), VEC2(), size->m_size, size->m_size_percent};
            return at;
        });
        ASSERT_EQ(said.size(), kept.size());
        // By their bits, since a place may be no number.
        EXPECT_TRUE(said.empty() || std::memcmp(said.data(), kept.data(), said.size() * sizeof said[0]) == 0) << trial;
        engine.destroy(parent);
    }
}

// A dialog whose size plays, with a shape that moves inside: each step rescales the shape's keys.
TEST_F(Searches, AskForNoMemoryInASteadyStep) {
    CSimpleGUIDialog* parent = dialog({0, 0, 100, 100});
    std::vector<CMyComPtr<CAnimNodeBase>> nodes;
    for (IBaseItem* item : {static_cast<IBaseItem*>(parent), static_cast<IBaseItem*>(shape(parent, {0, 0, 9, 9}))}) {
        nodes.emplace_back(
            AnimSystemLibrary::create_anim_node_by_type(&engine, ANIM_NODE_TYPE_GUI, item->m_actor->get_id()));
        for (ITrack* track : nodes.back()->get_tracklist()) {
            for (int key = 0; key < 20; ++key) track->create_key(static_cast<float>(key), true);
        }
        ITrack* sizes = nodes.back()->get_track(TRACK_TYPE_SIZE);
        for (int key = 0; key < 20; ++key) {
            const float side = 100.0f * static_cast<float>(key);
            static_cast<SGuiSize*>(sizes->find_key(static_cast<float>(key)))->m_size = {side, side};
        }
    }
    SAnimateContext context;
    const auto step = [&] {
        context.m_time += 0.25f;
        for (const auto& node : nodes) node->animate(context);
    };
    step();
    const std::size_t before = allocations();
    const int width = parent->m_rect.Width();
    for (int at = 0; at < 40; ++at) step();
    EXPECT_EQ(allocations(), before);
    EXPECT_NE(parent->m_rect.Width(), width);
}
