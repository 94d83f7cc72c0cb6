// Any order of mouse events, in a scene whose scripts change at each of them what the event goes over: the shape
// itself, its neighbours, its dialog, the project, the run.

#include <fuzzer/FuzzedDataProvider.h>

#include <vector>

#include "fuzz/stage.h"
#include "layout/dialog.h"
#include "layout/shape.h"
#include "module/manager.h"

namespace {

constexpr host::InputKind kinds[] = {
    host::InputKind::MOVE,     host::InputKind::LEFT_DOWN,   host::InputKind::LEFT_UP,  host::InputKind::RIGHT_DOWN,
    host::InputKind::RIGHT_UP, host::InputKind::MIDDLE_DOWN, host::InputKind::MIDDLE_UP};
constexpr CMyComPtr<IScriptFunction> CSimpleGUIShape::*scripts[] = {
    &CSimpleGUIShape::m_func_left_down,   &CSimpleGUIShape::m_func_left_up,   &CSimpleGUIShape::m_func_right_down,
    &CSimpleGUIShape::m_func_right_up,    &CSimpleGUIShape::m_func_mouse_in,  &CSimpleGUIShape::m_func_mouse_out,
    &CSimpleGUIShape::m_func_middle_down, &CSimpleGUIShape::m_func_middle_up,
};

class Play {
public:
    Play(host::Engine& engine, FuzzedDataProvider& chance) : m_engine(engine), m_chance(chance) {}

    void go() {
        m_engine.new_project(200, 150);
        for (int at = 0; at < 3; ++at) add_dialog();
        for (int at = 0; at < 6; ++at) add_shape();
        m_engine.start_run();
        while (m_chance.remaining_bytes() > 0) {
            if (m_chance.ConsumeIntegralInRange(0, 3) == 0) {
                act();
            } else {
                m_engine.mouse(any(kinds), number(-5, 205), number(-5, 155));
            }
            if (m_chance.ConsumeIntegralInRange(0, 7) == 0) m_engine.frame(0.0);
        }
        m_engine.stop_run();
        m_engine.new_project(200, 150);
        fuzz::must(gui().m_shapes.empty() && gui().m_dialogs.empty(), "nothing is left");
    }

    // What a script does, as often as the input asks for it.
    void act_in_script() {
        if (m_depth >= 3) return;
        ++m_depth;
        for (int left = number(0, 3); left > 0; --left) act();
        --m_depth;
    }

private:
    class Script : public IScriptFunction {
    public:
        explicit Script(Play& play) : m_play(play) {}
        void run() override { m_play.act_in_script(); }

    private:
        Play& m_play;
    };

    static CSimpleGUIManager& gui() { return *CSimpleGUIManager::m_instance; }
    int number(int least, int most) { return m_chance.ConsumeIntegralInRange(least, most); }
    template <class T, std::size_t Count>
    T any(const T (&list)[Count]) {
        return list[m_chance.ConsumeIntegralInRange<std::size_t>(0, Count - 1)];
    }
    // Null for a gap in the list and for an empty one.
    template <class Item>
    Item* any_of(const ItemList<Item>& list) {
        return list.empty() ? nullptr : list.begin()[number(0, static_cast<int>(list.size()) - 1)];
    }

    CRect rect() {
        const int left = number(-20, 150), top = number(-20, 100);
        return {left, top, left + number(-5, 200), top + number(-5, 150)};
    }
    void add_dialog() {
        if (CSimpleGUIDialog* dialog = gui().create_dialog()) dialog->set_rect(rect(), false);
    }
    void add_shape() {
        CSimpleGUIDialog* dialog = any_of(gui().m_dialogs);
        CSimpleGUIShape* shape = dialog ? gui().create_shape(dialog) : nullptr;
        if (!shape) return;
        shape->set_rect(rect());
        shape->*any(scripts) = new Script(*this);
        shape->*any(scripts) = new Script(*this);
    }

    void act() {
        CSimpleGUIShape* shape = any_of(gui().m_shapes);
        CSimpleGUIDialog* dialog = any_of(gui().m_dialogs);
        if (!shape || !dialog) return number(0, 1) ? add_dialog() : add_shape();
        IActor* actor = number(0, 3) == 0 ? dialog->m_actor : shape->m_actor;
        switch (number(0, 15)) {
            case 0:
                return add_shape();
            case 1:
                return add_dialog();
            case 2:
                return void(actor->set_parent(nullptr));
            case 3:
                return actor->set_visible(number(0, 1) != 0);
            case 4:
                return shape->set_rect(rect());
            case 5:
                return dialog->set_rect(rect(), number(0, 1) != 0);
            case 6:
                return shape->change_parent_dialog(dialog);
            case 7:
                return void(shape->*any(scripts) = new Script(*this));
            case 8:
                return void(shape->*any(scripts) = nullptr);
            case 9:
                return m_engine.scene().remove({actor});
            case 10:
                return m_engine.scene().restore({actor});
            case 11:
                return void(shape->m_is_usable = number(0, 1));
            case 12:
                return m_engine.resize(number(0, 300), number(0, 200));
            case 13:
                return void(m_engine.mouse(any(kinds), number(0, 200), number(0, 150)));
            case 14:
                return m_engine.stop_run();
            default:
                return void(shape->m_texture_mode = number(1, 3));
        }
    }

    host::Engine& m_engine;
    FuzzedDataProvider& m_chance;
    int m_depth = 0;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    static fuzz::Stage stage;
    FuzzedDataProvider chance(data, size);
    Play(stage.engine, chance).go();
    return 0;
}
