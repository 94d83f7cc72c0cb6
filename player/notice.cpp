#include "player/notice.h"

#include "host/core/clock.h"
#include "host/core/text_conversion.h"
#include "host/system/engine.h"

namespace player {

namespace {

// A failure stays long enough to be read aloud to a colleague.
constexpr double shown_seconds[] = {3.0, 12.0};
const VEC4 background[] = {{0.05f, 0.07f, 0.10f, 0.80f}, {0.55f, 0.08f, 0.08f, 0.92f}};
const VEC4 text_color(1.0f, 1.0f, 1.0f, 1.0f);
constexpr x3d_blend_desc by_alpha(1, 5, 6, 1, 8, 2, 1, 0);
constexpr int line_height = 36;

}  // namespace

void Notice::show(const std::string& text, Kind kind) {
    m_text = from_utf8(text);
    m_kind = kind;
    m_since = host::now();
}

void Notice::draw(host::Engine& engine, host::Device& device, int width, int height) {
    if (m_text.empty()) return;
    if (host::now() - m_since > shown_seconds[m_kind] || !engine.default_font) {
        m_text.clear();
        return;
    }
    device.draw_solid_rect(CRect(0, height - line_height, width, height), background[m_kind], by_alpha);
    engine.default_font->render_text_in_screen(width / 2, height - line_height / 2, text_color, m_text.c_str(),
                                               FONT_CENTER_MIDDLE);
}

}  // namespace player
