#include "fonts/code_units.h"
#include "fonts/font_info.h"
#include "fonts/font_keys.h"
#include "fonts/logfont.h"
#include "module/setting.h"
#include "support/allocations.h"
#include "support/gui_test.h"

namespace {

const std::string prefix = "m_gui_logfonts_for_loading";

std::vector<std::string> expected_keys() {
    std::vector<std::string> keys;
    for (int slot = 0; slot < 8; ++slot) {
        for (const char* suffix :
             {"lfHeight", "lfWidth", "lfEscapement", "lfOrientation", "lfWeight", "lfItalic", "lfUnderline",
              "lfStrikeOut", "lfCharSet", "lfOutPrecision", "lfClipPrecision", "lfQuality", "lfPitchAndFamily_fix"}) {
            keys.push_back("int " + prefix + std::to_string(slot) + suffix);
        }
        keys.push_back("text " + prefix + std::to_string(slot) + "lfFaceName");
        keys.push_back("text " + prefix + std::to_string(slot) + "FontFileName");
    }
    return keys;
}

LOGFONTW numbered_record() {
    LOGFONTW record{-24, 1, 2, 3, 700, 0x11, 0x22, 0x33, 0x44, 0x55, 0x66, 0x77, 0x88, {}};
    set_face_name(record,
                  L"A\x4E2D"
                  L"b");
    return record;
}

}  // namespace

TEST_F(GuiTest, AProjectThatNeverChangedAFontSavesTheDefaultInAllSlots) {
    MemoryNode node;
    gui.m_setting->m_font_info->save_to_node(&node, save);
    EXPECT_EQ(node.written(), expected_keys());
    const std::string slot = prefix + "7";
    EXPECT_EQ(node.value<int>((slot + "lfHeight").c_str(), PAK_INT), 16);
    EXPECT_EQ(node.value<int>((slot + "lfWeight").c_str(), PAK_INT), 400);
    EXPECT_EQ(node.value<int>((slot + "lfCharSet").c_str(), PAK_INT), 255);
    EXPECT_EQ(node.find(slot + "lfFaceName", MemoryNode::TEXT)->text, L"Default");
    EXPECT_EQ(node.find(slot + "FontFileName", MemoryNode::TEXT)->text, L"Default");
    node.asked.clear();
    gui.m_setting->m_font_info->on_parse(&node);
    EXPECT_EQ(node.asked, expected_keys());
    gui.m_setting->on_ready();
    for (int at = 0; at < 8; ++at) EXPECT_EQ(gui.m_setting->m_font_info->font_of_slot(at), engine.default_font);
    EXPECT_TRUE(registry().log.empty());
}

TEST(FontKeys, AByteFieldBringsItsThreeNeighbours) {
    MemoryNode node;
    save_logfont(&node, 3, numbered_record(), L"f.ttf");
    const std::pair<const char*, std::uint32_t> words[] = {
        {"lfHeight", 0xFFFFFFE8},        {"lfItalic", 0x44332211},  {"lfUnderline", 0x55443322},
        {"lfStrikeOut", 0x66554433},     {"lfCharSet", 0x77665544}, {"lfOutPrecision", 0x88776655},
        {"lfClipPrecision", 0x41887766}, {"lfQuality", 0x00418877}, {"lfPitchAndFamily_fix", 0x2D004188},
    };
    for (const auto& [suffix, word] : words) {
        EXPECT_EQ(node.value<std::uint32_t>((prefix + "3" + suffix).c_str(), PAK_INT), word) << suffix;
    }
}

TEST(FontKeys, MissingKeysLeaveWhatTheWordAheadBrought) {
    MemoryNode node;
    save_logfont(&node, 0, numbered_record(), L"f.ttf");
    int word = 0x00AABB11;
    node.erase(prefix + "0lfItalic");
    node.add_property((prefix + "0lfItalic").c_str(), PAK_INT, &word);
    for (const char* suffix : {"lfUnderline", "lfWeight", "lfFaceName", "FontFileName"})
        node.erase(prefix + "0" + suffix);
    LOGFONTW record{};
    record.lfWeight = 123;
    set_face_name(record, L"old");
    tstringW file = L"old.ttf";
    read_logfont(&node, 0, record, file);
    EXPECT_EQ(record.lfItalic, 0x11);
    EXPECT_EQ(record.lfUnderline, 0xBB);
    EXPECT_EQ(record.lfStrikeOut, 0x33);
    EXPECT_EQ(record.lfPitchAndFamily, 0x88);
    EXPECT_EQ(record.lfWeight, 123);
    EXPECT_EQ(face_name(record), L"");
    EXPECT_EQ(file, L"old.ttf");
    EXPECT_EQ(record.lfFaceName[1], u'\0') << "nothing of the last word stays behind";
}

TEST(FontKeys, AnOverlongFaceNameIsCutInsideItsField) {
    LOGFONTW record{};
    set_face_name(record, std::wstring(200, L'字'));
    EXPECT_EQ(face_name(record), std::wstring(31, L'字'));
    set_face_name(record, std::wstring(30, L'x') + L"\U0001F600");
    EXPECT_EQ(face_name(record), std::wstring(30, L'x')) << "no half of a pair";
    for (auto& unit : record.lfFaceName) unit = u'y';
    EXPECT_EQ(face_name(record), std::wstring(32, L'y')) << "a field without its zero";
}

TEST(CodeUnits, GoBothWaysBeyondSixteenBits) {
    const std::wstring text = L"a字\U0001F600\U0010FFFF";
    EXPECT_EQ(units_from_wide(text), u"a字\U0001F600\U0010FFFF");
    EXPECT_EQ(wide_from_units(units_from_wide(text)), text);
    const char16_t halves[] = {0xDC00, 0xD800, u'x', 0xD800};
    EXPECT_EQ(wide_from_units({halves, 4}).size(), 4);
}

TEST_F(GuiTest, TheFirstSlotThatCantBeMadeEndsTheLoading) {
    engine.project_file_path = L"/p/show.project";
    registry().files = {L"/p/one.ttf", L"/p/show_textures/two.ttf", L"/p/four.ttf"};
    CGlobalFontInfo& fonts = *gui.m_setting->m_font_info;
    const wchar_t* files[] = {L"one.ttf", L"two.ttf", L"three.ttf", L"four.ttf"};
    MemoryNode node;
    LOGFONTW record{};
    record.lfHeight = -30;
    for (int slot = 0; slot < 4; ++slot) {
        set_face_name(record, files[slot]);
        save_logfont(&node, slot, record, files[slot]);
    }
    fonts.on_parse(&node);
    EXPECT_EQ(fonts.font_of_slot(0), engine.default_font) << "reading makes no font";
    fonts.on_ready();
    EXPECT_EQ(fonts.font_of_slot(0)->get_height(), 30);
    EXPECT_NE(fonts.font_of_slot(1), engine.default_font);
    EXPECT_EQ(fonts.font_of_slot(2), engine.default_font);
    EXPECT_EQ(fonts.font_of_slot(3), engine.default_font);
    EXPECT_EQ(registry().log, (std::vector<std::wstring>{L"无法加载/p/two.ttf", L"无法加载/p/three.ttf",
                                                         L"无法加载/p/show_textures/three.ttf"}));
    MemoryNode again;
    fonts.save_to_node(&again, save);
    EXPECT_EQ(again.find(prefix + "0lfFaceName", MemoryNode::TEXT)->text, L"one.ttf");
    EXPECT_EQ(again.find(prefix + "0FontFileName", MemoryNode::TEXT)->text, L"");
    EXPECT_EQ(again.find(prefix + "2lfFaceName", MemoryNode::TEXT)->text, L"Default");
    EXPECT_FALSE(fonts.m_show_font_sample);
}

TEST_F(GuiTest, WithoutMemoryAFontIsNoneRatherThanAnother) {
    // A plainer font of the family, and a copy beside the project, would do where there is no better one.
    engine.project_file_path = L"/p/show.project";
    registry().files = {L"/f/plain.ttf", L"/f/bold.ttf", L"/p/bold.ttf"};
    CGlobalFontInfo& fonts = *gui.m_setting->m_font_info;
    fonts.m_fontname_fontpath_map = {{L"A family of some length", L"/f/plain.ttf"},
                                     {L"A family of some length Bold", L"/f/bold.ttf"}};
    fonts.m_font_file_names[0] = L"bold.ttf";
    LOGFONTW record{};
    record.lfHeight = -30;
    record.lfWeight = 700;
    set_face_name(record, L"A family of some length");
    for (const bool loading : {false, true}) {
        bool failed = true;
        for (std::size_t at = 0; failed; ++at) {
            fonts.change_font(fonts.m_default_logfont, 1, true);
            bool changed = false;
            {
                const FailingAllocation failure(at);
                changed = fonts.change_font(record, 1, loading);
                failed = failure.was_met();
            }
            EXPECT_TRUE(failed || changed);
            EXPECT_EQ(fonts.get_fontpath_by_font(fonts.font_of_slot(0)), changed ? L"/f/bold.ttf" : L"Default")
                << "allocation " << at;
        }
    }
}

TEST_F(GuiTest, ACopyWithoutMemoryNamesNoFontThatIsGone) {
    registry().files = {L"/f/one.ttf"};
    const CGlobalFontInfo& source = *gui.m_setting->m_font_info;
    LOGFONTW record{};
    record.lfHeight = -30;
    set_face_name(record, L"One");
    bool failed = true;
    for (std::size_t at = 0; failed; ++at) {
        CGlobalFontInfo fonts(&engine);
        fonts.m_fontname_fontpath_map = {{L"One", L"/f/one.ttf"}};
        ASSERT_TRUE(fonts.change_font(record, 1, false));
        {
            const FailingAllocation failure(at);
            try {
                fonts = source;
            } catch (const std::bad_alloc&) {
                // What is left has to be fit for use.
            }
            failed = failure.was_met();
        }
        if (IBaseFont* font = fonts.font_of_slot(0)) {
            EXPECT_EQ(font->get_height(), 16);
        }
        fonts.debug_draw_font();
    }
}

TEST_F(GuiTest, ATableWithoutADefaultFontHasNoSlots) {
    engine.default_font = nullptr;
    for (XSystem* system : {static_cast<XSystem*>(&engine), static_cast<XSystem*>(nullptr)}) {
        CGlobalFontInfo fonts(system);
        MemoryNode node;
        fonts.save_to_node(&node, save);
        fonts.on_ready();
        EXPECT_TRUE(node.entries.empty());
        EXPECT_EQ(fonts.font_of_slot(0), nullptr);
        EXPECT_EQ(fonts.get_fontpath_by_font(nullptr), L"Default");
        EXPECT_FALSE(fonts.change_font(LOGFONTW{}, 1, true));
    }
}

TEST_F(GuiTest, UnknownFontsAnswerWithTheDefault) {
    const CGlobalFontInfo& fonts = *gui.m_setting->m_font_info;
    const CMyComPtr<IBaseFont> stranger(new IBaseFont(&engine.device));
    for (IBaseFont* font : {static_cast<IBaseFont*>(nullptr), stranger.get(), engine.default_font}) {
        EXPECT_EQ(face_name(fonts.get_logfont_by_font(font)), L"Default");
        EXPECT_EQ(fonts.get_fontpath_by_font(font), L"Default");
    }
    for (int slot : {-1, 8, INT32_MAX, INT32_MIN}) EXPECT_EQ(fonts.font_of_slot(slot), nullptr);
}

TEST_F(GuiTest, ATableThatGoesWhileItsSampleShowsLowersTheFlag) {
    CGlobalFontInfo& fonts = *gui.m_setting->m_font_info;
    fonts.change_font(fonts.m_default_logfont, 1, false);
    EXPECT_TRUE(engine.m_sample_view_flag);
    gui.on_clean_project();
    EXPECT_FALSE(engine.m_sample_view_flag);
    engine.m_sample_view_flag = true;
    CGlobalFontInfo& next = *gui.m_setting->m_font_info;
    next.change_font(next.m_default_logfont, 1, false);
    gui.on_clean_project();
    EXPECT_TRUE(engine.m_sample_view_flag) << "raised by another";
}

TEST_F(GuiTest, ACopyOfTheSettingSharesItsFontsAndFreesNone) {
    {
        CGlobalGUISetting copy(*gui.m_setting);
        EXPECT_EQ(copy.m_font_info, gui.m_setting->m_font_info);
        CGlobalGUISetting other(&engine);
        other = copy;
        EXPECT_EQ(other.m_font_info, copy.m_font_info);
        CGlobalFontInfo fonts(*copy.m_font_info);
        EXPECT_EQ(fonts.font_of_slot(3), engine.default_font);
    }
    EXPECT_EQ(gui.m_setting->m_font_info->font_of_slot(0), engine.default_font);
}
