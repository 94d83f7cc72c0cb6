#pragma once

#include "engine/rect.h"
#include "engine/text.h"

class CAnimManager;
class CInputManager;
class CMessageManager;
class CResourceManager;
class CSceneManager;
class CScriptManager;
class CSelectionManager;
class IBaseDevice;
class IBaseFont;
class renderfun;

/// The root of the engine. The pointers are valid from init_3d_environment on, and the engine owns what they name.
class XSystem {
public:
    /// The 3D view in the host window, in its pixels. Only width and height count; both may be 0.
    virtual const CRect& get_client_rect() const = 0;
    /// Asks for a new frame soon.
    virtual void request_view_update() = 0;

    CResourceManager* m_resource_manager = nullptr;
    CInputManager* m_input_manager = nullptr;
    CSceneManager* m_scene_manager = nullptr;
    CMessageManager* m_message_manager = nullptr;
    CSelectionManager* m_selection_manager = nullptr;
    CScriptManager* m_script_manager = nullptr;
    /// Null in an engine without animations.
    CAnimManager* m_anim_manager = nullptr;
    /// The engine's state word; see SYSTEM_STATE_FOUR.
    int m_system_state = 0;
    /// The engine's resource directory.
    tstringW resource_directory;
    /// Path of the open project file; empty if it has none.
    tstringW project_file_path;
    IBaseDevice* render_device = nullptr;
    renderfun* m_renderfun = nullptr;
    /// Null in an engine without fonts.
    IBaseFont* default_font = nullptr;
    /// Raised while the font sample shows.
    bool m_sample_view_flag = false;
    /// Not 0: the GUI is drawn plain, with no editing look.
    int m_formal_view = 0;

protected:
    ~XSystem() = default;
};
