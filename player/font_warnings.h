#pragma once

#include <string>
#include <vector>

namespace player {

/// Listens to the log while a project opens. The module notes there each file that it looked for in vain, also where it
/// then found the font in the next place.
class FontWarnings {
public:
    FontWarnings();
    FontWarnings(const FontWarnings&) = delete;
    FontWarnings& operator=(const FontWarnings&) = delete;
    ~FontWarnings();

    /// One line for each font that was found nowhere, UTF-8.
    std::vector<std::string> all() const;

private:
    std::vector<std::wstring> m_lines;
};

}  // namespace player
