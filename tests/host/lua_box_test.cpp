#include "host/system/lua_box.h"

#include <gtest/gtest.h>

namespace {

using host::LuaBox;
using host::LuaError;

double seconds_of(const std::function<void()>& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

}  // namespace

// Each script is stopped with a message in about the time it has, and the next script finds a sound box.
TEST(LuaBox, StopsScriptsThatWouldNotEnd) {
    const struct {
        const char* text;
        const char* message;
    } scripts[] = {
        {"while true do end", "too m"},
        {"while true do pcall(function() while true do end end) end", "too m"},
        {"while true do pcall(error, {}) end", "too m"},
        {"local f = function() while true do end end while true do xpcall(f, f) end", "too m"},
        {"local x <close> = setmetatable({}, {__close = function() while true do end end}) while true do end", "too m"},
        {"error(setmetatable({}, {__tostring = function() while true do end end}))", ""},
        {"for w in setmetatable({}, {__call = function() return 1 end}) do end", "too m"},
        {"local function f() return f() + 1 end f()", ""},
        {"local t = {} while true do t[#t + 1] = {} end", "memory"},
        {"local t = {} while true do pcall(function() t[#t + 1] = ('x'):rep(100000) end) end", ""},
        {"local s = 'x' while true do s = s .. s end", "memory"},
        {"return ('x'):rep(1 << 40)", "too long"},
        {"return ('xy'):rep(1 << 62, 'z')", "too long"},
        {"return table.concat(setmetatable({}, {__len = function() return 1 << 60 end}))", "length"},
        {"return table.move({}, 1, 1 << 60, 2)", "too many"},
        {"return table.unpack({}, 1, 1 << 30)", "too many"},
        {"local s = ('x'):rep(1 << 20) while true do s:upper() end", "too m"},
        {"table.sort({3, 2, 1}, function() while true do end end)", "too m"},
        {"while true do (''):rep(1 << 50) end", "too m"},
        {"local s, t = ('x'):rep(1 << 20), {} for i = 1, 99999 do t[i] = s .. i end", "memory"},
        {"local a, b = ('x'):rep(1 << 19) .. 1, ('x'):rep(1 << 19) .. 2 local t = {} "
         "for i = 1, 20000 do t[i] = i % 2 == 0 and a or b end table.sort(t)",
         "too m"},
        {"local s = ('\\0'):rep(150000) while true do pcall(string.format, '%q', s) end", "too m"},
        {"local s = ('x'):rep(1 << 21) while true do utf8.len(s) end", "too m"},
        {"return string.format('%-5p', {})", "%p"},
        {"return string.format('\\0%p', {})", "%p"},
    };
    host::LuaLimits limits;
    limits.memory_bytes = 8u << 20;
    limits.seconds = 0.3;
    LuaBox box(limits);
    for (const auto& script : scripts) {
        LuaError error;
        const double seconds = seconds_of([&] { EXPECT_FALSE(box.run(script.text, error)) << script.text; });
        EXPECT_FALSE(error.message.empty()) << script.text;
        EXPECT_NE(error.message.find(script.message), std::string::npos) << error.message << "\n" << script.text;
        EXPECT_LT(seconds, 3.0) << script.text;
        EXPECT_TRUE(box.run("local t = {} for i = 1, 1000 do t[i] = 'x' .. i end", error)) << error.message;
    }
}

// What keeps bombs out must let the patterns of everyday pass.
TEST(LuaBox, RunsOrdinaryPatterns) {
    LuaBox box;
    LuaError error;
    EXPECT_TRUE(box.run(R"(
        local key, value = ('  colour_of_roof = dark_red'):rep(3):match('([%w_]+)%s*=%s*([%w_]+)')
        assert(key == 'colour_of_roof' and value == 'dark_red')
        assert((('\n'):rep(700) .. 'text' .. (' '):rep(700)):match('^%s*(.-)%s*$') == 'text')
        assert(select(2, ('line\n'):rep(4000):gsub('[^\n]+', '')) == 4000)
        assert(('x'):rep(1 << 22, ' '):find('not there', 1, true) == nil)
        assert(('f(a(b)c)d'):match('%b()') == '(a(b)c)' and ('-12.5e'):match('-?%d+%.?%d*') == '-12.5'))",
                        error))
        << error.line << error.message;
}

// A new library or function is let in by adding it here, after a look at what it can do.
TEST(LuaBox, OffersNothingButItsList) {
    LuaBox box;
    std::string names;
    box.on_print = [&names](const std::string& line) { names = line; };
    LuaError error;
    ASSERT_TRUE(box.run(R"(
        local names = {}
        for name, value in pairs(_G) do
            names[#names + 1] = name
            if type(value) == 'table' and value ~= _G and value.dump then error(name .. '.dump') end
        end
        table.sort(names)
        assert(getmetatable('').__index == string)
        print(table.concat(names, ' ')))",
                        error))
        << error.message;
    EXPECT_EQ(names,
              "_G _VERSION assert error getmetatable ipairs math next pairs pcall print rawequal rawget rawlen rawset "
              "select setmetatable string table tonumber tostring type utf8 xpcall");
}

TEST(LuaBox, SortsEqualElementsAsTheyStood) {
    LuaBox box;
    LuaError error;
    EXPECT_TRUE(box.run(R"(
        for _, count in ipairs{0, 1, 2, 3, 7, 64, 1000} do
            local list = {}
            for i = 1, count do list[i] = {i = i, key = i * 7919 % 10} end
            table.sort(list, function(a, b) return a.key < b.key end)
            for i = 2, count do
                local a, b = list[i - 1], list[i]
                assert(a.key < b.key or a.key == b.key and a.i < b.i, i)
            end
        end
        local words = {'b', 'a', 'c', 'a'}
        table.sort(words)
        assert(table.concat(words) == 'aabc' and not pcall(table.sort, {1, 'x'}) and not pcall(table.sort, {}, 5))
        local untouched = {3, 1, 2}
        assert(not pcall(table.sort, untouched, function(a, b) error('no') end) and table.concat(untouched) == '312')
        assert(string.format('100%%p %5.1f|%-3s|', 1.25, 'a') == '100%p   1.2|a  |'))",
                        error))
        << error.line << error.message;
}

// By itself Lua seeds its tables with addresses and the time of day, so that no two runs walk and print alike.
TEST(LuaBox, WalksAndPrintsTheSameInEveryRun) {
    LuaBox box;
    std::string printed;
    box.on_print = [&printed](const std::string& line) { printed += line + "\n"; };
    LuaError error;
    EXPECT_TRUE(box.run(R"(
        local t = {[3] = 1, [-0.5] = 1, [true] = 1}
        for word in ('kilo lima alpha oscar bravo echo golf'):gmatch('%a+') do t[word] = 1 end
        for key in pairs(t) do t.alpha = nil; print(key) end
        for key in pairs(setmetatable({}, {__pairs = function() return next, {own = 1} end})) do print(key) end
        print({}, print, 0 / 0, -(0 / 0), 1 / 0, tostring({}), string.format('%s', {})))",
                        error))
        << error.message;
    EXPECT_EQ(printed,
              "-0.5\n3\nbravo\necho\ngolf\nkilo\nlima\noscar\ntrue\nown\n"
              "table\tfunction\tnan\tnan\tinf\ttable\ttable\n");
}

TEST(LuaBox, RefusesByteCodeAndTellsTheLine) {
    const struct {
        std::string text;
        int line;
        const char* message;
    } scripts[] = {
        {"\x1BLua\x54", 0, "binary"},
        {"local x = 1\n\nx = = 2", 3, "="},
        {"\n\nerror('mine')", 3, "mine"},
        {"\nlocal f = function()\n  local nothing\n  return nothing.x\nend\nf()", 4, "nothing"},
        {"\nerror({})", 2, "no text (table)"},
        {"\nerror()", 2, "nil"},
        {"\nsetmetatable({}, {__gc = print})", 2, "__gc"},
    };
    LuaBox box;
    for (const auto& script : scripts) {
        LuaError error;
        EXPECT_FALSE(box.run(script.text, error)) << script.text;
        EXPECT_EQ(error.line, script.line) << script.text << "\n" << error.message;
        EXPECT_NE(error.message.find(script.message), std::string::npos) << error.message;
    }
}
