#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "engine/device.h"
#include "engine/font.h"

namespace host {

/// A corner of a triangle in view pixels. The colour runs evenly between the corners.
struct PaintedPoint {
    float x;
    float y;
    VEC4 color;
};

/// What the host's devices have in common. A frame is drawn between begin_frame and end_frame.
class Device : public IBaseDevice, public renderfun {
public:
    virtual ~Device();

    /// Sizes in pixels; 0 and less give a view in which nothing can be seen. The viewport becomes the whole view.
    /// Overrides call it first.
    virtual void begin_frame(int width, int height);
    virtual void end_frame() = 0;

    x3d_viewport get_current_viewport() const override;
    void set_view_port(x3d_viewport viewport) override;

    /// The position counts from the left top corner of the viewport in force. `text` may be null and have several
    /// lines.
    virtual void draw_text(IBaseFont::Face& face, int x, int y, const VEC4& color, const wchar_t* text,
                           font_org_position position) = 0;
    /// The picture in that file; empty if there is none or it is no picture.
    virtual CMyComPtr<IDeviceTexture> make_texture(const std::wstring& path) = 0;
    /// Three corners for each triangle, later ones over earlier ones. The base draws nothing: it serves the scene
    /// behind the GUI, which a device without a picture can do without.
    virtual void draw_triangles(std::span<const PaintedPoint> corners);
    /// Lets go of all pictures and texts that are only kept in case they come back.
    virtual void forget_unused() {}

    int view_width() const { return m_view_width; }
    int view_height() const { return m_view_height; }

protected:
    Device();

private:
    x3d_viewport m_viewport;
    int m_view_width = 0;
    int m_view_height = 0;
};

}  // namespace host
