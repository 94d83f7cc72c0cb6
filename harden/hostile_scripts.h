#pragma once

// Scripts as nobody should write them. None may take long, get out, or spoil the event behind it.

#include <string>
#include <vector>

namespace harden {

/// Never end by themselves, or ask for all memory. They stand for themselves and inside of each `wrapper`.
inline constexpr const char* endless[] = {
    "while true do end",
    "while true do pcall(error) end",
    "local t = {} while true do t[#t + 1] = {} end",
    "local s = 'x' while true do s = s .. s end",
    "local function again() return again() end again()",
};

/// %s becomes one of the scripts above.
inline constexpr const char* wrappers[] = {
    "%s",
    "while true do pcall(function() %s end) end",
    "while true do xpcall(error, function() %s end) end",
    "local function h() %s end while true do xpcall(h, h) end",
    "pcall(pcall, pcall, function() %s end) while true do end",
    "local t = setmetatable({}, {__index = function() %s end}) local x = t.x",
    "local t = setmetatable({}, {__newindex = function() %s end}) t.x = 1",
    "local t = setmetatable({}, {__call = function() %s end}) t()",
    "local t = setmetatable({}, {__concat = function() %s end}) local x = t .. t",
    "local t = setmetatable({}, {__eq = function() %s end}) local x = t == setmetatable({}, getmetatable(t))",
    "local t = setmetatable({}, {__lt = function() %s end}) local x = t < t",
    "local t = setmetatable({}, {__len = function() %s end}) local x = #t",
    "local t = setmetatable({}, {__unm = function() %s end}) local x = -t",
    "local t = setmetatable({}, {__pairs = function() %s end}) for _ in pairs(t) do end",
    "local t = setmetatable({}, {__tostring = function() %s end}) print(t) error(t)",
    "do local x <close> = setmetatable({}, {__close = function() %s end}) end",
    "local x <close> = setmetatable({}, {__close = function() %s end}) error('e')",
    "for _ in setmetatable({}, {__call = function() %s end}) do end",
    "table.sort({3, 2, 1}, function() %s end)",
    "('abc'):gsub('.', function() %s end)",
    "('abc'):gsub('.', setmetatable({}, {__index = function() %s end}))",
    "string.format('%%s', setmetatable({}, {__tostring = function() %s end}))",
    "getmetatable('').__index = function() %s end local x = ('a').b",
    "local function deep() pcall(deep) %s end deep()",
    "for _ = 1, 3 do pcall(function() %s end) end while true do end",
};

/// Slow functions and large values; each in a way of its own.
inline constexpr const char* bombs[] = {
    "while true do local s = ('x'):rep(16000000) end",
    "while true do local s = (''):rep(1e15) end",
    "while true do local s = (''):rep(1e15, '') end",
    "local s = ('x'):rep(1e10)",
    "local s = ('x'):rep(2^53, ('y'):rep(1e6))",
    "local s = ('x'):rep(16000000) while true do local t = s:upper() end",
    "local s = ('x'):rep(16000000) while true do local t = s:reverse() end",
    "local s = ('x'):rep(16000000) while true do local t = s:sub(2) end",
    "local s = ('x'):rep(16000000) while true do local t = s:byte(1, 900000) end",
    "local s = ('x'):rep(16000000) while true do local n = utf8.len(s) end",
    "local s = ('x'):rep(16000000) while true do local n = utf8.offset(s, 15000000) end",
    "local s = ('x'):rep(16000000) while true do for p, c in utf8.codes(s) do end end",
    "local s = ('x'):rep(16000000) while true do local t = ('%q'):format(s) end",
    "local s = ('\\0'):rep(900000) while true do pcall(string.format, '%q', s) end",
    "while true do local t = ('%99.99f'):format(1e308) end",
    ("local f, a = ('%99.99f'):rep(100), {} for i = 1, 100 do a[i] = 1e308 end "
     "while true do local t = f:format(table.unpack(a)) end"),
    "local s = ('x'):rep(16000000) while true do local t = string.pack('s', s) end",
    "local p = string.pack('s', ('x'):rep(16000000)) while true do local t = string.unpack('s', p) end",
    "while true do string.packsize(('i'):rep(100000)) end",
    "local s = ('x'):rep(16000000) local a, b = s .. 1, s .. 2 while true do local c = a < b end",
    "local s = ('x'):rep(16000000) local a, b = s .. 1, s .. 1 while true do local c = a == b end",
    "local s, t = ('x'):rep(16000000), {} while true do local c = t[s .. 1] end",
    "local s = ('1'):rep(16000000) while true do local n = tonumber(s) end",
    "local s = ('1'):rep(16000000) while true do local n = tonumber(s, 36) end",
    "local s = ('1'):rep(16000000) while true do local n = pcall(function() return s + 1 end) end",
    "local s = ('x'):rep(16000000) while true do s:find('xxxxxxxxxxxxxxxxxxy', 1, true) end",
    "local s = ('x'):rep(16000000) while true do s:gsub('x', '%0%0') end",
    "local s = ('x'):rep(16000000) while true do s:gsub('x', {x = 'yyyyyyyy'}) end",
    "('('):rep(200000):match(('%b()'):rep(30))",
    "('x'):rep(100000):match('(' .. ('x?'):rep(5000) .. ')*$')",
    "('a'):rep(300000):match('.-.-.-.-b')",
    "('a'):rep(40):find(('a*'):rep(30) .. 'b')",
    "while true do table.unpack({}, 1, 900000) end",
    "local t = {} for i = 1, 1e6 do t[i] = 1 end while true do table.insert(t, 1, 1) end",
    "local t = {} for i = 1, 1e6 do t[i] = i % 7 end while true do table.sort(t) end",
    "local s, t = ('x'):rep(8000000), {} for i = 1, 2000 do t[i] = i % 2 == 0 and s or s .. 'y' end table.sort(t)",
    "local t = {} for i = 1, 1e5 do t[i] = ('x'):rep(100) end while true do local s = table.concat(t) end",
    "local t = {} while true do table.move(t, 1, 9999999, 2) end",
    "table.move({}, -2^63, 2^63 - 1, 1)",
    "table.concat(setmetatable({}, {__len = function() return 2^60 end}))",
    "table.unpack(setmetatable({}, {__len = function() return 2^60 end}))",
    "select(-1, table.unpack({}, 1, 900000))",
    "local function f(...) return f(...) end f(table.unpack({}, 1, 900000))",
    "local t = {} for i = 1, 3e5 do t['k' .. i] = i end while true do for k in pairs(t) do end end",
    "local t = {} for i = 1, 3e5 do t['k' .. i] = i end while true do next(t) end",
    "for i in ipairs(setmetatable({}, {__index = function() return 1 end})) do end",
    "local t = {} for i = 1, 1e12 do t[i] = i end",
    "local t = {} while true do t[{}] = {} end",
    "local t = {} while true do t[#t + 1] = function() return t end end",
    "local t = {} while true do pcall(function() while true do t[#t + 1] = ('x'):rep(100000) .. #t end end) end",
    "while true do set_ctrl_title('other', ('x'):rep(999999)) end",
    "local s = ('x'):rep(16000000) while true do pcall(set_ctrl_title, 'other', s) end",
    "local s = ('x'):rep(999999) while true do get_ctrl_rect(s) end",
    "while true do print(('x'):rep(1000000)) end",
    "while true do local x <close> = setmetatable({}, {__close = function() error('again') end}) end",
    "::top:: goto top",
    "local x = 0 repeat x = x + 1 until x < 0",
    "for i = 1, math.huge do end",
    "for i = math.mininteger, math.maxinteger do end",
    "local t = setmetatable({}, {}) getmetatable(t).__index = t local x = t.x",
    "local t = setmetatable({}, {__index = function(t, k) return t[k + 1] end}) local x = t[1]",
    "error(setmetatable({}, {__tostring = function(t) return tostring(t) end}))",
};

/// Look for a way out. Whoever finds one says ESCAPED.
inline constexpr const char* ways_out[] = {
    "if io then print('ESCAPED') end",
    "if os then print('ESCAPED') end",
    "if package or require then print('ESCAPED') end",
    "if debug then print('ESCAPED') end",
    "if load or loadstring or loadfile or dofile then print('ESCAPED') end",
    "if coroutine then print('ESCAPED') end",
    "if collectgarbage then print('ESCAPED') end",
    "if string.dump then print('ESCAPED') end",
    "if warn then print('ESCAPED') end",
    "if host then print('ESCAPED') end",
    "if _G.io or _ENV.os then print('ESCAPED') end",
    "if getmetatable('').__index.dump then print('ESCAPED') end",
    "if pcall(('').dump, print) then print('ESCAPED') end",
    "for k, v in pairs(_G) do if type(v) == 'userdata' then print('ESCAPED') end end",
    ("for _, library in pairs(_G) do if type(library) == 'table' then for k in pairs(library) do "
     "if k == 'execute' or k == 'popen' or k == 'open' or k == 'loadlib' then print('ESCAPED') end end end end"),
    "for _, f in pairs(string) do if pcall(f, print, print) and f == string.dump then print('ESCAPED') end end",
    "local t = setmetatable({}, {__gc = function() print('ESCAPED') end}) t = nil for i = 1, 1e6 do local x = {} end",
    ("local m = {} local t = setmetatable({}, m) m.__gc = function() print('ESCAPED') end t = nil "
     "for i = 1, 1e6 do local x = {} end"),
    "local name = tostring(print) if name:find('0x') then print('ESCAPED') end",
    "if tostring({}):find('0x') or string.format('%s', print):find('0x') then print('ESCAPED') end",
    "if pcall(string.format, '%p', {}) or pcall(string.format, '%-20p', 'x') then print('ESCAPED') end",
    "if pcall(setmetatable, 'x', {}) then print('ESCAPED') end",
    "local ok, message = pcall(error) if message then print('ESCAPED') end",
    "for k in pairs(_G) do _G[k] = nil end",
    "for k in pairs(string) do string[k] = nil end",
    "for k in pairs(table) do table[k] = function() error('mine') end end",
    "pairs, next, tostring, print, error, type = nil",
    "setmetatable(_G, {__index = error, __newindex = error}) x = 1",
    "setmetatable(_G, {__index = function(t, k) return t[k] end}) local y = nothing",
    "getmetatable('').__index = nil local x = ('a'):rep(3)",
    "getmetatable('').__add = function() return 1 end",
    "math.randomseed(0) math.randomseed()",
    "gui_script_del_ctrl('hostile') gui_script_del_ctrl('hostile')",
    "gui_script_show_gui(0) gui_script_show_gui(1)",
    "set_ctrl_rect('hostile', {0/0, 1/0, -1/0, 1e300})",
    "set_ctrl_texture('hostile', 0, '/dev/zero')",
    "set_ctrl_texture('hostile', 0, '../../../../etc/passwd')",
    "animation_start('\\0') animation_seek('nothing', 0/0)",
    "get_ctrl_rect()",
    "get_ctrl_rect(nil, nil)",
    "get_ctrl_rect(get_ctrl_rect)",
    "x = = 1",
    "\x1BLuaT",
    "return",
    "",
    "goto nowhere",
    "local a <const> = 1 a = 2",
    "error()",
    "error(nil)",
    "error({})",
    "error(setmetatable({}, {__tostring = error}))",
    "error('\xFF\xFE\x00 no text')",
    "local s = '' for i = 1, 300 do s = s .. '(' end ('x'):match(s)",
};

inline std::vector<std::string> hostile_scripts() {
    std::vector<std::string> scripts;
    for (const std::string wrapper : wrappers) {
        for (const char* script : endless) {
            std::string text = wrapper;
            text.replace(text.find("%s"), 2, script);
            // Whatever stops it must stop what stands behind it too.
            scripts.push_back(text + " print('ESCAPED')");
        }
    }
    scripts.insert(scripts.end(), std::begin(bombs), std::end(bombs));
    scripts.insert(scripts.end(), std::begin(ways_out), std::end(ways_out));
    return scripts;
}

}  // namespace harden
