#pragma once

#include <string>

namespace host {
class Device;
class Engine;
}  // namespace host

namespace player {

/// One line at the lower edge of the view that goes again by itself: what a script says, or why one failed.
class Notice {
public:
    enum Kind { MESSAGE, TROUBLE };

    /// UTF-8. Takes the place of the line that shows.
    void show(const std::string& text, Kind kind);
    void draw(host::Engine& engine, host::Device& device, int width, int height);

private:
    std::wstring m_text;
    Kind m_kind = MESSAGE;
    double m_since = 0.0;
};

}  // namespace player
