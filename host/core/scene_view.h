#pragma once

#include "engine/vectors.h"
#include "host/core/device.h"

namespace host {

/// How the showroom behind the GUI looks.
struct SceneLook {
    /// Colour of the object on the stage, each part 0 to 1.
    VEC3 paint{0.72f, 0.10f, 0.12f};
    /// Turn of the object at time 0, about the vertical axis.
    float turn_degrees = 0.0f;
    /// Strength of the lamps: 1 as set up, 0 leaves a dark room.
    float light = 1.0f;
};

/// Draws the scene over the whole view. The same arguments give the same picture; the object turns slowly with time.
void draw_scene(Device& device, int width, int height, const SceneLook& look, double seconds);

}  // namespace host
