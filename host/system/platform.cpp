#include "host/system/platform.h"

#include <SDL.h>

#include <cstdint>
#include <cstdio>
#include <exception>
#include <filesystem>

#include "engine/services.h"
#include "host/core/big5.h"
#include "host/core/font_files.h"
#include "host/core/native_path.h"
#include "host/core/project_disk.h"
#include "host/core/text_conversion.h"

namespace host {
namespace {

// SDL keeps showing the cursor until another is set, so the one made first serves for the whole program.
void show_sdl_hand() {
    if (!SDL_WasInit(SDL_INIT_VIDEO)) return;
    static SDL_Cursor* const hand = SDL_CreateSystemCursor(SDL_SYSTEM_CURSOR_HAND);
    if (hand) SDL_SetCursor(hand);
}

CPoint sdl_cursor_position() {
    CPoint position;
    if (SDL_WasInit(SDL_INIT_VIDEO)) SDL_GetGlobalMouseState(&position.x, &position.y);
    return position;
}

// With '\\' ahead of the file's own name: so paths look that lie in a fonts folder, and one that is listed with a
// folder must hold one. A path that would not come back from this form can't be opened by it, so it stays out.
std::wstring listed_path(const std::string& path) {
    std::wstring wide = from_utf8(path);
    const std::size_t separator = wide.rfind(L'/');
    if (path.find('\\') != std::string::npos || separator == std::wstring::npos || to_utf8(wide) != path) return {};
    wide[separator] = L'\\';
    return wide;
}

bool list_system_fonts(font_list& list) {
    std::vector<FontFile> files;
    if (!list_font_files(files)) return false;
    for (const FontFile& file : files) {
        const std::wstring path = listed_path(file.path);
        if (!path.empty()) list.fonts.push_back({from_utf8(file.names + " (" + file.format + ")"), path});
    }
    return true;
}

std::wstring wide_from_code_page_950(const std::string& text) { return wide_from_big5(text); }

void print_message(const std::wstring& text) { std::fprintf(stderr, "%s\n", to_utf8(text).c_str()); }

bool copy_whole_file(const std::wstring& from, const std::wstring& to) try {
    std::error_code code;
    // A pipe would let us wait.
    if (!std::filesystem::is_regular_file(native_path(from), code)) return false;
    std::string bytes, ignored;
    return read_whole_file(native_path(from).string(), SIZE_MAX, bytes, ignored) &&
           replace_file(native_path(to).string(), bytes, OldFile::GONE, ignored);
} catch (const std::exception&) {
    return false;  // there is no memory for so large a file
}

constexpr platform_functions usual_functions{&show_sdl_hand,           &sdl_cursor_position, &list_system_fonts,
                                             &wide_from_code_page_950, &print_message,       &copy_whole_file};

platform_functions& functions_in_use() {
    static platform_functions functions = usual_functions;
    return functions;
}

}  // namespace

void set_platform_functions(const platform_functions& functions) { functions_in_use() = functions; }

const platform_functions& default_platform_functions() { return usual_functions; }

}  // namespace host

const platform_functions& get_platform_functions() { return host::functions_in_use(); }
