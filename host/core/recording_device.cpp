#include "host/core/recording_device.h"

#include <utility>

#include "engine/services.h"
#include "host/core/native_path.h"
#include "host/core/picture_file.h"

namespace host {
namespace {

class RecordedTexture : public IDeviceTexture {
public:
    RecordedTexture(std::wstring texture_name, std::wstring texture_path, unsigned texture_width,
                    unsigned texture_height)
        : name(std::move(texture_name)), path(std::move(texture_path)) {
        width = texture_width;
        height = texture_height;
    }
    std::wstring name;
    std::wstring path;
};

}  // namespace

DrawCall& RecordingDevice::record(DrawCall::Op op) {
    const x3d_viewport in_force = get_current_viewport();
    DrawCall& call = m_calls.emplace_back();
    call.op = op;
    call.viewport = {in_force.x, in_force.y, in_force.width, in_force.height};
    return call;
}

void RecordingDevice::begin_frame(int width, int height) {
    Device::begin_frame(width, height);
    m_calls.clear();
}

void RecordingDevice::set_view_port(x3d_viewport viewport) {
    Device::set_view_port(viewport);
    record(DrawCall::VIEWPORT);
}

CMyComPtr<IDeviceTexture> RecordingDevice::create_device_texture_ex(unsigned long usage, unsigned width,
                                                                    unsigned height, unsigned, unsigned format,
                                                                    unsigned, unsigned, unsigned, unsigned, unsigned) {
    DrawCall& call = record(DrawCall::TARGET);
    call.width = width;
    call.height = height;
    call.usage = usage;
    call.format = format;
    return new RecordedTexture(L"target", {}, width, height);
}

void RecordingDevice::draw_solid_rect(const tagRECT& rect, const VEC4& color, x3d_blend_desc blend) {
    DrawCall& call = record(DrawCall::RECT);
    call.rect = rect;
    call.color = color;
    call.blend = blend.members;
}

void RecordingDevice::draw_texture_to_rect(const tagRECT& rect, CMyComPtr<IDeviceTexture> texture, const VEC4& color,
                                           x3d_blend_desc blend, float depth, x3d_zfunc depth_test) {
    DrawCall& call = record(DrawCall::TEXTURE);
    call.rect = rect;
    call.color = color;
    call.blend = blend.members;
    call.depth = depth;
    call.depth_test = depth_test;
    if (!texture) return;
    call.width = texture->width;
    call.height = texture->height;
    if (const auto* recorded = dynamic_cast<const RecordedTexture*>(texture.get())) {
        call.text = recorded->name;
        call.path = recorded->path;
    }
}

void RecordingDevice::draw_pline_with_pattern(const std::vector<VEC2>& points, const VEC4& color, float width,
                                              unsigned long pattern, float pattern_scale, x3d_blend_desc blend) {
    DrawCall& call = record(DrawCall::LINE);
    call.points = points;
    call.color = color;
    call.line_width = width;
    call.pattern = pattern;
    call.pattern_scale = pattern_scale;
    call.blend = blend.members;
}

void RecordingDevice::draw_text(IBaseFont::Face& face, int x, int y, const VEC4& color, const wchar_t* text,
                                font_org_position position) {
    DrawCall& call = record(DrawCall::TEXT);
    call.face = &face;
    call.x = x;
    call.y = y;
    call.color = color;
    call.text = text ? text : L"";
    call.position = position;
}

CMyComPtr<IDeviceTexture> RecordingDevice::make_texture(const std::wstring& path) {
    const auto picture = read_picture(native_path(path));
    if (!picture) return {};
    return new RecordedTexture(filefun::get_pure_filename(path.c_str(), true), path, picture->width, picture->height);
}

}  // namespace host
