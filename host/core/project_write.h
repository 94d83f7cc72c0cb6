#pragma once

// The text of a project file, put together part by part.

#include <string>
#include <string_view>

#include "host/core/former_lines.h"
#include "host/core/project_document.h"
#include "host/core/text_buffer.h"

namespace host {

/// Takes the modules first, then every item, then every animation. What it gives is the text of that part, valid until
/// the next one.
class ProjectText {
public:
    /// For about so many items.
    explicit ProjectText(std::size_t items);
    std::string_view add_modules(const ProjectNode& modules);
    std::string_view add_item(const ProjectItem& item);
    std::string_view add_animation(const ProjectAnimation& animation);
    /// Once, behind the last part. Gives the text.
    std::string_view finish();
    /// The text so far, but for what was forgotten.
    std::string_view text() const { return m_out.from(0); }
    /// For one who has written it elsewhere: what follows goes on behind it.
    void forget_text() { m_out.clear(); }
    /// Empty, or why this is no text of a project: a key or a name cannot stand in one.
    const std::string& error() const { return m_error; }

private:
    void indent();
    void open_section(std::string_view name);
    void close(std::string_view name);
    void escaped(std::string_view text, bool in_attribute);
    void attribute(std::string_view name, std::string_view value);
    template <class Number>
    void number_attribute(std::string_view name, Number number);
    void value_attribute(std::string_view name, const PropertyValue& value);
    void guid_attribute(std::string_view name, const CGuid& id);
    void text_attribute(std::string_view name, std::wstring_view text);
    /// False if the text has to be escaped, and nothing is written.
    template <class Text>
    bool plain_attribute(std::string_view name, const Text& text);
    /// A line up to its key's quotation mark. `line` is the former one of that kind, or null; gives what the next ones
    /// have as such, null if it is not kept.
    FormerLine* begin_line(FormerLine* line, std::uint8_t kind, std::string_view key) {
        if (!line) return begin_new_line(kind, key);
        m_out.append(line->text, line->head);
        return line;
    }
    FormerLine* begin_new_line(std::uint8_t kind, std::string_view key);
    void write_anim_node(const ProjectAnimNode& node);
    void write_inside(std::string_view element, const ProjectNode& node);
    void write_node(const ProjectNode& node);
    void write_children(const ProjectNode& node);
    void write_property(const Property& property);
    /// `line` is the former one of that kind, or null.
    void write_anew(FormerLine* line, const Property& property);
    void write_text(const tstringW& text);

    TextBuffer m_out;
    FormerLines m_former;
    std::size_t m_depth = 1;
    std::string_view m_section;
    std::string m_error;
};

}  // namespace host
