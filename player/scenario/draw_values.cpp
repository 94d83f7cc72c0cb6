#include "player/scenario/draw_values.h"

#include "host/core/font_face.h"

namespace scenario {

namespace {

Value slot_of(const IBaseFont::Face* face, const CGlobalFontInfo& fonts, const IBaseFont* default_font) {
    if (face && face != host::face_of(default_font))
        for (std::size_t slot = 0; slot < fonts.m_gui_fonts.size(); ++slot)
            if (host::face_of(fonts.m_gui_fonts[slot]) == face) return slot;
    return "default";
}

Value viewport_value(const host::DrawCall& call) {
    const auto& place = call.viewport;
    return {{"op", "viewport"}, {"x", place[0]}, {"y", place[1]}, {"w", place[2]}, {"h", place[3]}};
}

Value line_value(const host::DrawCall& call) {
    Value points = Value::array();
    for (const VEC2& point : call.points) points.push_back(value_of(point));
    return {{"op", "line"}, {"points", points}, {"color", value_of(call.color)}, {"pattern", call.pattern}};
}

}  // namespace

Value draw_call_value(const host::DrawCall& call, const CGlobalFontInfo& fonts, const IBaseFont* default_font) {
    switch (call.op) {
        case host::DrawCall::VIEWPORT:
            return viewport_value(call);
        case host::DrawCall::RECT:
            return {{"op", "rect"}, {"rect", value_of(call.rect)}, {"color", value_of(call.color)}};
        case host::DrawCall::TEXTURE:
            return {{"op", "texture"},
                    {"rect", value_of(call.rect)},
                    {"texture", value_of(call.text)},
                    {"color", value_of(call.color)}};
        case host::DrawCall::TEXT:
            return {{"op", "text"},
                    {"x", call.x},
                    {"y", call.y},
                    {"text", value_of(call.text)},
                    {"color", value_of(call.color)},
                    {"font", slot_of(call.face, fonts, default_font)},
                    {"position", call.position}};
        case host::DrawCall::LINE:
            return line_value(call);
        case host::DrawCall::TARGET:
            return {{"op", "target"}, {"w", call.width}, {"h", call.height}};
    }
    return {};
}

}  // namespace scenario
