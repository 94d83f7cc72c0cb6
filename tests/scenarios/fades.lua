-- How the three pictures of a button fade into each other while a project runs: by the square of the time that has
-- passed, from where they stood. All moments and weights below are exact in binary.
local pictures = "samples/showroom/pictures/"
local normal, hover, down = "menu_normal.png", "menu_hover.png", "menu_down.png"

local function button(color, textures)
    host.new(800, 600)
    host.clock(0)
    host.dialog{name = "D", rect = {0, 0, 400, 300}}
    for slot, file in pairs(textures) do textures[slot] = pictures .. file end
    host.shape{dialog = "D", name = "S", rect = {10, 10, 50, 50}, textures = textures,
        fields = {m_is_static_pic = 0, m_color = color}}
    host.trans_time(0.5)
    host.start()
end
-- The weights, and the pictures with which they were drawn.
local function layers()
    local weights, files = {}, {}
    for _, call in ipairs(host.frame()) do
        if call.op == "texture" then
            weights[#weights + 1] = call.color[4]
            files[#files + 1] = call.texture
        end
    end
    expect({table.unpack(host.get("S").m_fade_now, 2)}, weights)
    return weights, files
end
local actions = {
    enter = function() host.mouse("move", 20, 20) end, leave = function() host.mouse("move", 90, 90) end,
    press = function() host.mouse("left_down", 20, 20) end, release = function() host.mouse("left_up", 20, 20) end,
    wait = function() end,
}
local function plays(story)
    for at, row in ipairs(story) do
        host.clock(row[1])
        actions[row[2]]()
        expect({(layers())}, {row[3]}, "step " .. at)
    end
end

button({0.25, 0.5, 0.75, 1}, {normal = normal, hover = hover, down = down})
expect({layers()}, {{1, 0, 0}, {normal, hover, down}}, "all three are always drawn")
expect(host.frame()[2].color, {0.25, 0.5, 0.75, 1})
plays{
    {0, "enter", {1, 0, 0}},                 -- no time has passed yet
    {0.25, "wait", {0.75, 0.25, 0}},         -- a quarter of the way at half of the time
    {0.25, "wait", {0.75, 0.25, 0}},
    {0.375, "wait", {0.4375, 0.5625, 0}},
    {0.5, "wait", {0, 1, 0}},
    {7, "wait", {0, 1, 0}},                  -- the limits hold it
    {8, "leave", {0, 1, 0}},
    {8.25, "wait", {0.25, 0.75, 0}},
    {8.25, "enter", {0.25, 0.75, 0}},        -- cut off; it goes on from here
    {8.5, "wait", {0.1875, 0.8125, 0}},
    {9, "wait", {0, 1, 0}},
    {9, "press", {0, 1, 0}},
    {9.0625, "wait", {0, 0, 1}},             -- a press is there at once
    {9.0625, "release", {0, 0, 1}},
    {9.3125, "wait", {0, 0.25, 0.75}},       -- the way back takes its time
    {9.25, "wait", {0, 0.140625, 0.859375}}, -- the curve knows its start and the time, not the last frame
    {10, "wait", {0, 1, 0}},
}
-- The mode that is there already starts nothing anew.
local since = host.get("S").m_mode_time
host.clock(11)
actions.enter()
expect(host.get("S").m_mode_time, since)

-- Close to its target a weight snaps to it, whatever the time.
host.set("S", {m_fade_now = {0, 0.0009765625, 1, 0.001953125}, m_mode_time = 11, m_fade_start = {0, 0.5, 1, 0.5}})
expect({(layers())}, {{0, 1, 0.001953125}})

-- A new run: the normal picture at its full weight, the others as the last run left them.
host.stop()
expect(host.get("S").m_texture_mode, 1)
host.set("S", {m_fade_now = {0, 0.5, 0.25, 0.125}})
local before = host.frame()
expect(#before, 3, "while nothing runs, one layer and no weights")
expect(host.get("S").m_fade_now, {0, 0.5, 0.25, 0.125})
host.start()
local started = host.get("S")
expect({started.m_fade_now, started.m_fade_start[2]}, {{0, 1, 0.25, 0.125}, 1})

-- A disabled button stands still.
host.set("S", {m_is_usable = 0, m_fade_now = {0, 0.5, 0.25, 0.125}})
host.advance(5)
host.frame()
expect(host.get("S").m_fade_now, {0, 0.5, 0.25, 0.125})

-- A normal picture gets no more opaque than its colour, the others do.
button({1, 1, 1, 0.25}, {normal = normal, hover = hover})
expect({layers()}, {{0.25, 0, 0}, {normal, hover, normal}}, "a picture that is not given shows the normal one")
plays{{1, "enter", {0.25, 0, 0}}, {1.25, "wait", {0.1875, 0.25, 0}}, {2, "wait", {0, 1, 0}}, {2, "leave", {0, 1, 0}},
    {2.25, "wait", {0.0625, 0.75, 0}}, {3, "wait", {0.25, 0, 0}}}

-- A picture without a device side: the normal one is replaced by the stand-in, the others by what the normal one shows.
for _, row in ipairs{
    {{hover = hover}, {"target", hover, "target"}},
    {{normal = "none.png", down = down}, {"target", "target", down}},
    {{normal = normal, hover = "none.png"}, {normal, normal, normal}},
} do
    button({1, 1, 1, 1}, row[1])
    expect(select(2, layers()), row[2])
end

-- Without a duration there is no way to go, only the target.
button({1, 1, 1, 1}, {normal = normal, hover = hover})
host.trans_time(0)
plays{{1, "enter", {0, 1, 0}}, {2, "leave", {1, 0, 0}}}
