// What the mouse does to crowds laid at random, held against a walk that passes over nothing.

#include <random>

#include "interaction/run_tool.h"
#include "module/module_state.h"
#include "support/gui_test.h"

namespace {

enum class Kind { PRESS, RELEASE, MOVE };

struct Event {
    Kind kind;
    bool (CMTGUIRun::*send)(unsigned, CPoint);
    ScriptMember script;
};
const Event events[] = {
    {Kind::PRESS, &CMTGUIRun::v_on_lbutton_down, &CSimpleGUIShape::m_func_left_down},
    {Kind::PRESS, &CMTGUIRun::v_on_rbutton_down, &CSimpleGUIShape::m_func_right_down},
    {Kind::PRESS, &CMTGUIRun::v_on_mbutton_down, &CSimpleGUIShape::m_func_middle_down},
    {Kind::RELEASE, &CMTGUIRun::v_on_lbutton_up, &CSimpleGUIShape::m_func_left_up},
    {Kind::RELEASE, &CMTGUIRun::v_on_rbutton_up, &CSimpleGUIShape::m_func_right_up},
    {Kind::RELEASE, &CMTGUIRun::v_on_mbutton_up, &CSimpleGUIShape::m_func_middle_up},
    {Kind::MOVE, &CMTGUIRun::v_on_mouse_move, &CSimpleGUIShape::m_func_mouse_in},
};
constexpr ScriptMember members[] = {
    &CSimpleGUIShape::m_func_left_down, &CSimpleGUIShape::m_func_left_up,     &CSimpleGUIShape::m_func_right_down,
    &CSimpleGUIShape::m_func_right_up,  &CSimpleGUIShape::m_func_middle_down, &CSimpleGUIShape::m_func_middle_up,
    &CSimpleGUIShape::m_func_mouse_in,  &CSimpleGUIShape::m_func_mouse_out,
};
using ScriptRun = std::pair<const CSimpleGUIShape*, ScriptMember>;

/// All that an event leaves behind.
struct Outcome {
    std::vector<int> modes;
    std::vector<ScriptRun> runs;
    const CSimpleGUIShape* hover = nullptr;
    int cursors = 0;
    bool used = false;
    friend bool operator==(const Outcome&, const Outcome&) = default;
};

class MouseWalk : public GuiTest {
protected:
    int below(int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); }
    bool one_in(int count) { return below(count) == 0; }
    CRect any_rect(int largest) {
        const int left = below(800) - 50;
        const int top = below(600) - 50;
        // Some have no size, or are inside out.
        return {left, top, left + below(largest) - 5, top + below(largest) - 5};
    }

    void change(CSimpleGUIShape& shape) {
        shape.m_in_scene = !one_in(8);
        shape.m_is_usable = one_in(4) ? 0 : 1;
        // Engines and editors write what they like.
        shape.m_texture_mode = one_in(30) ? below(6) : MODE_NORMAL + below(3);
        shape.m_actor->set_visible(!one_in(6));
        if (one_in(3)) shape.m_rect = any_rect(one_in(8) ? 900 : 300);
        for (ScriptMember member : members) {
            shape.*member = {};
            if (one_in(6)) shape.*member = script([this, &shape, member] { runs.emplace_back(&shape, member); });
        }
    }
    void make_crowd() {
        for (int number = 0; number < 12; ++number) {
            CSimpleGUIDialog* parent = dialog(any_rect(600));
            parent->m_actor->set_visible(!one_in(5));
            for (int left = below(20); left > 0; --left) shapes.push_back(shape(parent, any_rect(300)));
        }
        // Those of one dialog are mostly made together, but need not be.
        for (int left = 20; left > 0; --left) {
            auto at = gui.m_dialogs.begin() + below(static_cast<int>(gui.m_dialogs.size()));
            shapes.push_back(shape(*at, any_rect(300)));
        }
        for (CSimpleGUIShape* made : shapes) change(*made);
        // One whose dialog has gone.
        shapes.front()->m_parent_dialog->m_shapes.remove(shapes.front());
        shapes.front()->m_parent_dialog = nullptr;
    }

    Outcome plain(const Event& event, CPoint at, const CSimpleGUIShape* hovered) const {
        Outcome out;
        for (const CSimpleGUIShape* shape : shapes) out.modes.push_back(shape->m_texture_mode);
        for (std::size_t place = shapes.size(); place-- > 0;) {
            const CSimpleGUIShape& shape = *shapes[place];
            const CSimpleGUIDialog* parent = shape.m_parent_dialog;
            const bool met = shape.m_in_scene && shape.m_actor->is_visible() && parent && parent->m_actor->is_visible();
            if (!met) continue;
            const CRect rect = shape.get_rect();
            const bool inside = at.x >= rect.left && at.x < rect.right && at.y >= rect.top && at.y < rect.bottom;
            int& mode = out.modes[place];
            const bool answers = inside && shape.m_is_usable && shape.*event.script;
            if (event.kind == Kind::RELEASE) {
                mode = inside ? MODE_HOVER : MODE_NORMAL;
                if (answers) out.runs.emplace_back(&shape, event.script);
            } else if (event.kind == Kind::PRESS) {
                if (inside) mode = MODE_DOWN;
                if (!answers) continue;
                out.runs.emplace_back(&shape, event.script);
                out.used = true;
                break;
            } else if (!inside) {
                if (mode != MODE_DOWN) mode = MODE_NORMAL;
            } else {
                if (mode == MODE_NORMAL) mode = MODE_HOVER;
                const bool has_script = std::any_of(std::begin(members), std::end(members),
                                                    [&](ScriptMember member) { return bool(shape.*member); });
                if (!shape.m_is_usable || !has_script) continue;
                out.hover = &shape;
                ++out.cursors;
            }
        }
        if (event.kind != Kind::MOVE) {
            out.hover = hovered;
            return out;
        }
        const ScriptRun both[] = {{out.hover, &CSimpleGUIShape::m_func_mouse_in},
                                  {hovered, &CSimpleGUIShape::m_func_mouse_out}};
        for (const ScriptRun& run : both) {
            if (out.hover != hovered && run.first && run.first->*run.second) out.runs.push_back(run);
        }
        return out;
    }

    Outcome sent(const Event& event, CPoint at) {
        runs.clear();
        const int cursors_before = registry().hand_cursors;
        Outcome out;
        out.used = (s_run_tool->*event.send)(0, at);
        for (const CSimpleGUIShape* shape : shapes) out.modes.push_back(shape->m_texture_mode);
        out.runs = runs;
        out.hover = gui.get_hover_shape();
        out.cursors = registry().hand_cursors - cursors_before;
        return out;
    }

    std::mt19937 random{1};
    std::vector<CSimpleGUIShape*> shapes;
    std::vector<ScriptRun> runs;
};

TEST_F(MouseWalk, DoesToAnyCrowdWhatAWalkOverAllOfItDoes) {
    make_crowd();
    gui.prepare_run();
    std::size_t ran = 0;
    std::size_t hovered = 0;
    for (int step = 0; step < 10000; ++step) {
        const Event& event = events[below(static_cast<int>(std::size(events)))];
        const CPoint at{below(820) - 10, below(620) - 10};
        const Outcome expected = plain(event, at, gui.get_hover_shape());
        const Outcome found = sent(event, at);
        ASSERT_TRUE(found == expected) << "step " << step << ": " << found.runs.size() << " scripts ran, wanted "
                                       << expected.runs.size() << "; " << found.cursors << " cursors, wanted "
                                       << expected.cursors;
        ran += found.runs.size();
        hovered += found.hover ? 1 : 0;
        // For long stretches nothing changes but what the mouse does.
        if (step % 100 < 50) continue;
        for (int changes = below(4); changes > 0; --changes)
            change(*shapes[static_cast<std::size_t>(below(static_cast<int>(shapes.size())))]);
    }
    // Else it would say little.
    EXPECT_GT(ran, 1000u);
    EXPECT_GT(hovered, 1000u);
    gui.after_run();
}

}  // namespace
