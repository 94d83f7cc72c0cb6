#include <gtest/gtest.h>

#include <cstring>

#include "host/core/legacy_file.h"
#include "host/core/legacy_value.h"

namespace {

using host::LegacyNode;
using host::LegacyProject;

std::unique_ptr<LegacyProject> parsed(const std::string& nodes, std::string& error) {
    return host::parse_legacy("<legacy version=\"1\">\n" + nodes + "\n</legacy>", "C:/a/b.xyz", error);
}

}  // namespace

TEST(LegacyFile, ReadsEveryKindOfValue) {
    std::string error;
    const auto project = parsed(R"(<node name="父">
        <node name="int" code="3" value="-5"/><node name="word" code="3" value="4294967295"/>
        <node name="moment" code="3" float="2.5"/><node name="float" code="9" value="-0.5"/>
        <node name="vec" code="8" value="1 2.5 -3"/><node name="pair" code="15" value=" 7  -8 "/>
        <node name="id" code="11" value="283B689B-6775-0F82-3171-70E93AFF15F6"/>
        <node name="text" code="20" value-escaped="a\u{A}😀"/><nothing/>
        <node name="raw" value="ab"/><node name-escaped="b\u{1}" code="77" hex="00fF"/></node>)",
                                error);
    ASSERT_TRUE(project) << error;
    CPakNode* node = project->root().find("父");
    ASSERT_TRUE(node);
    EXPECT_EQ(node->get_children()->size(), 11u);
    EXPECT_EQ(node->get_name(), L"父");
    EXPECT_EQ(node->get_pak_file()->get_full_filename(), L"C:/a/b.xyz");
    int number = 0;
    node->find_data("int", LEGACY_INT, &number, 0);
    EXPECT_EQ(number, -5);
    node->find_data("word", LEGACY_INT, &number, 0);
    EXPECT_EQ(number, -1);
    float real = 0.0f;
    for (const auto& [key, code, wanted] : {std::tuple{"moment", LEGACY_INT, 2.5f}, {"float", LEGACY_FLOAT, -0.5f}}) {
        node->find_data(key, code, &real, 0);
        EXPECT_EQ(real, wanted) << key;
    }
    VEC3 vector;
    node->find_data("vec", LEGACY_VEC3, &vector, 0);
    EXPECT_TRUE(vector.x == 1.0f && vector.y == 2.5f && vector.z == -3.0f);
    CPoint pair;
    node->find_data("pair", LEGACY_PAIR, &pair, 0);
    EXPECT_TRUE(pair.x == 7 && pair.y == -8);
    CGuid id;
    node->find_data("id", LEGACY_GUID, &id, 0);
    EXPECT_EQ(id.to_text(), L"283B689B-6775-0F82-3171-70E93AFF15F6");
    char16_t text[256] = {};
    node->find_data("text", LEGACY_TEXT, text, 0);
    EXPECT_EQ(std::u16string(text), u"a\n😀");
    EXPECT_EQ(node->find("raw")->get_length(), 4);
    char16_t raw[3] = {u'x', u'x', u'x'};
    node->find("raw")->get_buffer_to_mem_allocated(raw, 4);
    EXPECT_EQ(std::u16string(raw, 3), u"abx");
    EXPECT_EQ(node->find("b\x01")->get_length(), 2);
    EXPECT_EQ(node->find("none"), nullptr);
}

TEST(LegacyFile, SaysWhereAndWhatIsWrong) {
    const struct {
        const char* nodes;
        const char* wanted;
    } rows[] = {
        {R"(<node name="a" code="3" value="x"/>)", "C:/a/b.xyz:2: bad value of code 3 (found \"x\", expected a whole"},
        {"<node>\n<node code='3' value='4294967296'/></node>", ":3: bad value of code 3"},
        {R"(<node code="8" value="1 2"/>)", "expected three numbers"},
        {R"(<node code="15" value="1"/>)", "expected two whole numbers"},
        {R"(<node code="15" value="1 2 3"/>)", "expected two whole numbers"},
        {R"(<node code="11" value="1"/>)", "expected an identifier"},
        {R"(<node code="9" value="nought"/>)", "expected a number"},
        {R"(<node code="5" value="1"/>)", "value of a code that has none (found code 5"},
        {R"(<node code="x" hex=""/>)", "bad code"},
        {R"(<node code="3"/>)", "code without a value"},
        {R"(<node hex="0"/>)", "expected pairs of hexadecimal digits"},
        {R"(<node hex="0g"/>)", "expected pairs of hexadecimal digits"},
        {R"(<node code="9" float="1"/>)", "float of code 9"},
        {R"(<node code="3" value="1" hex="00"/>)", "value given twice (found value and hex"},
        {R"(<node code="6" value-escaped="\q"/>)", "bad escape"},
        {R"(<node code="3" value-escaped="1"/>)", "escaped value of code 3"},
        {R"(<node size="3"/>)", "unknown attribute of <node>"},
        {"<node>text</node>", "text inside <node>"},
        {"<nothing>x</nothing>", "something inside <nothing>"},
        {"<item/>", "unknown element (found <item>, expected node or nothing)"},
    };
    for (const auto& row : rows) {
        std::string error;
        EXPECT_FALSE(parsed(row.nodes, error)) << row.nodes;
        EXPECT_NE(error.find(row.wanted), std::string::npos) << error << "\n    wanted " << row.wanted;
    }
    std::string error;
    std::string deep;
    for (int level = 0; level < 70; ++level) deep += "<node>";
    for (int level = 0; level < 70; ++level) deep += "</node>";
    EXPECT_FALSE(parsed(deep, error));
    EXPECT_NE(error.find("nested too deeply"), std::string::npos) << error;
    EXPECT_FALSE(host::parse_legacy("<project version=\"1\"/>", "x", error));
    EXPECT_EQ(error, "x:1: no legacy file (found <project>, expected <legacy>)");
    EXPECT_FALSE(host::parse_legacy("<legacy version=\"2\"/>", "x", error));
    EXPECT_NE(error.find("newer version"), std::string::npos) << error;
}

// What the module asks for lies in buffers of its own, which nothing may overrun.
TEST(LegacyValue, IsCutToTheBufferAndNeverInTheMiddleOfACharacter) {
    const struct {
        int code;
        std::size_t most;
    } rows[] = {{LEGACY_PATH, 259}, {LEGACY_NAME, 63}, {LEGACY_TEXT, 255}};
    for (const auto& row : rows) {
        for (std::size_t length : {std::size_t{0}, row.most - 1, row.most, row.most + 1, row.most + 500}) {
            std::vector<char16_t> buffer(row.most + 2, u'#');
            const std::wstring text(length, L'x');
            ASSERT_TRUE(host::copy_legacy_value(host::legacy_bytes(tstringW(text)), row.code, row.code, buffer.data()));
            EXPECT_EQ(std::u16string(buffer.data()).size(), std::min(length, row.most));
            EXPECT_EQ(buffer.back(), u'#') << "code " << row.code << ", length " << length;
        }
        std::vector<char16_t> buffer(row.most + 1, u'#');
        const std::string pair = host::legacy_units(std::wstring(row.most - 1, L'x') + L"\U0001F600");
        ASSERT_TRUE(host::copy_legacy_value(pair, 0, row.code, buffer.data()));
        EXPECT_EQ(std::u16string(buffer.data()).size(), row.most - 1);
    }
}

TEST(LegacyValue, OfAnotherLayoutOrTooShortIsNone) {
    const std::string four(4, 'x');
    const struct {
        std::string bytes;
        int stored;
        int asked;
        bool wanted;
    } rows[] = {
        {four, LEGACY_INT, LEGACY_INT, true},
        {four, LEGACY_FLOAT, LEGACY_INT, true},
        {four, LEGACY_INT, LEGACY_FLOAT, true},
        {four, 0, LEGACY_INT, true},
        {four + four, LEGACY_INT, LEGACY_INT, true},
        {"xxx", LEGACY_INT, LEGACY_INT, false},
        {"xxx", 0, LEGACY_FLOAT, false},
        {four, LEGACY_NAME, LEGACY_INT, false},
        {four, LEGACY_INT, LEGACY_NAME, false},
        {four, LEGACY_TEXT, LEGACY_NAME, true},
        {four, 77, LEGACY_INT, false},
        {four, LEGACY_INT, 77, false},
        {std::string(11, 'x'), 8, LEGACY_VEC3, false},
        {std::string(15, 'x'), 11, LEGACY_GUID, false},
        {std::string(7, 'x'), 15, LEGACY_PAIR, false},
        {std::string(8, 'x'), 15, LEGACY_PAIR, true},
    };
    for (const auto& row : rows) {
        char16_t out[64];
        std::memset(out, '#', sizeof out);
        EXPECT_EQ(host::copy_legacy_value(row.bytes, row.stored, row.asked, out), row.wanted)
            << row.bytes.size() << " bytes of " << row.stored << " asked as " << row.asked;
        EXPECT_TRUE(row.wanted || out[0] == 0x2323) << "touched";
    }
}
