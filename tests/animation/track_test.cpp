#include "animation/track.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "animation/anim_node.h"
#include "support/gui_test.h"

namespace {

// A track with keys of these times, in this order.
CMyComPtr<ITrack> track_of(const std::vector<float>& times) {
    CMyComPtr<ITrack> track(create_track(TRACK_TYPE_VISIBLE));
    for (float time : times) track->create_key(time, true);
    return track;
}

std::vector<float> times_of(ITrack& track) {
    std::vector<float> times;
    for (const IKey* key : track.get_keys()) times.push_back(key->m_time);
    return times;
}

}  // namespace

TEST(Track, IsActiveOnlyWithKeys) {
    const CMyComPtr<ITrack> track = track_of({});
    track->set_active(true);
    EXPECT_FALSE(track->is_active());
    track->create_key(0, true);
    EXPECT_TRUE(track->is_active());
    track->set_active(false);
    EXPECT_FALSE(track->is_active());
}

// Each kind of key, its stored entries and its values, through a file and back.
TEST(Track, ComesBackSortedWithAllItsKeys) {
    const save_operation save;
    const load_operation load;
    struct Row {
        unsigned type;
        std::vector<std::string> entries;
    };
    const Row rows[] = {
        {1002, {"float time", "vec3 offset", "vec3 offset_percent"}},
        {1003, {"float time", "vec3 size", "vec3 size_percent"}},
        {1004, {"float time", "int visible"}},
        {1005, {"float time", "int align"}},
        {1006, {"float time", "vec3 color", "float alpha"}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.type);
        CMyComPtr<ITrack> writer(create_track(row.type));
        writer->set_track_type(static_cast<int>(row.type));
        for (float time : {2.0f, 1.0f, 1.01f}) writer->create_key(time, true);
        if (auto* key = dynamic_cast<SGuiOffset*>(writer->get_keys()[0])) key->m_offset_percent = {0.5f, -3};
        if (auto* key = dynamic_cast<SGuiSize*>(writer->get_keys()[0])) key->m_size = {7, 8};
        if (auto* key = dynamic_cast<SGuiColor*>(writer->get_keys()[0])) key->m_color = {1, 2, 3, 4};
        MemoryNode node;
        writer->save_to_node(&node, save);
        EXPECT_EQ(node.written(), (std::vector<std::string>{"base", "int type"}));
        auto* first = static_cast<MemoryNode*>(node.child("keys")->get_children()->front());
        EXPECT_EQ(first->written(), row.entries);

        CMyComPtr<ITrack> reader(create_track(row.type));
        reader->on_parse(&node, load);
        EXPECT_EQ(reader->get_track_type(), static_cast<int>(row.type));
        EXPECT_EQ(times_of(*reader), (std::vector<float>{1, 1.01f, 2}));
        MemoryNode again;
        reader->get_keys().back()->save_to_node(&again, save);
        for (const MemoryNode::Entry& entry : first->entries) {
            EXPECT_EQ(again.find(entry.key, entry.kind)->bytes, entry.bytes) << entry.key;
        }
        MemoryNode nothing;
        reader->on_parse(&nothing, load);
        EXPECT_EQ(reader->get_key_count(), 3) << "without keys in the file they stay";
    }
}

TEST(Track, ShowsItsKeysAsNamedProperties) {
    SGuiColor key(1);
    key.create_properties();
    key.create_properties();
    EXPECT_EQ(key.m_properties.size(), 4u);
    EXPECT_TRUE(key.set_property(L"透明度", 0.25f, true));
    EXPECT_FALSE(key.set_property(L"alpha", 0.5f, true));
    EXPECT_FLOAT_EQ(key.m_color.w, 0.25f);
    SGuiOffset offset(0);
    offset.create_properties();
    offset.m_offset_percent = {1, 2};
    VEC2 read;
    EXPECT_TRUE(offset.get_property(L"偏移百分比", read));
    EXPECT_EQ(read.y, 2.0f);
}

// What somebody outside does to the list that it was given.
TEST(Track, StandsWhatBecomesOfALentList) {
    CMyComPtr<ITrack> track = track_of({1, 2, 3});
    std::vector<IKey*>& held = track->get_keys();
    track->sort_keys();
    std::swap(held[0], held[2]);
    EXPECT_EQ(track->find_key(3)->m_time, 3);
    held.insert(held.begin() + 1, nullptr);
    EXPECT_EQ(track->find_key_before(2.5f)->m_time, 1);
    held.push_back(nullptr);
    track->remove_key(2);
    track->create_key(2.5f, false);
    track->sort_keys();
    EXPECT_EQ(times_of(*track), (std::vector<float>{1, 2.5f, 3}));
}

TEST_F(GuiTest, ANodeOutlivesACleanProject) {
    CMyComPtr<CAnimNodeBase> node(AnimSystemLibrary::create_anim_node_by_type(&engine, 1001, CGuid()));
    gui.on_clean_project();
    node->animate({});
    node = {};
    EXPECT_TRUE(gui.m_anim_nodes.empty());
}
