#include "host/core/font_face.h"

#include <algorithm>
#include <climits>
#include <filesystem>

#include "host/core/native_path.h"
#include "host/core/sdl_memory.h"

namespace {

// Glyphs beyond this would not fit into the textures of common graphics cards.
constexpr int tallest_glyphs = 2048;

std::uint64_t next_face_id() {
    static std::uint64_t last = 0;
    return ++last;
}

}  // namespace

// The font library counts its users, so every face keeps it alive for itself.
IBaseFont::Face::Face(unsigned asked)
    : id(next_face_id()),
      asked_height(asked),
      height(static_cast<int>(std::min<unsigned>(asked, INT_MAX))),
      m_library_ready(TTF_Init() == 0) {}

IBaseFont::Face::~Face() {
    if (font) TTF_CloseFont(font);
    if (m_library_ready) TTF_Quit();
}

bool IBaseFont::Face::can_open() const { return m_library_ready && height > 0 && height <= tallest_glyphs; }

void IBaseFont::Face::adopt(TTF_Font* opened) {
    font = opened;
    if (!font) return host::check_sdl_memory();
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
    return face;
}

std::unique_ptr<IBaseFont::Face> IBaseFont::Face::from_file(const wchar_t* path, unsigned height) {
    auto face = std::make_unique<Face>(height);
    if (path) face->path = path;
    if (!path || !face->can_open()) return face;
    std::error_code code;
    // Opening a pipe would wait for whoever writes to it.
    if (!std::filesystem::is_regular_file(host::native_path(face->path), code)) return face;
    const std::u8string file = host::native_path(face->path).u8string();
    face->adopt(TTF_OpenFontIndex(reinterpret_cast<const char*>(file.c_str()), face->height, 0));
    return face;
}
