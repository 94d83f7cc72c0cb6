#pragma once

// A device that counts the calls of a frame and looks at their constants. What is drawn is told by scenarios.

#include <vector>

#include "engine/engine_core.h"

struct DrawCall {
    /// Null for all but texts.
    const IBaseFont* font = nullptr;
};

class Recorder final : public IBaseDevice, public renderfun {
public:
    x3d_viewport get_current_viewport() const override { return viewport; }
    void set_view_port(x3d_viewport value) override;
    CMyComPtr<IDeviceTexture> create_device_texture_ex(unsigned long usage, unsigned width, unsigned height, unsigned,
                                                       unsigned format, unsigned, unsigned, unsigned, unsigned,
                                                       unsigned) override;
    void draw_solid_rect(const tagRECT& rect, const VEC4& color, x3d_blend_desc blend) override;
    void draw_texture_to_rect(const tagRECT& rect, CMyComPtr<IDeviceTexture> texture, const VEC4& color,
                              x3d_blend_desc blend, float depth, x3d_zfunc depth_test) override;
    void draw_pline_with_pattern(const std::vector<VEC2>& points, const VEC4& color, float width, unsigned long pattern,
                                 float pattern_scale, x3d_blend_desc blend) override;
    void add(DrawCall call = {}) {
        if (recording) calls.push_back(call);
    }

    x3d_viewport viewport;
    std::vector<DrawCall> calls;
    bool recording = true;
    /// Calls whose constant arguments were not those of the contract.
    int wrong_constants = 0;
    /// So many of the next rectangles find no memory.
    int failures = 0;

private:
    void check(bool right) { wrong_constants += right ? 0 : 1; }
};
