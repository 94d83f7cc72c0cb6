// The marks of the dialog under edit: a tint, a dotted line, its name in the corner of the view.

#include <vector>

#include "module/boundary.h"
#include "module/manager.h"
#include "render/blend.h"
#include "render/mark_color.h"

namespace {

constexpr float tint_alpha = 0.1f;
constexpr unsigned long every_other_pixel = 0xAAAAAAAA;
constexpr int name_margin = 20;
const VEC4 name_shadow_color(0.0f, 0.0f, 0.0f, 1.0f);

std::vector<VEC2> outline(const CRect& rect) {
    const auto point = [](std::int32_t x, std::int32_t y) {
        return VEC2(static_cast<float>(x), static_cast<float>(y));
    };
    return {point(rect.left, rect.top), point(rect.right, rect.top), point(rect.right, rect.bottom),
            point(rect.left, rect.bottom), point(rect.left, rect.top)};
}

}  // namespace

void CSimpleGUIManager::render_editing_dialog_frame() try {
    const CSimpleGUIDialog* dialog = get_editing_dialog();
    if (!dialog) return;
    renderfun& draw = *m_system->m_renderfun;
    const VEC4 line_color = mark_color(m_dim_color, 1.0f);
    draw.draw_solid_rect(dialog->m_rect, mark_color(m_dim_color, tint_alpha), gui_blend);
    draw.draw_pline_with_pattern(outline(dialog->m_rect), line_color, 1.0f, every_other_pixel, 1.0f, gui_blend);

    IBaseFont* font = m_system->default_font;
    if (!font || !dialog->m_actor) return;
    const CRect& client = m_system->get_client_rect();
    const int x = client.Width() - name_margin;
    const int y = client.Height() - font->get_height();
    const tstringW& name = dialog->m_actor->get_name();
    // The shadow lies one pixel to the right and one down, not two as that of a shape's text.
    font->render_text_in_screen(x + 1, y + 1, name_shadow_color, name.c_str(), FONT_RIGHT_BOTTOM);
    font->render_text_in_screen(x, y, line_color, name.c_str(), FONT_RIGHT_BOTTOM);
} catch (...) {
    keep_inside(L"render_editing_dialog_frame");
}
