#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "engine/rect.h"
#include "engine/texture.h"
#include "engine/vectors.h"

/// The part of the picture that is drawn to, in pixels, and the range of depth.
struct x3d_viewport {
    float x = 0.0f;
    float y = 0.0f;
    float width = 0.0f;
    float height = 0.0f;
    float min_z = 0.0f;
    float max_z = 1.0f;
};

/// How new colours meet what stands there: eight of the engine's own enumerators.
struct x3d_blend_desc {
    /// The first seven arguments fill the members two to eight, the last one the first member.
    constexpr x3d_blend_desc(std::int32_t second, std::int32_t third, std::int32_t fourth, std::int32_t fifth,
                             std::int32_t sixth, std::int32_t seventh, std::int32_t eighth, std::int32_t first)
        : members{first, second, third, fourth, fifth, sixth, seventh, eighth} {}
    std::array<std::int32_t, 8> members;
};

/// Comparison of depths. The module draws whatever the depth.
enum x3d_zfunc : std::int32_t { X3D_ZFUNC_ALWAYS = 8 };

/// The engine's description of the frame in work. The module only hands it on.
struct render_context;

class IBaseDevice {
public:
    virtual x3d_viewport get_current_viewport() const = 0;
    /// A viewport that reaches beyond the picture shows the part inside it.
    virtual void set_view_port(x3d_viewport viewport) = 0;
    /// An empty picture of that size in pixels. Never null.
    virtual CMyComPtr<IDeviceTexture> create_device_texture_ex(unsigned long usage, unsigned width, unsigned height,
                                                               unsigned, unsigned format, unsigned, unsigned, unsigned,
                                                               unsigned, unsigned) = 0;

protected:
    ~IBaseDevice() = default;
};

/// The drawing helper. Rectangles are in view pixels whatever the viewport in force, which only clips them.
class renderfun {
public:
    virtual void draw_solid_rect(const tagRECT& rect, const VEC4& color, x3d_blend_desc blend) = 0;
    /// Stretches the texture over the rectangle, its colours multiplied by `color`. An empty texture draws nothing.
    virtual void draw_texture_to_rect(const tagRECT& rect, CMyComPtr<IDeviceTexture> texture, const VEC4& color,
                                      x3d_blend_desc blend, float depth, x3d_zfunc depth_test) = 0;
    /// Draws a line through the points. Of `pattern` each bit stands for one pixel of the line.
    virtual void draw_pline_with_pattern(const std::vector<VEC2>& points, const VEC4& color, float width,
                                         unsigned long pattern, float pattern_scale, x3d_blend_desc blend) = 0;

protected:
    ~renderfun() = default;
};

class CResourceManager {
public:
    /// Never empty: a file that can't be read gives a texture that never has a device side.
    virtual CMyComPtr<ITexture> load_texture_from_file(const wchar_t* path) = 0;

protected:
    ~CResourceManager() = default;
};
