// The system's own answers.

#include "platform/platform.h"

#include <algorithm>
#include <exception>
#include <fstream>
#include <iterator>

namespace platform {

namespace {

// The most that the registry holds of a name, with its end.
constexpr DWORD name_room = 16383;
constexpr wchar_t fonts_key[] = L"SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion\\Fonts";
constexpr wchar_t folders_key[] = L"Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\Shell Folders";
constexpr UINT traditional_chinese = 950;

/// An open key of the registry; false where it can't be opened.
class Key {
public:
    Key(HKEY root, const wchar_t* path) {
        if (RegOpenKeyExW(root, path, 0, KEY_READ, &m_key) != ERROR_SUCCESS) m_key = nullptr;
    }
    ~Key() {
        if (m_key) RegCloseKey(m_key);
    }
    Key(const Key&) = delete;
    Key& operator=(const Key&) = delete;

    explicit operator bool() const { return m_key != nullptr; }

    bool count_values(DWORD& count) const {
        return RegQueryInfoKeyW(m_key, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, &count, nullptr, nullptr,
                                nullptr, nullptr) == ERROR_SUCCESS;
    }
    bool name_of_value(DWORD index, std::wstring& name) const {
        name.resize(name_room);
        DWORD length = name_room;
        if (RegEnumValueW(m_key, index, name.data(), &length, nullptr, nullptr, nullptr, nullptr) != ERROR_SUCCESS)
            return false;
        name.resize(length);
        return true;
    }
    // A text in the registry need not end with a zero, and may go on behind one.
    bool text_of_value(const wchar_t* name, std::wstring& text) const {
        DWORD bytes = 0;
        if (RegQueryValueExW(m_key, name, nullptr, nullptr, nullptr, &bytes) != ERROR_SUCCESS) return false;
        text.assign(bytes / sizeof(wchar_t) + 1, L'\0');
        bytes = static_cast<DWORD>(text.size() * sizeof(wchar_t));
        if (RegQueryValueExW(m_key, name, nullptr, nullptr, reinterpret_cast<BYTE*>(text.data()), &bytes) !=
            ERROR_SUCCESS)
            return false;
        text.resize(bytes / sizeof(wchar_t));
        text.resize(std::min(text.find(L'\0'), text.size()));
        return true;
    }

private:
    HKEY m_key = nullptr;
};

bool list_registered(std::vector<listed_font>& fonts) {
    const Key key(HKEY_LOCAL_MACHINE, fonts_key);
    DWORD count = 0;
    if (!key || !key.count_values(count)) return false;
    for (DWORD index = 0; index < count; ++index) {
        listed_font& font = fonts.emplace_back();
        if (!key.name_of_value(index, font.name) || !key.text_of_value(font.name.c_str(), font.file)) return false;
    }
    return true;
}

}  // namespace

// The system's hand by its number, whose name is of a text type that the build may not have chosen.
void set_hand_cursor() { SetCursor(LoadCursorW(nullptr, MAKEINTRESOURCEW(32649))); }

CPoint cursor_position() {
    CPoint position;
    GetCursorPos(&position);
    return position;
}

bool list_fonts(font_list& list) {
    if (!list_registered(list.fonts)) return false;
    const Key folders(HKEY_CURRENT_USER, folders_key);
    return folders && folders.text_of_value(L"Fonts", list.folder);
}

std::wstring wide_from_big5(const std::string& text) {
    const auto convert = [&text](wchar_t* target, int room) {
        return MultiByteToWideChar(traditional_chinese, MB_PRECOMPOSED, text.data(), static_cast<int>(text.size()),
                                   target, room);
    };
    std::wstring wide(static_cast<std::size_t>(text.empty() ? 0 : convert(nullptr, 0)), L'\0');
    if (!wide.empty()) convert(wide.data(), static_cast<int>(wide.size()));
    return wide;
}

void show_message(const std::wstring& text) { MessageBoxW(nullptr, text.c_str(), L"", MB_OK | MB_TASKMODAL); }

// Read as a whole ahead of the first byte written: a file that is its own copy is not emptied.
bool copy_file(const std::wstring& from, const std::wstring& to) try {
    std::ifstream source(std::filesystem::path(file_path(from)), std::ios::binary);
    if (!source) return false;
    const std::string bytes{std::istreambuf_iterator<char>(source), {}};
    std::ofstream target(std::filesystem::path(file_path(to)), std::ios::binary | std::ios::trunc);
    target.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    target.close();
    return !source.bad() && !target.fail();
} catch (const std::exception&) {
    return false;  // there is no memory for so large a file
}

}  // namespace platform
