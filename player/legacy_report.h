#pragma once

#include <vector>

#include "host/core/legacy_tree.h"
#include "player/findings.h"

namespace player {

/// What of a legacy project does not come over as its author had it, and why, which the module itself passes over in
/// silence. Looks at the tree, and at the pictures that it names, where the module would look for them.
std::vector<Finding> find_legacy_losses(const host::LegacyProject& project);

}  // namespace player
