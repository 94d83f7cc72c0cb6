#pragma once

// What the module asks of the operating system. On Windows the system's own calls answer; elsewhere a table of
// functions that the host hands in, so that the module depends on no library for them.

#include <filesystem>
#include <string>
#include <vector>

#include "engine/rect.h"
#include "platform_types.h"

/// A font as the system lists it: "Name (Kind)" and a file, which lies in the fonts folder unless it holds a '\\'.
struct listed_font {
    std::wstring name;
    std::wstring file;
};
struct font_list {
    std::vector<listed_font> fonts;
    /// Without a separator at its end.
    std::wstring folder;
};

/// Every entry is set. The engine system library defines the table.
struct platform_functions {
    /// Shows the hand cursor until someone sets another one.
    void (*set_hand_cursor)();
    /// Where the cursor is on the screen, in pixels.
    CPoint (*cursor_position)();
    /// Fills an empty list; false where the fonts can't be listed.
    bool (*list_fonts)(font_list& list);
    /// Text in code page 950; what has no character there becomes '?'.
    std::wstring (*wide_from_big5)(const std::string& text);
    /// A text for the author, to be seen before work goes on.
    void (*show_message)(const std::wstring& text);
    /// The whole file, over one that is there already. False where a file can't be opened, read or written.
    bool (*copy_file)(const std::wstring& from, const std::wstring& to);
};

/// Valid until the program ends.
ENGINE_API const platform_functions& get_platform_functions();

namespace platform {

void set_hand_cursor();
CPoint cursor_position();
bool list_fonts(font_list& list);
std::wstring wide_from_big5(const std::string& text);
void show_message(const std::wstring& text);
bool copy_file(const std::wstring& from, const std::wstring& to);

/// A path as the system takes it.
using NativePath = std::filesystem::path::string_type;
/// '\\' separates everywhere.
NativePath file_path(const std::wstring& path);

}  // namespace platform
