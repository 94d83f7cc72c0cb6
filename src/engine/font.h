#pragma once

#include <memory>

#include "engine/base_item.h"
#include "engine/text.h"
#include "engine/vectors.h"

/// How a text lies around its anchor: left, centre, right, each with top, baseline, vertical centre, bottom.
enum font_org_position : int {
    FONT_LEFT_TOP,
    FONT_LEFT_BASELINE,
    FONT_LEFT_MIDDLE,
    FONT_LEFT_BOTTOM,
    FONT_CENTER_TOP,
    FONT_CENTER_BASELINE,
    FONT_CENTER_MIDDLE,
    FONT_CENTER_BOTTOM,
    FONT_RIGHT_TOP,
    FONT_RIGHT_BASELINE,
    FONT_RIGHT_MIDDLE,
    FONT_RIGHT_BOTTOM,
};

/// A font on a device. The module makes plain objects of it.
class ENGINE_API IBaseFont : public IBaseDeviceItem {
public:
    /// What the engine keeps of a loaded font; the engine library alone defines it.
    struct Face;

    explicit IBaseFont(IBaseDevice* device);
    ~IBaseFont() override;
    IBaseFont(const IBaseFont&) = delete;
    IBaseFont& operator=(const IBaseFont&) = delete;

    /// Draws the text. The position counts in pixels from the left top corner of the viewport in force. A font that
    /// could not be made draws nothing.
    virtual void render_text_in_screen(int x, int y, VEC4 color, const wchar_t* text, font_org_position position);

    /// From the image of a font file; `length` in bytes, `height` in pixels. Neither operation gives a result.
    void create_font_from_memory(void* memory, unsigned length, unsigned height);
    /// From a font file; `size` in pixels.
    void create_font_from_file(const wchar_t* path, unsigned size);

    /// In pixels, as created; 0 before that.
    int get_height() const;
    bool is_italic() const;

protected:
    std::unique_ptr<Face> m_face;
};
