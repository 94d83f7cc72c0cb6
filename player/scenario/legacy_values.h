#pragma once

#include <memory>

#include "host/core/legacy_tree.h"
#include "player/scenario/value.h"

namespace scenario {

/// A legacy project as a table: {name=, code=, value=, children={...}}, whose children are "GUI", "UIStages" and
/// "Timebar". `value` is a number, a text, a list of numbers, or {hex=} for bytes that are no value of their code; a
/// child may be false for a place without a node.
Value tree_of(const host::LegacyProject& project);
/// The way back; `path` is what the project says of its file. Throws Failure for what is no tree.
std::unique_ptr<host::LegacyProject> legacy_project_of(const Value& tree, const std::string& path);

/// A whole number of 32 bits, which may be meant with or without a sign.
std::int32_t read_word(const Value& value, const std::string& what);

}  // namespace scenario
