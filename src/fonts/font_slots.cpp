// Changing the font of a slot, and the sample that shows the outcome to the author.

#include <algorithm>
#include <cmath>
#include <utility>

#include "fonts/font_info.h"
#include "fonts/logfont.h"
#include "fonts/published_folder.h"
#include "layout/seconds.h"
#include "module/boundary.h"

namespace {

constexpr const wchar_t* sample_text = L"蓝岭科Quorlin";
constexpr float sample_seconds = 2.0f;

// The time of the last change_font, in seconds.
float s_font_change_time = 0.0f;

}  // namespace

bool CGlobalFontInfo::change_font(const LOGFONTW& record, int number, bool loading) try {
    const int slot = number - 1;
    if (slot < 0 || slot >= static_cast<int>(m_gui_fonts.size())) return false;
    IBaseFont*& place = m_gui_fonts[static_cast<std::size_t>(slot)];

    tstringW path;
    IBaseFont* font = font_of_record(record, path);
    // The copy beside the project brings no path: a save then writes no file name for it, or the name of a listed file
    // that was found by name and is gone.
    if (!font && loading) font = create_font_beside_project(record, slot);
    if (font) {
        m_logfont_by_font.emplace(font, record);
        m_fontpath_by_font.emplace(font, path);
        drop_font(place);
        place = font;
    }
    if (!loading) show_sample();
    m_last_font = place;
    s_font_change_time = present_seconds();
    return font != nullptr;
} catch (...) {
    keep_inside(L"change_font");
    return false;
}

IBaseFont* CGlobalFontInfo::create_font_beside_project(const LOGFONTW& record, int slot) {
    const tstringW& file = m_font_file_names[slot];
    const std::wstring project_folder = filefun::get_file_path(m_system->project_file_path.c_str());
    IBaseFont* font = font_of_file(project_folder + file, font_size(record));
    return font ? font : font_of_file(published_folder(m_system->project_file_path) + file, font_size(record));
}

void CGlobalFontInfo::drop_font(IBaseFont* font) {
    if (font == m_system->default_font) return;
    m_logfont_by_font.erase(font);
    m_fontpath_by_font.erase(font);
    const auto made = std::find(m_created_fonts.begin(), m_created_fonts.end(), font);
    if (made == m_created_fonts.end()) return;
    m_created_fonts.erase(made);
    delete font;
}

void CGlobalFontInfo::empty_slots() {
    for (IBaseFont*& place : m_gui_fonts) drop_font(std::exchange(place, m_system->default_font));
    lower_view_flag();
}

void CGlobalFontInfo::show_sample() {
    m_show_font_sample = true;
    if (m_system->m_sample_view_flag) return;
    m_system->m_sample_view_flag = true;
    m_raised_view_flag = true;
}

void CGlobalFontInfo::lower_view_flag() {
    if (!m_raised_view_flag) return;
    m_system->m_sample_view_flag = false;
    m_raised_view_flag = false;
}

void CGlobalFontInfo::debug_draw_font() try {
    if (std::fabs(present_seconds() - s_font_change_time) >= sample_seconds) {
        m_show_font_sample = false;
        lower_view_flag();
        return;
    }
    if (!m_last_font) return;
    const CRect& client = m_system->get_client_rect();
    const wchar_t* text = m_font_status.empty() ? sample_text : m_font_status.c_str();
    m_last_font->render_text_in_screen(client.Width() / 2, client.Height() / 2, {1.0f, 1.0f, 1.0f, 1.0f}, text,
                                       FONT_CENTER_MIDDLE);
} catch (...) {
    keep_inside(L"debug_draw_font");
}
