#pragma once

// The registries of animation node and track kinds behind AnimSystemLibrary.

#include <vector>

#include "engine/animation.h"
#include "host/core/project_tree.h"

namespace host {

struct AnimNodeKind {
    unsigned type = 0;
    tstringW name;
    anim_node_creator creator = nullptr;
    /// Whose creator it is.
    const void* owner = nullptr;
    /// What nodes of this kind can have, and what they can be made for.
    std::vector<unsigned> track_types;
    std::set<unsigned long> item_types;
};

struct TrackKind {
    unsigned type = 0;
    tstringW name;
    track_creator creator = nullptr;
    const void* owner = nullptr;
};

/// Forgets what still belongs to the owner, whose code is about to be unloaded.
void forget_anim_kinds(const void* owner);
/// Null for an unknown type. Valid until the next registration.
const AnimNodeKind* find_anim_node_kind(unsigned type);
const TrackKind* find_track_kind(unsigned type);
/// The first track in what an animation node has stored that no one could make again, in words; empty if there is none.
std::string unknown_track(const ProjectNode& data);

}  // namespace host
