#pragma once

#include <cstddef>
#include <vector>

#include "engine/vectors.h"

namespace host::scene {

struct SurfacePoint {
    VEC3 place;
    /// Outwards, of length 1.
    VEC3 normal;
};

/// A closed surface as a grid of points that joins itself at both ends: `around` points on each of `along` rings.
struct RingMesh {
    std::size_t along;
    std::size_t around;
    std::vector<SurfacePoint> points;

    /// Indices run on beyond the end.
    std::size_t index(std::size_t ring, std::size_t side) const { return ring % along * around + side % around; }
};

/// A tube in the form of a knot, standing upright on the plane y = 0 and centred on the vertical axis.
RingMesh knot_mesh(std::size_t along, std::size_t around);

}  // namespace host::scene
