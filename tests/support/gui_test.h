#pragma once

#include <gtest/gtest.h>

#include "scratch_engine/engine.h"

inline void PrintTo(const CRect& r, std::ostream* out) {
    *out << "(" << r.left << ", " << r.top << ", " << r.right << ", " << r.bottom << ")";
}

/// A module in a view of 800 x 600, and elements in one line each.
class GuiTest : public testing::Test {
protected:
    CSimpleGUIDialog* dialog(const CRect& rect) {
        CSimpleGUIDialog* made = gui.create_dialog();
        made->set_rect(rect, false);
        return made;
    }
    CSimpleGUIShape* shape(CSimpleGUIDialog* parent, const CRect& rect) {
        CSimpleGUIShape* made = gui.create_shape(parent);
        made->set_rect(rect);
        return made;
    }

    ScratchEngine engine;
    CSimpleGUIManager& gui = engine.gui();
    save_operation save;
    load_operation load;
};
