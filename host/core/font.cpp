#include "engine/font.h"

#include "host/core/device.h"
#include "host/core/font_face.h"

IBaseFont::IBaseFont(IBaseDevice* device) : IBaseDeviceItem(device) {}
IBaseFont::~IBaseFont() = default;

void IBaseFont::render_text_in_screen(int x, int y, VEC4 color, const wchar_t* text, font_org_position position) {
    auto* device = dynamic_cast<host::Device*>(m_device);
    if (device && m_face && text) device->draw_text(*m_face, x, y, color, text, position);
}

void IBaseFont::create_font_from_memory(void* memory, unsigned length, unsigned height) {
    m_face = Face::from_memory(memory, length, height);
}

void IBaseFont::create_font_from_file(const wchar_t* path, unsigned size) { m_face = Face::from_file(path, size); }

int IBaseFont::get_height() const { return m_face ? m_face->height : 0; }
bool IBaseFont::is_italic() const { return m_face && m_face->italic; }
