// The answers of a host's table, for systems that are not asked directly and for tests of what follows from an answer.

#include "platform/platform.h"

namespace platform {

void set_hand_cursor() { get_platform_functions().set_hand_cursor(); }

CPoint cursor_position() { return get_platform_functions().cursor_position(); }

bool list_fonts(font_list& list) { return get_platform_functions().list_fonts(list); }

std::wstring wide_from_big5(const std::string& text) { return get_platform_functions().wide_from_big5(text); }

void show_message(const std::wstring& text) { get_platform_functions().show_message(text); }

bool copy_file(const std::wstring& from, const std::wstring& to) {
    return get_platform_functions().copy_file(from, to);
}

}  // namespace platform
