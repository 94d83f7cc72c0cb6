#include "scratch_engine/input.h"

#include <algorithm>

void ScratchInput::add_listener(IInputEventListener* listener, float priority) {
    if (!listener) return;
    const auto place = std::find_if(chain.begin(), chain.end(), [&](const auto& l) { return l.first < priority; });
    chain.insert(place, {priority, listener});
}

void ScratchInput::remove_listener(IInputEventListener* listener) {
    std::erase_if(chain, [&](const auto& entry) { return entry.second == listener; });
}

IInputEventListener::IInputEventListener() = default;
IInputEventListener::~IInputEventListener() = default;

CMouseTool::CMouseTool(XSystem* system, const wchar_t* name) : m_system(system), m_name(name) {}
CMouseTool::~CMouseTool() = default;

bool CMouseTool::OnInputEvent(const SInputEvent&) { return false; }
bool CMouseTool::v_on_lbutton_down(unsigned int, CPoint) { return false; }
bool CMouseTool::v_on_rbutton_down(unsigned int, CPoint) { return false; }
bool CMouseTool::v_on_mbutton_down(unsigned int, CPoint) { return false; }
bool CMouseTool::v_on_lbutton_up(unsigned int, CPoint) { return false; }
bool CMouseTool::v_on_rbutton_up(unsigned int, CPoint) { return false; }
bool CMouseTool::v_on_mbutton_up(unsigned int, CPoint) { return false; }
bool CMouseTool::v_on_mouse_move(unsigned int, CPoint) { return false; }
bool CMouseTool::v_on_mouse_wheel(unsigned int, short, CPoint) { return false; }
bool CMouseTool::v_on_lbutton_dbclick(unsigned int, CPoint) { return false; }
bool CMouseTool::v_on_rbutton_dbclick(unsigned int, CPoint) { return false; }
bool CMouseTool::v_on_mbutton_dbclick(unsigned int, CPoint) { return false; }
void CMouseTool::v_on_lclick(unsigned int, CPoint) {}
void CMouseTool::v_on_rclick(unsigned int, CPoint) {}
void CMouseTool::v_on_mclick(unsigned int, CPoint) {}
bool CMouseTool::v_on_zoom_start() { return false; }
bool CMouseTool::v_on_zooming(float) { return false; }
void CMouseTool::v_on_frame_move(float) {}
void CMouseTool::v_on_render_in_3d() {}
void CMouseTool::v_on_render_in_2d() {}
void CMouseTool::v_on_selection_changed() {}
bool CMouseTool::v_on_key_down(unsigned int, long) { return false; }
bool CMouseTool::v_on_key_up(unsigned int, long) { return false; }
bool CMouseTool::v_on_char(unsigned int, long) { return false; }
void CMouseTool::process_message(unsigned long, message_param, message_param, message_param, message_param,
                                 message_param, message_param) {}
void CMouseTool::v_on_ctrl_down() {}
void CMouseTool::v_on_ctrl_up() {}
