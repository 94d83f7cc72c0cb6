#include "interaction/run_tool.h"

#include "interaction/hover.h"
#include "support/gui_test.h"

namespace {

using Kind = SInputEvent::Kind;
constexpr Kind presses[] = {SInputEvent::LEFT_DOWN, SInputEvent::RIGHT_DOWN, SInputEvent::MIDDLE_DOWN};
constexpr Kind releases[] = {SInputEvent::LEFT_UP, SInputEvent::RIGHT_UP, SInputEvent::MIDDLE_UP};

// The script of a press or release, by its event.
ScriptMember script_of(Kind kind) {
    static constexpr ScriptMember members[] = {
        &CSimpleGUIShape::m_func_left_down, &CSimpleGUIShape::m_func_right_down, &CSimpleGUIShape::m_func_middle_down,
        &CSimpleGUIShape::m_func_left_up,   &CSimpleGUIShape::m_func_right_up,   &CSimpleGUIShape::m_func_middle_up};
    return members[kind];
}

constexpr CPoint inside{50, 50};
constexpr CPoint outside{500, 500};
const CRect area{10, 10, 90, 90};

}  // namespace

/// Three shapes, one over the other; the walk meets c first, then b, then a.
class RunToolTest : public GuiTest {
protected:
    RunToolTest() { build(); }

    void build() {
        parent = dialog({0, 0, 200, 200});
        other = dialog({0, 0, 200, 200});
        for (CSimpleGUIShape** place : {&a, &b, &c}) *place = shape(parent, area);
    }
    /// Notes the name, then does what it is told.
    CMyComPtr<IScriptFunction> notes(
        std::string name, std::function<void()> action = [] {}) {
        return script([this, name = std::move(name), action = std::move(action)] {
            ran.push_back(name);
            action();
        });
    }
    bool send(Kind kind, CPoint position = inside) { return engine.input.send({kind, position}); }
    std::vector<int> modes() const {
        std::vector<int> all;
        for (const CSimpleGUIShape* s : gui.m_shapes) all.push_back(s->m_texture_mode);
        return all;
    }
    std::vector<std::string> take_ran() { return std::exchange(ran, {}); }

    CSimpleGUIDialog* parent;
    CSimpleGUIDialog* other;
    CSimpleGUIShape* a;
    CSimpleGUIShape* b;
    CSimpleGUIShape* c;
    std::vector<std::string> ran;
};
using Names = std::vector<std::string>;
using Modes = std::vector<int>;

TEST_F(RunToolTest, EventsChangeTheLookByTheirTable) {
    struct Row {
        std::vector<Kind> events;
        CPoint position;
        int from[3];
        int to[3];
    };
    const std::vector<Kind> move = {SInputEvent::MOVE};
    const std::vector<Kind> down(std::begin(presses), std::end(presses));
    const std::vector<Kind> up(std::begin(releases), std::end(releases));
    const Row rows[] = {{move, inside, {1, 2, 3}, {2, 2, 3}}, {move, outside, {1, 2, 3}, {1, 1, 3}},
                        {down, inside, {1, 2, 3}, {3, 3, 3}}, {down, outside, {1, 2, 3}, {1, 2, 3}},
                        {up, inside, {1, 2, 3}, {2, 2, 2}},   {up, outside, {1, 2, 3}, {1, 1, 1}}};
    gui.prepare_run();
    b->m_is_usable = 0;
    c->m_is_static_pic = 1;
    for (const Row& row : rows) {
        for (Kind event : row.events) {
            a->m_texture_mode = row.from[0];
            b->m_texture_mode = row.from[1];
            c->m_texture_mode = row.from[2];
            EXPECT_FALSE(send(event, row.position));
            EXPECT_EQ(modes(), Modes(std::begin(row.to), std::end(row.to))) << event;
        }
    }
    gui.after_run();
    EXPECT_EQ(modes(), (Modes{1, 1, 1}));
    EXPECT_FALSE(send(SInputEvent::LEFT_DOWN)) << "no tool, no answer";
    EXPECT_EQ(modes(), (Modes{1, 1, 1}));
}

TEST_F(RunToolTest, APressSinksToTheFirstScriptOfItsButton) {
    for (Kind kind : presses) {
        gui.prepare_run();
        a->*script_of(kind) = notes("a");
        EXPECT_TRUE(send(kind));
        EXPECT_EQ(modes(), (Modes{3, 3, 3}));
        EXPECT_EQ(take_ran(), Names{"a"});
        gui.after_run();
        gui.prepare_run();
        b->*script_of(kind) = notes("b");
        c->*script_of(presses[(kind + 1) % 3]) = notes("wrong button");
        EXPECT_TRUE(send(kind));
        EXPECT_EQ(modes(), (Modes{1, 3, 3}));
        EXPECT_EQ(take_ran(), Names{"b"});
        gui.after_run();
        gui.prepare_run();
        a->m_is_usable = b->m_is_usable = 0;
        EXPECT_FALSE(send(kind)) << "disabled shapes are pressed and answer nothing";
        EXPECT_EQ(modes(), (Modes{3, 3, 3}));
        EXPECT_TRUE(take_ran().empty());
        gui.after_run();
        engine.scene.clear();
        build();
    }
}

TEST_F(RunToolTest, AReleaseRunsTheScriptsOfAllUnderThePointerAndPassesThrough) {
    for (Kind kind : releases) {
        gui.prepare_run();
        a->*script_of(kind) = notes("a");
        b->*script_of(kind) = notes("b");
        c->*script_of(kind) = notes("c");
        EXPECT_FALSE(send(kind));
        EXPECT_EQ(take_ran(), (Names{"c", "b", "a"}));
        b->m_is_usable = 0;
        EXPECT_FALSE(send(kind));
        EXPECT_EQ(take_ran(), (Names{"c", "a"}));
        EXPECT_FALSE(send(kind, {90, 50})) << "the right edge lies outside";
        EXPECT_TRUE(take_ran().empty());
        gui.after_run();
        engine.scene.clear();
        build();
    }
}

TEST_F(RunToolTest, WhatCannotBeSeenByItsActorsIsPassedOver) {
    gui.prepare_run();
    send(SInputEvent::LEFT_DOWN);
    a->m_actor->set_visible(false);
    engine.remove(b);
    c->change_parent_dialog(other);
    other->m_actor->set_visible(false);
    send(SInputEvent::LEFT_UP);
    EXPECT_EQ(modes(), (Modes{3, 3, 3}));
    a->m_actor->set_visible(true);
    engine.restore(b);
    other->m_actor->set_visible(true);
    engine.remove(other);
    gui.m_gui_hidden = 1;
    send(SInputEvent::LEFT_UP);
    EXPECT_EQ(modes(), (Modes{2, 2, 2})) << "a removed dialog and a hidden GUI do not count";
    auto* orphan = engine.make<CSimpleGUIShape>(ITEM_TYPE_SHAPE);
    orphan->m_rect = area;
    orphan->on_ready();
    send(SInputEvent::LEFT_DOWN);
    EXPECT_EQ(orphan->m_texture_mode, 1);
    a->m_actor->set_visible(false);
    gui.after_run();
    EXPECT_EQ(modes(), (Modes{1, 1, 1, 1})) << "the end of a run leaves nothing pressed";
}

TEST_F(RunToolTest, TheHoveredShapeIsTheUsableOneWithAScriptNearestToTheFront) {
    gui.prepare_run();
    send(SInputEvent::MOVE);
    EXPECT_EQ(s_hover_shape.get(), nullptr);
    EXPECT_EQ(registry().hand_cursors, 0);
    b->m_func_mouse_in = notes("into b");
    b->m_func_mouse_out = notes("out of b");
    c->m_func_right_up = notes("never");
    send(SInputEvent::MOVE);
    send(SInputEvent::MOVE);
    EXPECT_EQ(s_hover_shape.get(), b);
    EXPECT_EQ(take_ran(), Names{"into b"});
    EXPECT_EQ(registry().hand_cursors, 4) << "for each that can answer, in every move";
    a->m_func_mouse_in = notes("into a");
    send(SInputEvent::MOVE);
    EXPECT_EQ(take_ran(), (Names{"into a", "out of b"})) << "entering first";
    a->m_is_usable = 0;
    send(SInputEvent::MOVE);
    EXPECT_EQ(take_ran(), Names{"into b"});
    send(SInputEvent::MOVE, outside);
    EXPECT_EQ(take_ran(), Names{"out of b"});
    EXPECT_EQ(s_hover_shape.get(), nullptr);
}

TEST_F(RunToolTest, TheHoverOutlivesARun) {
    a->m_func_mouse_in = notes("in");
    a->m_func_mouse_out = notes("out");
    gui.prepare_run();
    send(SInputEvent::MOVE);
    gui.after_run();
    gui.prepare_run();
    EXPECT_EQ(take_ran(), Names{"in"});
    send(SInputEvent::MOVE);
    EXPECT_TRUE(take_ran().empty()) << "still the same";
    gui.after_run();
    gui.prepare_run();
    send(SInputEvent::MOVE, outside);
    EXPECT_EQ(take_ran(), Names{"out"});
}

TEST_F(RunToolTest, ADestroyedShapeRunsNothing) {
    struct Row {
        const char* what;
        bool entered, left;
        Names now, later;
    };
    // b is hovered first; then a, whose entering script destroys one of them or both; then the pointer leaves.
    const Row rows[] = {{"none", false, false, {"into a", "out of b"}, {"out of a"}},
                        {"the left one", false, true, {"into a"}, {"out of a"}},
                        {"itself", true, false, {"into a", "out of b"}, {}},
                        {"both", true, true, {"into a"}, {}}};
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        b->m_func_mouse_out = notes("out of b");
        gui.prepare_run();
        send(SInputEvent::MOVE);
        a->m_func_mouse_in = notes("into a", [&] {
            if (row.left) engine.destroy(b);
            if (row.entered) engine.destroy(a);
        });
        a->m_func_mouse_out = notes("out of a");
        send(SInputEvent::MOVE);
        EXPECT_EQ(take_ran(), row.now);
        send(SInputEvent::MOVE, outside);
        EXPECT_EQ(take_ran(), row.later);
        gui.after_run();
        engine.scene.clear();
        EXPECT_EQ(s_hover_shape.get(), nullptr);
        build();
    }
}

namespace {

// What a script does, and whether the shape that it does it to is still met behind it in the walk.
struct Change {
    const char* what;
    void (*apply)(ScratchEngine& engine, CSimpleGUIShape* target, CSimpleGUIDialog* other);
    bool target_is_met;
    // Nothing at all is met behind the script.
    bool ends_walk;
};

void add_shape(ScratchEngine& engine, CSimpleGUIShape*, CSimpleGUIDialog* other) {
    CSimpleGUIShape* added = engine.gui().create_shape(other);
    added->set_rect(area);
    for (ScriptMember member : {&CSimpleGUIShape::m_func_left_up, &CSimpleGUIShape::m_func_right_up,
                                &CSimpleGUIShape::m_func_middle_up, &CSimpleGUIShape::m_func_left_down}) {
        added->*member = script([] { ADD_FAILURE() << "a shape made in a walk was met in it"; });
    }
}

const Change changes[] = {
    {"delete", [](auto& e, auto* t, auto*) { e.destroy(t); }, false, false},
    {"hide", [](auto&, auto* t, auto*) { t->m_actor->set_visible(false); }, false, false},
    {"disable", [](auto&, auto* t, auto*) { t->m_is_usable = 0; }, false, false},
    {"move away",
     [](auto&, auto* t, auto*) {
         t->set_rect({500, 500, 510, 510});
     },
     false, false},
    {"remove", [](auto& e, auto* t, auto*) { e.remove(t); }, false, false},
    {"remove and restore", [](auto& e, auto* t, auto*) { e.remove(t), e.restore(t); }, true, false},
    {"add", add_shape, true, false},
    {"add many",
     [](auto& e, auto* t, auto* o) {
         for (int n = 0; n < 100; ++n) add_shape(e, t, o);
     },
     true, false},
    {"re-parent", [](auto&, auto* t, auto* o) { t->change_parent_dialog(o); }, true, false},
    {"hide the dialog", [](auto&, auto* t, auto*) { t->m_parent_dialog->m_actor->set_visible(false); }, false, true},
    {"delete the dialog alone", [](auto& e, auto* t, auto*) { e.scene.delete_alone(t->m_parent_dialog->m_actor); },
     false, true},
    {"end the run", [](auto& e, auto*, auto*) { e.gui().after_run(); }, false, true},
    {"restart the run", [](auto& e, auto*, auto*) { e.gui().after_run(), e.gui().prepare_run(); }, false, true},
    {"clean the project", [](auto& e, auto*, auto*) { e.gui().on_clean_project(), e.scene.clear(); }, false, true},
};

}  // namespace

TEST_F(RunToolTest, AReleaseStaysSafeWhateverItsScriptsChange) {
    for (Kind kind : releases) {
        for (const Change& change : changes) {
            // The middle script acts on one met before, on itself, or on the one behind.
            for (int target : {0, 1, 2}) {
                SCOPED_TRACE(testing::Message() << change.what << " target " << target << " event " << kind);
                gui.prepare_run();
                CSimpleGUIShape* const subject = target == 0 ? c : target == 1 ? b : a;
                c->*script_of(kind) = notes("c");
                b->*script_of(kind) = notes("b", [&] { change.apply(engine, subject, other); });
                a->*script_of(kind) = notes("a");
                EXPECT_FALSE(send(kind));
                const bool a_is_met = !change.ends_walk && (target != 2 || change.target_is_met);
                EXPECT_EQ(take_ran(), a_is_met ? (Names{"c", "b", "a"}) : (Names{"c", "b"}));
                gui.after_run();
                for (int mode : modes()) EXPECT_EQ(mode, 1);
                engine.scene.clear();
                build();
            }
        }
    }
}

TEST_F(RunToolTest, APressStaysSafeWhateverItsScriptChanges) {
    for (Kind kind : presses) {
        for (const Change& change : changes) {
            for (int target : {0, 1, 2}) {
                SCOPED_TRACE(testing::Message() << change.what << " target " << target << " event " << kind);
                gui.prepare_run();
                CSimpleGUIShape* const subject = target == 0 ? c : target == 1 ? b : a;
                b->*script_of(kind) = notes("b", [&] { change.apply(engine, subject, other); });
                a->*script_of(kind) = notes("a");
                EXPECT_TRUE(send(kind)) << "a script ran, whatever became of its shape";
                EXPECT_EQ(take_ran(), Names{"b"});
                gui.after_run();
                engine.scene.clear();
                build();
            }
        }
    }
}

TEST_F(RunToolTest, AMoveStaysSafeWhateverItsScriptsChange) {
    for (const Change& change : changes) {
        // The entering script acts on itself, on the one left, or on one that is neither.
        for (int target : {0, 1, 2}) {
            SCOPED_TRACE(testing::Message() << change.what << " target " << target);
            b->m_func_mouse_out = notes("out of b");
            gui.prepare_run();
            send(SInputEvent::MOVE);
            CSimpleGUIShape* const subject = target == 0 ? a : target == 1 ? b : c;
            a->m_func_mouse_in = notes("into a", [&] { change.apply(engine, subject, other); });
            EXPECT_FALSE(send(SInputEvent::MOVE));
            EXPECT_EQ(take_ran().front(), "into a");
            EXPECT_TRUE(!s_hover_shape.get() || gui.m_shapes.contains(s_hover_shape.get()));
            send(SInputEvent::MOVE, outside);
            gui.after_run();
            for (int mode : modes()) EXPECT_EQ(mode, 1);
            engine.scene.clear();
            build();
            take_ran();
        }
    }
}

TEST_F(RunToolTest, AnEventInsideAScriptWalksForItself) {
    gui.prepare_run();
    c->m_func_left_up = notes("c");
    b->m_func_left_up = notes("b", [this] {
        b->m_func_left_up = notes("b again", [this] { engine.destroy(a); });
        send(SInputEvent::LEFT_UP);
    });
    a->m_func_left_up = notes("a");
    send(SInputEvent::LEFT_UP);
    EXPECT_EQ(take_ran(), (Names{"c", "b", "c", "b again"}));
}
