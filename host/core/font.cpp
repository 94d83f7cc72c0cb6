#include "engine/font.h"

#include <algorithm>

#include "host/core/device.h"
#include "host/core/font_face.h"

IBaseFont::IBaseFont(IBaseDevice* device) : IBaseDeviceItem(device) {}
IBaseFont::~IBaseFont() = default;

void IBaseFont::render_text_in_screen(int x, int y, VEC4 color, const wchar_t* text, font_org_position position) {
    // Every device of this engine is one of its own.
    auto* device = static_cast<host::Device*>(m_device);
    if (device && m_face && text) device->draw_text(*m_face, x, y, color, text, position);
}

void IBaseFont::create_font_from_memory(void* memory, unsigned length, unsigned height) {
    m_face = Face::from_memory(memory, length, height);
}

void IBaseFont::create_font_from_file(const wchar_t* path, unsigned size) { m_face = Face::from_file(path, size); }

int IBaseFont::get_height() const { return m_face ? m_face->height : 0; }
bool IBaseFont::is_italic() const { return m_face && m_face->italic; }

namespace host {

namespace {

// A class below the font may look at its face.
struct OpenFont final : IBaseFont {
    using IBaseFont::IBaseFont;

    static const Face* face_of(const IBaseFont& font) { return (font.*&OpenFont::m_face).get(); }
    void style(int height, bool italic) {
        m_face->height = height;
        m_face->italic = italic;
        if (m_face->font) TTF_SetFontStyle(m_face->font, italic ? TTF_STYLE_ITALIC : TTF_STYLE_NORMAL);
    }
};

}  // namespace

const IBaseFont::Face* face_of(const IBaseFont* font) { return font ? OpenFont::face_of(*font) : nullptr; }

CMyComPtr<IBaseFont> make_font(IBaseDevice* device, const std::wstring& path, int height, bool italic) {
    CMyComPtr<OpenFont> font(new OpenFont(device));
    font->create_font_from_file(path.c_str(), static_cast<unsigned>(std::max(height, 0)));
    font->style(height, italic);
    return font.get();
}

}  // namespace host
