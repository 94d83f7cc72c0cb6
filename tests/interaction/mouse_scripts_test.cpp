// Scripts of mouse events that do anything to the crowd in which they run, while what is known of it from the events
// before is in use: the same show once more with nothing known must go the same way.

#include <map>
#include <random>

#include "interaction/run_tool.h"
#include "module/module_state.h"
#include "support/gui_test.h"

namespace {

class Show {
public:
    explicit Show(unsigned seed) : random(seed) {
        for (int number = 0; number < 6; ++number) dialogs.push_back(gui.create_dialog());
        while (next_number < 150) add_shape();
        gui.prepare_run();
    }
    ~Show() { gui.after_run(); }
    Show(const Show&) = delete;
    Show& operator=(const Show&) = delete;

    /// All that a number of events do, as text. With nothing known each of them walks over all shapes. The scripts that
    /// ran are counted.
    std::string events(int count, bool nothing_known, int& scripts) {
        for (; count > 0; --count) {
            event(nothing_known);
            told += '\n';
            for (const auto& [number, shape] : shapes) told += std::to_string(shape->m_texture_mode);
        }
        scripts += scripts_run;
        return told;
    }

private:
    int below(int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); }
    CRect any_rect() {
        const int left = below(800);
        const int top = below(600);
        return {left, top, left + below(200), top + below(200)};
    }
    void add_shape() {
        CSimpleGUIShape* made = gui.create_shape(dialogs[static_cast<std::size_t>(below(6))]);
        made->m_rect = any_rect();
        shapes[next_number++] = made;
        if (below(3) > 0) return;
        const auto meddles = script([this, number = next_number - 1] {
            told += ' ' + std::to_string(number);
            ++scripts_run;
            meddle();
        });
        for (ScriptMember member : {&CSimpleGUIShape::m_func_left_down, &CSimpleGUIShape::m_func_left_up,
                                    &CSimpleGUIShape::m_func_mouse_in, &CSimpleGUIShape::m_func_mouse_out}) {
            if (below(2) == 0) made->*member = meddles;
        }
    }
    void event(bool nothing_known) {
        if (nothing_known) gui.m_shapes.front()->m_rect = CRect(gui.m_shapes.front()->get_rect());
        is_plain = nothing_known;
        constexpr bool (CMTGUIRun::*sent[])(unsigned, CPoint) = {
            &CMTGUIRun::v_on_mouse_move, &CMTGUIRun::v_on_mouse_move, &CMTGUIRun::v_on_mouse_move,
            &CMTGUIRun::v_on_lbutton_down, &CMTGUIRun::v_on_lbutton_up};
        const CPoint at{below(800), below(600)};
        const bool used = (s_run_tool->*sent[below(static_cast<int>(std::size(sent)))])(0, at);
        told += used ? '!' : '.';
    }
    // Mostly it does nothing, so that what is known stays in use.
    void meddle() {
        auto victim = std::next(shapes.begin(), below(static_cast<int>(shapes.size())));
        switch (below(24)) {
            case 0:
                engine.destroy(victim->second);
                shapes.erase(victim);
                add_shape();
                break;
            case 1:
                add_shape();
                break;
            case 2:
                victim->second->set_rect(any_rect());
                break;
            case 3:
                victim->second->m_actor->set_visible(false);
                break;
            case 4:
                victim->second->m_texture_mode = below(5);
                break;
            case 5:
                victim->second->change_parent_dialog(dialogs[static_cast<std::size_t>(below(6))]);
                break;
            case 6:
                if (depth > 0) break;
                ++depth;
                for (int more = below(6); more > 0; --more) event(is_plain);
                --depth;
                break;
            case 7:
                if (below(8) > 0) break;
                gui.after_run();
                gui.prepare_run();
                break;
            default:
                break;
        }
    }

    std::mt19937 random;
    ScratchEngine engine;
    CSimpleGUIManager& gui = engine.gui();
    std::vector<CSimpleGUIDialog*> dialogs;
    std::map<int, CSimpleGUIShape*> shapes;
    int next_number = 0;
    int depth = 0;
    bool is_plain = false;
    int scripts_run = 0;
    std::string told;
};

TEST(MouseScripts, GoOnAsIfEachEventLookedAtAllShapes) {
    int scripts = 0;
    for (unsigned seed = 0; seed < 40; ++seed) {
        const std::string usual = Show(seed).events(300, false, scripts);
        EXPECT_EQ(usual, Show(seed).events(300, true, scripts)) << "seed " << seed;
    }
    // Else it would say little.
    EXPECT_GT(scripts, 8000);
}

}  // namespace
