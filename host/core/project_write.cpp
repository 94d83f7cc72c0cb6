#include <stdexcept>

#include "host/core/project_disk.h"
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

class Writer {
public:
    std::string write(const ProjectDocument& document) {
        constexpr std::size_t usual_item = 2048;
        m_out.reserve(document.items.size() * usual_item);
        m_out = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<project version=\"1\">\n";
        m_depth = 1;
        open_section("modules");
        write_children(document.modules);
        close("modules");
        open_section("items");
        for (const ProjectItem& item : document.items) write_item(item);
        close("items");
        if (!document.animations.empty()) write_animations(document.animations);
        m_out += "</project>\n";
        return std::move(m_out);
    }

private:
    // Piece by piece: no text is put together elsewhere first.
    template <class... Pieces>
    void add(Pieces... pieces) {
        (m_out.append(std::string_view(pieces)), ...);
    }
    void add_escaped(std::string_view text, bool in_attribute) {
        constexpr std::string_view special = "&<>\r\"\n\t";
        for (std::size_t at = text.find_first_of(special); at != std::string_view::npos;
             at = text.find_first_of(special)) {
            const char* reference = reference_for(text[at], in_attribute);
            add(text.substr(0, at), reference ? std::string_view(reference) : text.substr(at, 1));
            text.remove_prefix(at + 1);
        }
        add(text);
    }
    void indent() { m_out.append(m_depth * 2, ' '); }
    void open_section(const char* name) {
        indent();
        add("<", name, ">\n");
        ++m_depth;
    }
    void close(const char* name) {
        --m_depth;
        indent();
        add("</", name, ">\n");
    }
    void attribute(const char* name, std::string_view value) {
        add(" ", name, "=\"");
        add_escaped(value, true);
        add("\"");
    }
    void text_attribute(const char* name, const XmlText& text) {
        attribute(text.escaped ? (std::string(name) + "-escaped").c_str() : name, text.bytes);
    }
    // Keys and names come from programs as bytes; a wrong one must not make a file that no one can read.
    void key_attribute(const char* name, const std::string& key) {
        const std::size_t begin = m_out.size();
        attribute(name, key);
        if (first_bad_byte(std::string_view(m_out).substr(begin)) != std::string::npos)
            throw std::invalid_argument("the " + std::string(name) + " \"" + key + "\" cannot stand in a project file");
    }

    void write_item(const ProjectItem& item) {
        indent();
        m_out += "<item";
        attribute("type", std::to_string(item.type));
        attribute("id", format_guid(item.id));
        if (!item.parent.is_empty()) attribute("parent", format_guid(item.parent));
        text_attribute("name", to_xml_text(item.name));
        attribute("visible", item.visible ? "1" : "0");
        attribute("flag", std::to_string(item.flag));
        write_inside("item", item.data);
    }

    void write_animations(const std::vector<ProjectAnimation>& animations) {
        open_section("animations");
        for (const ProjectAnimation& animation : animations) write_animation(animation);
        close("animations");
    }

    void write_animation(const ProjectAnimation& animation) {
        indent();
        m_out += "<animation";
        text_attribute("name", to_xml_text(animation.name));
        attribute("length", format_value(animation.info.length));
        attribute("rate", format_value(animation.info.rate));
        attribute("mode_flag", format_value(animation.info.mode_flag));
        attribute("mode_count", format_value(animation.info.mode_count));
        attribute("factor", format_value(animation.info.factor));
        attribute("start", animation.starts_by_itself ? "1" : "0");
        if (animation.nodes.empty()) {
            m_out += "/>\n";
            return;
        }
        m_out += ">\n";
        ++m_depth;
        for (const ProjectAnimNode& node : animation.nodes) write_anim_node(node);
        close("animation");
    }

    void write_anim_node(const ProjectAnimNode& node) {
        indent();
        m_out += "<anim_node";
        attribute("type", std::to_string(node.type));
        if (!node.item.is_empty()) attribute("item", format_guid(node.item));
        write_inside("anim_node", node.data);
    }

    void write_inside(const char* element, const ProjectNode& node) {
        if (node.is_empty()) {
            m_out += "/>\n";
            return;
        }
        m_out += ">\n";
        ++m_depth;
        write_children(node);
        close(element);
    }

    void write_children(const ProjectNode& node) {
        for (const Property& property : node.properties()) write_property(property);
        for (const auto& child : node.children()) {
            indent();
            m_out += "<node";
            key_attribute("name", child->name());
            write_inside("node", *child);
        }
    }

    void write_property(const Property& property) {
        const char* kind = kind_name(property.value);
        indent();
        add("<", kind);
        key_attribute("key", property.key);
        const tstringW* text = std::get_if<tstringW>(&property.value);
        if (!text) {
            // No number needs an escape.
            add(" value=\"");
            append_value(m_out, property.value);
            add("\"/>\n");
            return;
        }
        const XmlText xml = to_xml_text(*text);
        // Several lines, such as scripts, are for people to read, so they keep their lines.
        if (!xml.escaped && xml.bytes.find('\n') != std::string::npos) {
            add(">");
            add_escaped(xml.bytes, false);
            add("</text>\n");
            return;
        }
        text_attribute("value", xml);
        m_out += "/>\n";
    }

    std::string m_out;
    std::size_t m_depth = 0;
};

}  // namespace

std::string format_project(const ProjectDocument& document, std::string& error) {
    try {
        return Writer().write(document);
    } catch (const std::invalid_argument& wrong) {
        error = wrong.what();
        return {};
    }
}

namespace {

// What can't be read again must not take the place of what can.
bool comes_back(const std::string& bytes, std::string& error) {
    ProjectDocument back;
    if (!parse_project(bytes, "the new text", back, error)) return false;
    if (format_project(back, error) == bytes) return true;
    if (error.empty()) error = "it would not come back as it is";
    return false;
}

}  // namespace

bool write_project(const std::string& path, const ProjectDocument& document, std::string& error) {
    error.clear();
    const std::string bytes = format_project(document, error);
    const bool good = !bytes.empty() && comes_back(bytes, error) && replace_file(path, bytes, OldFile::KEPT, error);
    if (!good) error = path + ": not saved: " + error;
    return good;
}

}  // namespace host
