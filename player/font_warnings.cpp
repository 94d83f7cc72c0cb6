#include "player/font_warnings.h"

#include <algorithm>

#include "engine/services.h"
#include "host/core/log.h"
#include "host/core/text_conversion.h"

namespace player {

namespace {

// How a line about a missing file begins; its path follows.
constexpr std::wstring_view missing = L"无法加载";

/// Where the module looks last for a font of the project.
std::wstring last_place(const std::wstring& project, const StoredSlot& slot) {
    return filefun::get_file_path(project.c_str()) + filefun::get_pure_filename(project.c_str(), false) +
           L"_textures/" + slot.file;
}

}  // namespace

FontWarnings::FontWarnings() {
    host::set_log_sink([this](int, std::wstring_view line) { m_lines.emplace_back(line); });
}

FontWarnings::~FontWarnings() { host::set_log_sink({}); }

std::vector<std::string> FontWarnings::all(const std::wstring& project, const std::vector<StoredSlot>& slots) const {
    std::vector<std::string> warnings;
    for (const std::wstring& line : m_lines) {
        if (!line.starts_with(missing)) {
            warnings.push_back(to_utf8(line));
            continue;
        }
        const std::wstring path = line.substr(missing.size());
        const auto slot = std::find_if(slots.begin(), slots.end(), [&](const StoredSlot& stored) {
            return !stored.is_default() && path == last_place(project, stored);
        });
        if (slot == slots.end()) continue;
        warnings.push_back("the font \"" + to_utf8(slot->wish.face) + "\" (\"" + to_utf8(slot->file) +
                           "\") is neither beside the project nor installed: its slot and all behind it show the "
                           "default font (sgui inspect tells more)");
    }
    return warnings;
}

}  // namespace player
