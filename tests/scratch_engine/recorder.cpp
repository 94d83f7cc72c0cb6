#include "scratch_engine/recorder.h"

namespace {

bool is_gui_blend(const x3d_blend_desc& blend) {
    return blend.members == std::array<std::int32_t, 8>{0, 1, 5, 6, 1, 8, 2, 1};
}

}  // namespace

std::ostream& operator<<(std::ostream& out, const DrawCall& call) {
    static constexpr const char* names[] = {"viewport", "solid", "texture", "line", "words"};
    return out << names[call.kind] << " " << call.rect.left << "," << call.rect.top << "," << call.rect.right << ","
               << call.rect.bottom << " at " << call.x << "," << call.y << " colour " << call.color.x << ","
               << call.color.y << "," << call.color.z << "," << call.color.w;
}

void Recorder::add(DrawCall call) {
    if (recording) calls.push_back(std::move(call));
}

void Recorder::set_view_port(x3d_viewport value) {
    viewport = value;
    const auto pixel = [](float number) { return static_cast<std::int32_t>(number); };
    if (!recording) return;
    add({.kind = DrawCall::VIEWPORT,
         .rect = {pixel(value.x), pixel(value.y), pixel(value.x + value.width), pixel(value.y + value.height)}});
}

CMyComPtr<IDeviceTexture> Recorder::create_device_texture_ex(unsigned long usage, unsigned width, unsigned height,
                                                             unsigned a, unsigned format, unsigned b, unsigned c,
                                                             unsigned d, unsigned e, unsigned f) {
    check(usage == 0x802 && a == 0 && format == 0x1c && b == 1 && c == 1 && d == 0 && e == 0 && f == 0x20);
    ++textures_made;
    CMyComPtr<IDeviceTexture> texture(new IDeviceTexture);
    texture->width = width;
    texture->height = height;
    return texture;
}

void Recorder::draw_solid_rect(const tagRECT& rect, const VEC4& color, x3d_blend_desc blend) {
    check(is_gui_blend(blend));
    if (recording) add({.kind = DrawCall::SOLID, .rect = rect, .color = color});
}

void Recorder::draw_texture_to_rect(const tagRECT& rect, CMyComPtr<IDeviceTexture> texture, const VEC4& color,
                                    x3d_blend_desc blend, float depth, x3d_zfunc depth_test) {
    check(is_gui_blend(blend) && depth == 0.0f && depth_test == 8);
    if (recording) add({.kind = DrawCall::TEXTURE, .rect = rect, .color = color, .texture = texture.get()});
}

void Recorder::draw_pline_with_pattern(const std::vector<VEC2>& points, const VEC4& color, float width,
                                       unsigned long pattern, float pattern_scale, x3d_blend_desc blend) {
    check(is_gui_blend(blend) && width == 1.0f && pattern == 0xAAAAAAAA && pattern_scale == 1.0f);
    if (recording) add({.kind = DrawCall::LINE, .color = color, .points = points});
}

struct IBaseFont::Face {
    int height = 0;
};

IBaseFont::IBaseFont(IBaseDevice* device) : IBaseDeviceItem(device), m_face(std::make_unique<Face>()) {}
IBaseFont::~IBaseFont() = default;
void IBaseFont::create_font_from_memory(void*, unsigned, unsigned height) { m_face->height = static_cast<int>(height); }
void IBaseFont::create_font_from_file(const wchar_t*, unsigned size) { m_face->height = static_cast<int>(size); }
int IBaseFont::get_height() const { return m_face->height; }
bool IBaseFont::is_italic() const { return false; }

void IBaseFont::render_text_in_screen(int x, int y, VEC4 color, const wchar_t* text, font_org_position position) {
    auto& recorder = *static_cast<Recorder*>(m_device);
    if (!recorder.recording) return;
    DrawCall call{.kind = DrawCall::WORDS, .color = color, .font = this, .words = text, .x = x, .y = y};
    call.position = position;
    recorder.add(std::move(call));
}
