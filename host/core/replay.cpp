#include "host/core/replay.h"

#include <map>

namespace host {

namespace {

class Replay {
public:
    explicit Replay(Device& device) : m_device(device) {}

    void draw(const DrawCall& call) {
        switch (call.op) {
            case DrawCall::VIEWPORT:
                return set_viewport(call);
            case DrawCall::RECT:
                return m_device.draw_solid_rect(call.rect, call.color, blend_of(call));
            case DrawCall::TEXTURE:
                return m_device.draw_texture_to_rect(call.rect, texture_of(call), call.color, blend_of(call),
                                                     call.depth, static_cast<x3d_zfunc>(call.depth_test));
            case DrawCall::TEXT:
                return m_device.draw_text(*call.face, call.x, call.y, call.color, call.text.c_str(),
                                          static_cast<font_org_position>(call.position));
            case DrawCall::LINE:
                return m_device.draw_pline_with_pattern(call.points, call.color, call.line_width, call.pattern,
                                                        call.pattern_scale, blend_of(call));
            case DrawCall::TARGET:
                return;  // made when it is drawn
        }
    }

private:
    static x3d_blend_desc blend_of(const DrawCall& call) {
        x3d_blend_desc blend(0, 0, 0, 0, 0, 0, 0, 0);
        blend.members = call.blend;
        return blend;
    }

    void set_viewport(const DrawCall& call) {
        x3d_viewport viewport = m_device.get_current_viewport();
        viewport.x = call.viewport[0];
        viewport.y = call.viewport[1];
        viewport.width = call.viewport[2];
        viewport.height = call.viewport[3];
        m_device.set_view_port(viewport);
    }

    CMyComPtr<IDeviceTexture> texture_of(const DrawCall& call) {
        CMyComPtr<IDeviceTexture>& texture = m_textures[call.path];
        if (!texture && !call.path.empty()) texture = m_device.make_texture(call.path);
        if (!texture && call.width > 0)
            texture = m_device.create_device_texture_ex(call.usage, call.width, call.height, 0, call.format, 1, 1, 0, 0,
                                                        0x20);
        return texture;
    }

    Device& m_device;
    std::map<std::wstring, CMyComPtr<IDeviceTexture>> m_textures;
};

}  // namespace

void replay(const std::vector<DrawCall>& calls, Device& device) {
    Replay replay(device);
    for (const DrawCall& call : calls) replay.draw(call);
}

}  // namespace host
