-- The script functions where more than their own values is at stake: the scene, the view, files, and what the layout
-- makes of what they did later.
local folder = ARGS[1] .. "/"
local zero = {0, 0, 0}
host.new(800, 600)
host.dialog{name = "D", rect = {100, 50, 500, 350}}
host.dialog{name = "E", rect = {20, 10, 120, 210}, align = 4}
host.shape{dialog = "D", name = "S", rect = {110, 60, 130, 80}}
host.shape{dialog = "D", name = "T", rect = {200, 60, 220, 80}}

-- Visibility: 0 hides, 1 shows, 2 does the opposite, anything else nothing. A name counts for its own kind alone.
for _, row in ipairs{{gui_script_show_ctrl, "S", "D"}, {gui_script_show_dialog, "D", "S"}} do
    local show, name, other = table.unpack(row)
    for _, step in ipairs{{0, false}, {0, false}, {3, false}, {2, true}, {2, false}, {1, true}, {-1, true}} do
        show(name, step[1])
        show(other, 0)
        expect({host.get(name).visible, host.get(other).visible}, {step[2], true}, step)
    end
end

-- Nothing named so: no effect, and no answer.
local rows = {}
for _, f in ipairs(host.functions()) do
    local first = f.params[1]
    if first and (first.hint == 0x400002 or first.hint == 0x800002) then
        local values = {}
        for at, param in ipairs(f.params) do values[at] = at == 1 and "nobody" or param.default end
        rows[#rows + 1] = f.name
        expect(select("#", _ENV[f.name](table.unpack(values, 1, #f.params))), f.ret and 1 or 0, f.name)
        expect(_ENV[f.name](table.unpack(values, 1, #f.params)), nil, f.name)
    end
end
expect(#rows, 39, "all but the hiding of everything and the two of vectors")
for name, call in pairs{[""] = get_ctrl_rect, s = get_ctrl_rect, D = get_ctrl_rect, S = get_wnd_rect} do
    expect(call(name), nil, name)
end
host.remove{"S"}
expect(get_ctrl_rect("S"), nil, "what is out of the scene is not found")
host.restore{"S"}
expect(get_ctrl_rect("S"), {110, 60, 130, 80})

-- What is of a wrong kind or number names the function, the parameter and what was given.
for _, row in ipairs{
    {"get_ctrl_rect", {}, "takes 1 value, 0 given"}, {"get_ctrl_rect", {5}, "parameter 1 .* must be a text, 5 given"},
    {"set_ctrl_rect", {"S", {1, 2, 3}}, "parameter 2 .* without number 4"},
    {"set_ctrl_type", {"S", 0.5}, "parameter 2 .* a whole number.* 0.5 given"},
    {"set_ctrl_usable", {"S", 2}, "parameter 2 .* true or false"}, {"vector_combo", {1, 2, "3"}, "parameter 3"},
} do
    local good, message = pcall(_ENV[row[1]], table.unpack(row[2]))
    expect(good, false)
    assert(message:find(row[1], 1, true) and message:find(row[3]), message)
end

-- Sizes about each base point: 5 more in either direction, of which a centred side takes the cut half on both ends.
for base, wanted in pairs{[0] = {100, 100, 125, 145}, {98, 100, 122, 145}, {95, 100, 120, 145}, {95, 98, 120, 142},
    {95, 95, 120, 140}, {98, 95, 122, 140}, {100, 95, 125, 140}, {100, 98, 125, 142}, {98, 98, 122, 142},
    {100, 100, 120, 140}, [-1] = {100, 100, 120, 140}} do
    set_ctrl_rect("S", {100, 100, 120, 140})
    set_ctrl_size("S", base, {45.9, 25.9, 7})
    expect(get_ctrl_rect("S"), wanted, base)
end
-- Moves by each alignment point, of controls and dialogs alike; the relative point counts in one mode alone.
for point, corner in pairs{[0] = {10, 20}, {-11, 20}, {10, -21}, {-11, -21}, {0, 0}, {10, 20}} do
    for mode = 0, 2 do
        local x, y = corner[1], corner[2] + (mode > 0 and 5 or 0)
        for _, row in ipairs{{gui_script_move_ctrl, set_ctrl_rect, get_ctrl_rect, "S"},
            {gui_script_move_wnd, set_wnd_rect, get_wnd_rect, "E"}} do
            local move, set, get, name = table.unpack(row)
            set(name, {0, 0, 21, 41})
            move(name, mode, point, {-0.9, 5.9, 9}, {10.5, 20.25, 9})
            expect(get(name), {x, y, x + 21, y + 41}, {name, mode, point})
        end
    end
end
set_wnd_rect("E", {20, 10, 120, 210})

-- A place that a function gave is kept by the layout: under the alignment of the moment it follows the frame.
local stories = {
    {function() gui_script_move_ctrl("S", 0, 3, zero, {490, 340, 0}) end, {470, 320, 490, 340}, {670, 470, 690, 490}},
    {function() set_ctrl_rect("S", {400, 300, 420, 310}) end, {400, 300, 420, 310}, {600, 450, 620, 460}},
    {function() set_ctrl_size("S", 4, {10, 40, 0}) end, {90, 70, 130, 80}, {290, 220, 330, 230}},
    {function() ctrl_align_offset("S", 30, 40) end, {130, 90, 150, 110}, {330, 240, 350, 260}},
}
for _, story in ipairs(stories) do
    set_wnd_rect("D", {100, 50, 500, 350})
    set_ctrl_rect("S", {110, 60, 130, 80})
    ctrl_align("S", 4)
    story[1]()
    expect(get_ctrl_rect("S"), story[2])
    gui_script_set_wnd_size("D", 0, {100, 50, 0}, {700, 500, 0}, 0)
    expect(get_ctrl_rect("S"), story[3])
end
set_wnd_rect("D", {100, 50, 500, 350})
set_ctrl_rect("S", {200, 125, 300, 200})
ctrl_align("S", 9)
local scaled = host.get("S")
expect({scaled.m_bScaleMode, scaled.m_iAlignType, get_ctrl_align("S")}, {1, 4, 9})
expect({scaled.m_left_scaleMode, scaled.m_top_scaleMode, scaled.m_right_scaleMode, scaled.m_bottom_scaleMode},
    {0.25, 0.25, 0.5, 0.5})
for _, align in ipairs{10, -1} do
    ctrl_align("S", align)
    expect(get_ctrl_align("S"), 9)
end
gui_script_move_wnd("D", 0, 4, {5, 5, 0}, {400, 300, 0})
expect({get_wnd_rect("D"), get_ctrl_rect("S")}, {{200, 150, 600, 450}, {300, 225, 400, 300}})
host.view(1000, 800)
expect(get_wnd_rect("E"), {220, 210, 320, 410}, "alignment 4 of a dialog, too")
-- Aligning dialogs stores their place even where nothing moves: with an odd view that is seen one step later.
host.view(801, 600)
host.dialog{name = "F", rect = {300, 10, 400, 20}, align = 1}
host.update("F", "rect")
expect({get_wnd_rect("F")[1], host.get("F").m_offsetx}, {299, -101})
wnd_align("D", 7, "F")
expect({get_wnd_rect("F")[1], host.get("F").m_offsetx}, {299, -102})
wnd_align("F", 3, "F")
expect(get_wnd_rect("F"), {299, 10, 399, 20})
gui_script_set_wnd_size("F", 1, {0.25, 0.5, 0}, {1, 2, 0}, 1)
expect(get_wnd_rect("F"), {200, 300, 801, 600}, "200.25 is cut, and 1200 lies beyond the view")

-- What is no number, or does not fit, gives some place, not a fault.
for _, far in ipairs{0 / 0, 1 / 0, -1 / 0, 1e30, -1e30, 3e9} do
    set_ctrl_rect("T", {far, far, far, far})
    set_ctrl_size("T", 8, {far, far, 0})
    gui_script_move_ctrl("T", 1, 4, {far, far, 0}, {far, far, 0})
    gui_script_move_wnd("F", 1, 3, {far, far, 0}, {far, far, 0})
    gui_script_set_wnd_size("F", 1, {far, far, 0}, {-far, far, 0}, 0)
    for _, rect in ipairs{host.get("T").m_rect, host.get("F").m_rect} do
        for _, edge in ipairs(rect) do expect(math.type(edge), "integer") end
    end
    host.frame()
end

-- Texts: a line feed there and back; what only looks like one stays.
for _, row in ipairs{
    {"一\\n二", "一\n二", "一\\n二"}, {"a\nb", "a\nb", "a\\nb"}, {"\\\\n", "\\\n", "\\\\n"}, {"", "", ""},
} do
    set_ctrl_title("S", row[1])
    expect({host.get("S").m_title, get_ctrl_title("S")}, {row[2], row[3]})
end

-- Pictures: where the script says, then beside the project, then among the engine's resources. x is the height; the
-- ending says nothing.
host.new(60, 40)
for _, path in ipairs{"here.png", "show_textures/here.png", "show_textures/beside.dat", "resource.png"} do
    expect(host.image(folder .. path), true)
end
host.new(800, 600)
host.paths{project = folder .. "show.sgui", resources = folder}
host.dialog{name = "D", rect = {0, 0, 400, 300}}
local found = {40, 60, 0}
local default = host.get(host.shape{dialog = "D"}).m_color
for _, row in ipairs{
    -- slot, path, the path afterwards, the answer
    {0, folder .. "here.png", folder .. "here.png", found},
    {1, "D:\\old\\beside.dat", folder .. "show_textures\\beside.dat", found},
    {2, "elsewhere/resource.png", folder .. "resource.png", found},
    {2, "elsewhere/here.png", folder .. "show_textures\\here.png", found},
    {0, "nothing.png", "文件不存在", {30, 10, 0}},
    {1, "a folder/show_textures", "文件不存在", {30, 10, 0}},
    {3, folder .. "here.png", nil, found}, {-1, "nothing.png", nil, {30, 10, 0}},
} do
    local slot, path, file, answer = row[1], row[2], row[3], row[4]
    local name = host.shape{dialog = "D", rect = {10, 10, 20, 40}}
    expect(get_ctrl_texture(name, 0), nil, "an empty slot has no answer")
    expect(set_ctrl_texture(name, slot, path), answer, path)
    local shape = host.get(name)
    local slots = {[0] = "normal", "hover", "down"}
    expect(shape.textures, slots[slot] and {[slots[slot]] = file} or {})
    for at, key in pairs(slots) do expect(shape.loaded[key], at == slot and answer == found) end
    expect(get_ctrl_texture(name, slot), file and file:gsub("\\", "\\\\") or nil)
    -- The first picture that can be shown makes the faint white of a new shape plain white.
    expect(shape.m_color, answer == found and {1, 1, 1, 1} or default)
    expect(shape.m_rect, {10, 10, 20, 40}, "the shape keeps its size")
end
-- Not so a second one, nor where the author has chosen another colour.
local second = host.shape{dialog = "D"}
set_ctrl_texture(second, 1, "nothing.png")
set_ctrl_texture(second, 0, folder .. "here.png")
expect(get_ctrl_bkcolor(second), default)
set_ctrl_bkcolor(second, {1, 1, 1, 0.25})
host.set(second, {textures = {normal = false, hover = false}})
set_ctrl_texture(second, 0, folder .. "here.png")
expect(get_ctrl_bkcolor(second), {1, 1, 1, 0.25})

-- A shape whose dialog is gone: what needs the dialog does nothing, the rest works.
host.shape{dialog = "D", name = "lone", rect = {10, 10, 20, 40}}
host.destroy("D")
expect(gui_script_ctrl_get_pos("lone", 2, 1), nil)
gui_script_set_ctrl_layer("lone", 0)
ctrl_align_offset("lone", 5, 5)
expect(gui_script_ctrl_get_pos("lone", 1, 0), {15, 25, 0})
set_ctrl_size("lone", 0, {5, 6, 0})
expect(get_ctrl_rect("lone"), {10, 10, 16, 15})
