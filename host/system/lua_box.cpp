#include "host/system/lua_box.h"

#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <ctime>
#include <lua.hpp>
#include <new>
#include <string_view>
#include <tuple>

#include "host/core/memory_watch.h"
#include "host/system/lua_libraries.h"

namespace host {

/// One text on its way through the state.
struct LuaRun {
    const std::string* text;
    // As Lua wants it, behind a sign that says to show it as it is.
    std::string name;
    int chunk;
};

namespace {

// Seldom enough to cost nothing, often enough that slow instructions, like joining long texts, do not pile up.
constexpr int check_every = 100;
constexpr const char* time_is_up = "the script took too much time";
constexpr std::size_t most_chunks = 1000;
// How Lua begins messages with a place: "script:LINE: ".
constexpr const char* chunk_name = "=script";
constexpr std::string_view place_prefix = "script:";

LuaError split_message(std::string_view message) {
    LuaError error;
    if (message.starts_with(place_prefix)) {
        const std::string_view rest = message.substr(place_prefix.size());
        const auto read = std::from_chars(rest.data(), rest.data() + rest.size(), error.line);
        const std::string_view behind = rest.substr(static_cast<std::size_t>(read.ptr - rest.data()));
        if (behind.starts_with(": ")) {
            error.message = behind.substr(2);
            return error;
        }
        error.line = 0;
    }
    error.message = message;
    return error;
}

// Makes every error a text that begins with its place, while the place can still be seen.
int describe_error(lua_State* L) {
    // Not by luaL_tolstring alone: it would show an address, and two runs must print the same.
    if (lua_type(L, 1) == LUA_TNUMBER) lua_tostring(L, 1);
    const bool has_text = lua_type(L, 1) == LUA_TSTRING || luaL_callmeta(L, 1, "__tostring");
    if (!has_text || lua_type(L, -1) != LUA_TSTRING)
        lua_pushfstring(L, "an error that is no text (%s)", luaL_typename(L, 1));
    if (std::string_view(lua_tostring(L, -1)).starts_with(place_prefix)) return 1;
    lua_Debug record;
    for (int level = 0; lua_getstack(L, level, &record); ++level) {
        lua_getinfo(L, "Sl", &record);
        // What the box itself wrote in Lua is no place in the script.
        if (record.currentline <= 0 || std::string_view(record.source) != chunk_name) continue;
        lua_pushfstring(L, "script:%d: %s", record.currentline, lua_tostring(L, -1));
        return 1;
    }
    return 1;
}

int compile(lua_State* L) {
    auto* run = static_cast<LuaRun*>(lua_touserdata(L, 1));
    if (luaL_loadbufferx(L, run->text->data(), run->text->size(), run->name.c_str(), "t") != LUA_OK)
        return lua_error(L);
    run->chunk = luaL_ref(L, LUA_REGISTRYINDEX);
    return 0;
}

int execute(lua_State* L) {
    const auto* run = static_cast<const LuaRun*>(lua_touserdata(L, 1));
    lua_rawgeti(L, LUA_REGISTRYINDEX, run->chunk);
    lua_call(L, 0, 0);
    return 0;
}

// Of this thread, whatever else the machine does.
double seconds_of_work() {
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

std::chrono::steady_clock::time_point in_seconds(double seconds) {
    const std::chrono::duration<double> length(seconds);
    return std::chrono::steady_clock::now() + std::chrono::duration_cast<std::chrono::steady_clock::duration>(length);
}

int open_libraries(lua_State* L) {
    open_closed_libraries(L);
    return 0;
}

}  // namespace

LuaBox::LuaBox(const LuaLimits& limits) : m_limits(limits), m_state(lua_newstate(&LuaBox::allocate, this)) {
    if (!m_state) refuse_memory();
    *static_cast<LuaBox**>(lua_getextraspace(m_state)) = this;
    try {
        LuaError error;
        if (protect(&open_libraries, nullptr, error)) return;
    } catch (const std::bad_alloc&) {
        // There was not even room for the message.
    }
    lua_close(m_state);
    refuse_memory();
}

LuaBox::~LuaBox() { lua_close(m_state); }

LuaBox& LuaBox::of(lua_State* state) { return **static_cast<LuaBox**>(lua_getextraspace(state)); }

// Without a block the old size is a kind of object, not a number of bytes.
void* LuaBox::allocate(void* box, void* block, std::size_t old_size, std::size_t new_size) {
    auto& self = *static_cast<LuaBox*>(box);
    const std::size_t held = block ? old_size : 0;
    if (new_size == 0) {
        std::free(block);
        self.m_memory_used -= held;
        return nullptr;
    }
    if (new_size > held && self.m_memory_used - held + new_size > self.m_limits.memory_bytes) return nullptr;
    void* moved = std::realloc(block, new_size);
    if (moved) self.m_memory_used = self.m_memory_used - held + new_size;
    return moved;
}

void LuaBox::on_count(lua_State* L, lua_Debug*) {
    LuaBox& self = of(L);
    self.m_instructions += check_every;
    if (!self.m_expired) {
        if (self.m_limits.instructions && self.m_instructions > self.m_limits.instructions)
            self.m_expired = "the script took too many steps";
        else if (self.m_limits.seconds > 0 && self.is_time_up())
            self.m_expired = time_is_up;
    }
    if (self.m_expired) self.raise_expired();
}

// From here on every single instruction fails: a loop around pcall would otherwise catch its way on for ever.
void LuaBox::raise_expired() {
    lua_sethook(m_state, &LuaBox::on_count, LUA_MASKCOUNT, 1);
    lua_pushstring(m_state, m_expired);
    lua_error(m_state);
    std::abort();  // lua_error does not come back, but does not say so.
}

void LuaBox::check_time() {
    if (m_depth == 0 || m_limits.seconds <= 0) return;
    if (!m_expired && is_time_up()) m_expired = time_is_up;
    if (m_expired) raise_expired();
}

void LuaBox::begin_budget() {
    m_expired = nullptr;
    m_instructions = 0;
    m_work_at_start = seconds_of_work();
    m_deadline = in_seconds(m_limits.seconds);
    set_hook();
}

// The clock on the wall is quick to read, but a busy machine must not cut a script short: once it says that the time is
// up, what the script really worked decides.
bool LuaBox::is_time_up() {
    if (std::chrono::steady_clock::now() <= m_deadline) return false;
    const double left = m_limits.seconds - (seconds_of_work() - m_work_at_start);
    if (left <= 0.0) return true;
    m_deadline = in_seconds(left);
    return false;
}

void LuaBox::set_hook() {
    const bool limited = m_limits.instructions > 0 || m_limits.seconds > 0;
    lua_sethook(m_state, limited ? &LuaBox::on_count : nullptr, limited ? LUA_MASKCOUNT : 0, check_every);
}

bool LuaBox::call_protected(int (*body)(lua_State*), void* argument, LuaError& error) {
    constexpr int room = 8;
    if (!lua_checkstack(m_state, room)) {
        error = {0, "scripts call each other too deeply"};
        return false;
    }
    const int top = lua_gettop(m_state);
    lua_pushcfunction(m_state, &describe_error);
    lua_pushcfunction(m_state, body);
    lua_pushlightuserdata(m_state, argument);
    const bool good = lua_pcall(m_state, 1, 0, top + 1) == LUA_OK;
    if (!good) {
        // No lua_tostring on other values: it could raise an error that no one catches here.
        const bool is_text = lua_type(m_state, -1) == LUA_TSTRING;
        try {
            error = split_message(is_text ? lua_tostring(m_state, -1) : "unknown error");
        } catch (const std::bad_alloc&) {
            error = {0, "out of memory"};
        }
    }
    lua_settop(m_state, top);
    return good;
}

bool LuaBox::protect(int (*body)(lua_State*), void* argument, LuaError& error) {
    return call_protected(body, argument, error);
}

bool LuaBox::protect_within(const LuaLimits& limits, int (*body)(lua_State*), void* argument, LuaError& error) {
    if (m_is_within) return call_protected(body, argument, error);
    const auto around = std::make_tuple(m_limits, m_instructions, m_deadline, m_work_at_start, m_expired);
    const std::size_t most_memory = m_limits.memory_bytes;
    m_is_within = true;
    m_limits = limits;
    m_limits.memory_bytes = std::min(most_memory, m_memory_used + limits.memory_bytes);
    begin_budget();
    const bool good = call_protected(body, argument, error);
    std::tie(m_limits, m_instructions, m_deadline, m_work_at_start, m_expired) = around;
    m_is_within = false;
    set_hook();
    return good;
}

bool LuaBox::run(const std::string& text, LuaError& error, const std::string& name) {
    if (m_depth == 0) begin_budget();
    struct Depth {
        explicit Depth(int& depth_) : depth(depth_) { ++depth; }
        ~Depth() { --depth; }
        int& depth;
    } const depth(m_depth);
    if (m_chunks.size() > most_chunks) {
        for (const auto& entry : m_chunks) luaL_unref(m_state, LUA_REGISTRYINDEX, entry.second);
        m_chunks.clear();
    }
    // A chunk has its name in it, so that errors in one file do not name another of the same text.
    const std::string named = name == std::string_view(chunk_name).substr(1) ? std::string() : name + '\0' + text;
    const std::string& key = named.empty() ? text : named;
    auto known = m_chunks.find(key);
    if (known == m_chunks.end()) {
        LuaRun run{&text, "=" + name, 0};
        if (!call_protected(&compile, &run, error)) return false;
        known = m_chunks.emplace(key, run.chunk).first;
    }
    LuaRun run{nullptr, {}, known->second};
    return call_protected(&execute, &run, error);
}

}  // namespace host
