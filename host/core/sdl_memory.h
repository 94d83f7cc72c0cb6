#pragma once

#include <SDL2/SDL.h>

#include <string_view>

#include "host/core/memory_watch.h"

namespace host {

/// SDL makes a place for a thread's errors at the first of them. Without the memory for that it fails for ever anew,
/// until the stack ends; so the first one comes while there is memory.
inline void keep_room_for_sdl_errors() {
    SDL_SetError("none");
    SDL_ClearError();
}

/// Where a call of SDL, or of a library on it, has failed: throws if it was for want of memory. What is missing for any
/// other reason stays missing, so it may be remembered; this must not be.
inline void check_sdl_memory() {
    if (std::string_view(SDL_GetError()) != "Out of memory") return;
    SDL_ClearError();
    refuse_memory();
}

/// The same for calls that give a number, below 0 where they failed.
inline void check_sdl_memory(int result) {
    if (result < 0) check_sdl_memory();
}

}  // namespace host
