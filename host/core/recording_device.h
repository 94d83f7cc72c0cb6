#pragma once

#include <array>
#include <string>
#include <vector>

#include "engine/rect.h"
#include "host/core/device.h"

namespace host {

/// One call to the device. What the operation does not use keeps its default.
struct DrawCall {
    enum Op { VIEWPORT, RECT, TEXTURE, TEXT, LINE, TARGET };

    Op op;
    CRect rect;
    /// x, y, width, height of the viewport in force; for VIEWPORT the one just set.
    std::array<float, 4> viewport{};
    /// TEXT: relative to the viewport's origin.
    int x = 0;
    int y = 0;
    VEC4 color;
    /// TEXT: the text. TEXTURE: the file name without folders, "" for a picture without a device side, "target" for one
    /// made by create_device_texture_ex.
    std::wstring text;
    /// TEXTURE: the whole path of the picture; empty for a target and for a picture without a device side.
    std::wstring path;
    /// TEXT only. Not owned; never followed by this device.
    IBaseFont::Face* face = nullptr;
    /// TEXT: a font_org_position.
    int position = 0;
    /// LINE
    std::vector<VEC2> points;
    unsigned long pattern = 0;
    float line_width = 0.0f;
    float pattern_scale = 0.0f;
    /// TEXTURE and TARGET: size of the picture in pixels.
    unsigned width = 0;
    unsigned height = 0;
    /// RECT, TEXTURE, LINE: the members of the blend, in order.
    std::array<std::int32_t, 8> blend{};
    /// TEXTURE
    float depth = 0.0f;
    int depth_test = 0;
    /// TARGET
    unsigned long usage = 0;
    unsigned format = 0;
};

/// Writes down the calls of a frame instead of drawing. begin_frame starts a new list.
class RecordingDevice : public Device {
public:
    /// In the order of the calls; valid until the next call to the device.
    const std::vector<DrawCall>& calls() const { return m_calls; }

    void begin_frame(int width, int height) override;
    void end_frame() override {}
    void set_view_port(x3d_viewport viewport) override;
    CMyComPtr<IDeviceTexture> create_device_texture_ex(unsigned long usage, unsigned width, unsigned height, unsigned,
                                                       unsigned format, unsigned, unsigned, unsigned, unsigned,
                                                       unsigned) override;
    void draw_solid_rect(const tagRECT& rect, const VEC4& color, x3d_blend_desc blend) override;
    void draw_texture_to_rect(const tagRECT& rect, CMyComPtr<IDeviceTexture> texture, const VEC4& color,
                              x3d_blend_desc blend, float depth, x3d_zfunc depth_test) override;
    void draw_pline_with_pattern(const std::vector<VEC2>& points, const VEC4& color, float width, unsigned long pattern,
                                 float pattern_scale, x3d_blend_desc blend) override;
    void draw_text(IBaseFont::Face& face, int x, int y, const VEC4& color, const wchar_t* text,
                   font_org_position position) override;
    CMyComPtr<IDeviceTexture> make_texture(const std::wstring& path) override;

private:
    DrawCall& record(DrawCall::Op op);

    std::vector<DrawCall> m_calls;
};

}  // namespace host
