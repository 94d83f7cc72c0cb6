// From the fonts that the system lists to the names that a project may ask for, and to the files beside a project.

#include <filesystem>
#include <fstream>
#include <random>

#include "fonts/file_names.h"
#include "fonts/font_candidates.h"
#include "fonts/font_info.h"
#include "fonts/font_registry.h"
#include "fonts/logfont.h"
#include "module/setting.h"
#include "support/font_bytes.h"
#include "support/gui_test.h"

namespace {

namespace fs = std::filesystem;

LOGFONTW record_of(const wchar_t* face, int weight = 400, int height = -20) {
    LOGFONTW record{};
    record.lfHeight = height;
    record.lfWeight = weight;
    set_face_name(record, face);
    return record;
}

class FontNames : public GuiTest {
protected:
    FontNames() {
        // Each test is a process of its own, and several run side by side.
        const auto* test = testing::UnitTest::GetInstance()->current_test_info();
        folder = fs::temp_directory_path() / ("font_names_" + std::to_string(std::random_device()()) + test->name());
        fs::create_directories(folder);
    }
    ~FontNames() override { fs::remove_all(folder); }

    fs::path write(const std::string& name, const std::string& bytes) {
        std::ofstream(folder / name, std::ios::binary) << bytes;
        return folder / name;
    }
    std::wstring path(const std::wstring& name) const { return folder.wstring() + L"\\" + name; }
    // A file name stands for the folder's.
    std::map<std::wstring, std::wstring> name_map(std::vector<listed_font> listed) {
        registry().fonts = {std::move(listed), folder.wstring()};
        gui.on_clean_project();
        std::map<std::wstring, std::wstring> names;
        for (const auto& [name, file] : table().m_fontname_fontpath_map) names[name] = file;
        return names;
    }
    CGlobalFontInfo& table() { return *gui.m_setting->m_font_info; }

    fs::path folder;
};

using Map = std::map<std::wstring, std::wstring>;

}  // namespace

TEST(FontRegistry, NamesAreCutAndFilesFound) {
    const std::pair<const wchar_t*, const wchar_t*> names[] = {
        {L"Arial (TrueType)", L"Arial"},
        {L"Foo", L"Foo"},
        {L"Foo(Bar)", L"Fo"},
        {L"(Bar)", L"(Bar)"},
        {L"A (B) (C)", L"A"},
        {L"X(", L""},
        {L"", L""},
    };
    for (const auto& [listed, name] : names) EXPECT_EQ(cut_font_name(listed), name) << listed;
    EXPECT_EQ(font_path(L"/fonts", L"a.ttf"), L"/fonts\\a.ttf");
    EXPECT_EQ(font_path(L"/fonts", L"/own/a.ttf"), L"/fonts\\/own/a.ttf");
    EXPECT_EQ(font_path(L"/fonts", L"C:\\own\\a.ttf"), L"C:\\own\\a.ttf");
    for (const wchar_t* path : {L"a.ttc", L"a.TtC", L"old.TTCs/a.ttf"}) EXPECT_TRUE(is_collection_path(path)) << path;
    for (const wchar_t* path : {L"a.ttf", L"attc", L""}) EXPECT_FALSE(is_collection_path(path)) << path;
}

TEST_F(FontNames, OfTheListComeAheadOfThoseOfTheFile) {
    write("one.ttf", font_bytes({{1, 0, 4, "Shared"}, {1, 0, 6, "Zeta"}, {3, 0x804, 4, utf16_be(u"宋体")}}));
    write("two.ttf", font_bytes({{1, 0, 4, "Shared"}, {1, 19, 4, "\xA7\xBA\xC5\xE9"}}));
    write("many.ttc", collection_head(1, 1, {16}) + font_bytes({{1, 0, 4, "Inner"}}, 16));
    EXPECT_EQ(name_map({{L"Zeta (TrueType)", L"two.ttf"},
                        {L"Alpha (TrueType)", L"one.ttf"},
                        {L"Alpha (Again)", L"two.ttf"},
                        {L"Many (TrueType)", L"many.ttc"},
                        {L"Gone (TrueType)", L"gone.ttf"}}),
              (Map{{L"Alpha", path(L"one.ttf")},
                   {L"Shared", path(L"one.ttf")},
                   {L"Zeta", path(L"one.ttf")},
                   {L"宋体", path(L"one.ttf")},
                   {L"宋體", path(L"two.ttf")},
                   {L"Many", path(L"many.ttc")},
                   {L"Inner", path(L"many.ttc")},
                   {L"Gone", path(L"gone.ttf")}}));
    registry().has_fonts = false;
    EXPECT_EQ(name_map({{L"Alpha", L"one.ttf"}}), Map{}) << "a list that can't be read";
    EXPECT_FALSE(table().generate_fontname_fontpath_map());
}

// A file is read anew when it has changed, and not when it has not.
TEST_F(FontNames, OfAFileAreKeptUntilItChanges) {
    const auto names = [this] { return names_of_file(path(L"a.ttf"), FontFileKind::SINGLE); };
    const fs::path file = write("a.ttf", font_bytes({{1, 0, 4, "Old"}}));
    EXPECT_EQ(names(), std::vector<tstringW>{L"Old"});
    write("a.ttf", font_bytes({{1, 0, 4, "New"}}));
    EXPECT_EQ(names(), std::vector<tstringW>{L"New"}) << "within a tick of the clock";
    const auto long_ago = fs::last_write_time(file) - std::chrono::hours(1);
    fs::last_write_time(file, long_ago);
    EXPECT_EQ(names(), std::vector<tstringW>{L"New"});
    write("a.ttf", font_bytes({{1, 0, 4, "Own"}}));
    fs::last_write_time(file, long_ago);
    EXPECT_EQ(names(), std::vector<tstringW>{L"New"}) << "size and time say that it is the same";
    write("a.ttf", font_bytes({{1, 0, 4, "Longer"}}));
    fs::last_write_time(file, long_ago);
    EXPECT_EQ(names(), std::vector<tstringW>{L"Longer"});
    fs::remove(file);
    EXPECT_EQ(names(), std::vector<tstringW>{});
    EXPECT_EQ(names_of_file(L"/dev/zero", FontFileKind::COLLECTION), std::vector<tstringW>{}) << "no end to it";
}

struct CandidateRow {
    LOGFONTW record;
    std::vector<std::wstring> first;
    std::size_t count;
};

TEST(FontCandidates, GoFromTheMostSpecialStyleToThePlainName) {
    LOGFONTW slanted = record_of(L"Arial", 700);
    slanted.lfItalic = 1;
    const CandidateRow rows[] = {
        {record_of(L"Arial"),
         {L"Arialensed Regular", L"Arial Regular", L"Arialensed Medium", L"Arial Medium", L"Arialensed", L"Arial",
          L"Arial", L"Arial Regular"},
         8},
        {slanted,
         {L"Arialensed old Slanted", L"Arial old Slanted", L"Arialensed old Oblique", L"Arial old Oblique",
          L"Arialensed old Italic", L"Arial old Italic"},
         50},
        {record_of(L"Foo Regular", 250),
         {L"Foo Regularensed ExtraLight", L"Foo Regular ExtraLight", L"Foo ExtraLight", L"Foo Regularensed",
          L"Foo Regular", L"Foo", L"Foo", L"Foo Regular"},
         8},
        {record_of(L"A", 600), {L"Aensed Semibold", L"A Semibold", L"Aensed Bold", L"A Bold", L"Aensed", L"A"}, 8},
        {record_of(L"A", 550), {L"Aensed Regular", L"A Regular", L"Aensed", L"A"}, 6},
        {record_of(L"A", 900), {L"Aensed Heavy", L"A Heavy", L"Aensed", L"A"}, 6},
        {record_of(L"", 0), {L"ensed Regular", L" Regular", L"ensed", L"", L"", L" Regular"}, 6},
    };
    for (const CandidateRow& row : rows) {
        const std::vector<std::wstring> names = font_candidates(row.record);
        ASSERT_EQ(names.size(), row.count);
        EXPECT_EQ(std::vector<std::wstring>(names.begin(), names.begin() + static_cast<long>(row.first.size())),
                  row.first);
    }
    EXPECT_EQ(font_candidates(slanted)[17], L"Arial Bold Italic");
    EXPECT_EQ(font_candidates(slanted)[47], L"Arial");
}

TEST_F(FontNames, LeadToAFontAndItsStatus) {
    name_map({{L"Foo Bold (TrueType)", L"bold.ttf"}, {L"Foo (TrueType)", L"plain.ttf"}, {L"Lost", L"lost.ttf"}});
    registry().files = {path(L"bold.ttf"), path(L"plain.ttf")};
    EXPECT_TRUE(table().change_font(record_of(L"Foo", 700, 31), 1, false));
    IBaseFont* bold = table().font_of_slot(0);
    EXPECT_EQ(table().get_fontpath_by_font(bold), path(L"bold.ttf"));
    EXPECT_EQ(bold->get_height(), 31);
    EXPECT_EQ(table().m_font_status, L"Foo Bold");
    EXPECT_TRUE(table().m_show_font_sample);

    EXPECT_FALSE(table().change_font(record_of(L"foo"), 1, false));
    EXPECT_EQ(table().m_font_status, L"Unable to find font path.");
    EXPECT_EQ(table().font_of_slot(0), bold) << "the slot keeps its font";
    EXPECT_FALSE(table().change_font(record_of(L"Lost"), 1, false));
    EXPECT_EQ(table().m_font_status, L"Unable to create: " + path(L"lost.ttf"));
    EXPECT_EQ(registry().log, std::vector<std::wstring>{L"无法加载" + path(L"lost.ttf")});
    for (const int number : {0, 9}) EXPECT_FALSE(table().change_font(record_of(L"Foo"), number, false));

    EXPECT_TRUE(table().change_font(record_of(L"Foo"), 1, true));
    EXPECT_EQ(table().m_created_fonts, std::vector<IBaseFont*>{table().font_of_slot(0)});
    EXPECT_EQ(table().m_logfont_by_font.size(), 2u) << "the default font's and the slot's";
    EXPECT_EQ(table().m_fontpath_by_font.size(), 2u);
    table().m_font_status = L"kept";
    EXPECT_TRUE(table().change_font(record_of(L"Default", 0, 99), 1, true));
    EXPECT_EQ(table().font_of_slot(0), engine.default_font);
    EXPECT_TRUE(table().m_created_fonts.empty());
    EXPECT_EQ(table().m_font_status, L"kept");
    EXPECT_EQ(table().m_fontpath_by_font.size(), 1u);
}

// The name leads to a file that is gone; the font comes from beside the project, and the slot goes by the listed path.
TEST_F(FontNames, AListedFileThatIsGoneLendsItsPathToTheCopy) {
    name_map({{L"Lost", L"lost.ttf"}});
    engine.project_file_path = L"/p/show.project";
    registry().files = {L"/p/copy.ttf"};
    table().m_font_file_names[2] = L"copy.ttf";
    EXPECT_TRUE(table().change_font(record_of(L"Lost"), 3, true));
    EXPECT_EQ(table().get_fontpath_by_font(table().font_of_slot(2)), path(L"lost.ttf"));
}

TEST_F(FontNames, ArePublishedSlotBySlot) {
    name_map({{L"A", L"a.ttf"}, {L"B", L"b.ttf"}});
    engine.project_file_path = L"/p/show.project";
    registry().files = {path(L"a.ttf"), path(L"b.ttf"), L"/p/c.ttf"};
    table().m_font_file_names[3] = L"c.ttf";
    EXPECT_TRUE(table().change_font(record_of(L"A"), 1, true));
    EXPECT_TRUE(table().change_font(record_of(L"B"), 2, true));
    EXPECT_TRUE(table().change_font(record_of(L"A"), 3, true));
    EXPECT_TRUE(table().change_font(record_of(L"C"), 4, true)) << "from beside the project, so without a path";
    registry().files.erase(path(L"b.ttf"));
    registry().log.clear();
    registry().published.clear();
    table().copy_all_fontfile_to_texture_folder();
    const std::wstring made = L"folder /p/show_textures/";
    const std::wstring copied = L"copy " + path(L"a.ttf") + L" /p/show_textures/a.ttf";
    EXPECT_EQ(registry().published, (std::vector<std::wstring>{made, copied, made, made, copied, made, made, made, made,
                                                               made, L"box 复制完成"}));
    EXPECT_EQ(registry().log, (std::vector<std::wstring>(2, L"Font file open failed.")));
}

TEST_F(FontNames, TheSampleShowsForTwoSeconds) {
    name_map({{L"A", L"a.ttf"}});
    registry().files = {path(L"a.ttf")};
    engine.set_seconds(10.0);
    table().change_font(record_of(L"A"), 1, false);
    engine.set_seconds(11.75);
    EXPECT_EQ(engine.frame().size(), 1u);
    table().change_font(record_of(L"B"), 1, false);
    engine.set_seconds(13.5);
    const auto calls = engine.frame();
    ASSERT_EQ(calls.size(), 1u) << "a further change begins anew";
    EXPECT_TRUE(engine.m_sample_view_flag);
    engine.set_seconds(13.75);
    EXPECT_EQ(engine.frame().size(), 0u);
    EXPECT_FALSE(engine.m_sample_view_flag);
    EXPECT_FALSE(table().m_show_font_sample);
}
