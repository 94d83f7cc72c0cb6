// What a frame shows, and in which order. Reads rectangles, computes none.

#include <vector>

#include "fonts/font_info.h"
#include "layout/approach.h"
#include "layout/shape.h"
#include "layout/shown.h"
#include "module/boundary.h"
#include "module/manager.h"
#include "module/setting.h"
#include "render/blend.h"
#include "render/frame_moment.h"
#include "render/visibility.h"

namespace {

constexpr float veil_alpha = 0.9f;

// In shapes. A still one is drawn in a few nanoseconds, while its memory takes a hundred and more to come; twice as far
// is slower again.
constexpr std::size_t far_enough = 32;

x3d_viewport viewport_over(const CRect& rect, x3d_viewport viewport) {
    viewport.x = static_cast<float>(rect.left);
    viewport.y = static_cast<float>(rect.top);
    viewport.width = static_cast<float>(rect.Width());
    viewport.height = static_cast<float>(rect.Height());
    return viewport;
}

}  // namespace

void CSimpleGUIManager::render_in_view_2d(const render_context& context) try {
    render_all_formal_content(context);
    CGlobalFontInfo* fonts = m_setting ? m_setting->m_font_info : nullptr;
    if (fonts && fonts->m_show_font_sample) fonts->debug_draw_font();
} catch (...) {
    keep_inside(L"render_in_view_2d");
}

void CSimpleGUIManager::render_all_formal_content(const render_context&) try {
    if (m_gui_hidden && m_system->m_system_state == SYSTEM_STATE_FOUR) return;
    m_gui_hidden = 0;
    render_dialogs();

    const bool plain = m_system->m_formal_view || m_running || m_system->m_selection_manager->get_selection()->empty();
    if (plain) return;
    CSimpleGUIDialog* editing = get_editing_dialog();
    if (editing) {
        const CRect& client = m_system->get_client_rect();
        const VEC4 veil(m_dim_color.x, m_dim_color.y, m_dim_color.z, veil_alpha);
        m_system->m_renderfun->draw_solid_rect(CRect(0, 0, client.Width(), client.Height()), veil, gui_blend);
    }
    render_editing_dialog_frame();
    if (editing) editing->render_in_view();
} catch (...) {
    keep_inside(L"render_all_formal_content");
}

void CSimpleGUIManager::render_dialogs() {
    for (auto at = m_dialogs.rbegin(); at != m_dialogs.rend(); ++at) {
        if (*at && (*at)->m_in_scene) (*at)->render_in_view();
    }
}

void CSimpleGUIDialog::render_in_view() {
    if (!m_in_scene || !is_shown(m_actor)) return;
    IBaseDevice& device = *m_system->render_device;
    const x3d_viewport outside = device.get_current_viewport();
    device.set_view_port(viewport_over(m_rect, outside));
    try {
        render_shapes();
    } catch (...) {
        keep_inside(L"dialog: render_in_view");
    }
    // Whatever became of this one, the next dialog counts from the view.
    device.set_view_port(outside);
}

void CSimpleGUIDialog::render_shapes() {
    // Kept between frames, so that a steady frame allocates nothing.
    static std::vector<CSimpleGUIShape*> deferred;
    deferred.clear();
    frame_moment.begin();
    const auto draw = [this](CSimpleGUIShape* shape) {
        render_shape_texture(shape);
        render_shape_text(shape);
    };
    Approach approach(
        m_shapes.begin(), m_shapes.end(),
        [](const CSimpleGUIShape& shape) {
            fetch(&shape.m_actor);
            fetch(&shape.m_rect);
            fetch(&shape.m_title);
            fetch(&shape.m_texture);
            fetch(&shape.m_is_usable);
        },
        [](const CSimpleGUIShape& shape) {
            fetch(shape.m_actor);
            for (const ITexture* picture :
                 {shape.m_texture.get(), shape.m_texture_hover.get(), shape.m_texture_down.get()}) {
                if (!picture) continue;
                fetch(picture);
                // Its device side stands behind what belongs to every texture.
                fetch(picture + 1);
            }
        },
        far_enough);
    for (CSimpleGUIShape* shape : m_shapes) {
        approach.next();
        // The dialog itself was asked above, and nothing on the way to here can hide it.
        if (!shape || !(shape->m_parent_dialog == this ? is_drawn_in_its_dialog(*shape) : is_drawn(*shape))) continue;
        if (shape->m_bk_image) {
            draw(shape);
        } else {
            deferred.push_back(shape);
        }
    }
    for (CSimpleGUIShape* shape : deferred) draw(shape);
}
