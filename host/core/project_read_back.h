#pragma once

#include <string_view>

#include "host/core/known_lines.h"
#include "host/core/project_document.h"

namespace host {

/// Whether the text of one part, read like a file, gives what it was made from, bit by bit. Identifiers are not
/// compared with those of other parts.
class ProjectReadBack {
public:
    bool gives(std::string_view text, const ProjectNode& modules);
    bool gives(std::string_view text, const ProjectItem& item);
    bool gives(std::string_view text, const ProjectAnimation& animation);

private:
    KnownLines m_lines;
};

}  // namespace host
