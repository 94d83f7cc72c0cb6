#include "host/core/scene_view.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <vector>

#include "host/core/scene_camera.h"
#include "host/core/scene_mesh.h"
#include "host/core/scene_shading.h"
#include "host/core/scene_vectors.h"

namespace host {
namespace {

using namespace scene;

using Corners = std::vector<PaintedPoint>;

constexpr float degree = std::numbers::pi_v<float> / 180.0f;
constexpr double degrees_per_second = 14.0;
// Width of the soft rim that stands in for antialiasing, in pixels.
constexpr float rim_pixels = 1.3f;

struct Frame {
    Camera camera;
    float width, height;
    SceneLook look;
    float turn;
};

void add_quad(Corners& out, const PaintedPoint& a, const PaintedPoint& b, const PaintedPoint& c,
              const PaintedPoint& d) {
    out.insert(out.end(), {a, b, c, a, c, d});
}

PaintedPoint painted(const Frame& frame, const VEC3& place, const VEC3& color, float alpha = 1.0f) {
    const Projected at = frame.camera.project(place);
    return {at.x, at.y, with_alpha(color, alpha)};
}

// Floor and wall change slowly, so a coarse grid over the view shows them.
void add_room(Corners& out, const Frame& frame) {
    constexpr int columns = 48, rows = 36;
    std::vector<PaintedPoint> grid;
    grid.reserve(std::size_t{columns + 1} * (rows + 1));
    for (int row = 0; row <= rows; ++row) {
        for (int column = 0; column <= columns; ++column) {
            const float x = frame.width * static_cast<float>(column) / columns;
            const float y = frame.height * static_cast<float>(row) / rows;
            const VEC3 color = room_color(frame.camera.eye(), frame.camera.ray(x, y), frame.look.light);
            grid.push_back({x, y, with_alpha(color, 1.0f)});
        }
    }
    for (std::size_t row = 0; row < rows; ++row) {
        for (std::size_t column = 0; column < columns; ++column) {
            const std::size_t at = row * (columns + 1) + column, below = at + columns + 1;
            add_quad(out, grid[at], grid[at + 1], grid[below + 1], grid[below]);
        }
    }
}

VEC3 on_circle(float radius, float height, float angle) {
    return {radius * std::sin(angle), height, radius * std::cos(angle)};
}

constexpr int stage_sides = 120;
float side_angle(int side) { return 360.0f * degree * static_cast<float>(side) / stage_sides; }

// The band between two circles of the stage's upper side, or its soft rim where the outer circle is clear.
void add_stage_band(Corners& out, const Frame& frame, float inner, float outer, float outer_alpha) {
    const auto corner = [&](float radius, int side, float alpha) {
        const VEC3 place = on_circle(radius, stage_height, side_angle(side));
        return painted(frame, place, stage_top_color(place, frame.camera.eye(), frame.look.light), alpha);
    };
    for (int side = 0; side < stage_sides; ++side) {
        add_quad(out, corner(inner, side, 1.0f), corner(inner, side + 1, 1.0f), corner(outer, side + 1, outer_alpha),
                 corner(outer, side, outer_alpha));
    }
}

void add_stage_wall(Corners& out, const Frame& frame) {
    const auto corner = [&](float radius, int side, float height, float alpha) {
        const VEC3 normal = on_circle(1.0f, 0.0f, side_angle(side));
        return painted(frame, on_circle(radius, height, side_angle(side)),
                       stage_wall_color(normal, height, frame.look.light), alpha);
    };
    const float soft = stage_radius + 0.006f;
    for (int side = 0; side < stage_sides; ++side) {
        const bool faces_eye = std::cos(side_angle(side)) * frame.camera.eye().z > stage_radius;
        if (!faces_eye) continue;
        add_quad(out, corner(stage_radius, side, stage_height, 1.0f),
                 corner(stage_radius, side + 1, stage_height, 1.0f), corner(stage_radius, side + 1, 0.0f, 1.0f),
                 corner(stage_radius, side, 0.0f, 1.0f));
        add_quad(out, corner(stage_radius, side, 0.0f, 1.0f), corner(stage_radius, side + 1, 0.0f, 1.0f),
                 corner(soft, side + 1, -0.012f, 0.0f), corner(soft, side, -0.012f, 0.0f));
    }
}

void add_floor_shadow(Corners& out, const Frame& frame) {
    constexpr std::array circles{0.97f, 1.04f, 1.12f, 1.22f, 1.34f, 1.5f};
    const auto corner = [&](float radius, int side) {
        return painted(frame, on_circle(radius, 0.0f, side_angle(side)), VEC3(), floor_shadow(radius));
    };
    for (std::size_t i = 1; i < circles.size(); ++i) {
        const float inner = circles[i - 1] * stage_radius, outer = circles[i] * stage_radius;
        for (int side = 0; side < stage_sides; ++side) {
            add_quad(out, corner(inner, side), corner(inner, side + 1), corner(outer, side + 1), corner(outer, side));
        }
    }
}

void add_stage(Corners& out, const Frame& frame) {
    constexpr std::array circles{0.0f, 0.15f, 0.3f, 0.5f, 0.75f, 1.0f, 1.22f, stage_radius};
    add_floor_shadow(out, frame);
    add_stage_wall(out, frame);
    for (std::size_t i = 1; i < circles.size(); ++i) add_stage_band(out, frame, circles[i - 1], circles[i], 1.0f);
    add_stage_band(out, frame, stage_radius, stage_radius + 0.008f, 0.0f);
}

// One surface point as the camera sees it, with the step outwards that makes the rim.
struct SeenPoint {
    PaintedPoint corner;
    float depth;
    VEC2 outwards;
};

SeenPoint seen(const Frame& frame, const VEC3& place, const VEC3& normal, const VEC4& color) {
    const Projected at = frame.camera.project(place), beyond = frame.camera.project(place + normal * 0.01f);
    const float dx = beyond.x - at.x, dy = beyond.y - at.y, length = std::sqrt(dx * dx + dy * dy);
    const float step = length > 0.0f ? rim_pixels / length : 0.0f;
    return {{at.x, at.y, color}, at.depth, VEC2(dx * step, dy * step)};
}

PaintedPoint rim_of(const SeenPoint& point) {
    PaintedPoint rim = point.corner;
    rim.x += point.outwards.x;
    rim.y += point.outwards.y;
    rim.color.w = 0.0f;
    return rim;
}

// Twice the area on the view, positive if the corners run clockwise there.
float area(const PaintedPoint& a, const PaintedPoint& b, const PaintedPoint& c) {
    return (b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x);
}

struct Face {
    std::size_t ring, side;
    float depth;
};

// Draws the side of a mesh that faces the camera, the farthest first; one that is not mirrored gets a soft rim where it
// turns away.
class MeshPainter {
public:
    MeshPainter(const RingMesh& mesh, const std::vector<SeenPoint>& points, bool mirrored)
        : m_mesh(mesh), m_points(points), m_mirrored(mirrored) {}

    void add_to(Corners& out) const {
        std::vector<Face> faces;
        for (std::size_t ring = 0; ring < m_mesh.along; ++ring) {
            for (std::size_t side = 0; side < m_mesh.around; ++side) {
                if (faces_camera(ring, side)) faces.push_back({ring, side, depth(ring, side)});
            }
        }
        std::stable_sort(faces.begin(), faces.end(), [](const Face& a, const Face& b) { return a.depth > b.depth; });
        for (const Face& face : faces) add_face(out, face.ring, face.side);
    }

private:
    const SeenPoint& at(std::size_t ring, std::size_t side) const { return m_points[m_mesh.index(ring, side)]; }

    bool faces_camera(std::size_t ring, std::size_t side) const {
        const PaintedPoint &a = at(ring, side).corner, &b = at(ring + 1, side).corner,
                           &c = at(ring + 1, side + 1).corner, &d = at(ring, side + 1).corner;
        return (area(a, b, c) + area(a, c, d) > 0.0f) != m_mirrored;
    }

    float depth(std::size_t ring, std::size_t side) const {
        return at(ring, side).depth + at(ring + 1, side).depth + at(ring + 1, side + 1).depth +
               at(ring, side + 1).depth;
    }

    void add_face(Corners& out, std::size_t ring, std::size_t side) const {
        const SeenPoint &a = at(ring, side), &b = at(ring + 1, side), &c = at(ring + 1, side + 1),
                        &d = at(ring, side + 1);
        if (!m_mirrored) add_rims(out, ring, side);
        add_quad(out, a.corner, b.corner, c.corner, d.corner);
    }

    // The rim lies under its own face, so it only shows beyond it. A mirrored face is half clear and would show it.
    void add_rims(Corners& out, std::size_t ring, std::size_t side) const {
        const SeenPoint &a = at(ring, side), &b = at(ring + 1, side), &c = at(ring + 1, side + 1),
                        &d = at(ring, side + 1);
        const std::size_t rings = m_mesh.along, sides = m_mesh.around;
        if (!faces_camera(ring, side + sides - 1)) add_rim(out, a, b);
        if (!faces_camera(ring, side + 1)) add_rim(out, d, c);
        if (!faces_camera(ring + rings - 1, side)) add_rim(out, a, d);
        if (!faces_camera(ring + 1, side)) add_rim(out, b, c);
    }

    static void add_rim(Corners& out, const SeenPoint& a, const SeenPoint& b) {
        add_quad(out, a.corner, b.corner, rim_of(b), rim_of(a));
    }

    const RingMesh& m_mesh;
    const std::vector<SeenPoint>& m_points;
    bool m_mirrored;
};

void add_object(Corners& out, const Frame& frame) {
    static const RingMesh mesh = knot_mesh(300, 28);
    std::vector<SeenPoint> points;
    points.reserve(mesh.points.size());
    for (const SurfacePoint& point : mesh.points) {
        const VEC3 place = turned(point.place, frame.turn) + VEC3(0.0f, stage_height, 0.0f);
        const VEC3 normal = turned(point.normal, frame.turn);
        const VEC3 color = painted_color(place, normal, frame.camera.eye(), frame.look.paint, frame.look.light);
        points.push_back(seen(frame, place, normal, with_alpha(color, 1.0f)));
    }
    MeshPainter(mesh, points, false).add_to(out);
}

// How strongly the stage mirrors a point that lies below its surface: only where the eye sees it through the stage's
// upper side, and less the farther it is from it.
float mirror_strength(const VEC3& eye, const VEC3& place) {
    const float share = (eye.y - stage_height) / (eye.y - place.y);
    const VEC3 through = mix(eye, place, share);
    const float away = std::sqrt(through.x * through.x + through.z * through.z);
    return 0.34f * smooth_step(stage_radius, stage_radius * 0.9f, away) *
           smooth_step(-1.0f, 0.16f, place.y - stage_height + 0.16f);
}

void add_mirrored_object(Corners& out, const Frame& frame) {
    static const RingMesh mesh = knot_mesh(200, 16);
    std::vector<SeenPoint> points;
    points.reserve(mesh.points.size());
    // A mirror shows the object as an eye on its other side sees it.
    VEC3 below_stage = frame.camera.eye();
    below_stage.y = 2.0f * stage_height - below_stage.y;
    for (const SurfacePoint& point : mesh.points) {
        const VEC3 above = turned(point.place, frame.turn) + VEC3(0.0f, stage_height, 0.0f);
        VEC3 normal = turned(point.normal, frame.turn);
        const VEC3 color = painted_color(above, normal, below_stage, frame.look.paint, frame.look.light);
        const VEC3 place(above.x, 2.0f * stage_height - above.y, above.z);
        normal.y = -normal.y;
        points.push_back(seen(frame, place, normal, with_alpha(color, mirror_strength(frame.camera.eye(), place))));
    }
    MeshPainter(mesh, points, true).add_to(out);
}

float turn_at(const SceneLook& look, double seconds) {
    const double degrees = look.turn_degrees + seconds * degrees_per_second;
    return std::isfinite(degrees) ? static_cast<float>(std::fmod(degrees, 360.0)) * degree : 0.0f;
}

}  // namespace

void draw_scene(Device& device, int width, int height, const SceneLook& look, double seconds) {
    if (width <= 0 || height <= 0) return;
    const Frame frame{Camera(width, height), static_cast<float>(width), static_cast<float>(height), look,
                      turn_at(look, seconds)};
    Corners corners;
    corners.reserve(100000);
    add_room(corners, frame);
    add_stage(corners, frame);
    add_mirrored_object(corners, frame);
    add_object(corners, frame);
    device.draw_triangles(corners);
}

}  // namespace host
