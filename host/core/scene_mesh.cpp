#include "host/core/scene_mesh.h"

#include <numbers>

#include "host/core/scene_vectors.h"

namespace host::scene {
namespace {

constexpr float full_turn = 2.0f * std::numbers::pi_v<float>;
constexpr float wide = 0.58f, lobe = 0.26f, tube = 0.135f;

float part_of_turn(std::size_t at, std::size_t count) {
    return full_turn * static_cast<float>(at) / static_cast<float>(count);
}

// The trefoil: twice round its axis while it winds three times round itself. The axis lies along z, so that it stands.
VEC3 center_line(float turn) {
    const float radius = wide + lobe * std::cos(3.0f * turn);
    return {radius * std::sin(2.0f * turn), radius * std::cos(2.0f * turn), lobe * 1.2f * std::sin(3.0f * turn)};
}

VEC3 direction_at(float turn) {
    constexpr float little = 1e-3f;
    return unit(center_line(turn + little) - center_line(turn - little));
}

// The direction from which a ring counts its sides: that of the ring before, bent along with the line and no more, so
// that the tube is not wrung.
VEC3 carried_along(const VEC3& former, const VEC3& direction) {
    return unit(former - direction * dot(former, direction));
}

// What is missing at the end of the line for the last ring's sides to meet the first ring's.
float closing_twist(std::size_t along, const VEC3& first) {
    VEC3 out = first;
    for (std::size_t ring = 1; ring <= along; ++ring) {
        out = carried_along(out, direction_at(part_of_turn(ring % along, along)));
    }
    return std::atan2(dot(cross(out, first), direction_at(0.0f)), dot(out, first));
}

void add_ring(RingMesh& mesh, const VEC3& center, const VEC3& out, const VEC3& side, float twist) {
    for (std::size_t i = 0; i < mesh.around; ++i) {
        const float angle = part_of_turn(i, mesh.around) + twist;
        const VEC3 normal = out * std::cos(angle) + side * std::sin(angle);
        mesh.points.push_back({center + normal * tube, normal});
    }
}

}  // namespace

RingMesh knot_mesh(std::size_t along, std::size_t around) {
    RingMesh mesh{along, around, {}};
    mesh.points.reserve(along * around);
    VEC3 out = carried_along(center_line(0.0f), direction_at(0.0f));
    const float closing = closing_twist(along, out);
    for (std::size_t ring = 0; ring < along; ++ring) {
        const float turn = part_of_turn(ring, along);
        const VEC3 direction = direction_at(turn);
        out = carried_along(out, direction);
        add_ring(mesh, center_line(turn), out, cross(direction, out), closing * turn / full_turn);
    }
    float lowest = 0.0f;
    for (const SurfacePoint& point : mesh.points) lowest = std::min(lowest, point.place.y);
    for (SurfacePoint& point : mesh.points) point.place.y -= lowest;
    return mesh;
}

}  // namespace host::scene
