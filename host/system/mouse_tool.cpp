#include "host/system/input.h"

namespace {

using Kind = host::InputKind;
using PlaceOperation = bool (CMouseTool::*)(unsigned int, CPoint);
using ClickOperation = void (CMouseTool::*)(unsigned int, CPoint);
using KeyOperation = bool (CMouseTool::*)(unsigned int, long);

// Which operation hears which kind of event.
constexpr struct {
    Kind kind;
    PlaceOperation operation;
} place_rows[] = {
    {Kind::LEFT_DOWN, &CMouseTool::v_on_lbutton_down},
    {Kind::RIGHT_DOWN, &CMouseTool::v_on_rbutton_down},
    {Kind::MIDDLE_DOWN, &CMouseTool::v_on_mbutton_down},
    {Kind::LEFT_UP, &CMouseTool::v_on_lbutton_up},
    {Kind::RIGHT_UP, &CMouseTool::v_on_rbutton_up},
    {Kind::MIDDLE_UP, &CMouseTool::v_on_mbutton_up},
    {Kind::MOVE, &CMouseTool::v_on_mouse_move},
    {Kind::LEFT_DOUBLE, &CMouseTool::v_on_lbutton_dbclick},
    {Kind::RIGHT_DOUBLE, &CMouseTool::v_on_rbutton_dbclick},
    {Kind::MIDDLE_DOUBLE, &CMouseTool::v_on_mbutton_dbclick},
};
constexpr struct {
    Kind kind;
    ClickOperation operation;
} click_rows[] = {
    {Kind::LEFT_CLICK, &CMouseTool::v_on_lclick},
    {Kind::RIGHT_CLICK, &CMouseTool::v_on_rclick},
    {Kind::MIDDLE_CLICK, &CMouseTool::v_on_mclick},
};
constexpr struct {
    Kind kind;
    KeyOperation operation;
} key_rows[] = {
    {Kind::KEY_DOWN, &CMouseTool::v_on_key_down},
    {Kind::KEY_UP, &CMouseTool::v_on_key_up},
    {Kind::CHARACTER, &CMouseTool::v_on_char},
};

}  // namespace

CMouseTool::CMouseTool(XSystem* system, const wchar_t* name) : m_system(system), m_name(name ? name : L"") {}
CMouseTool::~CMouseTool() = default;

bool CMouseTool::OnInputEvent(const SInputEvent& event) {
    for (const auto& row : place_rows)
        if (row.kind == event.kind) return (this->*row.operation)(event.flags, event.position);
    for (const auto& row : key_rows)
        if (row.kind == event.kind) return (this->*row.operation)(event.key, event.key_info);
    for (const auto& row : click_rows)
        if (row.kind == event.kind) (this->*row.operation)(event.flags, event.position);
    switch (event.kind) {
        case Kind::WHEEL:
            return v_on_mouse_wheel(event.flags, event.wheel, event.position);
        case Kind::ZOOM_START:
            return v_on_zoom_start();
        case Kind::ZOOMING:
            return v_on_zooming(event.zoom_factor);
        case Kind::CTRL_DOWN:
            v_on_ctrl_down();
            return false;
        case Kind::CTRL_UP:
            v_on_ctrl_up();
            return false;
        default:
            return false;
    }
}

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
