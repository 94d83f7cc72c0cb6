// From a logical font to a font object: candidate names, the name map, the file.

#include <memory>
#include <new>

#include "fonts/font_candidates.h"
#include "fonts/font_info.h"
#include "fonts/logfont.h"
#include "module/boundary.h"

// What gives nothing for want of memory must not look like what is not there: the search would go on to another font.
// So those that serve others let an exception through, and those that are exported end it.

const tstringW* CGlobalFontInfo::find_fontpath(const tstringW& name) {
    const auto found = m_fontname_fontpath_map.find(name);
    const bool is_known = found != m_fontname_fontpath_map.end();
    m_font_status = is_known ? name : tstringW(L"Unable to find font path.");
    return is_known ? &found->second : nullptr;
}

IBaseFont* CGlobalFontInfo::font_of_record(const LOGFONTW& record, tstringW& path) {
    if (!m_system) return nullptr;
    if (face_name(record) == face_name(m_default_logfont)) return m_system->default_font;
    for (const std::wstring& name : font_candidates(record)) {
        const tstringW* found = find_fontpath(name);
        if (!found || found->empty()) continue;
        // The first match decides, also when its file is gone.
        path = *found;
        return font_of_file(path, font_size(record));
    }
    return nullptr;
}

IBaseFont* CGlobalFontInfo::font_of_file(const tstringW& path, unsigned size) {
    if (!m_system) return nullptr;
    if (!filefun::file_exist(path.c_str())) {
        m_font_status = L"Unable to create: " + path;
        zov_simple_log(LOG_FONT, (L"无法加载" + path).c_str(), nullptr);
        return nullptr;
    }
    IBaseFont* font = keep(new IBaseFont(m_system->render_device));
    font->create_font_from_file(path.c_str(), size);
    return font;
}

tstringW CGlobalFontInfo::search_fontpath(tstringW name) try {
    const tstringW* found = find_fontpath(name);
    return found ? *found : tstringW();
} catch (...) {
    keep_inside(L"search_fontpath");
    return {};
}

IBaseFont* CGlobalFontInfo::create_font_from_logfont(const LOGFONTW& record, tstringW& path) try {
    return font_of_record(record, path);
} catch (...) {
    keep_inside(L"create_font_from_logfont");
    return nullptr;
}

IBaseFont* CGlobalFontInfo::create_font_from_path(tstringW path, unsigned size) try {
    return font_of_file(path, size);
} catch (...) {
    keep_inside(L"create_font_from_path");
    return nullptr;
}

IBaseFont* CGlobalFontInfo::create_font_from_mem(void* memory, int length, int height) try {
    if (!m_system || length < 0) return nullptr;
    IBaseFont* font = keep(new (std::nothrow) IBaseFont(m_system->render_device));
    if (!font) return nullptr;
    font->create_font_from_memory(memory, static_cast<unsigned>(length),
                                  static_cast<unsigned>(height < 0 ? 0 : height));
    return font;
} catch (...) {
    keep_inside(L"create_font_from_mem");
    return nullptr;
}

IBaseFont* CGlobalFontInfo::keep(IBaseFont* font) {
    std::unique_ptr<IBaseFont> held(font);
    if (font) m_created_fonts.push_back(font);
    return held.release();
}
