// The patterns of the box against Lua's own, and what Lua's own would not end in time.

#include <gtest/gtest.h>

#include <lua.hpp>

#include "host/system/lua_box.h"

namespace {

// Thousands of small patterns, right and wrong ones, on small texts: what all four functions give, errors included.
constexpr const char* trials = R"lua(
local pieces = {"a", "b", ".", "%a", "%d", "%s", "%W", "[ab]", "[^b]", "[a-c]", "[]x]", "[%d-]", "%b()", "%f[%a]", "%1",
    "(", ")", "()", "^", "$", "*", "+", "-", "?", "%", "[", "%2", "%0", "%.", "é", "[^", "a-", "%b", "%f"}
local letters = {"a", "b", "c", "1", " ", "(", ")", ".", "x", "-", "\0", "é"}
local seed = 12345
local function random(n)
    seed = (seed * 1103515245 + 12345) % 2147483648
    return seed // 65536 % n + 1
end
local function any(list, most)
    local text = ""
    for _ = 1, random(most) do text = text .. list[random(#list)] end
    return text
end
local replacements = {"<%1>", "%0%0", "%%", "%2", "-", "%", {a = "A", b = false, [1] = "one"}, function(x) return x end,
    function() end, function() return {} end, 7}
local function show(...)
    local out = {}
    for i = 1, select("#", ...) do out[i] = tostring((select(i, ...))):gsub("table: .*", "table") end
    return table.concat(out, ",")
end
local function all(text, pattern, from)
    local out = {}
    for a, b in string.gmatch(text, pattern, from) do
        out[#out + 1] = show(a, b)
        if #out > 30 then break end
    end
    return table.concat(out, ";")
end
for trial = 1, 30000 do
    local text, pattern, from = any(letters, 12), any(pieces, 7), random(9) - 4
    local found = show(pcall(string.find, text, pattern, from))
    local plain = show(pcall(string.find, text, pattern, from, true))
    local matched = show(pcall(string.match, text, pattern, from))
    local walked = show(pcall(all, text, pattern, from))
    local replaced = show(pcall(string.gsub, text, pattern, replacements[random(#replacements)], random(4)))
    print(trial, text, pattern, from, found, plain, matched, walked, replaced)
end
)lua";

std::vector<std::string> lines_of_box() {
    host::LuaBox box({std::size_t{1} << 30, 0, 0.0});
    std::vector<std::string> lines;
    box.on_print = [&lines](const std::string& line) { lines.push_back(line); };
    host::LuaError error;
    EXPECT_TRUE(box.run(trials, error)) << error.line << ": " << error.message;
    return lines;
}

std::vector<std::string>* own_lines = nullptr;

int keep_line(lua_State* L) {
    std::string line;
    for (int at = 1; at <= lua_gettop(L); ++at) {
        std::size_t length = 0;
        const char* text = luaL_tolstring(L, at, &length);
        line += (at > 1 ? "\t" : "") + std::string(text, length);
        lua_pop(L, 1);
    }
    own_lines->push_back(line);
    return 0;
}

std::vector<std::string> lines_of_lua() {
    std::vector<std::string> lines;
    own_lines = &lines;
    lua_State* L = luaL_newstate();
    luaL_openlibs(L);
    lua_pushcfunction(L, &keep_line);
    lua_setglobal(L, "print");
    const bool good = luaL_loadbuffer(L, trials, std::char_traits<char>::length(trials), "=script") == LUA_OK &&
                      lua_pcall(L, 0, 0, 0) == LUA_OK;
    EXPECT_TRUE(good) << lua_tostring(L, -1);
    lua_close(L);
    own_lines = nullptr;
    return lines;
}

}  // namespace

TEST(LuaPatterns, GiveWhatLuasOwnGive) {
    const std::vector<std::string> box = lines_of_box();
    const std::vector<std::string> lua = lines_of_lua();
    ASSERT_EQ(box.size(), 30000u);
    ASSERT_EQ(box.size(), lua.size());
    int shown = 0;
    for (std::size_t at = 0; at < box.size() && shown < 10; ++at) {
        if (box[at] == lua[at]) continue;
        ++shown;
        ADD_FAILURE() << "box: " << box[at] << "\nlua: " << lua[at];
    }
}

TEST(LuaPatterns, EndInTime) {
    const char* const texts[] = {
        "local _ = ('a'):rep(3000):find(('a*'):rep(10) .. 'b')",
        "local _ = ('a'):rep(40):match(('a?'):rep(40) .. ('a'):rep(40))",
        "local _ = ('a'):rep(100000):gsub('.-.-.-b', '')",
        "for _ in ('('):rep(1000000):gmatch('%b()') do end",
        "local _ = ('ab'):rep(100000):match('(.*)(.*)(.*)%1%2%3x')",
        "local _ = ('a'):rep(1000000):find(('[^b]'):rep(100) .. '*b')",
    };
    for (const char* text : texts) {
        host::LuaBox box({std::size_t{64} << 20, 0, 0.2});
        const auto start = std::chrono::steady_clock::now();
        host::LuaError error;
        EXPECT_FALSE(box.run(text, error)) << text;
        EXPECT_NE(error.message.find("too much time"), std::string::npos) << text << ": " << error.message;
        // Not a measurement: Lua's own take minutes and more.
        EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5)) << text;
    }
}
