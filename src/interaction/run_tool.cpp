#include "interaction/run_tool.h"

#include <algorithm>
#include <initializer_list>

#include "interaction/hover.h"
#include "layout/approach.h"
#include "layout/item_list.h"
#include "layout/shape.h"
#include "layout/shown.h"
#include "module/boundary.h"
#include "module/manager.h"
#include "platform/platform.h"

ShapeWatch s_hover_shape;

namespace {

// Counts tools made and destroyed, so that a walk can tell whether the run that it belongs to still goes on, also when
// a script has ended it and begun another.
unsigned run_count = 0;

constexpr ScriptMember all_scripts[] = {
    &CSimpleGUIShape::m_func_left_down, &CSimpleGUIShape::m_func_left_up,     &CSimpleGUIShape::m_func_right_down,
    &CSimpleGUIShape::m_func_right_up,  &CSimpleGUIShape::m_func_middle_down, &CSimpleGUIShape::m_func_middle_up,
    &CSimpleGUIShape::m_func_mouse_in,  &CSimpleGUIShape::m_func_mouse_out,
};

bool has_any_script(const CSimpleGUIShape& shape) {
    for (ScriptMember script : all_scripts) {
        if (shape.*script) return true;
    }
    return false;
}

// Whether the mouse can meet the shape at all. What is drawn plays no part but for the two actors' visibility.
bool takes_part(const CSimpleGUIShape& shape) {
    return shape.m_in_scene && is_shown(shape.m_actor) && shape.m_parent_dialog &&
           is_shown(shape.m_parent_dialog->m_actor);
}

// The script is held while it runs, for it may destroy the shape that it belongs to.
void run_script(CMyComPtr<IScriptFunction> script) { script->run(); }

// Visits the shapes that the mouse can meet, the one made last first, each tested when the walk arrives at it. Those
// that are not under the pointer and in one of the quiet modes would be visited for nothing, and telling them is
// cheaper than asking whether they take part. Ends early when `visit` gives false or a script has ended the run.
template <class Visit>
void walk_shapes(CSimpleGUIManager& manager, CPoint position, std::initializer_list<int> quiet_modes, Visit visit) {
    const unsigned run = run_count;
    using Walk = ItemList<CSimpleGUIShape>::Walk;
    Walk walk(manager.m_shapes, Walk::BACK_TO_FRONT);
    CSimpleGUIShape* shape = nullptr;
    while (run == run_count && walk.next(shape)) {
        if (const CSimpleGUIShape* ahead = walk.ahead(fetch_distance)) {
            fetch(&ahead->m_rect);
            fetch(&ahead->m_texture_mode);
        }
        if (!shape) continue;
        const bool inside = contains(shape->get_rect(), position);
        if (!inside && std::find(quiet_modes.begin(), quiet_modes.end(), shape->m_texture_mode) != quiet_modes.end())
            continue;
        if (takes_part(*shape) && !visit(*shape, inside)) return;
    }
}

// A press sinks through shapes without a script, leaving each of them pressed, down to the first that has one.
bool press(CSimpleGUIManager& manager, CPoint position, ScriptMember script) try {
    bool ran = false;
    walk_shapes(manager, position, {MODE_NORMAL, MODE_HOVER, MODE_DOWN}, [&](CSimpleGUIShape& shape, bool inside) {
        if (!inside) return true;
        shape.set_texture_mode(MODE_DOWN);
        if (!shape.m_is_usable || !(shape.*script)) return true;
        ran = true;
        run_script(shape.*script);
        return false;
    });
    return ran;
} catch (...) {
    keep_inside(L"a press of the mouse");
    return false;
}

// A release ends the pressed look everywhere and runs the scripts of all shapes under the pointer.
void release(CSimpleGUIManager& manager, CPoint position, ScriptMember script) try {
    walk_shapes(manager, position, {MODE_NORMAL}, [&](CSimpleGUIShape& shape, bool inside) {
        shape.set_texture_mode(inside ? MODE_HOVER : MODE_NORMAL);
        if (inside && shape.m_is_usable && shape.*script) run_script(shape.*script);
        return true;
    });
} catch (...) {
    keep_inside(L"a release of the mouse");
}

// Lights what lies under the pointer and gives the shape that counts as hovered: of those that can answer, the one
// nearest to the front of the list.
CSimpleGUIShape* light_shapes(CSimpleGUIManager& manager, CPoint position) {
    CSimpleGUIShape* hover = nullptr;
    walk_shapes(manager, position, {MODE_NORMAL, MODE_DOWN}, [&](CSimpleGUIShape& shape, bool inside) {
        if (!inside) {
            shape.set_texture_mode(MODE_NORMAL);
            return true;
        }
        if (shape.m_texture_mode == MODE_NORMAL) shape.set_texture_mode(MODE_HOVER);
        if (shape.m_is_usable && has_any_script(shape)) {
            hover = &shape;
            platform::set_hand_cursor();
        }
        return true;
    });
    return hover;
}

void run_if_there(CSimpleGUIShape* shape, ScriptMember script) {
    if (shape && shape->*script) run_script(shape->*script);
}

}  // namespace

CSimpleGUIShape* CSimpleGUIManager::get_hover_shape() const { return s_hover_shape.get(); }

CMTGUIRun::CMTGUIRun(XSystem* system, CSimpleGUIManager* manager)
    : CMouseTool(system, L"CMTGUIRun"), m_manager(manager) {
    ++run_count;
}

CMTGUIRun::~CMTGUIRun() {
    ++run_count;
    for (CSimpleGUIShape* shape : m_manager->m_shapes) {
        if (shape) shape->m_texture_mode = MODE_NORMAL;
    }
}

bool CMTGUIRun::v_on_lbutton_down(unsigned int, CPoint position) {
    return press(*m_manager, position, &CSimpleGUIShape::m_func_left_down);
}

bool CMTGUIRun::v_on_rbutton_down(unsigned int, CPoint position) {
    return press(*m_manager, position, &CSimpleGUIShape::m_func_right_down);
}

bool CMTGUIRun::v_on_mbutton_down(unsigned int, CPoint position) {
    return press(*m_manager, position, &CSimpleGUIShape::m_func_middle_down);
}

bool CMTGUIRun::v_on_lbutton_up(unsigned int, CPoint position) {
    release(*m_manager, position, &CSimpleGUIShape::m_func_left_up);
    return false;
}

bool CMTGUIRun::v_on_rbutton_up(unsigned int, CPoint position) {
    release(*m_manager, position, &CSimpleGUIShape::m_func_right_up);
    return false;
}

bool CMTGUIRun::v_on_mbutton_up(unsigned int, CPoint position) {
    release(*m_manager, position, &CSimpleGUIShape::m_func_middle_up);
    return false;
}

bool CMTGUIRun::v_on_mouse_move(unsigned int, CPoint position) try {
    ShapeWatch entered(light_shapes(*m_manager, position));
    if (entered.get() != s_hover_shape.get()) {
        // The entering script may destroy either shape; what it destroyed runs nothing and is hovered no more. It may
        // also end the run: the shape that was left hears of it all the same, for nothing else will tell it.
        run_if_there(entered.get(), &CSimpleGUIShape::m_func_mouse_in);
        run_if_there(s_hover_shape.get(), &CSimpleGUIShape::m_func_mouse_out);
    }
    s_hover_shape = entered.get();
    return false;
} catch (...) {
    keep_inside(L"a move of the mouse");
    return false;
}
