#include "scratch_engine/recorder.h"

#include <new>

namespace {

bool is_gui_blend(const x3d_blend_desc& blend) {
    return blend.members == std::array<std::int32_t, 8>{0, 1, 5, 6, 1, 8, 2, 1};
}

}  // namespace

void Recorder::set_view_port(x3d_viewport value) {
    viewport = value;
    add();
}

CMyComPtr<IDeviceTexture> Recorder::create_device_texture_ex(unsigned long usage, unsigned width, unsigned height,
                                                             unsigned a, unsigned format, unsigned b, unsigned c,
                                                             unsigned d, unsigned e, unsigned f) {
    check(usage == 0x802 && a == 0 && format == 0x1c && b == 1 && c == 1 && d == 0 && e == 0 && f == 0x20);
    CMyComPtr<IDeviceTexture> texture(new IDeviceTexture);
    texture->width = width;
    texture->height = height;
    return texture;
}

void Recorder::draw_solid_rect(const tagRECT&, const VEC4&, x3d_blend_desc blend) {
    if (failures > 0) {
        --failures;
        throw std::bad_alloc();
    }
    check(is_gui_blend(blend));
    add();
}

void Recorder::draw_texture_to_rect(const tagRECT&, CMyComPtr<IDeviceTexture>, const VEC4&, x3d_blend_desc blend,
                                    float depth, x3d_zfunc depth_test) {
    check(is_gui_blend(blend) && depth == 0.0f && depth_test == 8);
    add();
}

void Recorder::draw_pline_with_pattern(const std::vector<VEC2>&, const VEC4&, float width, unsigned long pattern,
                                       float pattern_scale, x3d_blend_desc blend) {
    check(is_gui_blend(blend) && width == 1.0f && pattern == 0xAAAAAAAA && pattern_scale == 1.0f);
    add();
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

void IBaseFont::render_text_in_screen(int, int, VEC4, const wchar_t*, font_org_position) {
    static_cast<Recorder*>(m_device)->add({this});
}
