#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>
#include <climits>

#include "engine/services.h"
#include "host/core/big5.h"
#include "host/core/font_face.h"
#include "host/system/platform.h"

TEST(Big5, IsCodePage950) {
    const std::pair<const char*, const wchar_t*> rows[] = {
        {"\xA7\xBA\xC5\xE9", L"宋體"},
        {"Ming \xA9\xFA\xC5\xE9", L"Ming 明體"},
        {"\xA3\xE1", L"€"},
        {"\xF9\xD6", L"碁"},
        {"", L""},
        {"a\xA4", L"a?"},
        {"\xFF\xA4\xA4", L"?中"},
    };
    for (const auto& [bytes, text] : rows) EXPECT_EQ(host::wide_from_big5(bytes), text) << bytes;
    const std::string many(300, '\xA4');
    EXPECT_EQ(host::wide_from_big5(many), std::wstring(150, L'中')) << "longer than a buffer";
}

// The font that the host itself needs is a collection of two.
TEST(SystemFonts, AreListedByNameAndFile) {
    font_list list;
    ASSERT_TRUE(host::default_platform_functions().list_fonts(list));
    const auto found = std::find_if(list.fonts.begin(), list.fonts.end(),
                                    [](const listed_font& font) { return font.file.ends_with(L"\\wqy-microhei.ttc"); });
    ASSERT_NE(found, list.fonts.end());
    EXPECT_EQ(found->name, L"WenQuanYi Micro Hei & WenQuanYi Micro Hei Mono (TrueType)");
    EXPECT_TRUE(filefun::file_exist(found->file.c_str()));
    for (const listed_font& font : list.fonts) EXPECT_EQ(std::count(font.file.begin(), font.file.end(), L'\\'), 1);
}

// A pipe would let the whole show wait.
TEST(FontFace, IsMadeFromAPlainFileOnly) {
    const std::string pipe = testing::TempDir() + "pipe.ttf";
    std::remove(pipe.c_str());
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    const auto face = IBaseFont::Face::from_file(std::wstring(pipe.begin(), pipe.end()).c_str(), 16);
    EXPECT_EQ(face->font, nullptr);
    std::remove(pipe.c_str());
    EXPECT_EQ(IBaseFont::Face::from_file(L"", 1u + INT_MAX)->asked_height, 1u + INT_MAX);
}
