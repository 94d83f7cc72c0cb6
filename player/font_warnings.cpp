#include "player/font_warnings.h"

#include "engine/services.h"
#include "host/core/log.h"
#include "host/core/text_conversion.h"

namespace player {

namespace {

// How a line about a missing file begins; its path follows.
constexpr std::wstring_view missing = L"无法加载";
// The published folder, where the module looks last.
constexpr std::wstring_view last_place = L"_textures/";

bool is_last_place(const std::wstring& path) {
    return std::wstring_view(filefun::get_file_path(path.c_str())).ends_with(last_place);
}

}  // namespace

FontWarnings::FontWarnings() {
    host::set_log_sink([this](int, const std::wstring& line) { m_lines.push_back(line); });
}

FontWarnings::~FontWarnings() { host::set_log_sink({}); }

std::vector<std::string> FontWarnings::all() const {
    std::vector<std::string> warnings;
    for (const std::wstring& line : m_lines) {
        if (!line.starts_with(missing)) {
            warnings.push_back(to_utf8(line));
            continue;
        }
        const std::wstring path = line.substr(missing.size());
        if (!is_last_place(path)) continue;
        const std::wstring file = filefun::get_pure_filename(path.c_str(), true);
        warnings.push_back("the font file \"" + to_utf8(file) +
                           "\" is not beside the project, nor is its font installed: its slot and all behind it show "
                           "the default font (sgui inspect tells more)");
    }
    return warnings;
}

}  // namespace player
