// string.find, match, gmatch and gsub, as Lua has them, on the matcher that keeps an eye on the time.

#include <cstring>
#include <lua.hpp>
#include <new>
#include <type_traits>

#include "host/system/lua_box.h"
#include "host/system/lua_pattern.h"

namespace host {
namespace {

constexpr char escape = '%';

std::string_view text_at(lua_State* L, int index) {
    std::size_t length = 0;
    const char* text = luaL_checklstring(L, index, &length);
    return {text, length};
}

// Places count from 1, or from the end where they are negative. Gives the offset; beyond the text for none.
std::size_t start_at(lua_State* L, int index, std::size_t length) {
    const lua_Integer place = luaL_optinteger(L, index, 1);
    if (place > 0) return static_cast<std::size_t>(place) - 1;
    if (place == 0 || place < -static_cast<lua_Integer>(length)) return 0;
    return length - static_cast<std::size_t>(-place);
}

int give_place(lua_State* L, std::size_t from, std::size_t to) {
    lua_pushinteger(L, static_cast<lua_Integer>(from) + 1);
    lua_pushinteger(L, static_cast<lua_Integer>(to));
    return 2;
}

int find_plain(lua_State* L, std::string_view text, std::string_view part, std::size_t start) {
    // Its time grows with the text alone, whatever is looked for.
    const void* found = memmem(text.data() + start, text.size() - start, part.data(), part.size());
    if (!found) {
        lua_pushnil(L);
        return 1;
    }
    const auto from = static_cast<std::size_t>(static_cast<const char*>(found) - text.data());
    return give_place(L, from, from + part.size());
}

bool takes_off_anchor(std::string_view& pattern) {
    if (!pattern.starts_with('^')) return false;
    pattern.remove_prefix(1);
    return true;
}

int find_or_match(lua_State* L, bool find) {
    const std::string_view text = text_at(L, 1);
    std::string_view pattern = text_at(L, 2);
    const std::size_t start = start_at(L, 3, text.size());
    LuaBox::of(L).check_time();
    if (start > text.size()) {
        lua_pushnil(L);
        return 1;
    }
    if (find && (lua_toboolean(L, 4) != 0 || pattern.find_first_of("^$*+?.([%-") == std::string_view::npos))
        return find_plain(L, text, pattern, start);
    const bool anchored = takes_off_anchor(pattern);
    LuaPattern matcher(L, text, pattern);
    const char* end_of_text = text.data() + text.size();
    for (const char* at = text.data() + start; at <= end_of_text; ++at) {
        if (const char* end = matcher.match(at)) {
            if (!find) return matcher.push_captures(at, end);
            give_place(L, static_cast<std::size_t>(at - text.data()), static_cast<std::size_t>(end - text.data()));
            return 2 + matcher.push_captures(nullptr, nullptr);
        }
        if (anchored) break;
    }
    lua_pushnil(L);
    return 1;
}

int find(lua_State* L) { return find_or_match(L, true); }
int match(lua_State* L) { return find_or_match(L, false); }

/// A walk over the matches of a pattern; an empty match behind the last one does not count again.
struct Walk {
    LuaPattern matcher;
    const char* at;
    const char* end;
    const char* last_match = nullptr;
};
static_assert(std::is_trivially_destructible_v<Walk>, "Lua frees its memory without a word");

// Text and pattern are kept alive by the function's first two values.
int next_match(lua_State* L) {
    LuaBox::of(L).check_time();
    auto* walk = static_cast<Walk*>(lua_touserdata(L, lua_upvalueindex(3)));
    for (; walk->at <= walk->end; ++walk->at) {
        const char* end = walk->matcher.match(walk->at);
        if (!end || end == walk->last_match) continue;
        const char* from = walk->at;
        walk->at = walk->last_match = end;
        return walk->matcher.push_captures(from, end);
    }
    return 0;
}

int gmatch(lua_State* L) {
    const std::string_view text = text_at(L, 1);
    const std::string_view pattern = text_at(L, 2);
    const std::size_t start = start_at(L, 3, text.size());
    lua_settop(L, 2);
    void* room = lua_newuserdatauv(L, sizeof(Walk), 0);
    const char* end = text.data() + text.size();
    // Nothing in it needs a destructor. A start beyond the end finds nothing.
    new (room) Walk{LuaPattern(L, text, pattern), start > text.size() ? end + 1 : text.data() + start, end};
    lua_pushcclosure(L, &next_match, 3);
    return 1;
}

// Puts the replacement text in, "%0" to "%9" standing for the match and its captures.
void add_text(lua_State* L, luaL_Buffer& out, const LuaPattern& matcher, const char* from, const char* to) {
    const std::string_view text = text_at(L, 3);
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (text[at] != escape) {
            luaL_addchar(&out, text[at]);
            continue;
        }
        const char kind = ++at < text.size() ? text[at] : '\0';
        if (kind == escape) {
            luaL_addchar(&out, escape);
        } else if (kind == '0') {
            luaL_addlstring(&out, from, static_cast<std::size_t>(to - from));
        } else if (kind >= '1' && kind <= '9') {
            matcher.push_capture(kind - '1', from, to);
            luaL_tolstring(L, -1, nullptr);
            lua_remove(L, -2);
            luaL_addvalue(&out);
        } else {
            luaL_error(L, "invalid use of '%c' in replacement string", escape);
        }
    }
}

// Calls the function or looks into the table, with the first capture. False: the match stays as it is.
bool add_value(lua_State* L, luaL_Buffer& out, const LuaPattern& matcher, const char* from, const char* to) {
    switch (lua_type(L, 3)) {
        case LUA_TFUNCTION:
            lua_pushvalue(L, 3);
            lua_call(L, matcher.push_captures(from, to), 1);
            break;
        case LUA_TTABLE:
            matcher.push_capture(0, from, to);
            lua_gettable(L, 3);
            break;
        default:
            add_text(L, out, matcher, from, to);
            return true;
    }
    if (lua_toboolean(L, -1) == 0) {
        lua_pop(L, 1);
        return false;
    }
    if (lua_isstring(L, -1) == 0) luaL_error(L, "invalid replacement value (a %s)", luaL_typename(L, -1));
    luaL_addvalue(&out);
    return true;
}

int gsub(lua_State* L) {
    const std::string_view text = text_at(L, 1);
    std::string_view pattern = text_at(L, 2);
    const int kind = lua_type(L, 3);
    luaL_argexpected(L, kind == LUA_TNUMBER || kind == LUA_TSTRING || kind == LUA_TFUNCTION || kind == LUA_TTABLE, 3,
                     "string/function/table");
    const lua_Integer most = luaL_optinteger(L, 4, static_cast<lua_Integer>(text.size()) + 1);
    const bool anchored = takes_off_anchor(pattern);
    LuaPattern matcher(L, text, pattern);
    const char* at = text.data();
    const char* end_of_text = at + text.size();
    const char* last_match = nullptr;
    lua_Integer count = 0;
    LuaBox::of(L).check_time();
    luaL_Buffer out;
    luaL_buffinit(L, &out);
    while (count < most) {
        const char* end = matcher.match(at);
        if (end && end != last_match) {
            ++count;
            if (!add_value(L, out, matcher, at, end)) luaL_addlstring(&out, at, static_cast<std::size_t>(end - at));
            at = last_match = end;
        } else if (at < end_of_text) {
            luaL_addchar(&out, *at++);
        } else {
            break;
        }
        if (anchored) break;
    }
    luaL_addlstring(&out, at, static_cast<std::size_t>(end_of_text - at));
    luaL_pushresult(&out);
    lua_pushinteger(L, count);
    return 2;
}

constexpr luaL_Reg functions[] = {
    {"find", &find}, {"match", &match}, {"gmatch", &gmatch}, {"gsub", &gsub}, {nullptr, nullptr}};

}  // namespace

void set_pattern_functions(lua_State* L) { luaL_setfuncs(L, functions, 0); }

}  // namespace host
