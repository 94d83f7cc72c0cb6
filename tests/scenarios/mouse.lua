-- What the mouse does to shapes while a project runs, and only then.

local events = {"left_down", "left_up", "right_down", "right_up", "middle_down", "middle_up", "move"}
local function shape(name, rect, scripts, fields)
    for key, script in pairs(scripts or {}) do
        if script == true then scripts[key] = function() end end
    end
    return host.shape{dialog = "D", name = name, rect = rect, scripts = scripts, fields = fields}
end
local function stage()
    host.new(800, 600)
    host.dialog{name = "D", rect = {0, 0, 400, 300}}
    host.calls()
end
local function mode(name) return host.get(name).m_texture_mode end
-- The names of the scripts that the event ran, and whether it was used. The hand cursor is told apart from them.
local function run(event, x, y)
    host.calls()
    local used = host.mouse(event, x, y)
    local ran, hands = {}, 0
    for _, call in ipairs(host.calls()) do
        if call[1] == "cursor" then hands = hands + 1 else ran[#ran + 1] = call[2] .. " " .. call[3] end
    end
    return used, ran, hands
end

-- Every event against every mode, inside and outside; all shapes under the pointer change alike.
stage()
shape("below", {10, 10, 50, 50})
shape("above", {10, 10, 50, 50}, nil, {m_is_usable = 0})
for _, event in ipairs(events) do
    host.set("above", {mode = 2})
    expect({host.mouse(event, 20, 20), mode("above")}, {false, 2}, "nothing is heard before the start")
end
host.start()
local kind = {move = "move", left_down = "press", right_down = "press", middle_down = "press"}
local wanted = {move = {2, 2, 3, 1, 1, 3}, press = {3, 3, 3, 1, 2, 3}, release = {2, 2, 2, 1, 1, 1}}
for _, event in ipairs(events) do
    for at, row in ipairs{{1, 20}, {2, 20}, {3, 20}, {1, 90}, {2, 90}, {3, 90}} do
        host.set("below", {mode = row[1]})
        host.set("above", {mode = row[1]})
        expect({run(event, row[2], 20)}, {false, {}, 0}, event)
        local to = wanted[kind[event] or "release"][at]
        expect({mode("below"), mode("above")}, {to, to}, event .. " " .. at)
    end
end
-- Left and top edges are inside, right and bottom ones are not; what has no size is never met.
shape("empty", {60, 10, 60, 50})
for _, row in ipairs{{10, 10, 3}, {49, 49, 3}, {9, 20, 1}, {50, 20, 1}, {20, 9, 1}, {20, 50, 1}, {60, 20, 1}} do
    host.mouse("left_up", 700, 500)
    host.mouse("left_down", row[1], row[2])
    expect({mode("below"), mode("empty")}, {row[3], 1}, row)
end
-- The end of the run ends every look at once, without a fade; the next run has a listener of its own.
host.mouse("left_down", 20, 20)
host.set("below", {visible = false})
host.clock(5)
host.calls()
host.stop()
expect(host.calls(), {{"view_update"}})
expect({mode("below"), mode("above"), host.get("above").m_mode_time, host.state().m_running}, {1, 1, 0, 0})
expect({host.mouse("left_down", 20, 20), mode("above")}, {false, 1})
host.start()
host.start()
host.mouse("left_down", 20, 20)
expect(mode("above"), 3)
host.stop()
host.stop()
host.mouse("left_up", 20, 20)
expect(mode("above"), 1)

-- Presses sink to the first shape with a script, in the order of making, not of drawing. Releases reach all.
for _, button in ipairs{"left", "right", "middle"} do
    stage()
    local scripts = function() return {[button .. "_down"] = true, [button .. "_up"] = true} end
    shape("deep", {0, 0, 50, 50}, scripts())
    shape("lower", {0, 0, 50, 50}, scripts())
    shape("static", {0, 0, 50, 50}, nil, {m_is_static_pic = 1})
    shape("unusable", {0, 0, 50, 50}, scripts(), {m_is_usable = 0})
    shape("upper", {10, 0, 60, 50}, {mouse_in = true})
    gui_script_set_ctrl_layer("deep", 1)
    host.start()
    expect({run(button .. "_down", 20, 20)}, {true, {"lower " .. button .. "_down"}, 0})
    expect({mode("deep"), mode("lower"), mode("static"), mode("unusable"), mode("upper")}, {1, 3, 3, 3, 3})
    expect({run(button .. "_up", 20, 20)}, {false, {"lower " .. button .. "_up", "deep " .. button .. "_up"}, 0})
    for _, other in ipairs{"left", "right", "middle"} do
        if other ~= button then expect({run(other .. "_down", 5, 5)}, {false, {}, 0}, "another button's script") end
    end
    expect({run(button .. "_down", 55, 20)}, {false, {}, 0})
end

-- The hover: of the usable shapes under the pointer that have any script, the one made first. Entering runs ahead of
-- leaving, and each such shape sets the hand anew in each move.
stage()
local both = function() return {mouse_in = true, mouse_out = true} end
shape("first", {0, 0, 50, 50}, both())
shape("second", {40, 0, 90, 50}, both())
shape("quiet", {40, 60, 90, 90}, {right_up = true})
shape("plain", {0, 0, 100, 100})
shape("unusable", {0, 0, 100, 100}, both(), {m_is_usable = 0})
host.start()
for _, row in ipairs{
    {20, 20, {"first mouse_in"}, 1, "first"}, {21, 20, {}, 1, "first"},
    {45, 20, {}, 2, "first"}, {60, 20, {"second mouse_in", "first mouse_out"}, 1, "second"},
    {60, 70, {"second mouse_out"}, 1, "quiet"}, {99, 99, {}, 0, nil},
    {60, 20, {"second mouse_in"}, 1, "second"}, {-5, 20, {"second mouse_out"}, 0, nil},
} do
    expect({run("move", row[1], row[2])}, {false, row[3], row[4]}, row)
    expect(host.state().hover, row[5])
end
-- The hover outlives the run: what was left in between hears of it in the next.
host.mouse("move", 20, 20)
host.stop()
expect(host.state().hover, "first")
host.start()
expect({run("move", 21, 20)}, {false, {}, 1})
host.stop()
host.start()
expect({run("move", 60, 20)}, {false, {"second mouse_in", "first mouse_out"}, 1})

-- Who can't be met keeps the look that it had: invisible, in an invisible dialog, out of the scene, without a dialog.
stage()
shape("S", {0, 0, 50, 50}, {left_down = true})
host.start()
for _, row in ipairs{
    {function() host.set("S", {visible = false}) end, function() host.set("S", {visible = true}) end},
    {function() host.set("D", {visible = false}) end, function() host.set("D", {visible = true}) end},
    {function() host.remove{"S"} end, function() host.restore{"S"} end},
} do
    host.mouse("left_down", 20, 20)
    row[1]()
    expect({run("left_up", 20, 20)}, {false, {}, 0})
    expect({run("left_down", 20, 20)}, {false, {}, 0})
    expect(mode("S"), 3)
    row[2]()
    host.mouse("left_up", 90, 90)
    expect(mode("S"), 1)
end
-- A removed dialog and a hidden GUI make no difference.
host.remove{"D"}
gui_script_show_gui(0)
expect({run("left_down", 20, 20)}, {true, {"S left_down"}, 0})
host.destroy("D")
expect({run("left_down", 20, 20)}, {false, {}, 0})

-- The cursor's place is the screen's and is compared as it is.
stage()
host.client{100, 100, 900, 700}
for _, row in ipairs{{0, 0, 1}, {399, 299, 1}, {400, 0, 0}, {0, 300, 0}, {-1, 0, 0}} do
    host.cursor_pos(row[1], row[2])
    expect(b_mouse_in_dialog("D"), row[3], row)
end
