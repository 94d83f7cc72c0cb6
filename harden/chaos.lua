-- Anything at any time: items come, go, move, change their parents and their scripts, also in the middle of the event
-- that goes over them; views change, projects are saved, opened and cleaned. Run with sanitizers, each step is watched.
local steps = tonumber(ARGS[1]) or 200000
local events = {"left_down", "left_up", "right_down", "right_up", "middle_down", "middle_up", "mouse_in", "mouse_out"}
local mouse = {"move", "left_down", "left_up", "right_down", "right_up", "middle_down", "middle_up"}
local dialogs, shapes = {"A", "B", "C"}, {}
for at = 1, 12 do shapes[at] = "s" .. at end
local depth, serial, saved = 0, 0, nil
local function one(list) return list[math.random(#list)] end
local function any() return one(math.random(4) == 1 and dialogs or shapes) end
local function edge() return math.random(-20, 320) end
-- Mostly one that lies over most others.
local function rect()
    if math.random(4) == 1 then return {edge(), edge(), edge(), edge()} end
    local left, top = math.random(0, 100), math.random(0, 100)
    return {left, top, left + math.random(100, 300), top + math.random(100, 300)}
end
local act

local function scripts()
    local made = {}
    for _ = 1, math.random(0, 6) do made[one(events)] = function() for _ = 1, math.random(3) do act() end end end
    return made
end

local acts = {
    function() host.shape{dialog = one(dialogs), name = one(shapes), rect = rect(), flag = 1, scripts = scripts()} end,
    function() host.dialog{name = one(dialogs), rect = rect(), align = math.random(0, 9), flag = 1} end,
    function() host.destroy(any()) end,
    function() gui_script_del_ctrl(one(shapes)) end,
    function() host.remove{any(), any()} end,
    function() host.restore{any(), any(), any(), any()} end,
    function() host.set(one(shapes), {parent = one(dialogs)}) end,
    function() host.set(one(shapes), {scripts = scripts()}) end,
    function() host.set(any(), {rect = rect()}) end,
    function() host.set(any(), {visible = math.random(2) == 1}) end,
    function() host.set(any(), {scale = math.random(0, 1)}) end,
    function() host.set(any(), {align = math.random(0, 9)}) end,
    function() host.set(any(), {name = any()}) end,
    function() set_ctrl_usable(one(shapes), math.random(2) == 1) end,
    function() set_ctrl_type(one(shapes), math.random(0, 1)) end,
    function() gui_script_set_ctrl_layer(one(shapes), math.random(0, 1)) end,
    function() gui_script_show_dialog(one(dialogs), math.random(0, 2)) end,
    function() gui_script_show_gui(math.random(0, 2)) end,
    function() set_ctrl_title(one(shapes), ("长\\n"):rep(math.random(0, 9))) end,
    function() host.view(math.random(0, 3) * 200, math.random(0, 3) * 200) end,
    function() host.node(any()) end,
    function() host.record(any(), math.random(0, 3)) end,
    function() host.animate(any(), math.random() * 4, math.random(-1, 1)) end,
    function() host.key(any(), "align", math.random(0, 3), {m_align = math.random(0, 9)}) end,
    function() host.start() end,
    function() host.frame() end,
    function() host.frame() end,
}
for _ = 1, 30 do acts[#acts + 1] = function() host.mouse(one(mouse), edge(), edge()) end end
-- These end much at once, so they come seldom.
local rare = {
    function() host.stop() end,
    function() host.clean() end,
    function() host.new(400, 300) end,
    function() saved = host.save() end,
    function() if saved then host.open(saved) end end,
}
local made, failed, inside = 0, 0, 0
function act()
    -- A script whose act runs scripts that act would never end.
    if depth > 3 then return end
    depth = depth + 1
    made = made + 1
    if depth > 1 then inside = inside + 1 end
    -- What can't be done at the moment, as to an item that is gone, is refused with an error; that is no fault.
    if not pcall(math.random(200) == 1 and one(rare) or one(acts)) then failed = failed + 1 end
    depth = depth - 1
end

host.new(400, 300)
while made < steps do
    serial = serial + 1
    -- Now and then from the start, so that neither everything nor nothing is there.
    if serial % 200 == 1 then
        host.new(400, 300)
        for _, name in ipairs(dialogs) do host.dialog{name = name, rect = {0, 0, 300, 300}, flag = 1} end
        for _, name in ipairs(shapes) do
            host.shape{dialog = one(dialogs), name = name, rect = rect(), flag = 1, scripts = scripts()}
        end
        host.start()
    end
    act()
end
local holds = failed < made / 3 and inside > made / 10
print(("scripts: anything at any time\t%d steps, %d of them inside of events\tat least %d, no fault\t%s"):format(made,
    inside, steps, holds and "holds" or "DOES NOT HOLD"))
assert(holds)
