#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "engine/rect.h"
#include "host/core/device.h"
#include "host/core/sdl_handles.h"

namespace host {

class SdlPictures;
class SdlText;

/// Draws with SDL. Every frame goes to a texture first, so that it can be read after it was shown.
class SdlDevice : public Device {
public:
    /// Shows its frames in that window, which must outlive it. Null if SDL has no renderer for the window.
    static std::unique_ptr<SdlDevice> for_window(SDL_Window* window);
    /// Needs neither a display nor SDL's video. Null only when memory is out.
    static std::unique_ptr<SdlDevice> in_memory();

    ~SdlDevice() override;

    void begin_frame(int width, int height) override;
    void end_frame() override;
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
    void draw_triangles(std::span<const PaintedPoint> corners) override;
    void forget_unused() override;

    /// The last frame, row by row from the top, 0xFFRRGGBB; view_width() × view_height() of them, or none on failure.
    std::vector<std::uint32_t> read_pixels();
    /// Writes the last frame. False and a reason if it could not be read or written. `path` is UTF-8.
    bool save_png(const std::string& path, std::string& error);
    /// Pictures of texts and pictures that were handed to the renderer since the device was made. It stands still while
    /// the frames stay the same.
    std::uint64_t uploads() const;

private:
    SdlDevice(SdlRenderer renderer, SdlSurface surface);
    CRect clip() const;

    /// Under the renderer of in_memory(), which wants a surface to present to; empty in a window.
    SdlSurface m_surface;
    SdlRenderer m_renderer;
    bool m_software;
    /// Holds the frame; empty if the view is empty or beyond what the renderer can hold.
    SdlTexturePtr m_frame;
    CRect m_frame_size;
    std::unique_ptr<SdlPictures> m_pictures;
    std::unique_ptr<SdlText> m_text;
};

}  // namespace host
