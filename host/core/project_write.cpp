#include "host/core/project_write.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "host/core/plain_bytes.h"
#include "host/core/project_file.h"
#include "host/core/project_text.h"

namespace host {
namespace {

// What a character stands as in a file; null for one that stands for itself. Line breaks and tabs of an attribute
// survive only as references; a carriage return never survives as itself.
const char* reference_for(char c, bool in_attribute) {
    switch (c) {
        case '&':
            return "&amp;";
        case '<':
            return "&lt;";
        case '>':
            return "&gt;";
        case '\r':
            return "&#13;";
        case '"':
            return in_attribute ? "&quot;" : nullptr;
        case '\n':
            return in_attribute ? "&#10;" : nullptr;
        case '\t':
            return in_attribute ? "&#9;" : nullptr;
        default:
            return nullptr;
    }
}

// Copies what stands for itself; null at the first character that does not.
char* put_plain(char* to, std::string_view text) { return has_special(text) ? nullptr : TextBuffer::put(to, text); }
constexpr std::array<bool, 0x7F> all_plain_characters() {
    std::array<bool, 0x7F> plain{};
    for (std::size_t c = 0; c < plain.size(); ++c) plain[c] = !is_special(static_cast<char>(c));
    return plain;
}
constexpr std::array<bool, 0x7F> plain_characters = all_plain_characters();
bool is_plain(wchar_t c) {
    const auto code = static_cast<std::size_t>(c);
    return code < plain_characters.size() && plain_characters[code];
}
char* put_plain(char* to, std::wstring_view text) {
    for (const wchar_t c : text) {
        if (!is_plain(c)) return nullptr;
        *to++ = static_cast<char>(c);
    }
    return to;
}

// The beginning of a line with a key or a name, by its kind.
constexpr std::string_view line_tags[] = {"<int",  "<bool", "<float", "<rect", "<vec3",
                                          "<vec4", "<text", "<node",  "<node"};
static_assert(std::size(line_tags) == FormerLine::EMPTY_NODE + 1);
constexpr std::string_view attribute_of(std::uint8_t kind) { return kind < FormerLine::NODE ? "key" : "name"; }

// Room for a value or two identifiers and what stands around it.
constexpr std::size_t most_around = 128;
static_assert(most_around > longest_value + 32 && most_around > 2 * guid_text::length + 50);

// Digits of a whole number, with its sign.
constexpr std::size_t longest_number = 20;

template <class Number>
char* write_digits(char* to, Number number) {
    return std::to_chars(to, to + longest_number, number).ptr;
}

constexpr std::string_view items_section = "items";
constexpr std::string_view animations_section = "animations";

}  // namespace

ProjectText::ProjectText(std::size_t items) {
    constexpr std::size_t usual_item = 2048;
    m_out.reserve((items + 1) * usual_item);
    m_out.append("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<project version=\"1\">\n");
}

std::string_view ProjectText::add_modules(const ProjectNode& modules) {
    const std::size_t begin = m_out.size();
    open_section("modules");
    write_children(modules);
    close("modules");
    const std::size_t end = m_out.size();
    open_section(m_section = items_section);
    return m_out.from(begin).substr(0, end - begin);
}

std::string_view ProjectText::add_item(const ProjectItem& item) {
    const std::size_t begin = m_out.size();
    indent();
    // Nothing but the name needs a look at what stands in it.
    char* at = TextBuffer::put(m_out.room(most_around), "<item type=\"");
    at = write_digits(at, item.type);
    at = write_guid(TextBuffer::put(at, "\" id=\""), item.id);
    if (!item.parent.is_empty()) at = write_guid(TextBuffer::put(at, "\" parent=\""), item.parent);
    m_out.end_at(TextBuffer::put(at, "\""));
    text_attribute("name", item.name);
    at = TextBuffer::put(m_out.room(most_around), item.visible ? " visible=\"1\" flag=\"" : " visible=\"0\" flag=\"");
    at = write_digits(at, item.flag);
    m_out.end_at(TextBuffer::put(at, "\""));
    write_inside("item", item.data);
    return m_out.from(begin);
}

std::string_view ProjectText::add_animation(const ProjectAnimation& animation) {
    if (m_section == items_section) {
        close(items_section);
        open_section(m_section = animations_section);
    }
    const std::size_t begin = m_out.size();
    indent();
    m_out.append("<animation");
    text_attribute("name", animation.name);
    value_attribute("length", animation.info.length);
    value_attribute("rate", animation.info.rate);
    value_attribute("mode_flag", animation.info.mode_flag);
    value_attribute("mode_count", animation.info.mode_count);
    value_attribute("factor", animation.info.factor);
    number_attribute("start", animation.starts_by_itself ? 1 : 0);
    if (animation.nodes.empty()) {
        m_out.append("/>\n");
        return m_out.from(begin);
    }
    m_out.append(">\n");
    ++m_depth;
    for (const ProjectAnimNode& node : animation.nodes) write_anim_node(node);
    close("animation");
    return m_out.from(begin);
}

std::string_view ProjectText::finish() {
    close(m_section);
    m_out.append("</project>\n");
    return text();
}

void ProjectText::indent() {
    const std::size_t blanks = m_depth * 2;
    char* const at = m_out.room(blanks);
    m_out.end_at(std::fill_n(at, blanks, ' '));
}

void ProjectText::open_section(std::string_view name) {
    indent();
    m_out.append("<");
    m_out.append(name);
    m_out.append(">\n");
    ++m_depth;
}

void ProjectText::close(std::string_view name) {
    --m_depth;
    indent();
    m_out.append("</");
    m_out.append(name);
    m_out.append(">\n");
}

void ProjectText::escaped(std::string_view text, bool in_attribute) {
    constexpr std::string_view special = "&<>\r\"\n\t";
    for (std::size_t at = text.find_first_of(special); at != std::string_view::npos; at = text.find_first_of(special)) {
        const char* reference = reference_for(text[at], in_attribute);
        m_out.append(text.substr(0, at));
        m_out.append(reference ? std::string_view(reference) : text.substr(at, 1));
        text.remove_prefix(at + 1);
    }
    m_out.append(text);
}

void ProjectText::attribute(std::string_view name, std::string_view value) {
    m_out.append(" ");
    m_out.append(name);
    m_out.append("=\"");
    escaped(value, true);
    m_out.append("\"");
}

template <class Text>
bool ProjectText::plain_attribute(std::string_view name, const Text& text) {
    char* at = m_out.room(name.size() + text.size() + most_around);
    *at++ = ' ';
    at = put_plain(TextBuffer::put(TextBuffer::put(at, name), "=\""), text);
    if (!at) return false;
    *at++ = '"';
    m_out.end_at(at);
    return true;
}

template <class Number>
void ProjectText::number_attribute(std::string_view name, Number number) {
    char digits[longest_number];
    plain_attribute(name, std::string_view(digits, write_digits(digits, number)));
}

void ProjectText::value_attribute(std::string_view name, const PropertyValue& value) {
    char text[longest_value];
    plain_attribute(name, std::string_view(text, write_value(text, value)));
}

void ProjectText::guid_attribute(std::string_view name, const CGuid& id) {
    char text[guid_text::length];
    plain_attribute(name, std::string_view(text, write_guid(text, id)));
}

void ProjectText::text_attribute(std::string_view name, std::wstring_view text) {
    if (plain_attribute(name, text)) return;
    const XmlText xml = to_xml_text(text);
    attribute(xml.escaped ? std::string(name) + "-escaped" : name, xml.bytes);
}

// Keys and names come from programs as bytes; a wrong one must not make a file that no one can read.
FormerLine* ProjectText::begin_new_line(std::uint8_t kind, std::string_view key) {
    const std::size_t begin = m_out.size();
    const std::string_view tag = line_tags[kind];
    const std::size_t blanks = m_depth * 2;
    char* const at = m_out.room(blanks + tag.size());
    m_out.end_at(TextBuffer::put(std::fill_n(at, blanks, ' '), tag));
    if (plain_attribute(attribute_of(kind), key)) return m_former.add(kind, m_depth, key, m_out.from(begin));
    const std::size_t key_begin = m_out.size();
    attribute(attribute_of(kind), key);
    if (m_error.empty() && first_bad_byte(m_out.from(key_begin)) != std::string::npos)
        m_error.append("the ")
            .append(attribute_of(kind))
            .append(" \"")
            .append(key)
            .append("\" cannot stand in a project file");
    return nullptr;
}

void ProjectText::write_anim_node(const ProjectAnimNode& node) {
    indent();
    m_out.append("<anim_node");
    number_attribute("type", node.type);
    if (!node.item.is_empty()) guid_attribute("item", node.item);
    write_inside("anim_node", node.data);
}

void ProjectText::write_inside(std::string_view element, const ProjectNode& node) {
    if (node.is_empty()) {
        m_out.append("/>\n");
        return;
    }
    m_out.append(">\n");
    ++m_depth;
    write_children(node);
    close(element);
}

void ProjectText::write_children(const ProjectNode& node) {
    for (const Property& property : node.properties()) write_property(property);
    for (const ProjectNode* child : node.children()) write_node(*child);
}

void ProjectText::write_node(const ProjectNode& node) {
    const std::uint8_t kind = node.is_empty() ? FormerLine::EMPTY_NODE : FormerLine::NODE;
    FormerLine* line = m_former.find(kind, m_depth, node.name());
    if (line && line->whole > 0) {
        m_out.append(line->text, line->whole);
        return;
    }
    const std::size_t begin = m_out.size();
    line = begin_line(line, kind, node.name());
    write_inside("node", node);
    if (line && kind == FormerLine::EMPTY_NODE) line->keep(m_out.from(begin), {});
}

void ProjectText::write_property(const Property& property) {
    const auto kind = static_cast<std::uint8_t>(property.value.index());
    FormerLine* const line = m_former.find(kind, m_depth, property.key);
    // Of a text no line is kept as a whole.
    if (line && line->whole > 0 && line->bits == bits_of_value(property.value)) {
        m_out.append(line->text, line->whole);
    } else {
        write_anew(line, property);
    }
}

void ProjectText::write_anew(FormerLine* line, const Property& property) {
    const std::size_t begin = m_out.size();
    line = begin_line(line, static_cast<std::uint8_t>(property.value.index()), property.key);
    if (const tstringW* text = std::get_if<tstringW>(&property.value)) return write_text(*text);
    // No number needs an escape.
    char* const at = m_out.room(most_around);
    m_out.end_at(TextBuffer::put(write_value(TextBuffer::put(at, " value=\""), property.value), "\"/>\n"));
    if (line) line->keep(m_out.from(begin), bits_of_value(property.value));
}

void ProjectText::write_text(const tstringW& text) {
    if (text.find(L'\n') != tstringW::npos) {
        const XmlText xml = to_xml_text(text);
        // Several lines, such as scripts, are for people to read, so they keep their lines.
        if (!xml.escaped) {
            m_out.append(">");
            escaped(xml.bytes, false);
            m_out.append("</text>\n");
            return;
        }
    }
    text_attribute("value", text);
    m_out.append("/>\n");
}

std::string format_project(const ProjectDocument& document, std::string& error) {
    ProjectText text(document.items.size());
    text.add_modules(document.modules);
    for (const ProjectItem& item : document.items) text.add_item(item);
    for (const ProjectAnimation& animation : document.animations) text.add_animation(animation);
    if (text.error().empty()) return std::string(text.finish());
    error = text.error();
    return {};
}

}  // namespace host
