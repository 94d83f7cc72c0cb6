#pragma once

#include <functional>
#include <string>
#include <vector>

#include "host/core/project_document.h"
#include "player/stored_slots.h"

namespace player {

/// Something in a project that its author surely did not mean.
struct Finding {
    /// Where it stands in the file; 0 for the project as a whole.
    int line = 0;
    /// Name of the item, empty for the project as a whole.
    std::wstring item;
    std::string text;
};

/// The file of the font that this machine has for a slot; empty if it has none.
using FontFinder = std::function<std::string(const FontWish& wish)>;

/// Looks at the document alone, and at the pictures and fonts that it names. `path` is that of the project file. The
/// finder is asked only where the project wants other fonts than the engine's own.
std::vector<Finding> find_problems(const host::ProjectDocument& document, const std::string& path,
                                   const FontFinder& find_font);

}  // namespace player
