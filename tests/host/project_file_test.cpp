#include "host/core/project_file.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstring>
#include <functional>
#include <random>
#include <regex>

#include "host/core/project_plain.h"
#include "host/core/project_read_back.h"
#include "host/core/project_text.h"
#include "host/core/project_write.h"
#include "host/core/project_xml.h"
#include "host/core/text_conversion.h"

namespace {

using namespace host;

constexpr const char* some_id = "283B689B-6775-0F82-3171-70E93AFF15F6";
constexpr const char* other_id = "283B689B-6775-0F82-3171-70E93AFF15F7";

std::string formatted(const ProjectDocument& document) {
    std::string error;
    std::string text = format_project(document, error);
    EXPECT_EQ(error, "");
    return text;
}

ProjectDocument reread(const ProjectDocument& document) {
    ProjectDocument back;
    std::string error;
    const std::string text = formatted(document);
    EXPECT_TRUE(parse_plain_project(text)) << text;
    // Without its first line the text is no plain one, and the general reader has to find the same in it.
    EXPECT_TRUE(parse_project(text.substr(text.find('\n') + 1), "p.sgui", back, error)) << error << '\n' << text;
    EXPECT_EQ(formatted(back), text);
    EXPECT_TRUE(parse_project(text, "p.sgui", back, error)) << error << '\n' << text;
    return back;
}

ProjectItem& add_item(ProjectDocument& document, const tstringW& name = L"") {
    ProjectItem& item = document.items.emplace_back();
    item.type = 83783;
    item.id = CGuid(from_utf8(some_id).c_str());
    item.name = name;
    return item;
}

// The names and keys of a tree, in order.
std::string outline(const ProjectNode& node) {
    std::string text = std::string(node.name()) + "(";
    for (const Property& property : node.properties()) text.append(property.key) += " ";
    for (const auto& child : node.children()) text += outline(*child);
    return text + ")";
}

}  // namespace

TEST(ProjectFile, KeepsEveryBitOfAFloat) {
    std::vector<std::uint32_t> bits = {0x80000000, 1,          0x807FFFFF, 0x7F7FFFFF, 0x7F800000, 0xFF800000,
                                       0x7FC00000, 0x7F800001, 0xFFC12345, 0xFFFFFFFF, 0x3DCCCCCD, 0x00800000};
    std::mt19937 random(7);
    for (int i = 0; i < 4000; ++i) bits.push_back(static_cast<std::uint32_t>(random()));
    ProjectDocument document;
    ProjectNode& data = add_item(document).data;
    for (std::size_t i = 0; i < bits.size(); ++i) {
        const float value = std::bit_cast<float>(bits[i]);
        data.set("f" + std::to_string(i), value);
        data.set("v" + std::to_string(i), VEC4(0, value, 0, value));
    }
    ProjectDocument back = reread(document);
    ASSERT_EQ(back.items.size(), 1u);
    for (std::size_t i = 0; i < bits.size(); ++i) {
        float number = 0;
        VEC4 vector;
        EXPECT_TRUE(back.items[0].data.get_property(("f" + std::to_string(i)).c_str(), PAK_FLOAT, &number));
        EXPECT_TRUE(back.items[0].data.get_property(("v" + std::to_string(i)).c_str(), PAK_VEC4, &vector));
        EXPECT_EQ(std::bit_cast<std::uint32_t>(number), bits[i]);
        EXPECT_EQ(std::bit_cast<std::uint32_t>(vector.y), bits[i]);
        EXPECT_EQ(std::bit_cast<std::uint32_t>(vector.w), bits[i]);
    }
}

TEST(ProjectFile, KeepsDifficultTexts) {
    const std::wstring texts[] = {L"",
                                  L" ",
                                  L"\n",
                                  L"\t",
                                  L"\r",
                                  L"a\r\nb\rc\n",
                                  L"\n\n  leading and trailing \t\n ",
                                  L"  two  blanks  ",
                                  L"a]]>b",
                                  L"a\n]]>\nb]]",
                                  L"<![CDATA[x]]> & <b a='1' c=\"2\"> &amp; &#65; <!-- -->",
                                  L"back\\slash \\u{41} \\",
                                  L"back\\slash \\u{41} \x1F",
                                  std::wstring(L"zero\0one", 8),
                                  L"\x01\n\x7F\x85\x2028",
                                  L"\xFFFE\xFFFF\xFEFF",
                                  std::wstring(1, static_cast<wchar_t>(0xD83D)),
                                  {L'a', static_cast<wchar_t>(0xDE00), static_cast<wchar_t>(0xD83D), L'\n'},
                                  L"\U0001F600 欢迎\n光临 \U0010FFFF"};
    for (const std::wstring& text : texts) {
        ProjectDocument document;
        ProjectNode& data = add_item(document, text).data;
        data.set("text", tstringW(text));
        data.add("inner").set("behind", 1);
        const ProjectDocument back = reread(document);
        ASSERT_EQ(back.items.size(), 1u);
        const PropertyValue* value = back.items[0].data.find("text");
        ASSERT_TRUE(value && std::holds_alternative<tstringW>(*value)) << to_utf8(text);
        EXPECT_TRUE(std::get<tstringW>(*value) == text) << to_utf8(text) << '\n' << formatted(document);
        EXPECT_TRUE(back.items[0].name == text) << to_utf8(text) << '\n' << formatted(document);
        EXPECT_EQ(outline(back.items[0].data), "item(text inner(behind ))");
    }
}

TEST(ProjectFile, KeepsOrderAndRepeatedNames) {
    ProjectDocument document;
    ProjectNode& data = add_item(document).data;
    data.set("z", 1);
    data.set("a", StoredBool{2});
    for (const char* name : {"key", "a<&\">&#0;", "key"}) data.add(name).set(name, CRect(-1, 2, INT32_MIN, INT32_MAX));
    data.add("empty");
    const ProjectDocument back = reread(document);
    ASSERT_EQ(back.items.size(), 1u);
    EXPECT_EQ(outline(back.items[0].data), "item(z a key(key )a<&\">&#0;(a<&\">&#0; )key(key )empty())");
    EXPECT_EQ(std::get<StoredBool>(*back.items[0].data.find("a")).value, 2);
    EXPECT_EQ(std::get<CRect>(*back.items[0].data.child("key")->find("key")), CRect(-1, 2, INT32_MIN, INT32_MAX));
}

TEST(ProjectFile, KeepsAnimationsWithTheirNodes) {
    ProjectDocument document;
    for (const wchar_t* name : {L"滑入 \"<&\"", L"\x01", L""}) {
        ProjectAnimation& animation = document.animations.emplace_back();
        animation.name = name;
        animation.info = {std::bit_cast<float>(0xFFC12345u), -0.0f, INT32_MIN, 7, 1e-45f};
        animation.starts_by_itself = *name != 0;
        for (const unsigned type : {1001u, 0xFFFFFFFFu}) {
            ProjectAnimNode& node = animation.nodes.emplace_back();
            node.type = type;
            if (type == 1001) node.item = CGuid(from_utf8(some_id).c_str());
            node.data.add("tracks").set("k", 0.1f);
        }
        document.animations.emplace_back();
    }
    const ProjectDocument back = reread(document);
    EXPECT_EQ(formatted(back), formatted(document));
    ASSERT_EQ(back.animations.size(), 6u);
    const ProjectAnimation& second = back.animations[2];
    EXPECT_EQ(second.name, L"\x01");
    EXPECT_EQ(std::bit_cast<std::uint32_t>(second.info.length), 0xFFC12345u);
    EXPECT_TRUE(std::signbit(second.info.rate) && second.info.mode_flag == INT32_MIN && second.info.mode_count == 7);
    EXPECT_TRUE(second.starts_by_itself && second.info.factor == 1e-45f);
    ASSERT_EQ(second.nodes.size(), 2u);
    EXPECT_EQ(format_guid(second.nodes[0].item), some_id);
    EXPECT_EQ(second.nodes[1].type, 0xFFFFFFFFu);
    EXPECT_EQ(outline(second.nodes[1].data), "anim_node(tracks(k ))");
    EXPECT_EQ(second.nodes[0].line, 22);
}

namespace {

// By a reader that sees it for the first time, and by one that knows its lines.
template <class Part>
void expect_every_byte_counts(const std::string& text, const Part& part) {
    ProjectReadBack knowing;
    for (int times = 0; times < 3; ++times) ASSERT_TRUE(knowing.gives(text, part)) << text;
    for (std::size_t at = 0; at < text.size(); ++at) {
        std::string wrong = text;
        wrong[at] = text[at] == '7' ? '8' : '7';
        for (const std::string& broken : {text.substr(0, at), wrong}) {
            EXPECT_FALSE(ProjectReadBack().gives(broken, part)) << broken;
            EXPECT_FALSE(knowing.gives(broken, part)) << broken;
        }
    }
    EXPECT_TRUE(knowing.gives(text, part));
}

}  // namespace

TEST(ProjectFile, ReadingBackFindsEveryWrongByte) {
    ProjectDocument document;
    ProjectItem& item = add_item(document, L"a \"name\" 欢迎");
    item.parent = CGuid(from_utf8(other_id).c_str());
    item.data.set("k<ey", 12);
    item.data.set("rect", CRect(-1, 2, 3, 40));
    item.data.set("vec", VEC4(0.5f, -0.0f, std::bit_cast<float>(0xFFC12345u), 1e9f));
    item.data.set("text", tstringW(L"two\nlines & \t"));
    item.data.set("escaped", tstringW(L"\x01\\"));
    item.data.add("node").set("flag", StoredBool{2});
    item.data.add("empty");
    document.modules.add("M").set("key", 0.25f);
    ProjectAnimation& animation = document.animations.emplace_back();
    animation.name = L"n";
    animation.nodes.emplace_back().type = 1001;
    animation.nodes.back().data.add("tracks").set("v", VEC3(1, 2, 3));
    ProjectText text(1);
    // The line break at the end says nothing.
    const auto without_end = [](std::string_view part) { return std::string(part.substr(0, part.size() - 1)); };
    expect_every_byte_counts(without_end(text.add_modules(document.modules)), document.modules);
    expect_every_byte_counts(without_end(text.add_item(item)), item);
    expect_every_byte_counts(without_end(text.add_animation(animation)), animation);
}

// A reader that has read no parent yet must not think that it knows such.
TEST(ProjectFile, AParentOfZeroBytesIsNone) {
    ProjectDocument document;
    add_item(document).parent = CGuid(from_utf8(other_id).c_str());
    std::string error;
    std::string text = format_project(document, error);
    const std::size_t parent = text.find(other_id);
    ASSERT_NE(parent, std::string::npos);
    text.replace(parent, std::strlen(other_id) + 1, std::strlen(other_id) + 1, '\0');
    EXPECT_FALSE(parse_plain_project(text));
}

// A reader that knows lines of one tree finds them wrong for any other.
TEST(ProjectFile, ReadingBackTakesNoTreeForAnother) {
    const auto nested = [](ProjectNode& node, int levels) {
        ProjectNode* at = &node;
        for (int level = 0; level < levels; ++level) at = &at->add("n");
    };
    const std::function<void(ProjectNode&)> trees[] = {
        [](ProjectNode& node) { node.set("k", 1); },
        [](ProjectNode& node) { node.set("k", 2); },
        [](ProjectNode& node) { node.set("j", 1); },
        [](ProjectNode& node) { node.set("k", StoredBool{1}); },
        [](ProjectNode& node) { node.set("k", std::bit_cast<float>(1)); },
        [](ProjectNode& node) { node.set("k", VEC3(0, 0, 0)); },
        [](ProjectNode& node) { node.set("k", CRect(0, 0, 0, 0)); },
        [](ProjectNode& node) { node.set("k", VEC4(0, 0, 0, 0)); },
        [](ProjectNode& node) { node.set("k", tstringW()); },
        [](ProjectNode& node) { node.add("k"); },
        [](ProjectNode& node) { node.add("j"); },
        [](ProjectNode& node) { node.add("k").set("k", 1); },
        [](ProjectNode& node) { node.add("k").add("k"); },
        [&](ProjectNode& node) { nested(node, 20); },
    };
    ProjectDocument document;
    for (const auto& fill_tree : trees) fill_tree(add_item(document).data);
    ProjectReadBack reader;
    for (int times = 0; times < 3; ++times)
        for (const ProjectItem& written : document.items)
            for (ProjectItem& expected : document.items) {
                expected.id = written.id;
                const std::string text(ProjectText(1).add_item(written));
                ASSERT_EQ(reader.gives(text, expected), &written == &expected) << text;
            }
    // An item's own node is on level 3.
    for (int levels = 60; levels < 65; ++levels) {
        ProjectItem& deep = add_item(document);
        nested(deep.data, levels);
        const std::string text(ProjectText(1).add_item(deep));
        std::string without_blanks;
        for (const char c : text)
            if (c != ' ' || without_blanks.empty() || without_blanks.back() != '\n') without_blanks += c;
        for (int times = 0; times < 3; ++times)
            for (const std::string& part : {text, without_blanks})
                EXPECT_EQ(reader.gives(part, deep), 3 + levels <= xml::deepest_nesting) << part;
    }
}

namespace {

constexpr const char* some_keys[] = {"a", "ab", "a&", "m_rect", "m_rec", "key=", "value"};

// What stands in it may be written under the same key once more.
void fill(ProjectNode& node, std::mt19937& random, int depth = 0) {
    const auto pick = [&random](std::size_t count) { return static_cast<std::size_t>(random() % count); };
    for (std::size_t count = pick(12); count > 0; --count) {
        const char* const key = some_keys[pick(std::size(some_keys))];
        const PropertyValue values[] = {static_cast<int>(pick(3)), StoredBool{1},          0.5f,
                                        CRect(1, 2, 3, 4),         VEC3(1, 2, 3),          VEC4(1, 2, 3, 4),
                                        tstringW(L"a\"b"),         tstringW(L"two\nlines")};
        if (pick(3) > 0)
            node.set(key, values[pick(std::size(values))]);
        else if (ProjectNode& child = node.add(key); depth < 3 && pick(2) > 0)
            fill(child, random, depth + 1);
    }
}

}  // namespace

// Items alike, in part alike, and with one kind's key under another kind, in any order and depth.
TEST(ProjectFile, KeepsItemsWhoseLinesFollowInAnyOrder) {
    std::mt19937 random(5);
    for (int times = 0; times < 20; ++times) {
        ProjectDocument document;
        for (int count = 0; count < 40; ++count) {
            ProjectItem& item = add_item(document);
            item.id = CGuid(GUID{static_cast<std::uint32_t>(count + 1), 0, 0, {}});
            fill(item.data, random);
        }
        const ProjectDocument back = reread(document);
        const std::string text = formatted(document);
        ASSERT_EQ(formatted(back), text);
        ProjectDocument slowly;
        std::string error;
        ASSERT_TRUE(parse_project(text.substr(text.find('\n') + 1), "p", slowly, error)) << error;
        for (std::size_t at = 0; at < document.items.size(); ++at)
            ASSERT_EQ(back.items[at].line, slowly.items[at].line + 1) << text;
    }
}

// A tree that was written before, in a text that has had others, is one like a new one in a new text.
TEST(ProjectFile, WritesWhatIsWrittenAgainLikeTheFirstTime) {
    std::mt19937 chance(7);
    ProjectText text(1);
    ProjectReadBack reader;
    ProjectDocument document;
    ProjectItem again = std::move(add_item(document));
    std::string last;
    for (int times = 0; times < 3000; ++times) {
        // Few trees, so that one often comes twice, also ahead of a part of another one.
        const unsigned seed = static_cast<unsigned>(chance() % 12);
        document.items.clear();
        ProjectItem& fresh = add_item(document);
        again.data.begin_again();
        for (ProjectItem* item : {&fresh, &again}) {
            std::mt19937 random(seed);
            fill(item->data, random);
            item->data.set("number", times % 3);
            // In the place of a number or of a text of the time before.
            if (times % 4 > 0)
                item->data.add_string_property(times % 8 < 4 ? "a" : "title", tstringW(L"longer than few"));
            if (times % 7 == 0) fill(item->data, random);
            // So many that they are found by an index.
            for (int more = times % 50 == 0 ? 100 : 0; more > 0; --more)
                item->data.set(std::to_string(more % 70), more);
        }
        const std::string expected(ProjectText(1).add_item(fresh));
        ASSERT_EQ(text.add_item(again), expected) << times;
        ASSERT_TRUE(reader.gives(expected.substr(0, expected.size() - 1), again)) << expected;
        ASSERT_EQ(reader.gives(last, again), last == expected) << last << expected;
        last = expected;
        for (const char* key : some_keys) {
            const PropertyValue* const wanted = fresh.data.find(key);
            const PropertyValue* const found = again.data.find(key);
            ASSERT_EQ(found != nullptr, wanted != nullptr) << key << " in " << expected;
            if (wanted) {
                ASSERT_EQ(format_value(*found), format_value(*wanted));
            }
            ASSERT_EQ(again.data.child(key) != nullptr, fresh.data.child(key) != nullptr);
        }
    }
}

TEST(ProjectFile, RefusesToWriteANameThatNoFileCanHold) {
    for (const char* name : {"\xFF", "a\x01", "\xED\xA0\x80"}) {
        ProjectDocument document;
        add_item(document).data.add(name);
        std::string error;
        EXPECT_EQ(format_project(document, error), "");
        EXPECT_NE(error, "");
    }
}

namespace {

// A file that is wrong, where, and a word of the reason.
struct Wrong {
    std::string text;
    int line;
    const char* reason;
};

// The body stands in line 4.
std::string item_with(const std::string& body) {
    return "<project version=\"1\">\n<items>\n<item type=\"83783\" id=\"" + std::string(some_id) + "\">\n" + body +
           "\n</item>\n</items>\n</project>\n";
}
std::string items_with(const std::string& body) {
    return "<project version=\"1\">\n<items>\n" + body + "\n</items></project>";
}
// The body begins in line 3.
std::string animations_with(const std::string& body) {
    return "<project version=\"1\">\n<animations>\n" + body + "\n</animations></project>";
}
std::string repeated(const std::string& text, int count) {
    std::string all;
    while (count-- > 0) all += text;
    return all;
}

// That the file is refused in one line which names the place, and nothing else happens.
void expect_refused(const Wrong& wrong) {
    ProjectDocument document;
    add_item(document, L"as it was");
    std::string error;
    EXPECT_FALSE(parse_project(wrong.text, "p.sgui", document, error)) << wrong.text;
    EXPECT_EQ(error.find('\n'), std::string::npos) << error;
    const std::string place = "p.sgui:" + (wrong.line ? std::to_string(wrong.line) + ": " : "");
    EXPECT_TRUE(error.starts_with(place) && error.find(wrong.reason) != std::string::npos) << error << wrong.text;
    EXPECT_EQ(to_utf8(from_utf8(error)), error) << "the error is no UTF-8";
    EXPECT_TRUE(document.items.size() == 1 && document.items[0].name == L"as it was") << wrong.text;
}

}  // namespace

TEST(ProjectFile, RefusesWhatIsWrongAndNamesThePlace) {
    const std::string item = "<item type=\"1\" id=\"" + std::string(some_id) + "\"";
    const Wrong files[] = {
        {"", 1, "no XML"},
        {"<?xml version=\"1.0\"?>\n<other/>", 2, "no project file"},
        {"<project/>", 1, "version"},
        {"\n<project version=\"2\"/>", 2, "newer version"},
        {"<project version=\"one\"/>", 1, "\"one\""},
        {"<project version=\"1\"/><project version=\"1\"/>", 1, "more than one"},
        {"<project version=\"1\">\n<scene/></project>", 2, "<scene>"},
        {"<project version=\"1\">\n<items/>\n<items/></project>", 3, "twice"},
        {items_with("<thing/>"), 3, "<thing>"},
        {items_with("words"), 3, "words"},
        {items_with("<item type=\"1\"/>"), 3, "id"},
        {items_with("<item id=\"" + std::string(some_id) + "\"/>"), 3, "type"},
        {items_with("<item type=\"1\" id=\"00000000-0000-0000-0000-000000000000\"/>"), 3, "bad id"},
        {items_with("<item type=\"1\" id=\"xyz\"/>"), 3, "xyz"},
        {items_with(item + " colour=\"red\"/>"), 3, "colour"},
        {items_with(item + " visible=\"2\"/>"), 3, "visible"},
        {items_with(item + " flag=\"2147483648\"/>"), 3, "2147483648"},
        {items_with(item + "/>\n" + item + "/>"), 4, "twice"},
        {items_with("\n" + item + " parent=\"" + other_id + "\"/>"), 4, "parent"},
        {items_with("\n" + item + " parent=\"" + some_id + "\"/>"), 4, "parent"},
        {animations_with("<anim_node type=\"1\"/>"), 3, "<anim_node>"},
        {animations_with("<animation colour=\"red\"/>"), 3, "colour"},
        {animations_with("<animation length=\"long\"/>"), 3, "\"long\""},
        {animations_with("<animation mode_count=\"0.5\"/>"), 3, "0.5"},
        {animations_with("<animation start=\"2\"/>"), 3, "start"},
        {animations_with("<animation name=\"a\" name-escaped=\"b\"/>"), 3, "twice"},
        {animations_with("<animation>\n<node name=\"a\"/></animation>"), 4, "<node>"},
        {animations_with("<animation>\nwords</animation>"), 4, "words"},
        {animations_with("<animation>\n<anim_node/></animation>"), 4, "type"},
        {animations_with("<animation>\n<anim_node type=\"1\" item=\"xyz\"/></animation>"), 4, "xyz"},
        {animations_with("<animation>\n<anim_node type=\"1\">\n<child/></anim_node></animation>"), 5, "<child>"},
        {item_with("<double key=\"k\" value=\"1\"/>"), 4, "<double>"},
        {item_with("<int value=\"1\"/>"), 4, "key"},
        {item_with("<int key=\"k\"/>"), 4, "value"},
        {item_with("<int key=\"k\" value=\"1.5\"/>"), 4, "1.5"},
        {item_with("<int key=\"k\" value=\"2147483648\"/>"), 4, "2147483648"},
        {item_with("<bool key=\"k\" value=\"yes\"/>"), 4, "yes"},
        {item_with("<float key=\"k\" value=\"0,5\"/>"), 4, "0,5"},
        {item_with("<float key=\"k\" value=\"nan:3F800000\"/>"), 4, "nan:3F800000"},
        {item_with("<rect key=\"k\" value=\"1 2 3\"/>"), 4, "1 2 3"},
        {item_with("<vec4 key=\"k\" value=\"1 2 3 4 5\"/>"), 4, "1 2 3 4 5"},
        {item_with("<int key=\"k\" value=\"1\"/>\n<text key=\"k\" value=\"\"/>"), 5, "twice"},
        {item_with("<text key=\"k\" value-escaped=\"\\u{zz}\"/>"), 4, "escape"},
        {item_with("<text key=\"k\" value=\"a\">b</text>"), 4, "twice"},
        {item_with("<text key=\"k\"><b/></text>"), 4, "element"},
        {item_with("\n stray"), 5, "stray"},
        {item_with("<node name=\"n\">"), 0, "no XML"},
        {item_with("<int key=\"k\" value=\"\xFF\"/>"), 4, "UTF-8"},
        {item_with("<text key=\"k\" value=\"&#0;\"/>"), 4, "XML cannot hold"},
        {item_with(repeated("<node name=\"n\">\n", 100) + repeated("</node>", 100)), 0, "deep"},
    };
    for (const Wrong& wrong : files) expect_refused(wrong);
}

TEST(ProjectFile, CutsLongValuesInErrorsBetweenCharacters) {
    for (int shift = 0; shift < 4; ++shift)
        for (const char* character : {"\u6B22", "\U0001F600"})
            expect_refused({item_with("<int key=\"k\" value=\"" + std::string(static_cast<std::size_t>(shift), 'x') +
                                      repeated(character, 40) + "\"/>"),
                            4, "..."});
}

TEST(ProjectFile, RefusesAFileCutOffAnywhere) {
    ProjectDocument document;
    ProjectNode& data = add_item(document, L"欢迎").data;
    data.set("text", tstringW(L"two\nlines ]]> 光临"));
    data.add("node").set("vec", VEC4(0.1f, 2, 3, 4));
    const std::string whole = formatted(document);
    for (std::size_t length = 0; length <= whole.rfind("</project"); ++length)
        expect_refused({whole.substr(0, length), 0, ""});
}
