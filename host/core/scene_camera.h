#pragma once

#include "host/core/scene_vectors.h"

namespace host::scene {

/// Where a point of the scene appears: in view pixels, and how far along the camera's axis.
struct Projected {
    float x, y, depth;
};

/// Looks at the stage from the front, a little from above. The stage stays in the middle and whole in any view.
class Camera {
public:
    Camera(int width, int height)
        : m_center_x(static_cast<float>(width) * 0.5f),
          m_center_y(static_cast<float>(height) * 0.5f),
          m_focal(std::min(static_cast<float>(height), static_cast<float>(width) / 1.2f) * 1.45f) {}

    VEC3 eye() const { return eye_place; }

    /// For points ahead of the camera.
    Projected project(const VEC3& point) const {
        const VEC3 seen = point - eye_place;
        const float depth = dot(seen, forward), scale = m_focal / depth;
        return {m_center_x + dot(seen, right) * scale, m_center_y - dot(seen, up) * scale, depth};
    }

    /// From the eye through that place of the view; of length 1.
    VEC3 ray(float x, float y) const {
        return unit(forward * m_focal + right * (x - m_center_x) + up * (m_center_y - y));
    }

private:
    inline static const VEC3 eye_place{0.0f, 1.9f, 5.6f};
    inline static const VEC3 forward = unit(VEC3(0.0f, 0.92f, 0.0f) - eye_place);
    inline static const VEC3 right{1.0f, 0.0f, 0.0f};
    inline static const VEC3 up = cross(right, forward);

    float m_center_x;
    float m_center_y;
    float m_focal;
};

}  // namespace host::scene
