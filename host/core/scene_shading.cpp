#include "host/core/scene_shading.h"

#include "host/core/scene_vectors.h"

namespace host::scene {
namespace {

// A lamp so far away that its light comes from one direction; towards the lamp, of any length.
struct Lamp {
    VEC3 direction;
    VEC3 color;
    float gloss_strength;
};
// A warm main lamp from the left above, a cool one that fills the shadows, and one from behind that draws the outline.
const Lamp lamps[] = {
    {{-0.55f, 0.90f, 0.65f}, {1.05f, 1.00f, 0.93f}, 0.90f},
    {{0.90f, 0.35f, 0.45f}, {0.22f, 0.27f, 0.36f}, 0.25f},
    {{0.45f, 0.55f, -0.90f}, {0.55f, 0.60f, 0.70f}, 0.45f},
};
const VEC3 light_from_above{0.30f, 0.32f, 0.36f};
const VEC3 light_from_below{0.13f, 0.12f, 0.12f};

const VEC3 wall_low{0.40f, 0.45f, 0.52f}, wall_high{0.055f, 0.065f, 0.095f};
const VEC3 floor_lit{0.46f, 0.48f, 0.52f}, floor_far{0.17f, 0.19f, 0.23f};

// What a mirror would show in that direction: a bright panel overhead, a long one at the left, a dim room.
VEC3 surroundings(const VEC3& direction) {
    const float panel = smooth_step(0.55f, 0.85f, direction.y);
    const float strip = smooth_step(0.60f, 0.85f, -direction.x) * smooth_step(-0.25f, 0.10f, direction.y);
    const float horizon = smooth_step(-0.5f, 0.3f, direction.y);
    return VEC3(0.10f, 0.11f, 0.13f) + VEC3(0.22f, 0.25f, 0.30f) * horizon + VEC3(1.0f, 1.0f, 1.0f) * panel +
           VEC3(0.75f, 0.80f, 0.90f) * strip;
}

// Bright light runs into white softly instead of being cut off, which would show as a hard edge.
float shown(float value) { return value <= 0.6f ? value : 1.0f - 0.4f * std::exp(-(value - 0.6f) / 0.4f); }
VEC3 shown(const VEC3& color) { return {shown(color.x), shown(color.y), shown(color.z)}; }

float distance_from_axis(const VEC3& place) { return std::sqrt(place.x * place.x + place.z * place.z); }

VEC3 wall_color(const VEC3& ray) {
    const float height = std::clamp(ray.y + 0.10f, 0.0f, 1.0f);
    const float beside = ray.x * ray.x * 0.9f;
    return mix(wall_low, wall_high, smooth_step(0.0f, 0.55f, height + beside));
}

}  // namespace

VEC3 room_color(const VEC3& eye, const VEC3& ray, float light) {
    const VEC3 wall = wall_color(ray);
    if (ray.y >= -1e-3f) return shown(wall * light);
    const VEC3 place = eye + ray * (-eye.y / ray.y);
    const float away = distance_from_axis(place);
    const float pool = std::exp(-away * away / 14.0f);
    const VEC3 floor = mix(floor_far, floor_lit, pool);
    // The floor rises into the wall without a line, as a photographer's backdrop does.
    return shown(mix(floor, wall, smooth_step(2.0f, 11.0f, -place.z + 1.0f)) * light);
}

float floor_shadow(float away) {
    const float near = smooth_step(stage_radius * 1.5f, stage_radius * 0.97f, away);
    return 0.62f * near * near;
}

VEC3 stage_top_color(const VEC3& place, const VEC3& eye, float light) {
    const float away = distance_from_axis(place);
    const float shadow = 1.0f - 0.62f * std::exp(-away * away / 0.16f);
    const VEC3 to_eye = unit(eye - place);
    const float grazing = std::pow(1.0f - std::max(to_eye.y, 0.0f), 3.0f);
    const float sheen = std::exp(-((place.x + 0.45f) * (place.x + 0.45f) + (place.z - 0.1f) * (place.z - 0.1f)) / 0.5f);
    const VEC3 color = VEC3(0.30f, 0.315f, 0.34f) + VEC3(0.20f, 0.20f, 0.20f) * sheen + wall_low * (grazing * 0.5f);
    return shown(color * (shadow * light));
}

VEC3 stage_wall_color(const VEC3& normal, float height, float light) {
    const float toward_lamp = std::max(dot(normal, unit(lamps[0].direction)), 0.0f);
    const float from_side = std::pow(std::abs(normal.x), 6.0f);
    const float rise = 0.55f + 0.45f * height / stage_height;
    const VEC3 color =
        VEC3(0.13f, 0.14f, 0.16f) + VEC3(0.34f, 0.34f, 0.34f) * toward_lamp + VEC3(0.16f, 0.18f, 0.22f) * from_side;
    return shown(color * (rise * light));
}

VEC3 painted_color(const VEC3& place, const VEC3& normal, const VEC3& eye, const VEC3& paint, float light) {
    const VEC3 to_eye = unit(eye - place);
    const float facing = std::max(dot(normal, to_eye), 0.0f);
    VEC3 falling = mix(light_from_below, light_from_above, 0.5f + 0.5f * normal.y);
    VEC3 gloss;
    for (const Lamp& lamp : lamps) {
        const VEC3 direction = unit(lamp.direction);
        const float toward = dot(normal, direction);
        if (toward <= 0.0f) continue;
        falling = falling + lamp.color * toward;
        const float half = std::max(dot(normal, unit(direction + to_eye)), 0.0f);
        gloss = gloss + lamp.color * (lamp.gloss_strength * (std::pow(half, 90.0f) + 0.12f * std::pow(half, 14.0f)));
    }
    const VEC3 mirrored = surroundings(normal * (2.0f * dot(normal, to_eye)) - to_eye);
    const float coat = 0.05f + 0.75f * std::pow(1.0f - facing, 4.0f);
    return shown((paint * falling + gloss + mirrored * coat) * light);
}

}  // namespace host::scene
