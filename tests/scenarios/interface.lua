-- What a scenario can count on in its own tools: comparing, printing, naming, and errors that say where.
local nan, inf = 0 / 0, 1 / 0
local function differs(got, wanted)
    local good, message = pcall(function() expect(got, wanted, "note") end)
    expect(good, false, {got, wanted})
    assert(message:find('^script:%d+: "note": got '), message)
    return message
end
for _, row in ipairs{{1, 1.0}, {nan, nan}, {{}, {}}, {{1, {b = "x"}}, {1, {b = "x"}}}, {1, true}, {false, 0}} do
    expect(row[1], row[2])
end
for _, row in ipairs{{1, 2}, {1, "1"}, {0, nil}, {false, nil}, {nan, 0}, {2, true}, {0, true}, {{1}, {1, 2}},
    {{a = 1}, {}}, {{1}, {[2] = 1}}, {{}, nil}, {0.1, 0.1 + 2 ^ -55}, {"a", "A"}} do
    differs(row[1], row[2])
end
assert(differs({a = {1, 2}}, {a = {1, 3}}):find("they differ at .a[2]: 2 and 3", 1, true))

for text, value in pairs{['{"a":[1,2.5],"b":null}'] = {b = nan, a = {1.0, 2.5}}, ['"一\\n"'] = "一\n",
    ["1e+300"] = 1e300, ["0.1"] = 0.1, ["-0.0"] = -0.0, ["[true,false]"] = {true, false}, ["{\"0.5\":1}"] = {[0.5] = 1}} do
    expect(host.json(value), text)
end
expect({tostring(nan), tostring(-nan), tostring(inf), tostring(-inf)}, {"nan", "nan", "inf", "-inf"})
expect({tostring({}), tostring(get_ctrl_rect("nobody"))}, {"table", "nil"})
expect({load("return ...", "name", "t")(7), (load("= =")), load("return x", "n", "t", {x = 3})()}, {7, nil, 3})
-- Walks go in the order of the keys, and cope with what is taken away on the way.
local walked = ""
local walk = {f = 6, b = 2, e = 5, a = 1, d = 4, c = 3, [2.5] = 0, [-1] = 0, 0, 0}
for key in next, walk do
    walked = walked .. key .. " "
    walk[key], walk.c = nil, nil
end
expect({walked, next(walk), next{"x"}}, {"-1 1 2 2.5 a b d e f ", nil, 1, "x"})
expect({next({x = 1, a = 2}, "a")}, {"x", 1})
for _, wrong in ipairs{{{}, "a"}, {5}, {}} do expect(pcall(next, table.unpack(wrong)), false) end
for _, name in ipairs{"io", "os", "require", "dofile", "loadfile", "debug"} do expect(_ENV[name], nil, name) end

-- Truth values are given as one likes; a name that nothing has, and a field that does not exist, are told.
host.new(80, 60)
for _, truth in ipairs{{0, 1}, {false, true}} do
    local name = host.dialog{scale = truth[2], visible = truth[1], fields = {m_in_scene = truth[1]}}
    local dialog = host.get(name)
    expect({dialog.m_bScaleMode, dialog.visible, dialog.m_in_scene}, {1, false, false})
end
for wanted, call in pairs{
    ['no item "nobody"'] = function() host.set("nobody", {}) end,
    ['no field "m_colour"'] = function() host.dialog{fields = {m_colour = 1}} end,
    ['no dialog "S"'] = function() host.edit("S") end,
    ["left, top, right, bottom"] = function() host.client{1, 2, 3} end,
    ['no event "left"'] = function() host.mouse("left", 0, 0) end,
    ["whole number"] = function() host.view(1.5, 2) end,
    ["list of names"] = function() host.select("D") end,
} do
    host.dialog{name = "D"}
    host.shape{dialog = "D", name = "S"}
    local good, message = pcall(call)
    expect(good, false, wanted)
    assert(message:find(wanted, 1, true), message)
end
