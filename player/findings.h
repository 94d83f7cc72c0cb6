#pragma once

#include <string>
#include <vector>

#include "host/core/project_document.h"

namespace player {

/// Something in a project that its author surely did not mean.
struct Finding {
    /// Where it stands in the file; 0 for the project as a whole.
    int line = 0;
    /// Name of the item, empty for the project as a whole.
    std::wstring item;
    std::string text;
};

/// Looks at the document alone, and at the pictures and fonts that it names. `folder` is that of the project file.
std::vector<Finding> find_problems(const host::ProjectDocument& document, const std::string& folder);

}  // namespace player
