#pragma once

#include "layout/shape.h"

/// Writes what a shape keeps in a project, in file order: fields, pictures, scripts.
void save_shape_fields(CSimpleGUIShape& shape, pack_node* node, const save_operation& operation);
/// Reads the same. A missing key leaves its field as it is.
void read_shape_fields(CSimpleGUIShape& shape, pack_node* node, const load_operation& operation);
