#include "harden/short_memory.h"

#include <SDL.h>
#include <dlfcn.h>
#include <ft2build.h>

#include <atomic>
#include <cstddef>
#include <cstdlib>
#include <lua.hpp>
#include <new>
#include <pugixml.hpp>
#include <utility>
#include FT_MODULE_H

namespace {

struct Watch {
    bool is_on = false;
    long at = 0;
    bool lasts = false;
    long count = 0;
    bool was_felt = false;
};

// Other threads, which libraries may have, ask as ever.
thread_local Watch watch;
std::atomic<long long> live = 0;

bool may_have() {
    if (!watch.is_on) return true;
    const long number = watch.count++;
    const bool fails = number == watch.at || (watch.lasts && watch.at >= 0 && number > watch.at);
    watch.was_felt |= fails;
    return !fails;
}

// What was asked for stands ahead of each block: the system's own measure may differ from one time to the next.
constexpr std::size_t ahead = alignof(std::max_align_t);

void* noted(void* block, std::size_t size) {
    if (!block) return nullptr;
    *static_cast<std::size_t*>(block) = size;
    live += static_cast<long long>(size);
    return static_cast<char*>(block) + ahead;
}

void* block_of(void* memory) { return memory ? static_cast<char*>(memory) - ahead : nullptr; }

std::size_t size_of(void* memory) { return memory ? *static_cast<std::size_t*>(block_of(memory)) : 0; }

void give_back(void* memory) {
    live -= static_cast<long long>(size_of(memory));
    std::free(block_of(memory));
}

void* take(std::size_t size) { return may_have() ? noted(std::malloc(ahead + size), size) : nullptr; }

// No library of this program asks for more than an address can count.
void* take_cleared(std::size_t count, std::size_t size) {
    return may_have() ? noted(std::calloc(1, ahead + count * size), count * size) : nullptr;
}

void* take_more(void* memory, std::size_t size) {
    if (!may_have()) return nullptr;
    const std::size_t before = size_of(memory);
    void* const moved = std::realloc(block_of(memory), ahead + size);
    if (moved) live -= static_cast<long long>(before);
    return noted(moved, size);
}

// All states of this program have one allocator.
lua_Alloc lua_allocator = nullptr;

void* take_for_lua(void* box, void* block, std::size_t old_size, std::size_t new_size) {
    // Lua counts on it that a block can always be given back or made smaller.
    const std::size_t held = block ? old_size : 0;
    if (new_size > held && !may_have()) return nullptr;
    void* const moved = lua_allocator(box, block, old_size, new_size);
    if (moved || new_size == 0) live += static_cast<long long>(new_size) - static_cast<long long>(held);
    return moved;
}

}  // namespace

namespace harden {

ShortMemory::ShortMemory(long at, bool lasts) { watch = {true, at, lasts}; }
ShortMemory::~ShortMemory() { watch.is_on = false; }
long ShortMemory::count() const { return watch.count; }
bool ShortMemory::was_felt() const { return watch.was_felt; }

void watch_library_memory() {
    SDL_SetMemoryFunctions(&take, &take_cleared, &take_more, &give_back);
    pugi::set_memory_management_functions(&take, &give_back);
}

long long live_bytes() { return live; }

}  // namespace harden

// The host's own call ends here, and goes on from here to Lua.
extern "C" lua_State* lua_newstate(lua_Alloc allocator, void* box) {
    static const auto next = reinterpret_cast<decltype(&lua_newstate)>(dlsym(RTLD_NEXT, "lua_newstate"));
    lua_allocator = allocator;
    return next(&take_for_lua, box);
}

// So do the calls of the library that draws texts, which asks FreeType for one with the usual memory.
extern "C" FT_Error FT_Init_FreeType(FT_Library* library) {
    static FT_MemoryRec_ memory{
        nullptr, [](FT_Memory, long size) { return take(static_cast<std::size_t>(size)); },
        [](FT_Memory, void* block) { give_back(block); },
        [](FT_Memory, long, long size, void* block) { return take_more(block, static_cast<std::size_t>(size)); }};
    const FT_Error error = FT_New_Library(&memory, library);
    if (error) return error;
    FT_Add_Default_Modules(*library);
    FT_Set_Default_Properties(*library);
    return FT_Err_Ok;
}
extern "C" FT_Error FT_Done_FreeType(FT_Library library) { return FT_Done_Library(library); }

// Without memory its hinter goes on with less, for as long as the font lives, and tells nobody; so it has memory here.
extern "C" FT_Error FT_Load_Glyph(FT_Face face, FT_UInt glyph, FT_Int32 flags) {
    static const auto next = reinterpret_cast<decltype(&FT_Load_Glyph)>(dlsym(RTLD_NEXT, "FT_Load_Glyph"));
    const bool was_on = std::exchange(watch.is_on, false);
    const FT_Error error = next(face, glyph, flags);
    watch.is_on = was_on;
    return error;
}

void* operator new(std::size_t size) {
    for (;;) {
        if (void* const memory = take(size)) return memory;
        const std::new_handler handler = std::get_new_handler();
        if (!handler) throw std::bad_alloc();
        handler();
    }
}

// All forms, for sanitizers bring their own of each.
void* operator new[](std::size_t size) { return operator new(size); }

void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    try {
        return operator new(size);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

void* operator new[](std::size_t size, const std::nothrow_t& tag) noexcept { return operator new(size, tag); }

void operator delete(void* memory) noexcept { give_back(memory); }
void operator delete(void* memory, std::size_t) noexcept { give_back(memory); }
void operator delete(void* memory, const std::nothrow_t&) noexcept { give_back(memory); }
void operator delete[](void* memory) noexcept { give_back(memory); }
void operator delete[](void* memory, std::size_t) noexcept { give_back(memory); }
void operator delete[](void* memory, const std::nothrow_t&) noexcept { give_back(memory); }
