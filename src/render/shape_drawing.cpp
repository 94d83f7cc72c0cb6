// One shape: its rectangle or pictures, then its text.

#include "fonts/font_info.h"
#include "layout/shape.h"
#include "module/manager.h"
#include "module/setting.h"
#include "render/blend.h"
#include "render/fade.h"
#include "render/frame_moment.h"

namespace {

const VEC4 disabled_color(0.4f, 0.4f, 0.4f, 0.15f);
const VEC4 shadow_color(0.0f, 0.0f, 0.0f, 1.0f);
constexpr int shadow_offset = 2;

bool has_any_picture(const CSimpleGUIShape& shape) {
    return shape.m_texture || shape.m_texture_hover || shape.m_texture_down;
}

IDeviceTexture* device_side(const CMyComPtr<ITexture>& picture) {
    return picture ? picture->get_device_texture() : nullptr;
}

void draw_texture(renderfun& draw, const CRect& rect, IDeviceTexture* texture, const VEC4& color) {
    draw.draw_texture_to_rect(rect, texture, color, gui_blend, 0.0f, X3D_ZFUNC_ALWAYS);
}

// A picture that stands in for those that could not be made. Its size is that of the first shape drawn, its content is
// never written; negative sizes, which scripts can give a shape, become 0.
CMyComPtr<IDeviceTexture> make_stand_in(IBaseDevice& device, const CRect& rect) {
    const auto size = [](std::int32_t pixels) { return pixels > 0 ? static_cast<unsigned>(pixels) : 0u; };
    return device.create_device_texture_ex(0x802, size(rect.Width()), size(rect.Height()), 0, 0x1c, 1, 1, 0, 0, 0x20);
}

// Without the memory for a setting there is none; what is drawn then is that of a project that says nothing.
float trans_time(const CGlobalGUISetting* setting) { return setting ? setting->m_ani_trans_time : 0.0f; }

IBaseFont* font_of_slot(const CGlobalGUISetting* setting, int slot) {
    return setting ? setting->m_font_info->font_of_slot(slot) : nullptr;
}

const CMyComPtr<ITexture>& picture_of(const CSimpleGUIShape& shape, int mode) {
    if (mode == MODE_HOVER) return shape.m_texture_hover;
    if (mode == MODE_DOWN) return shape.m_texture_down;
    return shape.m_texture;
}

}  // namespace

CMyComPtr<ITexture> CSimpleGUIDialog::get_shape_texture_by_mode(CSimpleGUIShape* shape, int mode) {
    return picture_of(*shape, mode);
}

void CSimpleGUIDialog::render_shape_texture(CSimpleGUIShape* shape) {
    if (!m_manager->m_shape_target) m_manager->m_shape_target = make_stand_in(*m_system->render_device, shape->m_rect);
    renderfun& draw = *m_system->m_renderfun;

    if (shape->m_is_static_pic || !shape->m_is_usable) {
        const VEC4& color = shape->m_is_usable ? shape->m_color : disabled_color;
        if (shape->m_texture) {
            draw_texture(draw, shape->m_rect, shape->m_texture->get_device_texture(), color);
        } else {
            draw.draw_solid_rect(shape->m_rect, color, gui_blend);
        }
        return;
    }
    if (!has_any_picture(*shape)) {
        draw.draw_solid_rect(shape->m_rect, shape->m_color, gui_blend);
        return;
    }
    if (m_manager->m_running) {
        render_shape_fade(shape);
        return;
    }
    // The author sees the normal picture alone.
    IDeviceTexture* texture = shape->m_texture ? device_side(shape->m_texture) : m_manager->m_shape_target.get();
    draw_texture(draw, shape->m_rect, texture, shape->m_color);
}

void CSimpleGUIDialog::render_shape_fade(CSimpleGUIShape* shape) {
    // A picture that is missing shows the normal one; a normal one that is missing shows the stand-in.
    IDeviceTexture* normal = device_side(shape->m_texture);
    if (!normal) normal = m_manager->m_shape_target.get();

    const float duration = shape->m_texture_mode == MODE_DOWN ? press_seconds : trans_time(m_manager->m_setting);
    FadeTime& time = frame_moment.fade(shape->m_mode_time, duration);
    // A normal picture never gets more opaque than the shape's colour; the others end fully opaque.
    const float most[] = {0.0f, shape->m_color.w, 1.0f, 1.0f};
    for (int mode = MODE_NORMAL; mode <= MODE_DOWN; ++mode) {
        const float target = mode == shape->m_texture_mode ? most[mode] : 0.0f;
        float& weight = shape->m_fade_now[mode];
        weight = next_weight({shape->m_fade_start[mode], weight, target, most[mode]}, time);
        IDeviceTexture* own = mode == MODE_NORMAL ? normal : device_side(picture_of(*shape, mode));
        draw_texture(*m_system->m_renderfun, shape->m_rect, own ? own : normal,
                     {shape->m_color.x, shape->m_color.y, shape->m_color.z, weight});
    }
}

void CSimpleGUIDialog::render_shape_text(CSimpleGUIShape* shape) {
    if (shape->m_title.empty()) return;
    IBaseFont* font = font_of_slot(m_manager->m_setting, shape->m_font_type);
    if (!font) font = m_system->default_font;
    shape->update_fontpos();
    if (!font) return;
    const auto draw = [&](int offset, const VEC4& color) {
        font->render_text_in_screen(saturated(std::int64_t{shape->m_font_pos_x} + offset),
                                    saturated(std::int64_t{shape->m_font_pos_y} + offset), color,
                                    shape->m_title.c_str(), shape->m_font_org_position);
    };
    if (shape->m_font_shadow) draw(shadow_offset, shadow_color);
    draw(0, shape->m_font_color);
}
