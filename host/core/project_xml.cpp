#include "host/core/project_xml.h"

#include <algorithm>
#include <utility>

#include "host/core/memory_watch.h"
#include "host/core/project_text.h"

namespace host::xml {

std::string quoted(std::string_view text) {
    constexpr std::size_t longest = 60;
    std::string shown(text.substr(0, longest));
    // A cut in the middle of a character, and line breaks, would spoil the one line of an error.
    if (shown.size() < text.size()) shown.resize(std::min(shown.size(), first_bad_byte(shown)));
    std::replace_if(
        shown.begin(), shown.end(), [](char c) { return c == '\n' || c == '\r'; }, ' ');
    return "\"" + shown + (shown.size() < text.size() ? "...\"" : "\"");
}

void fail(const pugi::xml_node& node, const std::string& what, const std::string& found, const std::string& expected) {
    throw Failure(node.offset_debug(), what + " (found " + found + ", expected " + expected + ")");
}

bool is_element(const pugi::xml_node& node) { return node.type() == pugi::node_element; }

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
    unsigned seen = 0;
    for (const pugi::xml_attribute& attribute : node.attributes()) {
        const std::string_view name = attribute.name();
        const auto row = std::find(known.begin(), known.end(), name);
        if (row == known.end()) {
            std::string expected;
            for (std::string_view word : known) expected.append(expected.empty() ? "" : ", ").append(word);
            fail(node, std::string("unknown attribute of <") + node.name() + ">", quoted(name), expected);
        }
        const unsigned bit = 1u << (row - known.begin());
        if (seen & bit) fail(node, std::string("attribute of <") + node.name() + "> twice", quoted(name), "it once");
        seen |= bit;
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

float read_float(const pugi::xml_node& node, const char* name) {
    const char* text = required(node, name).value();
    const auto value = parse_value(text, 0.0f);
    if (!value) fail(node, std::string("bad ") + name, quoted(text), expected_value(0.0f));
    return std::get<float>(*value);
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

tstringW read_name(const pugi::xml_node& node) {
    const pugi::xml_attribute escaped = node.attribute("name-escaped");
    if (escaped && node.attribute("name")) fail(node, "name given twice", "name and name-escaped", "one of them");
    return unescaped(node, escaped ? escaped.value() : node.attribute("name").value(), !escaped.empty());
}

namespace {

int line_of(std::string_view text, std::ptrdiff_t offset) {
    const auto end = static_cast<std::size_t>(std::max<std::ptrdiff_t>(offset, 0));
    const std::string_view before = text.substr(0, std::min(end, text.size()));
    return 1 + static_cast<int>(std::count(before.begin(), before.end(), '\n'));
}

pugi::xml_node only_root(const pugi::xml_document& xml, const std::string& name) {
    pugi::xml_node root;
    for (const pugi::xml_node& child : xml.children()) {
        if (!is_element(child)) continue;
        if (root) fail(child, "more than one " + name, quoted(child.name()), "the end of the file");
        root = child;
    }
    if (root.name() != name) fail(root, "no " + name + " file", "<" + std::string(root.name()) + ">", "<" + name + ">");
    return root;
}

void check_version(const pugi::xml_node& root, int known_version) {
    check_attributes(root, {"version"});
    const auto version = parse_whole_number(required(root, "version").value());
    if (!version || *version < 1)
        fail(root, "bad version", quoted(root.attribute("version").value()), std::to_string(known_version));
    if (*version > known_version)
        fail(root, "made by a newer version of the program", "version " + std::to_string(*version),
             "version " + std::to_string(known_version) + " or older");
}

pugi::xml_node load_root(std::string_view text, FileKind kind, pugi::xml_document& xml) {
    if (const std::size_t bad = first_bad_byte(text); bad != std::string_view::npos)
        throw Failure(static_cast<std::ptrdiff_t>(bad),
                      "no text (found a byte or character that XML cannot hold, expected UTF-8)");
    const auto result = xml.load_buffer(text.data(), text.size(), pugi::parse_default | pugi::parse_ws_pcdata_single,
                                        pugi::encoding_utf8);
    if (result.status == pugi::status_out_of_memory) refuse_memory();
    if (!result)
        throw Failure(result.offset, std::string("no XML, or cut off (found: ") + result.description() +
                                         ", expected a whole <" + kind.root + ">)");
    const pugi::xml_node root = only_root(xml, kind.root);
    check_version(root, kind.version);
    return root;
}

}  // namespace

std::string_view without_mark(std::string_view text) {
    if (text.starts_with("\xEF\xBB\xBF")) text.remove_prefix(3);
    return text;
}

bool read_text_file(std::string_view text, const std::string& name, FileKind kind, std::string& error,
                    const std::function<void(const pugi::xml_node& root)>& read) {
    text = without_mark(text);
    try {
        pugi::xml_document xml;
        read(load_root(text, kind, xml));
        return true;
    } catch (const Failure& failure) {
        error = name + ":" + std::to_string(line_of(text, failure.offset)) + ": " + failure.what();
    }
    return false;
}

int LineCounter::line_at(std::ptrdiff_t offset) {
    const auto at = static_cast<std::size_t>(std::max<std::ptrdiff_t>(offset, 0));
    m_line += line_of(m_text.substr(m_counted, at - m_counted), offset) - 1;
    m_counted = at;
    return m_line;
}

}  // namespace host::xml
