// The questions to the system, answered by Windows itself.

#include <filesystem>
#include <fstream>

#include "fonts/font_info.h"
#include "module/setting.h"
#include "support/font_bytes.h"
#include "support/gui_test.h"

namespace {

namespace fs = std::filesystem;

constexpr wchar_t fonts_key[] = L"SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion\\Fonts";

/// A font that the machine lists as long as the test runs. `bytes` of the text are stored.
class Registered {
public:
    Registered(const wchar_t* name, const std::wstring& file, std::size_t bytes) : m_name(name) {
        RegCreateKeyExW(HKEY_LOCAL_MACHINE, fonts_key, 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &m_key, nullptr);
        RegSetValueExW(m_key, name, 0, REG_SZ, reinterpret_cast<const BYTE*>(file.c_str()), static_cast<DWORD>(bytes));
    }
    ~Registered() {
        RegDeleteValueW(m_key, m_name);
        RegCloseKey(m_key);
    }
    Registered(const Registered&) = delete;
    Registered& operator=(const Registered&) = delete;

private:
    const wchar_t* m_name;
    HKEY m_key = nullptr;
};

std::wstring file_of(const font_list& list, const wchar_t* name) {
    for (const listed_font& font : list.fonts)
        if (font.name == name) return font.file;
    return L"not listed";
}

}  // namespace

TEST(Windows, ListsItsRegisteredFonts) {
    const std::wstring file = L"own\\字.ttf";
    const Registered ended(L"Own (TrueType)", file, (file.size() + 1) * sizeof(wchar_t));
    const Registered open_ended(L"Open 宋 (TrueType)", file, file.size() * sizeof(wchar_t));
    const Registered empty(L"Empty", L"", 0);
    font_list list;
    ASSERT_TRUE(platform::list_fonts(list));
    EXPECT_EQ(file_of(list, L"Own (TrueType)"), file);
    EXPECT_EQ(file_of(list, L"Open 宋 (TrueType)"), file) << "a text without its zero";
    EXPECT_EQ(file_of(list, L"Empty"), L"");
    EXPECT_TRUE(fs::is_directory(list.folder)) << "the fonts folder";
}

TEST(Windows, ReadsCodePage950) {
    EXPECT_EQ(platform::wide_from_big5("\xA7\xBA\xC5\xE9"), L"宋體");
    EXPECT_EQ(platform::wide_from_big5("Ming \xF9\xD6"), L"Ming 碁");
    EXPECT_EQ(platform::wide_from_big5(""), L"");
}

// From the registry through a file with a Chinese path to the map, and a copy of that file.
TEST(Windows, KnowsTheNamesOfAListedFile) {
    const fs::path folder = fs::temp_directory_path() / L"字体";
    fs::create_directories(folder);
    const fs::path file = folder / L"宋.ttf";
    std::ofstream(file, std::ios::binary)
        << font_bytes({{3, 0x804, 4, utf16_be(u"宋体\U00020000")}, {1, 19, 4, "\xA7\xBA\xC5\xE9"}});
    const std::wstring path = file.wstring();
    const Registered listed(L"Song (TrueType)", path, (path.size() + 1) * sizeof(wchar_t));
    CGlobalFontInfo table(nullptr);
    ASSERT_TRUE(table.generate_fontname_fontpath_map());
    for (const wchar_t* name : {L"Song", L"宋体\U00020000", L"宋體"})
        EXPECT_EQ(table.search_fontpath(name), path) << fs::path(name).u8string().size();
    const std::wstring copy = (folder / L"copy.ttf").wstring();
    EXPECT_TRUE(platform::copy_file(path, copy));
    EXPECT_EQ(fs::file_size(copy), fs::file_size(file));
    EXPECT_FALSE(platform::copy_file((folder / L"none.ttf").wstring(), copy));
    EXPECT_EQ(fs::file_size(copy), fs::file_size(file)) << "the former copy stays";
    EXPECT_FALSE(platform::copy_file(path, (folder / L"").wstring()));
    fs::remove_all(folder);
}

TEST(Windows, AnswersForTheCursor) {
    platform::set_hand_cursor();
    const CPoint place = platform::cursor_position();
    EXPECT_GE(place.x, 0);
    EXPECT_GE(place.y, 0);
}
