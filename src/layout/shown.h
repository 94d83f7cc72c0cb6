#pragma once

#include "engine/scene.h"

/// Whether the actor itself is switched visible; its parents are asked one by one where they count.
inline bool is_shown(const IActor* actor) { return actor && actor->is_visible(); }
