#include <algorithm>
#include <initializer_list>
#include <iterator>
#include <pugixml.hpp>
#include <set>
#include <stdexcept>
#include <utility>

#include "host/core/project_disk.h"
#include "host/core/project_file.h"
#include "host/core/project_text.h"
#include "host/core/text_conversion.h"

namespace host {
namespace {

constexpr std::size_t largest_file = std::size_t{256} << 20;
constexpr int deepest_nesting = 64;
constexpr int known_version = 1;

// The elements of properties, each with a value of its kind.
const std::pair<std::string_view, PropertyValue> property_elements[] = {
    {"int", 0},       {"bool", StoredBool{}}, {"float", 0.0f},      {"rect", CRect{}},
    {"vec3", VEC3{}}, {"vec4", VEC4{}},       {"text", tstringW{}},
};

int line_of(std::string_view text, std::ptrdiff_t offset) {
    const auto end = static_cast<std::size_t>(std::max<std::ptrdiff_t>(offset, 0));
    const std::string_view before = text.substr(0, std::min(end, text.size()));
    return 1 + static_cast<int>(std::count(before.begin(), before.end(), '\n'));
}

struct Failure : std::runtime_error {
    Failure(std::ptrdiff_t offset_, const std::string& reason) : std::runtime_error(reason), offset(offset_) {}
    std::ptrdiff_t offset;
};

std::string quoted(std::string_view text) {
    constexpr std::size_t longest = 60;
    std::string shown(text.substr(0, longest));
    // A cut in the middle of a character, and line breaks, would spoil the one line of an error.
    if (shown.size() < text.size()) shown.resize(std::min(shown.size(), first_bad_byte(shown)));
    std::replace_if(
        shown.begin(), shown.end(), [](char c) { return c == '\n' || c == '\r'; }, ' ');
    return "\"" + shown + (shown.size() < text.size() ? "...\"" : "\"");
}

[[noreturn]] void fail(const pugi::xml_node& node, const std::string& what, const std::string& found,
                       const std::string& expected) {
    throw Failure(node.offset_debug(), what + " (found " + found + ", expected " + expected + ")");
}

bool is_element(const pugi::xml_node& node) { return node.type() == pugi::node_element; }

// Text between elements means nothing in this format, so it is a slip of whoever wrote the file.
void check_no_text(const pugi::xml_node& node) {
    for (const pugi::xml_node& child : node.children()) {
        const bool is_text = child.type() == pugi::node_pcdata || child.type() == pugi::node_cdata;
        const std::string_view text = child.value();
        const std::size_t first = text.find_first_not_of(" \t\r\n");
        if (!is_text || first == std::string_view::npos) continue;
        throw Failure(child.offset_debug() + static_cast<std::ptrdiff_t>(first),
                      std::string("text inside <") + node.name() + "> (found " + quoted(text.substr(first)) +
                          ", expected elements only)");
    }
}

void check_attributes(const pugi::xml_node& node, std::initializer_list<std::string_view> known) {
    std::set<std::string_view> seen;
    for (const pugi::xml_attribute& attribute : node.attributes()) {
        const std::string_view name = attribute.name();
        if (std::find(known.begin(), known.end(), name) == known.end()) {
            std::string expected;
            for (std::string_view word : known) expected += (expected.empty() ? "" : ", ") + std::string(word);
            fail(node, std::string("unknown attribute of <") + node.name() + ">", quoted(name), expected);
        }
        if (!seen.insert(name).second)
            fail(node, std::string("attribute of <") + node.name() + "> twice", quoted(name), "it once");
    }
}

pugi::xml_attribute required(const pugi::xml_node& node, const char* name) {
    const pugi::xml_attribute attribute = node.attribute(name);
    if (!attribute) fail(node, std::string("incomplete <") + node.name() + ">", "none", std::string(name) + "=\"...\"");
    return attribute;
}

long long read_number(const pugi::xml_node& node, const char* name, long long least, long long most) {
    const char* text = required(node, name).value();
    const auto number = parse_whole_number(text);
    if (!number || *number < least || *number > most)
        fail(node, std::string("bad ") + name, quoted(text),
             "a whole number from " + std::to_string(least) + " to " + std::to_string(most));
    return *number;
}

CGuid read_guid(const pugi::xml_node& node, const char* name) {
    const char* text = required(node, name).value();
    const auto id = parse_guid(text);
    if (!id || id->is_empty())
        fail(node, std::string("bad ") + name, quoted(text), "an identifier like 283B689B-6775-0F82-3171-70E93AFF15F6");
    return *id;
}

tstringW unescaped(const pugi::xml_node& node, std::string_view bytes, bool escaped) {
    auto text = from_xml_text(bytes, escaped);
    if (!text) fail(node, "bad escape", quoted(bytes), "\\\\ or \\u{HEX}");
    return std::move(*text);
}

std::string content_of(const pugi::xml_node& node) {
    std::string content;
    for (const pugi::xml_node& child : node.children()) {
        if (is_element(child)) fail(child, "element inside <text>", quoted(child.name()), "text");
        if (child.type() == pugi::node_pcdata || child.type() == pugi::node_cdata) content += child.value();
    }
    return content;
}

// A text stands in an attribute, in its escaped sister, or, where it has several lines, between the tags.
tstringW read_text(const pugi::xml_node& node) {
    const std::string content = content_of(node);
    const pugi::xml_attribute plain = node.attribute("value");
    const pugi::xml_attribute escaped = node.attribute("value-escaped");
    if ((plain ? 1 : 0) + (escaped ? 1 : 0) + (content.empty() ? 0 : 1) > 1)
        fail(node, "text given twice", "more than one value", "value, value-escaped or content");
    if (escaped) return unescaped(node, escaped.value(), true);
    return unescaped(node, plain ? plain.value() : content, false);
}

PropertyValue read_property(const pugi::xml_node& node, const PropertyValue& kind) {
    if (std::holds_alternative<tstringW>(kind)) {
        check_attributes(node, {"key", "value", "value-escaped"});
        return read_text(node);
    }
    check_attributes(node, {"key", "value"});
    check_no_text(node);
    if (const auto child = std::find_if(node.begin(), node.end(), is_element); child != node.end())
        fail(*child, std::string("element inside <") + node.name() + ">", quoted(child->name()), "none");
    const char* text = required(node, "value").value();
    auto value = parse_value(text, kind);
    if (!value)
        fail(node, std::string("bad value of ") + node.name() + " " + quoted(node.attribute("key").value()),
             quoted(text), expected_value(kind));
    return std::move(*value);
}

void read_children(const pugi::xml_node& from, ProjectNode& to, int depth);

void read_child(const pugi::xml_node& element, ProjectNode& to, int depth) {
    const std::string_view name = element.name();
    if (name == "node") {
        check_attributes(element, {"name"});
        read_children(element, to.add(required(element, "name").value()), depth + 1);
        return;
    }
    const auto row = std::find_if(std::begin(property_elements), std::end(property_elements),
                                  [name](const auto& known) { return known.first == name; });
    if (row == std::end(property_elements))
        fail(element, "unknown element", "<" + std::string(name) + ">",
             "node, int, bool, float, rect, vec3, vec4 or text");
    const std::string key = required(element, "key").value();
    if (!to.set(key, read_property(element, row->second)))
        fail(element, "key twice in one node", quoted(key), "every key once");
}

void read_children(const pugi::xml_node& from, ProjectNode& to, int depth) {
    if (depth > deepest_nesting)
        fail(from, "nested too deeply", std::to_string(depth) + " levels",
             std::to_string(deepest_nesting) + " at most");
    check_no_text(from);
    for (const pugi::xml_node& child : from.children())
        if (is_element(child)) read_child(child, to, depth);
}

tstringW read_item_name(const pugi::xml_node& element) {
    const pugi::xml_attribute escaped = element.attribute("name-escaped");
    if (escaped && element.attribute("name")) fail(element, "name given twice", "name and name-escaped", "one of them");
    return unescaped(element, escaped ? escaped.value() : element.attribute("name").value(), !escaped.empty());
}

ProjectItem read_item(const pugi::xml_node& element, int depth) {
    check_attributes(element, {"type", "id", "parent", "name", "name-escaped", "visible", "flag"});
    ProjectItem item;
    item.type = static_cast<unsigned long>(read_number(element, "type", 1, UINT32_MAX));
    item.id = read_guid(element, "id");
    if (element.attribute("parent")) item.parent = read_guid(element, "parent");
    item.name = read_item_name(element);
    if (element.attribute("visible")) item.visible = read_number(element, "visible", 0, 1) != 0;
    if (element.attribute("flag")) item.flag = static_cast<int>(read_number(element, "flag", INT32_MIN, INT32_MAX));
    read_children(element, item.data, depth);
    return item;
}

class DocumentReader {
public:
    DocumentReader(std::string_view text, ProjectDocument& document) : m_text(text), m_document(document) {}

    void read_root(const pugi::xml_document& xml) {
        const pugi::xml_node root = only_root(xml);
        check_attributes(root, {"version"});
        const auto version = parse_whole_number(required(root, "version").value());
        if (!version || *version < 1)
            fail(root, "bad version", quoted(root.attribute("version").value()), std::to_string(known_version));
        if (*version > known_version)
            fail(root, "made by a newer version of the program", "version " + std::to_string(*version),
                 "version " + std::to_string(known_version) + " or older");
        check_no_text(root);
        read_sections(root);
    }

private:
    static pugi::xml_node only_root(const pugi::xml_document& xml) {
        pugi::xml_node root;
        for (const pugi::xml_node& child : xml.children()) {
            if (!is_element(child)) continue;
            if (root) fail(child, "more than one project", quoted(child.name()), "the end of the file");
            root = child;
        }
        if (std::string_view(root.name()) != "project")
            fail(root, "no project file", "<" + std::string(root.name()) + ">", "<project>");
        return root;
    }

    void read_sections(const pugi::xml_node& root) {
        std::set<std::string_view> seen;
        for (const pugi::xml_node& section : root.children()) {
            if (!is_element(section)) continue;
            const std::string_view name = section.name();
            if (name != "modules" && name != "items")
                fail(section, "unknown element", "<" + std::string(name) + ">", "modules or items");
            if (!seen.insert(name).second) fail(section, "section twice", quoted(name), "it once");
            check_attributes(section, {});
            if (name == "modules")
                read_children(section, m_document.modules, 2);
            else
                read_items(section);
        }
    }

    void read_items(const pugi::xml_node& section) {
        check_no_text(section);
        for (const pugi::xml_node& element : section.children()) {
            if (!is_element(element)) continue;
            if (std::string_view(element.name()) != "item")
                fail(element, "unknown element", "<" + std::string(element.name()) + ">", "item");
            ProjectItem item = read_item(element, 3);
            if (!item.parent.is_empty() && !m_ids.contains(item.parent))
                fail(element, "unknown parent", format_guid(item.parent), "the identifier of an item further up");
            if (!m_ids.insert(item.id).second)
                fail(element, "identifier twice", format_guid(item.id), "every identifier once");
            item.line = line_at(element.offset_debug());
            m_document.items.push_back(std::move(item));
        }
    }

    // Items come in the order of the text, so the count goes on from the last one.
    int line_at(std::ptrdiff_t offset) {
        const auto at = static_cast<std::size_t>(std::max<std::ptrdiff_t>(offset, 0));
        m_line += line_of(m_text.substr(m_counted, at - m_counted), offset) - 1;
        m_counted = at;
        return m_line;
    }

    std::string_view m_text;
    ProjectDocument& m_document;
    std::set<CGuid> m_ids;
    std::size_t m_counted = 0;
    int m_line = 1;
};

void parse_or_throw(std::string_view text, ProjectDocument& document) {
    if (const std::size_t bad = first_bad_byte(text); bad != std::string_view::npos)
        throw Failure(static_cast<std::ptrdiff_t>(bad),
                      "no text (found a byte or character that XML cannot hold, expected UTF-8)");
    pugi::xml_document xml;
    const auto result = xml.load_buffer(text.data(), text.size(), pugi::parse_default | pugi::parse_ws_pcdata_single,
                                        pugi::encoding_utf8);
    if (!result)
        throw Failure(result.offset, std::string("no XML, or cut off (found: ") + result.description() +
                                         ", expected a whole <project>)");
    DocumentReader(text, document).read_root(xml);
}

}  // namespace

bool parse_project(std::string_view text, const std::string& name, ProjectDocument& document, std::string& error) {
    if (text.starts_with("\xEF\xBB\xBF")) text.remove_prefix(3);
    try {
        ProjectDocument fresh;
        parse_or_throw(text, fresh);
        document = std::move(fresh);
        return true;
    } catch (const Failure& failure) {
        error = name + ":" + std::to_string(line_of(text, failure.offset)) + ": " + failure.what();
    }
    return false;
}

bool read_project(const std::string& path, ProjectDocument& document, std::string& error) {
    std::string bytes;
    if (!read_whole_file(path, largest_file, bytes, error)) {
        error = path + ":1: " + error;
        return false;
    }
    return parse_project(bytes, path, document, error);
}

}  // namespace host
