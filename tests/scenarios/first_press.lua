-- The road of one press, from the input chain to the next frame: the pressed shape's own script moves its dialog and
-- ends the shape itself.
host.new(800, 600)
host.dialog{name = "Panel", rect = {100, 50, 500, 350}}
host.shape{dialog = "Panel", name = "Go", rect = {110, 60, 210, 90}, flag = 1,
    fields = {m_is_static_pic = 0, m_title = "Go"},
    scripts = {left_down = function()
        gui_script_move_wnd("Panel", 0, 0, {0, 0, 0}, {200, 100, 0})
        expect(get_ctrl_rect("Go"), {210, 110, 310, 140}, "shapes go with their dialog")
        gui_script_del_ctrl("Go")
        expect(get_ctrl_rect("Go"), nil, "an unknown name leaves the return value unwritten")
    end}}
host.calls()
expect(host.mouse("left_down", 150, 70), false, "nothing hears the mouse before the start")
host.start()
expect(host.mouse("left_down", 99, 70), false)
expect(host.mouse("left_down", 150, 70), true)
expect(host.calls(), {{"view_update"}, {"script", "Go", "left_down"}, {"deselect", "Go"}, {"parent", "Go"}})
expect(host.state().shapes, {})
expect(host.get("Panel").m_rect, {200, 100, 600, 400})
expect(host.mouse("left_up", 250, 120), false)
local ops = {}
for _, call in ipairs(host.frame()) do ops[#ops + 1] = call.op end
expect(ops, {"viewport", "viewport"}, "an empty dialog still sets its viewport, and puts the former one back")

-- An error in a function of the scenario is raised where the scenario called the engine, and the next event works.
host.shape{dialog = "Panel", name = "Bad", rect = {210, 110, 310, 140}, fields = {m_is_static_pic = 0},
    scripts = {left_down = function() error("no way") end, left_up = function() released = true end}}
local good, message = pcall(host.mouse, "left_down", 250, 120)
expect(good, false)
assert(message:find("no way", 1, true), message)
host.mouse("left_up", 250, 120)
expect(released, true)
