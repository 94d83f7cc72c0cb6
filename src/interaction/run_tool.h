#pragma once

// The mouse of a running project: which shapes look hovered or pressed, the hand cursor, and the scripts of mouse
// events. Knows shapes, not dialogs, and no drag, focus or keyboard. Includes the contract; its body the manager.

#include "engine/engine_system.h"

class CSimpleGUIManager;
class CSimpleGUIShape;

using ScriptMember = CMyComPtr<IScriptFunction> CSimpleGUIShape::*;

/// A script may do anything, also end the run and with it this tool, so nothing of the tool is touched once a script
/// has run unless the run is known to go on.
class CMTGUIRun : public CMouseTool {
public:
    /// Neither is owned.
    CMTGUIRun(XSystem* system, CSimpleGUIManager* manager);
    /// Leaves no shape pressed or lit.
    ~CMTGUIRun() override;
    /// Whether it walks the shapes of that manager.
    bool belongs_to(const CSimpleGUIManager* manager) const { return m_manager == manager; }

    /// A press gives true when it ran a script: only then it stays away from the 3D view.
    bool v_on_lbutton_down(unsigned int flags, CPoint position) override;
    bool v_on_rbutton_down(unsigned int flags, CPoint position) override;
    bool v_on_mbutton_down(unsigned int flags, CPoint position) override;
    bool v_on_lbutton_up(unsigned int flags, CPoint position) override;
    bool v_on_rbutton_up(unsigned int flags, CPoint position) override;
    bool v_on_mbutton_up(unsigned int flags, CPoint position) override;
    bool v_on_mouse_move(unsigned int flags, CPoint position) override;

private:
    CSimpleGUIManager* m_manager;
};
