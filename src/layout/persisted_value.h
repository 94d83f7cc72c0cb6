#pragma once

#include "engine/project_tree.h"

/// Reads a property like get_property, but takes no number that is none: a file can hold NaN and infinity, and none of
/// them may reach a rectangle, a weight or the next file. The value then stays as it was, and the result is false.
bool read_value(pack_node* node, const char* key, pak_node_type type, void* value);
