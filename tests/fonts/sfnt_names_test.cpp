#include "fonts/sfnt_names.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>

#include "support/font_bytes.h"

namespace {

// Gives what was looked at last to each next look that lies in it, as a window does.
class Bytes final : public ByteSource {
public:
    explicit Bytes(const std::string& bytes)
        : m_bytes(reinterpret_cast<const unsigned char*>(bytes.data()), bytes.size()) {}

private:
    std::span<const unsigned char> fetch(std::uint64_t position, std::size_t count) override {
        m_start = position;
        m_there = position < m_bytes.size() ? m_bytes.subspan(static_cast<std::size_t>(position)) : m_there.first(0);
        m_there = m_there.first(std::min(count + 20, m_there.size()));
        return m_there.first(std::min(count, m_there.size()));
    }
    std::span<const unsigned char> m_bytes;
};

// One letter for the kind, then the text; what is wide and beyond ASCII as \x.
class Shown final : public NameSink {
public:
    std::vector<std::string> texts;

    void take(const StoredName& name) override {
        std::string text(1, "nbw"[name.text]);
        if (name.text == StoredName::WIDE) {
            for (const wchar_t unit : units_of(name.bytes)) {
                const auto code = static_cast<char16_t>(unit);
                text += code < 0x80 ? std::string(1, char(code)) : big_endian(code, 2);
            }
        } else {
            text.append(name.bytes.begin(), name.bytes.end());
        }
        texts.push_back(text);
    }
};

using Texts = std::vector<std::string>;
Texts single(const std::string& bytes) {
    Bytes file(bytes);
    Shown names;
    names_of_font(file, names);
    return names.texts;
}
Texts collection(const std::string& bytes) {
    Bytes file(bytes);
    Shown names;
    names_of_collection(file, names);
    return names.texts;
}

/// Has no end, and counts what it is asked for.
class Endless final : public ByteSource {
public:
    std::uint64_t asked = 0;

private:
    std::span<const unsigned char> fetch(std::uint64_t position, std::size_t count) override {
        asked += count;
        m_bytes.resize(count);
        for (std::size_t at = 0; at < count; ++at) m_bytes[at] = static_cast<unsigned char>((position + at) * 31);
        if (position == 0) std::memcpy(m_bytes.data(), collection_head(1, 1000000, {}).data(), count);
        return m_bytes;
    }
    std::vector<unsigned char> m_bytes;
};

struct ReadingRow {
    const char* what;
    NameRow record;
    Texts expected;

    // Without it a test's name would hold the bytes of its row, addresses included.
    friend void PrintTo(const ReadingRow& row, std::ostream* out) { *out << row.what; }
};

// Where the fonts of a collection with so many lie: each is as long as `font_bytes` of one short name.
const NameRow a{1, 0, 4, "A"}, b{1, 0, 4, "B"}, c{1, 0, 4, "C"};
const std::size_t font_size = font_bytes({a}).size();
constexpr std::uint32_t first = 12 + 4 * 4;
const std::uint32_t second = first + static_cast<std::uint32_t>(font_size);
const std::uint32_t third = second + static_cast<std::uint32_t>(font_size);

std::string three_fonts() { return font_bytes({a}, first) + font_bytes({b}, second) + font_bytes({c}, third); }

}  // namespace

class NameRecord : public testing::TestWithParam<ReadingRow> {};

TEST_P(NameRecord, IsReadByPlatformAndLanguage) {
    EXPECT_EQ(single(font_bytes({GetParam().record})), GetParam().expected) << GetParam().what;
}

INSTANTIATE_TEST_SUITE_P(
    All, NameRecord,
    testing::ValuesIn(std::vector<ReadingRow>{
        {"full name", {1, 0, 4, "Arial"}, {"nArial"}},
        {"PostScript name", {1, 0, 6, "ArialMT"}, {"nArialMT"}},
        {"family name", {1, 0, 1, "Arial"}, {}},
        {"no language on any platform", {7, 0, 4, "Any"}, {"nAny"}},
        {"no language, wide text", {0, 0, 4, utf16_be(u"Latin")}, {}},
        {"narrow text ends at a zero", {1, 0, 4, std::string("Ari\0al", 6)}, {"nAri"}},
        {"Macintosh, Japanese", {1, 11, 4, "\x83\x81"}, {"n\x83\x81"}},
        {"Macintosh, Traditional Chinese", {1, 19, 4, "\xA7\xBA"}, {"b\xA7\xBA"}},
        {"another platform, the number of Traditional Chinese", {2, 19, 4, "x"}, {}},
        {"Windows, United States", {3, 0x0409, 4, utf16_be(u"Arial")}, {"wArial"}},
        {"Windows, Zimbabwe", {3, 0x3009, 4, utf16_be(u"Z")}, {"wZ"}},
        {"Windows, People's Republic of China", {3, 0x0804, 4, utf16_be(u"宋体")}, {"w\x5B\x8B\x4F\x53"}},
        {"Windows, Taiwan", {3, 0x0404, 6, utf16_be(u"宋")}, {"w\x5B\x8B"}},
        {"Windows, Japan", {3, 0x0411, 4, utf16_be(u"x")}, {}},
        {"Windows, Germany", {3, 0x0407, 4, utf16_be(u"x")}, {}},
        {"wide text ends at a zero unit", {3, 0x0409, 4, utf16_be(u"ab") + std::string("\0\0c", 3)}, {"wab"}},
        {"an odd byte at the end", {3, 0x0409, 4, utf16_be(u"a") + "\x4E"}, {std::string("wa\x4E\0", 4)}},
        {"no text", {3, 0x0409, 4, ""}, {}},
        {"narrow text to the last byte that fits", {1, 0, 4, std::string(65535, 'x')}, {"n" + std::string(16382, 'x')}},
        {"wide text to the last unit that fits",
         {3, 0x0409, 4, utf16_be(std::u16string(20000, u'x'))},
         {"w" + std::string(16382, 'x')}},
    }));

TEST(SfntNames, ComeInTheOrderOfTheRecordsWhateverThatIs) {
    EXPECT_EQ(
        single(font_bytes({{3, 0x0409, 6, utf16_be(u"P")}, {3, 0x0407, 4, "xx"}, {1, 0, 4, "M"}, {1, 5, 6, "M"}})),
        (Texts{"wP", "nM", "nM"}));
}

TEST(SfntNames, BeginBehindTheRightVersionAndTag) {
    EXPECT_EQ(single(font_bytes({a}, 0, "name", 0x4F54544F)), Texts{"nA"});
    EXPECT_EQ(single(font_bytes({a}, 0, "NaME")), Texts{"nA"});
    EXPECT_EQ(single(font_bytes({a}, 0, "nane")), Texts{});
    for (const std::uint32_t version : {0x00020000u, 0x00010001u, 0x74727565u, 0x74746366u}) {
        EXPECT_EQ(single(font_bytes({a}, 0, "name", version)), Texts{}) << version;
    }
}

TEST(SfntNames, OfACollectionGoByAscendingOffsetEachOffsetOnce) {
    const std::string fonts = three_fonts();
    EXPECT_EQ(collection(collection_head(1, 4, {third, first, third, second}) + fonts), (Texts{"nA", "nB", "nC"}));
    EXPECT_EQ(collection(collection_head(2, 4, {0, third, 0, second}) + fonts), (Texts{"nB", "nC"}));
    EXPECT_EQ(collection(collection_head(1, 2, {second, first, third, third}) + fonts), (Texts{"nA", "nB"}));
    for (const int version : {0, 3}) {
        EXPECT_EQ(collection(collection_head(version, 4, {first, first, first, first}) + fonts), Texts{});
    }
    EXPECT_EQ(single(collection_head(1, 4, {first, second, third, 0}) + fonts), Texts{});
    const std::string strange = font_bytes({a}, first, "name", 0xDEADBEEF);
    EXPECT_EQ(collection(collection_head(1, 4, {first, first, first, 0}) + strange), Texts{"nA"}) << "no version there";
}

// What comes ahead of the place where the file ends counts.
TEST(SfntNames, EndWhereTheFileEnds) {
    const std::string bytes = font_bytes({a, b});
    for (std::size_t size = 0; size < bytes.size(); ++size) {
        const Texts expected = size == bytes.size() - 1 ? Texts{"nA"} : Texts{};
        EXPECT_EQ(single(bytes.substr(0, size)), expected) << size;
    }
    const std::string many = collection_head(1, 4, {first, second, third, third + 100000}) + three_fonts();
    EXPECT_EQ(collection(many), (Texts{"nA", "nB", "nC"})) << "an offset past the end is the last one";
    EXPECT_EQ(collection(many.substr(0, third)), (Texts{"nA", "nB"}));
    EXPECT_EQ(collection(many.substr(0, 20)), Texts{});
}

TEST(SfntNames, DoNotBelieveCounts) {
    std::string promising = font_bytes({a});
    promising.replace(12 + 32 + 2, 2, "\xFF\xFF");
    EXPECT_EQ(single(promising), Texts{"nA"}) << "65535 records";
    std::string tables = font_bytes({a}, 0, "nane");
    tables.replace(4, 2, "\xFF\xFF");
    EXPECT_EQ(single(tables), Texts{}) << "65535 tables";
    std::string longer = font_bytes({a});
    longer.replace(12 + 32 + 6 + 8, 2, "\xFF\xFF");
    EXPECT_EQ(single(longer), Texts{}) << "a text of 65535 bytes in a small file";
    for (const std::uint32_t count : {0x7FFFFFFFu, 0x80000000u, 0xFFFFFFFFu, 0u}) {
        EXPECT_EQ(collection(collection_head(1, count, {first, second, third, 0}) + three_fonts()), Texts{}) << count;
    }
}

// All records on the same long text: what is kept of it is limited, and the next good record still counts.
TEST(SfntNames, PassOverWhatIsTooMuch) {
    std::vector<NameRow> rows(300, a);
    rows.push_back({1, 9, 4, "Good"});
    std::string bytes = font_bytes(rows) + std::string(70000, 'x');
    for (std::size_t row = 0; row < 300; ++row) bytes.replace(12 + 32 + 6 + 12 * row + 8, 2, "\xFF\xFF");
    const Texts texts = single(bytes);
    EXPECT_EQ(texts.back(), "nGood");
    EXPECT_EQ(texts.size(), most_text / longest_text + 1);
}

// A million fonts that share one directory of 65535 tables would be read for hours.
TEST(SfntNames, EndAfterModerateWork) {
    Endless endless;
    Shown names;
    names_of_collection(endless, names);
    EXPECT_LE(endless.asked, most_bytes);
    EXPECT_GT(endless.asked, most_bytes / 2) << "the file was to be an endless one";
}
