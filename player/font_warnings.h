#pragma once

#include <string>
#include <vector>

#include "player/stored_slots.h"

namespace player {

/// Listens to the log while a project opens. The module notes there each file that it looked for in vain, also where it
/// then found the font in the next place.
class FontWarnings {
public:
    FontWarnings();
    FontWarnings(const FontWarnings&) = delete;
    FontWarnings& operator=(const FontWarnings&) = delete;
    ~FontWarnings();

    /// One line for each font of the project that was found nowhere, UTF-8. `project` is its path.
    std::vector<std::string> all(const std::wstring& project, const std::vector<StoredSlot>& slots) const;

private:
    std::vector<std::wstring> m_lines;
};

}  // namespace player
