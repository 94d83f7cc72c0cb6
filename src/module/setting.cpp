#include "module/setting.h"

#include "fonts/font_info.h"
#include "layout/persisted_value.h"
#include "module/boundary.h"

namespace {

constexpr float default_trans_time = 0.5f;
constexpr const char* trans_time_key = "m_ani_trans_time";

}  // namespace

CGlobalGUISetting::CGlobalGUISetting(XSystem* system)
    : m_ani_trans_time(default_trans_time), m_font_info(new CGlobalFontInfo(system)), m_system(system) {
    m_type = ITEM_TYPE_GUI_SETTING;
}

CGlobalGUISetting::CGlobalGUISetting(const CGlobalGUISetting& other)
    : IBaseItem(other),
      m_ani_trans_time(other.m_ani_trans_time),
      m_font_info(other.m_font_info),
      m_system(other.m_system),
      m_owns_font_info(false) {}

CGlobalGUISetting& CGlobalGUISetting::operator=(const CGlobalGUISetting& other) {
    if (this == &other) return *this;
    IBaseItem::operator=(other);
    m_ani_trans_time = other.m_ani_trans_time;
    m_system = other.m_system;
    if (m_font_info != other.m_font_info) replace_font_info(other.m_font_info, false);
    return *this;
}

CGlobalGUISetting::~CGlobalGUISetting() { replace_font_info(nullptr, false); }

void CGlobalGUISetting::replace_font_info(CGlobalFontInfo* font_info, bool owned) {
    if (m_owns_font_info) delete m_font_info;
    m_font_info = font_info;
    m_owns_font_info = owned;
}

void CGlobalGUISetting::save_to_node(pack_node* node, const save_operation& operation) try {
    IBaseItem::save_to_node(node, operation);
    node->add_property(trans_time_key, PAK_FLOAT, &m_ani_trans_time);
    m_font_info->save_to_node(node, operation);
} catch (...) {
    keep_inside(L"setting: save_to_node");
}

void CGlobalGUISetting::on_parse(pack_node* node, const load_operation& operation) try {
    IBaseItem::on_parse(node, operation);
    read_value(node, trans_time_key, PAK_FLOAT, &m_ani_trans_time);
    m_font_info->on_parse(node);
} catch (...) {
    keep_inside(L"setting: on_parse");
}

void CGlobalGUISetting::on_ready() try { m_font_info->on_ready(); } catch (...) {
    keep_inside(L"setting: on_ready");
}

void CGlobalGUISetting::set_default() {
    m_ani_trans_time = default_trans_time;
    try {
        replace_font_info(new CGlobalFontInfo(m_system), true);
    } catch (...) {
        // There has to be a table, so the old one stays; its fonts go.
        if (m_owns_font_info) m_font_info->empty_slots();
        throw;
    }
}
