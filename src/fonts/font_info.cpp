#include "fonts/font_info.h"

#include <algorithm>

#include "fonts/font_keys.h"
#include "fonts/logfont.h"
#include "module/boundary.h"

namespace {

LOGFONTW default_record(const IBaseFont& font) {
    LOGFONTW record{};
    record.lfHeight = font.get_height();
    record.lfWeight = 400;
    record.lfItalic = font.is_italic() ? 1 : 0;
    record.lfCharSet = 255;
    set_face_name(record, default_font_name);
    return record;
}

}  // namespace

CGlobalFontInfo::CGlobalFontInfo(XSystem* system) : m_system(system) {
    if (!system || !system->default_font) return;
    IBaseFont* font = system->default_font;
    m_gui_fonts.assign(slot_count, font);
    m_default_logfont = default_record(*font);
    m_logfont_by_font[font] = m_default_logfont;
    m_fontpath_by_font[font] = default_font_name;
    generate_fontname_fontpath_map();
}

CGlobalFontInfo::CGlobalFontInfo(const CGlobalFontInfo& other) : m_system(nullptr), m_owns_fonts(false) {
    *this = other;
}

CGlobalFontInfo& CGlobalFontInfo::operator=(const CGlobalFontInfo& other) {
    if (this == &other) return *this;
    if (m_owns_fonts) {
        for (IBaseFont* font : m_created_fonts) delete font;
    }
    lower_view_flag();
    m_owns_fonts = false;
    // The copying may fail anywhere: nothing may name by then what is gone.
    m_gui_fonts.clear();
    m_created_fonts.clear();
    m_last_font = nullptr;
    m_show_font_sample = other.m_show_font_sample;
    m_gui_fonts = other.m_gui_fonts;
    m_system = other.m_system;
    m_logfont_by_font = other.m_logfont_by_font;
    m_fontpath_by_font = other.m_fontpath_by_font;
    m_fontname_fontpath_map = other.m_fontname_fontpath_map;
    m_last_font = other.m_last_font;
    m_font_status = other.m_font_status;
    m_default_logfont = other.m_default_logfont;
    m_created_fonts = other.m_created_fonts;
    std::copy(std::begin(other.m_gui_logfonts_for_loading), std::end(other.m_gui_logfonts_for_loading),
              m_gui_logfonts_for_loading);
    std::copy(std::begin(other.m_font_file_names), std::end(other.m_font_file_names), m_font_file_names);
    return *this;
}

CGlobalFontInfo::~CGlobalFontInfo() {
    lower_view_flag();
    if (!m_owns_fonts) return;
    for (IBaseFont* font : m_created_fonts) delete font;
}

void CGlobalFontInfo::save_to_node(pack_node* node, const save_operation&) try {
    for (int slot = 0; slot < static_cast<int>(m_gui_fonts.size()); ++slot) {
        IBaseFont* font = m_gui_fonts[static_cast<std::size_t>(slot)];
        LOGFONTW& record = m_gui_logfonts_for_loading[slot];
        record = get_logfont_by_font(font);
        const auto path = m_fontpath_by_font.find(font);
        const tstringW file = path == m_fontpath_by_font.end() ? tstringW() : path->second;
        save_logfont(node, slot, record, filefun::get_pure_filename(file.c_str(), true));
    }
} catch (...) {
    keep_inside(L"fonts: save_to_node");
}

void CGlobalFontInfo::on_parse(pack_node* node) try {
    for (int slot = 0; slot < slot_count; ++slot) {
        read_logfont(node, slot, m_gui_logfonts_for_loading[slot], m_font_file_names[slot]);
    }
} catch (...) {
    keep_inside(L"fonts: on_parse");
}

void CGlobalFontInfo::on_ready() {
    for (int slot = 0; slot < static_cast<int>(m_gui_fonts.size()); ++slot) {
        if (!change_font(m_gui_logfonts_for_loading[slot], slot + 1, true)) return;
        m_show_font_sample = false;
    }
}

LOGFONTW CGlobalFontInfo::get_logfont_by_font(IBaseFont* font) const {
    const auto found = m_logfont_by_font.find(font);
    return found == m_logfont_by_font.end() || font == m_system->default_font ? m_default_logfont : found->second;
}

tstringW CGlobalFontInfo::get_fontpath_by_font(IBaseFont* font) const {
    try {
        const auto found = m_fontpath_by_font.find(font);
        const bool is_default = found == m_fontpath_by_font.end() || font == m_system->default_font;
        return is_default ? tstringW(default_font_name) : found->second;
    } catch (...) {
        keep_inside(L"get_fontpath_by_font");
        return {};
    }
}

IBaseFont* CGlobalFontInfo::font_of_slot(int slot) const {
    return slot >= 0 && slot < static_cast<int>(m_gui_fonts.size()) ? m_gui_fonts[static_cast<std::size_t>(slot)]
                                                                    : nullptr;
}
