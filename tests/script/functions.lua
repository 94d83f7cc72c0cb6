-- What each function does to a dialog "D" at (100, 50, 500, 350) and its shapes "S" at (110, 60, 130, 80) and "T" at
-- (200, 60, 220, 80), in a view of 800 x 600. Run by functions_test.cpp with the module in the reference host.

local function same(got, ...)
    local wanted = {...}
    for i = 1, #wanted do
        if got[i] ~= wanted[i] then
            error(string.format("value %d is %s, not %s", i, got[i], wanted[i]), 2)
        end
    end
end
local zero = {0, 0, 0}

-- Places: truncated towards zero, left and right each for itself.
gui_script_move_ctrl("S", 0, 0, zero, {-0.5, 10.9, 0})
same(get_ctrl_rect("S"), 0, 10, 19, 30)
gui_script_move_ctrl("S", 0, 3, {999, 999, 0}, {300, 200, 0})
same(get_ctrl_rect("S"), 281, 180, 300, 200)
gui_script_move_ctrl("S", 1, 4, {10.9, 20.9, 0}, {100, 100, 0})
same(get_ctrl_rect("S"), 101, 110, 120, 130)
gui_script_move_ctrl("S", 0, 7, zero, {110, 60, 0})
set_ctrl_rect("S", {110.9, 60.9, 130.9, -80.9})
same(get_ctrl_rect("S"), 110, 60, 130, -80)
set_ctrl_rect("S", {110, 60, 130, 80})
ctrl_align_offset("S", 5, -7)
same(get_ctrl_rect("S"), 105, 43, 125, 63)
same(gui_script_ctrl_get_pos("S", 1, 0), 115, 53)
same(gui_script_ctrl_get_pos("S", 2, 1), 25, 13)
same(gui_script_ctrl_get_pos("S", 9, 9), 5, -7)

-- Sizes: x is the height, y the width; a centred base moves both edges by the truncated half.
set_ctrl_rect("S", {0, 0, 20, 20})
set_ctrl_size("S", 0, {100, 50, 0})
same(get_ctrl_size("S"), 100, 50, 0)
set_ctrl_size("S", 8, {105, 45, 0})
same(get_ctrl_rect("S"), 2, -2, 48, 102)
set_ctrl_size("S", 4, {-1, 0, 0})
same(get_ctrl_rect("S"), 48, 102, 48, 102)
set_ctrl_size("S", 9, {10, 10, 0})
same(get_ctrl_size("S"), 0, 0)
set_ctrl_rect("S", {110, 60, 130, 80})

-- Alignment: 9 is the scale mode and leaves the anchor; what has no anchor changes nothing.
ctrl_align("S", 4)
ctrl_align("S", 9)
assert(get_ctrl_align("S") == 9)
ctrl_align("S", 10)
ctrl_align("S", -1)
assert(get_ctrl_align("S") == 9)
gui_script_set_wnd_size("D", 0, {100, 50, 0}, {900, 650, 0}, 0)
same(get_ctrl_rect("S"), 120, 70, 160, 110)
gui_script_set_wnd_size("D", 0, {100, 50, 0}, {500, 350, 0}, 0)
ctrl_align("S", 0)
assert(get_ctrl_align("S") == 0)

-- Fields: what is out of range leaves them.
for _, row in ipairs({{"txt_align", 11, 12}, {"txt_font", 7, 8}, {"type", 1, 2}}) do
    local set, get = _ENV["set_ctrl_" .. row[1]], _ENV["get_ctrl_" .. row[1]]
    set("S", row[2])
    set("S", row[3])
    set("S", -1)
    assert(get("S") == row[2], row[1])
end
for _, name in ipairs({"usable", "bkimage", "txt_shadow"}) do
    for value = 0, 1 do
        _ENV["set_ctrl_" .. name]("S", value == 1)
        assert(_ENV["get_ctrl_" .. name]("S") == value, name)
    end
end
for _, name in ipairs({"txt_color", "bkcolor"}) do
    _ENV["set_ctrl_" .. name]("S", {0.25, 0.5, 0.75, 2})
    same(_ENV["get_ctrl_" .. name]("S"), 0.25, 0.5, 0.75, 2)
end
set_ctrl_title("S", "一\\n二")
assert(get_ctrl_title("S") == "一\\n二")

-- Pictures: the text for a missing file, the shape's own size, white for the first picture of a new shape.
same(set_ctrl_texture("S", 0, "nowhere.png"), 20, 20)
assert(get_ctrl_texture("S", 0) == "文件不存在")
assert(get_ctrl_texture("S", 1) == "")
same(set_ctrl_texture("T", 1, PICTURE), 56, 192)
same(get_ctrl_bkcolor("T"), 1, 1, 1, 1)
same(set_ctrl_texture("T", 3, PICTURE), 56, 192)

-- Dialogs and the whole GUI.
gui_script_set_wnd_size("D", 1, {0, 0, 0}, {1, 1, 0}, 0)
same(get_wnd_rect("D"), 0, 0, 800, 600)
gui_script_set_wnd_size("D", 0, {-10, 500.9, 0}, {900, 700, 0}, 1)
same(get_wnd_rect("D"), 0, 500, 800, 600)
set_wnd_rect("D", {100.5, 50.5, 500.5, 350.5})
gui_script_move_wnd("D", 1, 1, {10, 0, 0}, {490, 50, 0})
same(get_wnd_rect("D"), 100, 50, 500, 350)
for mode, wanted in pairs({[0] = {0, 10}, {0, 110}, {20, 0}, {70, 0}, {0, 0}}) do
    set_wnd_rect("E", {20, 10, 120, 210})
    set_wnd_rect("F", {0, 0, 50, 100})
    wnd_align("E", mode, "F")
    local rect = get_wnd_rect("F")
    same(rect, wanted[1], wanted[2], wanted[1] + 50, wanted[2] + 100)
end
same(rect_inflate({0, 0, 10, 10}, {1, 2, 3, -4}), -1, -2, 13, 6)
same(vector_combo(1, 2.5, -3), 1, 2.5, -3)
assert(tostring(vector_combo(1, 0.2, -3)) == "{1, 0.2, -3}")
assert(b_mouse_in_dialog("D") == 1)
set_wnd_rect("D", {0, 0, 300, 200})
assert(b_mouse_in_dialog("D") == 0, "right and bottom edges lie outside")

-- Names that nothing has: no effect, and what the answer held before.
set_ctrl_rect("nobody", {1, 2, 3, 4})
wnd_align("E", 0, "nobody")
same(get_ctrl_rect("D"), 0, 0, 0, 0)
same(get_ctrl_txt_color("nobody"), 1, 1, 1, 1)

-- The end: a shape that may not be deleted stays, one that may be is gone.
gui_script_del_ctrl("T")
same(get_ctrl_size("T"), 20, 20)
gui_script_del_ctrl("S")
same(get_ctrl_size("S"), 0, 0)
