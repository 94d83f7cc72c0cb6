-- The values that each script function takes, gives and stores.
local zero = {0, 0, 0}
host.new(800, 600)
host.dialog{name = "D", rect = {100, 50, 500, 350}}
host.dialog{name = "E", rect = {0, 0, 1, 1}}
host.dialog{name = "F", rect = {0, 0, 1, 1}}
host.shape{dialog = "D", name = "S", rect = {110, 60, 130, 80}}
host.shape{dialog = "D", name = "T", rect = {200, 60, 220, 80}}
-- What a frame draws, by the left edges.
local function drawn()
    local edges = {}
    for _, call in ipairs(host.frame()) do
        if call.op == "rect" then edges[#edges + 1] = call.rect[1] end
    end
    return edges
end

-- Layers and visibility: what is out of range does nothing, but any other layer than 0 is the front.
host.frame()
host.system_state(4)
local s, t = 110, 200
for _, row in ipairs{
    {gui_script_set_ctrl_layer, "T", 0, {t, s}}, {gui_script_set_ctrl_layer, "T", 2, {s, t}},
    {gui_script_set_ctrl_layer, "S", 1, {t, s}}, {gui_script_show_ctrl, "S", 0, {t}},
    {gui_script_show_ctrl, "S", 3, {t}}, {gui_script_show_ctrl, "S", 2, {t, s}},
    {gui_script_show_dialog, "D", 2, {}}, {gui_script_show_dialog, "D", 1, {t, s}},
    {set_ctrl_bkimage, "S", true, {s, t}}, {set_ctrl_bkimage, "S", false, {t, s}},
} do
    row[1](row[2], row[3])
    expect(drawn(), row[4], row)
end
for _, row in ipairs{{0, {}}, {3, {}}, {2, {t, s}}, {2, {}}, {1, {t, s}}} do
    gui_script_show_gui(row[1])
    expect(drawn(), row[2], row)
end

-- Places: truncated towards zero, left and right each for itself.
gui_script_move_ctrl("S", 0, 0, zero, {-0.5, 10.9, 0})
expect(get_ctrl_rect("S"), {0, 10, 19, 30})
gui_script_move_ctrl("S", 1, 4, {10.9, 20.9, 0}, {100, 100, 0})
expect(get_ctrl_rect("S"), {101, 110, 120, 130})
set_ctrl_rect("S", {110.9, 60.9, 130.9, -80.9})
expect(get_ctrl_rect("S"), {110, 60, 130, -80})
set_ctrl_rect("S", {110, 60, 130, 80})
ctrl_align_offset("S", 5, -7)
expect(get_ctrl_rect("S"), {105, 43, 125, 63})
for _, row in ipairs{{1, 0, {115, 53, 0}}, {2, 1, {25, 13, 0}}, {9, 9, {5, -7, 0}}} do
    expect(gui_script_ctrl_get_pos("S", row[1], row[2]), row[3], row)
end

-- Fields: what is out of range leaves them.
for _, row in ipairs{{"txt_align", 11, 12}, {"txt_font", 7, 8}, {"type", 1, 2}} do
    local set, get = _ENV["set_ctrl_" .. row[1]], _ENV["get_ctrl_" .. row[1]]
    for _, value in ipairs{row[2], row[3], -1} do
        set("S", value)
        expect(get("S"), row[2], row)
    end
end
for _, name in ipairs{"usable", "bkimage", "txt_shadow"} do
    for value = 0, 1 do
        _ENV["set_ctrl_" .. name]("S", value == 1)
        expect(_ENV["get_ctrl_" .. name]("S"), value, name)
    end
end
for _, name in ipairs{"txt_color", "bkcolor"} do
    _ENV["set_ctrl_" .. name]("S", {0.25, 0.5, 0.75, 2})
    expect(_ENV["get_ctrl_" .. name]("S"), {0.25, 0.5, 0.75, 2}, name)
end

-- Dialogs.
gui_script_set_wnd_size("D", 1, zero, {1, 1, 0}, 0)
expect(get_wnd_rect("D"), {0, 0, 800, 600})
gui_script_set_wnd_size("D", 0, {-10, 500.9, 0}, {900, 700, 0}, 1)
expect(get_wnd_rect("D"), {0, 500, 800, 600})
set_wnd_rect("D", {100.5, 50.5, 500.5, 350.5})
expect(get_wnd_rect("D"), {100, 50, 500, 350})
for mode, corner in pairs{[0] = {0, 10}, {0, 110}, {20, 0}, {70, 0}, {0, 0}} do
    set_wnd_rect("E", {20, 10, 120, 210})
    set_wnd_rect("F", {0, 0, 50, 100})
    wnd_align("E", mode, "F")
    expect(get_wnd_rect("F"), {corner[1], corner[2], corner[1] + 50, corner[2] + 100}, mode)
end
for _, row in ipairs{{300, 200, 1}, {99, 200, 0}, {500, 200, 0}, {300, 350, 0}, {100, 50, 1}} do
    host.cursor_pos(row[1], row[2])
    expect(b_mouse_in_dialog("D"), row[3], row)
end

-- Values alone.
expect(rect_inflate({0, 0, 10, 10}, {1, 2, 3, -4}), {-1, -2, 13, 6})
expect(vector_combo(1, 2.5, -3), {1, 2.5, -3})
expect(tostring(vector_combo(1, 0.2, -3)), "{1, 0.2, -3}")

-- The end: a shape that may not be deleted stays, one that may be is gone.
host.set("S", {flag = 1})
for _, name in ipairs{"S", "T"} do gui_script_del_ctrl(name) end
expect({host.get("S") == nil, host.get("T").m_rect}, {true, {200, 60, 220, 80}})
