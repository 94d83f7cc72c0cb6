#include "host/core/font_face.h"

#include <ft2build.h>

#include <algorithm>
#include <climits>
#include <filesystem>

#include "host/core/native_path.h"
#include "host/core/sdl_memory.h"
#include FT_FREETYPE_H

namespace {

// Glyphs beyond this would not fit into the textures of common graphics cards.
constexpr int tallest_glyphs = 2048;

std::uint64_t next_face_id() {
    static std::uint64_t last = 0;
    return ++last;
}

// Where a font could not be opened: throws if that was for want of memory. SDL keeps the reason to itself, so FreeType
// is asked again; what it opens now lacked nothing else then.
void check_font_memory(FT_Open_Args font, int height) {
    FT_Library library = nullptr;
    FT_Error error = FT_Init_FreeType(&library);
    FT_Face face = nullptr;
    if (!error) error = FT_Open_Face(library, &font, 0, &face);
    if (!error) error = FT_Set_Char_Size(face, 0, FT_F26Dot6{height} * 64, 0, 0);
    FT_Done_FreeType(library);
    if (error == FT_Err_Ok || error == FT_Err_Out_Of_Memory) host::refuse_memory();
}

}  // namespace

// The font library counts its users, so every face keeps it alive for itself.
IBaseFont::Face::Face(unsigned asked)
    : id(next_face_id()), asked_height(asked), height(static_cast<int>(std::min<unsigned>(asked, INT_MAX))) {
    // It needs nothing else.
    if (TTF_Init() != 0) host::refuse_memory();
}

IBaseFont::Face::~Face() {
    if (font) TTF_CloseFont(font);
    TTF_Quit();
}

bool IBaseFont::Face::can_open() const { return height > 0 && height <= tallest_glyphs; }

void IBaseFont::Face::adopt(TTF_Font* opened) {
    font = opened;
    if (!font) return;
    italic = (TTF_GetFontStyle(font) & TTF_STYLE_ITALIC) != 0;
    // Full hinting bends Chinese strokes to the pixel grid; light hinting keeps their shape.
    TTF_SetFontHinting(font, TTF_HINTING_LIGHT);
}

std::unique_ptr<IBaseFont::Face> IBaseFont::Face::from_memory(const void* image, unsigned length, unsigned height) {
    auto face = std::make_unique<Face>(height);
    if (!image || length == 0 || length > INT_MAX || !face->can_open()) return face;
    const auto* bytes = static_cast<const std::uint8_t*>(image);
    face->m_image.assign(bytes, bytes + length);
    SDL_RWops* stream = SDL_RWFromConstMem(face->m_image.data(), static_cast<int>(length));
    if (!stream) host::check_sdl_memory();
    if (stream) face->adopt(TTF_OpenFontIndexRW(stream, 1, face->height, 0));
    if (face->font) return face;
    FT_Open_Args font{};
    font.flags = FT_OPEN_MEMORY;
    font.memory_base = face->m_image.data();
    font.memory_size = static_cast<FT_Long>(face->m_image.size());
    check_font_memory(font, face->height);
    return face;
}

std::unique_ptr<IBaseFont::Face> IBaseFont::Face::from_file(const wchar_t* path, unsigned height) {
    auto face = std::make_unique<Face>(height);
    if (path) face->path = path;
    if (!path || !face->can_open()) return face;
    std::error_code code;
    // Opening a pipe would wait for whoever writes to it.
    if (!std::filesystem::is_regular_file(host::native_path(face->path), code)) return face;
    std::string file = host::native_path(face->path).string();
    face->adopt(TTF_OpenFontIndex(file.c_str(), face->height, 0));
    if (face->font) return face;
    FT_Open_Args font{};
    font.flags = FT_OPEN_PATHNAME;
    font.pathname = file.data();
    check_font_memory(font, face->height);
    return face;
}
