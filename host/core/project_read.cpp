#include <algorithm>
#include <iterator>
#include <set>
#include <utility>

#include "host/core/id_set.h"
#include "host/core/project_disk.h"
#include "host/core/project_file.h"
#include "host/core/project_plain.h"
#include "host/core/project_text.h"
#include "host/core/project_xml.h"
#include "host/core/text_conversion.h"

namespace host {
namespace {

using namespace xml;

// The elements of properties, each with a value of its kind.
const std::pair<std::string_view, PropertyValue> property_elements[] = {
    {"int", 0},       {"bool", StoredBool{}}, {"float", 0.0f},      {"rect", CRect{}},
    {"vec3", VEC3{}}, {"vec4", VEC4{}},       {"text", tstringW{}},
};

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
    const std::string_view key = required(element, "key").value();
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

ProjectItem read_item(const pugi::xml_node& element, int depth) {
    check_attributes(element, {"type", "id", "parent", "name", "name-escaped", "visible", "flag"});
    ProjectItem item;
    item.type = static_cast<unsigned long>(read_number(element, "type", 1, UINT32_MAX));
    item.id = read_guid(element, "id");
    if (element.attribute("parent")) item.parent = read_guid(element, "parent");
    item.name = read_name(element);
    if (element.attribute("visible")) item.visible = read_number(element, "visible", 0, 1) != 0;
    if (element.attribute("flag")) item.flag = static_cast<int>(read_number(element, "flag", INT32_MIN, INT32_MAX));
    read_children(element, item.data, depth);
    return item;
}

ProjectAnimNode read_anim_node(const pugi::xml_node& element, int depth) {
    check_attributes(element, {"type", "item"});
    ProjectAnimNode node;
    node.type = static_cast<unsigned>(read_number(element, "type", 1, UINT32_MAX));
    if (element.attribute("item")) node.item = read_guid(element, "item");
    read_children(element, node.data, depth);
    return node;
}

// Settings alone; what is missing keeps its default.
ProjectAnimation read_animation_head(const pugi::xml_node& element) {
    check_attributes(element, {"name", "name-escaped", "length", "rate", "mode_flag", "mode_count", "factor", "start"});
    check_no_text(element);
    ProjectAnimation animation;
    animation.name = read_name(element);
    anim_info& info = animation.info;
    const std::pair<const char*, float*> floats[] = {
        {"length", &info.length}, {"rate", &info.rate}, {"factor", &info.factor}};
    for (const auto& [name, value] : floats)
        if (element.attribute(name)) *value = read_float(element, name);
    const std::pair<const char*, int*> numbers[] = {{"mode_flag", &info.mode_flag}, {"mode_count", &info.mode_count}};
    for (const auto& [name, value] : numbers)
        if (element.attribute(name)) *value = static_cast<int>(read_number(element, name, INT32_MIN, INT32_MAX));
    if (element.attribute("start")) animation.starts_by_itself = read_number(element, "start", 0, 1) != 0;
    return animation;
}

class DocumentReader {
public:
    DocumentReader(std::string_view text, ProjectDocument& document) : m_lines(text), m_document(document) {}

    void read_root(const pugi::xml_node& root) {
        check_no_text(root);
        read_sections(root);
    }

private:
    struct Section {
        std::string_view name;
        void (DocumentReader::*read)(const pugi::xml_node&);
    };

    void read_sections(const pugi::xml_node& root) {
        constexpr Section sections[] = {{"modules", &DocumentReader::read_modules},
                                        {"items", &DocumentReader::read_items},
                                        {"animations", &DocumentReader::read_animations}};
        std::set<std::string_view> seen;
        for (const pugi::xml_node& section : root.children()) {
            if (!is_element(section)) continue;
            const std::string_view name = section.name();
            const auto row = std::find_if(std::begin(sections), std::end(sections),
                                          [name](const Section& known) { return known.name == name; });
            if (row == std::end(sections))
                fail(section, "unknown element", "<" + std::string(name) + ">", "modules, items or animations");
            if (!seen.insert(name).second) fail(section, "section twice", quoted(name), "it once");
            check_attributes(section, {});
            (this->*row->read)(section);
        }
    }

    // The elements inside, all of that name.
    static std::vector<pugi::xml_node> elements_of(const pugi::xml_node& parent, std::string_view name) {
        check_no_text(parent);
        std::vector<pugi::xml_node> elements;
        for (const pugi::xml_node& element : parent.children()) {
            if (!is_element(element)) continue;
            if (std::string_view(element.name()) != name)
                fail(element, "unknown element", "<" + std::string(element.name()) + ">", std::string(name));
            elements.push_back(element);
        }
        return elements;
    }

    void read_modules(const pugi::xml_node& section) { read_children(section, m_document.modules, 2); }

    void read_items(const pugi::xml_node& section) {
        const std::vector<pugi::xml_node> elements = elements_of(section, "item");
        m_document.items.reserve(elements.size());
        for (const pugi::xml_node& element : elements) {
            ProjectItem item = read_item(element, 3);
            if (!item.parent.is_empty() && !m_ids.contains(item.parent))
                fail(element, "unknown parent", format_guid(item.parent), "the identifier of an item further up");
            if (!m_ids.insert(item.id))
                fail(element, "identifier twice", format_guid(item.id), "every identifier once");
            item.line = m_lines.line_at(element.offset_debug());
            m_document.items.push_back(std::move(item));
        }
    }

    void read_animations(const pugi::xml_node& section) {
        for (const pugi::xml_node& element : elements_of(section, "animation")) {
            ProjectAnimation animation = read_animation_head(element);
            animation.line = m_lines.line_at(element.offset_debug());
            for (const pugi::xml_node& inner : elements_of(element, "anim_node")) {
                animation.nodes.push_back(read_anim_node(inner, 4));
                animation.nodes.back().line = m_lines.line_at(inner.offset_debug());
            }
            m_document.animations.push_back(std::move(animation));
        }
    }

    LineCounter m_lines;
    ProjectDocument& m_document;
    IdSet m_ids;
};

}  // namespace

bool parse_project(std::string_view text, const std::string& name, ProjectDocument& document, std::string& error) {
    if (auto plain = parse_plain_project(text)) {
        document = std::move(*plain);
        return true;
    }
    ProjectDocument fresh;
    const bool good = read_text_file(text, name, {"project", project_version}, error, [&](const pugi::xml_node& root) {
        DocumentReader(without_mark(text), fresh).read_root(root);
    });
    if (good) document = std::move(fresh);
    return good;
}

namespace {

bool read_bytes(const std::string& path, std::string& bytes, std::string& error) {
    if (read_whole_file(path, largest_file, bytes, error)) return true;
    error = path + ":1: " + error;
    return false;
}

}  // namespace

bool restore_project(const std::string& path, std::string& error) {
    std::string bytes;
    ProjectDocument former;
    const std::string backup = backup_of(path);
    return read_bytes(backup, bytes, error) && parse_project(bytes, backup, former, error) &&
           replace_file(path, bytes, OldFile::KEPT, error);
}

bool read_project(const std::string& path, ProjectDocument& document, std::string& error) {
    std::string bytes;
    if (read_bytes(path, bytes, error) && parse_project(bytes, path, document, error)) return true;
    ProjectDocument former;
    std::string ignored;
    const std::string backup = backup_of(path);
    if (read_bytes(backup, bytes, ignored) && parse_project(bytes, backup, former, ignored))
        error += "; " + backup + " holds it as it was before it was last saved";
    return false;
}

}  // namespace host
