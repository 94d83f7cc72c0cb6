#pragma once

#include "engine/project_tree.h"
#include "platform_types.h"

/// How the record of a slot is stored, `slot` 0 to 7.
void save_logfont(pack_node* node, int slot, const LOGFONTW& record, const tstringW& file_name);
/// Reads in the same order. A missing key leaves its field, but for the face name, which becomes empty, and for byte
/// fields, which then hold what the word of the field ahead brought along.
void read_logfont(pack_node* node, int slot, LOGFONTW& record, tstringW& file_name);
