#pragma once

#include "host/core/project_document.h"
#include "player/scenario/value.h"

namespace scenario {

/// A project as a table: {name=, properties={{key=, type=, value=}, ...}, children={...}}. Below the root stand
/// "modules" with a node of each module, "items" and, where there are any, "animations". What the engine stores of an
/// item, an animation or an animation node are the first properties of its node.
Value tree_of(const host::ProjectDocument& document);
/// The way back. Whatever is left out has its default. Throws Failure for what is no project.
host::ProjectDocument document_of(const Value& tree, const std::string& what);

}  // namespace scenario
