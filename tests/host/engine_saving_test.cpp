// Whole scenes on their way into a file, as an engine saves them.

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <functional>
#include <map>
#include <random>
#include <set>

#include "host/core/project_file.h"
#include "host/core/recording_device.h"
#include "host/core/text_conversion.h"
#include "host/system/engine.h"

namespace {

using namespace host;

struct Stored final : IBaseItem {
    Stored() { m_type = 77; }
    void save_to_node(pack_node* node, const save_operation&) override {
        if (!is_stored) return;
        int written = number;
        node->add_property(key, PAK_INT, &written);
        if (number % 3 == 0)
            node->add_string_property("title", tstringW(std::wstring(static_cast<std::size_t>(number % 20), L'题')));
        if (number % 5 == 0) node->add_child("below");
    }
    int number = 0;
    bool is_stored = true;
    const char* key = "number";
};

class EngineSaving : public testing::Test {
protected:
    EngineSaving() { engine.new_project(100, 100); }
    ~EngineSaving() override { std::filesystem::remove_all(folder); }
    Actor* add(int number, IActor* parent = nullptr) {
        auto* const item = new Stored;
        item->number = number;
        return static_cast<Actor*>(engine.scene().create_actor(item, parent, 0));
    }
    static Stored& item_of(const Actor& actor) { return *static_cast<Stored*>(actor.get_item()); }

    RecordingDevice device;
    Engine engine{device, {}};
    // Its own: tests run side by side.
    const std::string folder = [] {
        std::string name = testing::TempDir() + "sgui_engine_saving_XXXXXX";
        return std::string(mkdtemp(name.data()));
    }();
    const std::string path = folder + "/p.sgui";
    std::string error;
};

}  // namespace

// However many there are: in the order of creation but for parents, which stand ahead; without what is out of the
// scene, writes nothing, or hangs below such; under identifiers of which each is there once.
TEST_F(EngineSaving, EveryItemStandsOnceBehindItsParent) {
    std::mt19937 random(11);
    const auto pick = [&random](std::size_t count) { return static_cast<std::size_t>(random()) % count; };
    for (int count = 0; count < 120; ++count) {
        engine.new_project(100, 100);
        std::vector<Actor*> all;
        for (int number = 0; number < count; ++number) {
            all.push_back(add(number, pick(3) == 0 && number > 0 ? all[pick(all.size())] : nullptr));
            item_of(*all.back()).is_stored = pick(10) > 0;
            if (pick(4) == 0) all.back()->set_id(CGuid(GUID{static_cast<std::uint32_t>(pick(6)), 0, 0, {}}));
            if (pick(6) == 0) all.back()->set_parent(all[pick(all.size())]);
        }
        for (int times = 0; times < count / 10; ++times) engine.scene().remove({all[pick(all.size())]});

        // The plain rule.
        std::vector<const Actor*> expected;
        std::set<const IActor*> seen;
        const std::function<void(const Actor*)> visit = [&](const Actor* actor) {
            const auto* parent = static_cast<const Actor*>(actor->get_parent());
            if (parent) visit(parent);
            if (!seen.insert(actor).second || !actor->is_in_scene() || !item_of(*actor).is_stored) return;
            if (!parent || std::find(expected.begin(), expected.end(), parent) != expected.end())
                expected.push_back(actor);
        };
        for (const Actor* actor : all) visit(actor);

        ASSERT_TRUE(engine.save_project(path, error)) << error;
        ProjectDocument saved;
        ASSERT_TRUE(read_project(path, saved, error)) << error;
        ASSERT_EQ(saved.items.size(), expected.size());
        std::map<const IActor*, CGuid> id_of;
        std::set<std::string> ids;
        for (std::size_t at = 0; at < expected.size(); ++at) {
            const ProjectItem& item = saved.items[at];
            const Actor& actor = *expected[at];
            ASSERT_EQ(std::get<int>(*item.data.find("number")), item_of(actor).number);
            ASSERT_EQ(item.parent, id_of[actor.get_parent()]) << at;
            // The first that has an identifier keeps it.
            const bool is_free = !actor.get_id().is_empty() && !ids.contains(to_utf8(actor.get_id().to_text()));
            ASSERT_TRUE(!is_free || item.id == actor.get_id()) << at;
            ASSERT_TRUE(ids.insert(to_utf8(item.id.to_text())).second) << at;
            id_of[&actor] = item.id;
        }
    }
}

TEST_F(EngineSaving, WhatNoFileCanHoldCostsTheOldFileNothing) {
    for (int number = 0; number < 5000; ++number) add(number);
    ASSERT_TRUE(engine.save_project(path, error)) << error;
    const auto content = [this] {
        std::ifstream in(path, std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(in), {});
    };
    const std::string before = content();
    for (const std::size_t which : {0u, 15u, 16u, 4999u}) {
        Stored& item = item_of(*engine.scene().actors()[which]);
        item.key = "\xFF";
        EXPECT_FALSE(engine.save_project(path, error)) << which;
        EXPECT_NE(error.find("cannot stand in a project file"), std::string::npos) << error;
        EXPECT_EQ(content(), before) << which;
        item.key = "number";
    }
    EXPECT_TRUE(engine.save_project(path, error)) << error;
}
