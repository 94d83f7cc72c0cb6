#include "host/system/platform.h"

#include <SDL.h>

namespace host {
namespace {

// SDL keeps showing the cursor until another is set, so the one made first serves for the whole program.
void show_sdl_hand() {
    if (!SDL_WasInit(SDL_INIT_VIDEO)) return;
    static SDL_Cursor* const hand = SDL_CreateSystemCursor(SDL_SYSTEM_CURSOR_HAND);
    if (hand) SDL_SetCursor(hand);
}

CPoint sdl_cursor_position() {
    CPoint position;
    if (SDL_WasInit(SDL_INIT_VIDEO)) SDL_GetGlobalMouseState(&position.x, &position.y);
    return position;
}

constexpr platform_functions usual_functions{&show_sdl_hand, &sdl_cursor_position};

platform_functions& functions_in_use() {
    static platform_functions functions = usual_functions;
    return functions;
}

}  // namespace

void set_platform_functions(const platform_functions& functions) { functions_in_use() = functions; }

const platform_functions& default_platform_functions() { return usual_functions; }

}  // namespace host

const platform_functions& get_platform_functions() { return host::functions_in_use(); }
