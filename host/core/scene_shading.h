#pragma once

#include "engine/vectors.h"

namespace host::scene {

/// Radius and height of the round stage, in metres, centred on the vertical axis.
inline constexpr float stage_radius = 1.25f;
inline constexpr float stage_height = 0.16f;

/// Colours as they are shown, for lamps of that strength (1 as set up).

/// Of the floor and the wall behind it where the ray from the eye meets them; `ray` has length 1.
VEC3 room_color(const VEC3& eye, const VEC3& ray, float light);
/// Of the stage's upper side, that far from its centre.
VEC3 stage_top_color(const VEC3& place, const VEC3& eye, float light);
/// How dark the floor is round the stage, that far from its centre: 0 not at all, 1 black.
float floor_shadow(float away);
VEC3 stage_wall_color(const VEC3& normal, float height, float light);
/// Of a glossy painted surface. `normal` has length 1.
VEC3 painted_color(const VEC3& place, const VEC3& normal, const VEC3& eye, const VEC3& paint, float light);

}  // namespace host::scene
