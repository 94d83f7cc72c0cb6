#pragma once

#include "engine/module_base.h"
#include "engine/rect.h"
#include "engine/text.h"

/// The engine's record of one event.
struct SInputEvent;

class ENGINE_API IInputEventListener {
public:
    IInputEventListener();
    /// True: the event was used, and goes no further down the chain.
    virtual bool OnInputEvent(const SInputEvent& event) = 0;
    virtual ~IInputEventListener();
};

class CInputManager {
public:
    /// Larger priorities are served first. The listener is not owned; null is passed over.
    virtual void add_listener(IInputEventListener* listener, float priority) = 0;
    /// A listener that is not in the chain, or null, is passed over. Safe while an event is being delivered.
    virtual void remove_listener(IInputEventListener* listener) = 0;

protected:
    ~CInputManager() = default;
};

/// A listener that hears events by kind. `flags` are the modifier keys, positions are view pixels; a true result keeps
/// the event from listeners of lower priority and from the engine's own navigation. The base uses no event.
class ENGINE_API CMouseTool : public IInputEventListener {
public:
    CMouseTool(XSystem* system, const wchar_t* name);

    bool OnInputEvent(const SInputEvent& event) override;
    ~CMouseTool() override;
    virtual bool v_on_lbutton_down(unsigned int flags, CPoint position);
    virtual bool v_on_rbutton_down(unsigned int flags, CPoint position);
    virtual bool v_on_mbutton_down(unsigned int flags, CPoint position);
    virtual bool v_on_lbutton_up(unsigned int flags, CPoint position);
    virtual bool v_on_rbutton_up(unsigned int flags, CPoint position);
    virtual bool v_on_mbutton_up(unsigned int flags, CPoint position);
    virtual bool v_on_mouse_move(unsigned int flags, CPoint position);
    virtual bool v_on_mouse_wheel(unsigned int flags, short delta, CPoint position);
    virtual bool v_on_lbutton_dbclick(unsigned int flags, CPoint position);
    virtual bool v_on_rbutton_dbclick(unsigned int flags, CPoint position);
    virtual bool v_on_mbutton_dbclick(unsigned int flags, CPoint position);
    virtual void v_on_lclick(unsigned int flags, CPoint position);
    virtual void v_on_rclick(unsigned int flags, CPoint position);
    virtual void v_on_mclick(unsigned int flags, CPoint position);
    virtual bool v_on_zoom_start();
    virtual bool v_on_zooming(float factor);
    virtual void v_on_frame_move(float seconds);
    virtual void v_on_render_in_3d();
    virtual void v_on_render_in_2d();
    virtual void v_on_selection_changed();
    virtual bool v_on_key_down(unsigned int key, long info);
    virtual bool v_on_key_up(unsigned int key, long info);
    virtual bool v_on_char(unsigned int character, long info);
    virtual void process_message(unsigned long id, message_param p1, message_param p2, message_param p3,
                                 message_param p4, message_param p5, message_param p6);
    virtual void v_on_ctrl_down();
    virtual void v_on_ctrl_up();

    const tstringW& get_tool_name() const { return m_name; }

protected:
    XSystem* m_system;
    tstringW m_name;
};
