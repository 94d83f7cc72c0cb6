#pragma once

#include <SDL2/SDL_ttf.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "engine/font.h"

/// A font at one size. One that could not be opened keeps its size and draws nothing.
struct IBaseFont::Face {
    /// Copies the image: glyphs are read from it as long as the face lives.
    static std::unique_ptr<Face> from_memory(const void* image, unsigned length, unsigned height);
    static std::unique_ptr<Face> from_file(const wchar_t* path, unsigned height);

    explicit Face(unsigned asked);
    ~Face();
    Face(const Face&) = delete;
    Face& operator=(const Face&) = delete;

    /// Differs between all faces of a program, also those that are gone, so that caches may keep it.
    const std::uint64_t id;
    /// In pixels.
    const unsigned asked_height;
    /// The same as far as the engine can tell it.
    int height;
    bool italic = false;
    /// Empty for a face from memory.
    std::wstring path;
    /// Null if the font could not be opened.
    TTF_Font* font = nullptr;

private:
    void adopt(TTF_Font* opened);
    bool can_open() const;

    std::vector<std::uint8_t> m_image;
};

namespace host {

/// What the engine keeps of the font; null for no font and for one that was never made.
const IBaseFont::Face* face_of(const IBaseFont* font);
/// A font that stands upright or leans whatever its file says. `height` in pixels; what is below 1 draws nothing.
CMyComPtr<IBaseFont> make_font(IBaseDevice* device, const std::wstring& path, int height, bool italic);

}  // namespace host
