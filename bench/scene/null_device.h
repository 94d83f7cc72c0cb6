#pragma once

#include <cstddef>
#include <string>
#include <unordered_map>

#include "host/core/device.h"

namespace bench {

/// Counts what is drawn and draws nothing. Pictures have a size and no pixels; no file is looked at. Like a real device
/// it makes one texture of a file, whoever shows it.
class NullDevice final : public host::Device {
public:
    void end_frame() override {}
    CMyComPtr<IDeviceTexture> create_device_texture_ex(unsigned long, unsigned width, unsigned height, unsigned,
                                                       unsigned, unsigned, unsigned, unsigned, unsigned,
                                                       unsigned) override {
        return texture_of(width, height);
    }
    void draw_solid_rect(const tagRECT&, const VEC4&, x3d_blend_desc) override { ++calls; }
    void draw_texture_to_rect(const tagRECT&, CMyComPtr<IDeviceTexture>, const VEC4&, x3d_blend_desc, float,
                              x3d_zfunc) override {
        ++calls;
    }
    void draw_pline_with_pattern(const std::vector<VEC2>&, const VEC4&, float, unsigned long, float,
                                 x3d_blend_desc) override {
        ++calls;
    }
    void draw_text(IBaseFont::Face&, int, int, const VEC4&, const wchar_t*, font_org_position) override { ++calls; }
    CMyComPtr<IDeviceTexture> make_texture(const std::wstring& path) override {
        CMyComPtr<IDeviceTexture>& texture = m_pictures[path];
        if (!texture) texture = texture_of(32, 32);
        return texture;
    }

    /// Of all frames together, viewports left out.
    std::size_t calls = 0;

private:
    static CMyComPtr<IDeviceTexture> texture_of(unsigned width, unsigned height) {
        CMyComPtr<IDeviceTexture> texture(new IDeviceTexture);
        texture->width = width;
        texture->height = height;
        return texture;
    }

    std::unordered_map<std::wstring, CMyComPtr<IDeviceTexture>> m_pictures;
};

}  // namespace bench
