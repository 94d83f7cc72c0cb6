// The names of the machine's fonts, as the module knows them.

#include "fonts/font_candidates.h"
#include "fonts/font_info.h"
#include "fonts/logfont.h"
#include "host/core/native_path.h"
#include "host/core/text_conversion.h"
#include "player/fonts/font_library.h"

namespace {

std::string shown_path(const tstringW& path) {
    const std::u8string bytes = host::native_path(path).u8string();
    return {bytes.begin(), bytes.end()};
}

}  // namespace

bool sgui_font_names(fonts::NameMap& names) {
    CGlobalFontInfo table(nullptr);
    if (!table.generate_fontname_fontpath_map()) return false;
    for (const auto& [name, path] : table.m_fontname_fontpath_map) names.emplace(to_utf8(name), shown_path(path));
    return true;
}

void sgui_font_tries(const player::FontWish& wish, std::vector<fonts::Try>& tries) {
    CGlobalFontInfo table(nullptr);
    table.generate_fontname_fontpath_map();
    LOGFONTW record{};
    record.lfWeight = wish.weight;
    record.lfItalic = wish.italic ? 1 : 0;
    set_face_name(record, wish.face);
    for (const std::wstring& name : font_candidates(record)) {
        const tstringW path = table.search_fontpath(name);
        tries.push_back({to_utf8(name), path.empty() ? std::string() : shown_path(path)});
    }
}
