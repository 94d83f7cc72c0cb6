#pragma once

// Import of legacy projects: the walk through their tree, both layouts, pictures, animations. Facts of the old format
// are tables and free functions over values, in headers of their own; whoever only wants those needs no engine. Nothing
// here is ever written back. Includes the contract, layout and animation; bodies also include the manager.

#include "engine/engine_core.h"
#include "engine/legacy_codes.h"

// The value under a key of a node; `missing` where there is no such key. A float that is no number or without a limit
// counts as missing too, so that none reaches a rectangle, a key or the next file.
int read_legacy_int(CPakNode& node, const char* key, int missing = 0);
float read_legacy_float(CPakNode& node, const char* key, float missing = 0.0f);
/// Moments stand as floats where everything else has a whole number.
float read_legacy_moment(CPakNode& node, const char* key);
VEC3 read_legacy_vec3(CPakNode& node, const char* key);
CPoint read_legacy_pair(CPakNode& node, const char* key);
CGuid read_legacy_guid(CPakNode& node, const char* key);
/// `code` is that of a path, a name or a text.
tstringW read_legacy_text(CPakNode& node, const char* key, legacy_code code);

/// The raw text of a panel: all data of the node, up to the first zero or the mark of an end.
tstringW read_legacy_text_data(CPakNode& node);

/// The child of that name, or null.
inline CPakNode* find_legacy_child(CPakNode* node, const char* name) { return node ? node->find(name) : nullptr; }

/// The children that are not null, in their order. Nothing for a null node.
template <class Visit>
void each_legacy_child(CPakNode* node, Visit visit) {
    const std::list<CPakNode*>* children = node ? node->get_children() : nullptr;
    if (!children) return;
    for (CPakNode* child : *children) {
        if (child) visit(*child);
    }
}
/// The same from the last to the first.
template <class Visit>
void each_legacy_child_backwards(CPakNode* node, Visit visit) {
    const std::list<CPakNode*>* children = node ? node->get_children() : nullptr;
    if (!children) return;
    for (auto child = children->rbegin(); child != children->rend(); ++child) {
        if (*child) visit(**child);
    }
}
