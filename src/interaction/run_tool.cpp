#include "interaction/run_tool.h"

#include "interaction/hover.h"
#include "interaction/shape_bands.h"
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

// What is known of the shapes between two events. A walk may be under way when its run ends, so this is no part of the
// tool.
ShapeBands s_bands;

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

/// A shape that the mouse meets.
struct Met {
    CSimpleGUIShape& shape;
    /// The pointer is over it.
    bool inside;
    const ItemList<CSimpleGUIShape>& shapes;
    std::size_t place;

    void set_mode(int mode) const {
        s_bands.follow(shapes, place, shape, [&] { shape.set_texture_mode(mode); });
    }
};

// Whether the run still goes on.
template <class Visit>
bool walk_on(ItemList<CSimpleGUIShape>& shapes, CPoint position, ModeSet quiet, Visit visit) {
    const unsigned run = run_count;
    using Walk = ItemList<CSimpleGUIShape>::Walk;
    Walk walk(shapes, Walk::BACK_TO_FRONT);
    CSimpleGUIShape* shape = nullptr;
    while (run == run_count) {
        if (s_bands.are_true_of(shapes)) {
            walk.go_on_ahead_of(s_bands.end_of_last(walk.place(), position, quiet));
        } else if (const CSimpleGUIShape* ahead = walk.ahead(fetch_distance)) {
            fetch(&ahead->m_rect);
            fetch(&ahead->m_texture_mode);
        }
        if (!walk.next(shape)) break;
        if (!shape) continue;
        const bool inside = contains(shape->get_rect(), position);
        if (!inside && quiet.has(shape->m_texture_mode)) continue;
        if (takes_part(*shape) && !visit(Met{*shape, inside, shapes, walk.place()})) break;
    }
    return run == run_count;
}

// Visits the shapes that the mouse can meet, the one made last first, each tested when the walk arrives at it. Those
// that are not under the pointer and in one of the quiet modes would be visited for nothing, and telling them is
// cheaper than asking whether they take part. Ends early when `visit` gives false or a script has ended the run.
template <class Visit>
void walk_shapes(CSimpleGUIManager& manager, CPoint position, ModeSet quiet, Visit visit) {
    s_bands.approach(manager.m_shapes, manager.m_view_rect);
    if (walk_on(manager.m_shapes, position, quiet, visit)) s_bands.leave(manager.m_shapes);
}

// A press sinks through shapes without a script, leaving each of them pressed, down to the first that has one.
bool press(CSimpleGUIManager& manager, CPoint position, ScriptMember script) try {
    bool ran = false;
    walk_shapes(manager, position, ModeSet(MODE_NORMAL, MODE_HOVER, MODE_DOWN), [&](const Met& met) {
        if (!met.inside) return true;
        met.set_mode(MODE_DOWN);
        if (!met.shape.m_is_usable || !(met.shape.*script)) return true;
        ran = true;
        run_script(met.shape.*script);
        return false;
    });
    return ran;
} catch (...) {
    keep_inside(L"a press of the mouse");
    return false;
}

// A release ends the pressed look everywhere and runs the scripts of all shapes under the pointer.
void release(CSimpleGUIManager& manager, CPoint position, ScriptMember script) try {
    walk_shapes(manager, position, ModeSet(MODE_NORMAL), [&](const Met& met) {
        met.set_mode(met.inside ? MODE_HOVER : MODE_NORMAL);
        if (met.inside && met.shape.m_is_usable && met.shape.*script) run_script(met.shape.*script);
        return true;
    });
} catch (...) {
    keep_inside(L"a release of the mouse");
}

// Lights what lies under the pointer and gives the shape that counts as hovered: of those that can answer, the one
// nearest to the front of the list.
CSimpleGUIShape* light_shapes(CSimpleGUIManager& manager, CPoint position) {
    CSimpleGUIShape* hover = nullptr;
    walk_shapes(manager, position, ModeSet(MODE_NORMAL, MODE_DOWN), [&](const Met& met) {
        if (!met.inside) {
            met.set_mode(MODE_NORMAL);
            return true;
        }
        if (met.shape.m_texture_mode == MODE_NORMAL) met.set_mode(MODE_HOVER);
        if (met.shape.m_is_usable && has_any_script(met.shape)) {
            hover = &met.shape;
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
    s_bands.forget();
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
