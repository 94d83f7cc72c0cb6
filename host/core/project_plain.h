#pragma once

// Project texts in the very form in which they are written. What people have changed may look otherwise: the general
// reader takes that, and knows what to say of what is wrong.

#include <optional>
#include <string_view>

#include "host/core/known_lines.h"
#include "host/core/project_document.h"

namespace host {

inline constexpr int project_version = 1;

/// The same document that the general reader makes of the text; empty if the text is not of that form, or wrong.
std::optional<ProjectDocument> parse_plain_project(std::string_view text);

/// Whether the text of one part, read like a file, gives what it was made from, bit by bit. Identifiers are not
/// compared with those of other parts.
class ProjectReadBack {
public:
    bool gives(std::string_view text, const ProjectNode& modules);
    bool gives(std::string_view text, const ProjectItem& item);
    bool gives(std::string_view text, const ProjectAnimation& animation);

private:
    KnownLines m_lines;
    // Read again and again, so that its name keeps its memory.
    ProjectItem m_head;
};

}  // namespace host
