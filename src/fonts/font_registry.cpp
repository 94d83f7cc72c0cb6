#include "fonts/font_registry.h"

#include <map>

#include "fonts/code_units.h"

tstringW cut_font_name(const std::wstring& listed) {
    const std::size_t parenthesis = listed.find(L'(');
    if (parenthesis == std::wstring::npos || parenthesis == 0) return listed;
    return listed.substr(0, parenthesis - 1);
}

tstringW font_path(const std::wstring& folder, const std::wstring& file) {
    return file.find(L'\\') == std::wstring::npos ? folder + L"\\" + file : file;
}

bool is_collection_path(const std::wstring& path) {
    std::wstring folded = path;
    // No other character than these has such a capital, so the language of the machine plays no part.
    for (wchar_t& c : folded) {
        if (c >= L'a' && c <= L'z') c = static_cast<wchar_t>(c - L'a' + L'A');
    }
    return folded.find(L".TTC") != std::wstring::npos;
}

std::vector<NamedFile> sorted_fonts(const font_list& list) {
    std::map<std::u16string, NamedFile> sorted;
    for (const listed_font& font : list.fonts) {
        const tstringW name = cut_font_name(font.name);
        sorted.emplace(units_from_wide(name), NamedFile{name, font_path(list.folder, font.file)});
    }
    std::vector<NamedFile> fonts;
    fonts.reserve(sorted.size());
    for (auto& [units, font] : sorted) fonts.push_back(std::move(font));
    return fonts;
}
