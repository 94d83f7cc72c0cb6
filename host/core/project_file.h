#pragma once

// The project file: reading and writing of a ProjectDocument as UTF-8 XML. Touches no scene and no module. The format
// is described in docs/project-file.md.

#include <string>
#include <string_view>

#include "host/core/project_document.h"

namespace host {

/// False: `error` is one line, "FILE:LINE: reason", and the document is as it was. It tells also of a FILE.bak that
/// could be read.
bool read_project(const std::string& path, ProjectDocument& document, std::string& error);
/// The same from text; `name` stands for the file in errors.
bool parse_project(std::string_view text, const std::string& name, ProjectDocument& document, std::string& error);

/// Replaces the file as one step, after a look whether the new text can be read again; the old file is kept beside it,
/// as FILE.bak. False: the old file stands as it was, and `error` says what failed.
bool write_project(const std::string& path, const ProjectDocument& document, std::string& error);
/// Puts FILE.bak in the file's place, and the file in its. False: both stand as they were, and `error` says why.
bool restore_project(const std::string& path, std::string& error);
/// Empty with `error` set if a key or a node name is no UTF-8 text that XML can hold.
std::string format_project(const ProjectDocument& document, std::string& error);

}  // namespace host
