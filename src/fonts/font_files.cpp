// What the table learns from the machine's fonts, and what it leaves beside a project.

#include "fonts/file_names.h"
#include "fonts/font_info.h"
#include "fonts/font_registry.h"
#include "fonts/logfont.h"
#include "fonts/published_folder.h"
#include "module/boundary.h"

namespace {

void add_names(std::map<tstringW, tstringW>& names, const tstringW& path, FontFileKind kind) try {
    for (const tstringW& name : names_of_file(path, kind)) names.try_emplace(name, path);
} catch (...) {
    keep_inside(L"a scan of a font file");
}

}  // namespace

bool CGlobalFontInfo::generate_fontname_fontpath_map() try {
    font_list list;
    if (!platform::list_fonts(list)) return false;
    // The listed name of a font goes ahead of those that its file declares, and behind those of earlier files. Put in
    // at the end, which asks for no memory: all of a scan counts or nothing.
    std::map<tstringW, tstringW> names;
    for (const NamedFile& font : sorted_fonts(list)) {
        names.try_emplace(font.name, font.path);
        add_names(names, font.path, FontFileKind::SINGLE);
        if (is_collection_path(font.path)) add_names(names, font.path, FontFileKind::COLLECTION);
    }
    m_fontname_fontpath_map.merge(names);
    return true;
} catch (...) {
    keep_inside(L"generate_fontname_fontpath_map");
    return false;
}

void CGlobalFontInfo::scan_TTF_OTF_file_for_name(tstringW path) {
    add_names(m_fontname_fontpath_map, path, FontFileKind::SINGLE);
}

void CGlobalFontInfo::scan_TTC_file_for_name(tstringW path) {
    add_names(m_fontname_fontpath_map, path, FontFileKind::COLLECTION);
}

void CGlobalFontInfo::copy_all_fontfile_to_texture_folder() try {
    if (!m_system) return;
    const std::wstring folder = published_folder(m_system->project_file_path);
    for (IBaseFont* font : m_gui_fonts) {
        const auto path = m_fontpath_by_font.find(font);
        if (!font || path == m_fontpath_by_font.end()) continue;
        const std::wstring file = filefun::get_pure_filename(path->second.c_str(), true);
        // The folder is made for the default font too, whose file is nobody's.
        filefun::create_path(folder.c_str());
        if (file == default_font_name) continue;
        if (!platform::copy_file(path->second, folder + file)) {
            zov_simple_log(LOG_FONT, L"Font file open failed.", nullptr);
        }
    }
    platform::show_message(L"复制完成");
} catch (...) {
    keep_inside(L"copy_all_fontfile_to_texture_folder");
}
