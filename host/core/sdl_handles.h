#pragma once

#include <SDL2/SDL.h>

#include <memory>

namespace host {

struct SdlDeleter {
    void operator()(SDL_Renderer* renderer) const { SDL_DestroyRenderer(renderer); }
    void operator()(SDL_Surface* surface) const { SDL_FreeSurface(surface); }
    void operator()(SDL_Texture* texture) const { SDL_DestroyTexture(texture); }
};

using SdlRenderer = std::unique_ptr<SDL_Renderer, SdlDeleter>;
using SdlSurface = std::unique_ptr<SDL_Surface, SdlDeleter>;
using SdlTexturePtr = std::unique_ptr<SDL_Texture, SdlDeleter>;

}  // namespace host
