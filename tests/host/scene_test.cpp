#include "host/system/scene.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <functional>
#include <random>

#include "engine/numbers.h"
#include "support/allocations.h"

namespace {

using namespace host;

int alive = 0;

struct Item final : IBaseItem {
    explicit Item(unsigned type) {
        m_type = type;
        ++alive;
    }
    ~Item() override {
        --alive;
        if (on_end) on_end();
    }
    std::function<void()> on_end;
};

class SceneTest : public testing::Test {
protected:
    ~SceneTest() override {
        scene.clear();
        EXPECT_EQ(alive, 0) << "items outlive their scene";
    }
    Actor* actor(const wchar_t* name, unsigned type = 1, IActor* parent = nullptr) {
        IActor* made = scene.create_actor(new Item(type), parent, 1);
        made->set_name(name, true);
        return static_cast<Actor*>(made);
    }

    MessageManager messages;
    SelectionManager selection;
    Scene scene{messages, selection};
};

}  // namespace

// Against a search that looks at every actor, through thousands of changes at random.
TEST_F(SceneTest, LookUpsAreRightThroughEveryChange) {
    // Of lengths and characters that are kept in different ways, and alike where one of them is cut or the bits of two
    // run together.
    const wchar_t* const names[] = {L"a",
                                    L"b",
                                    L"",
                                    L"欢迎",
                                    L"fifteen letters",
                                    L"fifteen letters!",
                                    L"fifteen letters1",
                                    L"\x7F\x03",
                                    L"\x17F\x02",
                                    L"欢迎欢迎欢迎欢"};
    std::mt19937 random(3);
    const auto pick = [&random](std::size_t count) { return static_cast<std::size_t>(random()) % count; };
    GUID guid{};
    const auto slowly = [this](auto fits) -> IActor* {
        for (Actor* at : scene.actors())
            if (at->is_in_scene() && fits(*at)) return at;
        return nullptr;
    };
    std::vector<Actor*> all;
    const std::function<void(Actor*)> changes[] = {
        [&](Actor* one) {
            actor(names[pick(std::size(names))], static_cast<unsigned>(1 + pick(2)), pick(2) ? one : nullptr);
        },
        [&](Actor* one) { one->set_name(names[pick(std::size(names))], true); },
        [&](Actor* one) { one->set_id(guid); },
        [&](Actor* one) { scene.remove({one}); },
        [&](Actor* one) { scene.restore({one}); },
        [&](Actor* one) { one->set_parent(all[pick(all.size())]); },
        [&](Actor* one) { scene.delete_actor(one); },
        [&](Actor* one) { scene.delete_actor_alone(one); },
    };
    for (int step = 0; step < 4000; ++step) {
        if (step % 500 == 499) scene.clear();
        all = scene.actors();
        guid.Data1 = static_cast<std::uint32_t>(pick(5));
        // Ends come only to a scene that is full enough.
        if (all.empty())
            changes[0](nullptr);
        else
            changes[pick(all.size() > 30 ? 8 : 6)](all[pick(all.size())]);
        for (const wchar_t* name : names)
            for (unsigned type : {1u, 2u}) {
                const IActor* expected = slowly(
                    [&](const Actor& at) { return at.get_name() == tstringW(name) && at.get_item()->m_type == type; });
                ASSERT_EQ(scene.search_item_by_name(name, type), expected ? expected->get_item() : nullptr) << step;
            }
        for (const wchar_t* name : names) {
            const auto everyone = scene.actors();
            const auto first = std::find_if(everyone.begin(), everyone.end(),
                                            [&](const Actor* at) { return at->get_name() == tstringW(name); });
            ASSERT_EQ(scene.find_any(name), first == everyone.end() ? nullptr : *first) << step;
        }
        // In the same order each time, as animations ask, with gaps and with what is out of the scene.
        std::vector<CGuid> ids{guid};
        for (const Actor* at : scene.actors()) ids.push_back(at->get_id());
        for (const CGuid& id : ids)
            ASSERT_EQ(scene.search_actor_by_guid(id), slowly([&](const Actor& at) { return at.get_id() == id; }))
                << step;
    }
}

// While all goes, what is left is found as ever: by an item that looks at others, renames or restores them at its end.
TEST_F(SceneTest, WhatGoesFindsWhatIsStillThere) {
    const GUID shared{7, 0, 0, {}};
    const auto make = [this](const wchar_t* name, unsigned type) { return actor(name, type); };
    Actor* const earliest = make(L"one", 1);
    Actor* const removed = make(L"one", 2);
    make(L"two", 2)->set_id(CGuid(shared));
    Actor* const later = make(L"one", 2);
    later->set_id(CGuid(shared));
    scene.remove({removed});
    int looks = 0;
    static_cast<Item*>(make(L"last", 1)->get_item())->on_end = [&] {
        ++looks;
        EXPECT_EQ(scene.search_item_by_name(L"last", 1), nullptr) << "it is gone for all others";
        EXPECT_EQ(scene.search_item_by_name(L"one", 1), earliest->get_item());
        EXPECT_EQ(scene.search_item_by_name(L"one", 2), later->get_item());
        EXPECT_EQ(scene.find_any(removed->get_id()), removed);
        scene.restore({removed});
        EXPECT_EQ(scene.search_item_by_name(L"one", 2), removed->get_item());
        EXPECT_EQ(scene.search_actor_by_guid(CGuid(shared)), scene.search_item_by_name(L"two", 2)->m_actor);
        earliest->set_name(L"three", true);
        EXPECT_EQ(scene.find_any(L"one"), removed);
        make(L"new", 3);
        scene.remove({earliest});
        EXPECT_EQ(scene.search_item_by_name(L"three", 1), nullptr);
        scene.restore({earliest});
        EXPECT_EQ(scene.search_item_by_name(L"three", 1), earliest->get_item());
    };
    scene.clear();
    EXPECT_EQ(looks, 1);
    EXPECT_EQ(scene.size(), 0u);
    Actor* const after = make(L"one", 1);
    EXPECT_EQ(scene.search_item_by_name(L"one", 1), after->get_item());
    EXPECT_EQ(scene.find_any(L"three"), nullptr);
}

TEST_F(SceneTest, RefusesWhatWouldBreakTheTree) {
    Scene other(messages, selection);
    Actor* const top = actor(L"top");
    Actor* const below = actor(L"below", 1, top);
    const CMyComPtr<Item> loose(new Item(1));
    EXPECT_EQ(scene.create_actor(nullptr, nullptr, 1), nullptr);
    EXPECT_EQ(scene.create_actor(below->get_item(), nullptr, 1), nullptr) << "the item has an actor already";
    EXPECT_EQ(other.create_actor(loose.get(), top, 1), nullptr) << "the parent is of another scene";
    top->set_parent(below);
    top->set_parent(top);
    EXPECT_EQ(top->get_parent(), nullptr);
    EXPECT_EQ(below->get_parent(), top);
}

// Of several of one name or identifier the earliest is found, which is what each change here is about.
TEST_F(SceneTest, WithoutMemoryLookUpsStayAsTheyWere) {
    Actor* const first = actor(L"taken");
    const CGuid taken = first->get_id();
    Actor* const other = actor(L"own");
    const CGuid own = other->get_id();
    const auto is_as_before = [&](bool is_present) {
        return scene.search_actor_by_guid(own) == (is_present ? other : nullptr) && other->get_id() == own &&
               scene.search_item_by_name(L"own", 1) == (is_present ? other->get_item() : nullptr) &&
               scene.find_any(L"own") == other && scene.search_item_by_name(L"taken", 1) == first->get_item() &&
               scene.search_actor_by_guid(taken) == first && other->is_in_scene() == is_present;
    };
    const std::function<void()> changes[] = {
        [&] { other->set_name(L"taken", true); },
        [&] { other->set_name(L"a name too long to be kept in place", true); },
        [&] { other->set_id(taken); },
        [&] { scene.restore({other}); },
    };
    for (const auto& change : changes) {
        const bool is_restoring = &change == &changes[3];
        if (is_restoring) scene.remove({other});
        std::size_t failed = 0;
        for (bool is_done = false; !is_done; failed += is_done ? 0 : 1) {
            const FailingAllocation failure(failed);
            try {
                change();
                is_done = true;
            } catch (const std::bad_alloc&) {
                EXPECT_TRUE(is_as_before(!is_restoring)) << &change - changes << ", allocation " << failed;
            }
        }
        EXPECT_GT(failed, 0u);
        other->set_name(L"own", true);
        other->set_id(own);
        EXPECT_TRUE(is_as_before(true)) << &change - changes;
    }
}

// Of a key that another actor has as well, and of one that is new.
TEST_F(SceneTest, WithoutMemoryNoActorIsMade) {
    Actor* const parent = actor(L"taken");
    const CMyComPtr<Item> item(new Item(1));
    for (const bool is_known : {true, false}) {
        const CGuid id = is_known ? parent->get_id() : scene.new_id();
        const tstringW name = is_known ? L"taken" : L"a name too long to be kept in place";
        const std::size_t before = scene.size();
        std::size_t failed = 0;
        for (Actor* made = nullptr; !made; ++failed) {
            {
                const FailingAllocation failure(failed);
                try {
                    made = scene.create_actor_as(item.get(), parent, id, name);
                } catch (const std::bad_alloc&) {
                }
            }
            if (made) {
                EXPECT_EQ(scene.find_any(name), is_known ? parent : made);
                scene.delete_actor(made);
            }
            ASSERT_EQ(scene.size(), before) << failed;
            EXPECT_FALSE(parent->has_children()) << failed;
            EXPECT_EQ(item->m_actor, nullptr) << failed;
            EXPECT_EQ(scene.find_any(id), is_known ? parent : nullptr) << failed;
            EXPECT_EQ(scene.find_any(name), is_known ? parent : nullptr) << failed;
        }
        EXPECT_GT(failed, 1u);
    }
}

TEST_F(SceneTest, AnItemThatIsHeldOutlivesItsActor) {
    Actor* const made = actor(L"a");
    const CMyComPtr<IBaseItem> held(made->get_item());
    selection.select({made});
    scene.delete_actor(made);
    scene.delete_actor(made);
    EXPECT_EQ(held->m_actor, nullptr);
    EXPECT_TRUE(selection.get_selection()->empty());
    EXPECT_EQ(scene.size(), 0u);
}

// A script may end a dialog from within the end of one of its shapes.
TEST_F(SceneTest, TheEndOfAnItemMayEndOthers) {
    for (int victim = 0; victim < 4; ++victim) {
        Actor* const top = actor(L"top");
        Actor* const middle = actor(L"middle", 1, top);
        Actor* const sibling = actor(L"sibling", 1, top);
        Actor* const leaf = actor(L"leaf", 1, middle);
        IActor* const ended = std::array{top, middle, sibling, leaf}[static_cast<std::size_t>(victim)];
        for (Actor* at : {leaf, sibling})
            static_cast<Item*>(at->get_item())->on_end = [this, ended] { scene.delete_actor(ended); };
        scene.delete_actor(top);
        EXPECT_EQ(scene.size(), 0u) << victim;
    }
}

TEST_F(SceneTest, ARemovalIsToldInOneMessageAndLeavesTheSelection) {
    std::vector<std::pair<unsigned long, std::list<IActor*>>> told;
    messages.hook = [&told](const Message& message) {
        told.emplace_back(message.id, *reinterpret_cast<std::list<IActor*>*>(message.params[0]));
    };
    Actor* const a = actor(L"a");
    Actor* const b = actor(L"b");
    selection.select({a, nullptr, b, a});
    EXPECT_EQ(*selection.get_selection(), (std::list<IActor*>{a, b}));
    const std::list<IActor*> both = {b, nullptr, a};
    scene.remove(both);
    EXPECT_TRUE(selection.get_selection()->empty());
    scene.restore(both);
    ASSERT_EQ(told.size(), 2u);
    EXPECT_EQ(told[0], std::pair(MSG_ACTORS_REMOVED, both));
    EXPECT_EQ(told[1], std::pair(MSG_ACTORS_RESTORED, both));
}
