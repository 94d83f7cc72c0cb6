-- The plain layout of legacy projects: which dialogs come of it, in which order, and where they lie.
host.include("tests/scenarios/support/legacy_tree.lua")
local function guid(n) return value("GUID", 11, id(n)) end

-- What is not given is missing in the tree.
local function control(name, numbers, ...) return keys("control", numbers, value("NAME", 6, name), ...) end
local function root(width, height, ...)
    return node("Root Dialog", keys("ROOT", {WIDTH = width, HEIGHT = height, POSX = 7, POSY = 8, Flag = 1}, guid(99), ...))
end
local function import(path, ...)
    host.new(800, 600)
    assert(host.import(node("old", ...), path))
    return host.state()
end
local function gui(...) return import("C:/a/b.xyz", node("GUI", ...)) end

-- Which dialog is the root dialog, and the order of all.
local plain = {POSX = 10, POSY = 20, WIDTH = 100, HEIGHT = 50, Flag = 1}
local d1, d2 = keys("D1", plain, guid(1)), keys("D2", plain, guid(2))
local controls = node("Controls", control("first", {}), false, control("second", {}))
for note, row in pairs{
    ["empty root dialog"] = {{root(800, 600), node("Dialogs", d1, d2)}, {"D2", "D1"}, "D2"},
    ["root dialog alone"] = {{root(800, 600, controls)}, {"根界面"}, "根界面"},
    ["root dialog with others"] = {{root(400, 300, controls), node("Dialogs", d1, false, d2)}, {"D2", "D1", "根界面"}, "根界面"},
    ["no ROOT"] = {{node("Root Dialog"), node("Dialogs", d1)}, {"D1"}, "D1"},
    ["nothing"] = {{}, {}},
} do
    local state = gui(table.unpack(row[1]))
    expect(state.dialogs, row[2], note)
    expect(state.root, row[3], note)
    expect(state.legacy_folder, "C:/a/b_textures/")
    expect(state.m_scene_rect, state.m_view_rect, note)
    for _, name in ipairs(state.dialogs) do expect(host.get(name).m_last_rect, host.get(name).m_rect, note) end
end
expect(import("/x/y.tar.gz").legacy_folder, "/x/y.tar_textures/")
expect(import(nil).legacy_folder, "_textures/")

import("x", node("GUI", root(400, 300)), node("UIStages", node("S")))
expect(host.get("S").m_last_rect, {0, 0, 800, 600}, "no trace of the stored view is left")

-- The root dialog covers the view, whatever was stored; its actor keeps its own identifier.
gui(root(400, 300, controls, {name = "m_iAlignType", code = 3, value = 9}))
local made = host.get("根界面")
expect(made.m_rect, {0, 0, 800, 600})
expect({made.m_bScaleMode, made.m_iAlignType, made.visible, made.m_item_id}, {1, 9, true, id(99)})
assert(made.id ~= made.m_item_id)
expect(host.state().children["根界面"], {"second", "first"}, "the last of the file lies lowest")
expect(host.state().shapes, {"second", "first"})

-- Stored at 400 × 300 and seen at 800 × 600, twice as large. The nine anchors, scale, and what has no anchor.
local stored = {POSX = 40, POSY = 30, WIDTH = 100, HEIGHT = 50, Flag = 1}
local near_x, center_x, far_x = {40, 140}, {130, 230}, {440, 540}
local near_y, center_y, far_y = {30, 80}, {85, 135}, {330, 380}
local function rect(x, y) return {x[1], y[1], x[2], y[2]} end
local scaled = {80, 60, 280, 160}
local function with(numbers, more)
    local all = {}
    for key, value in pairs(numbers) do all[key] = value end
    for key, value in pairs(more) do all[key] = value end
    return all
end
for align, wanted in pairs{
    [0] = rect(near_x, near_y), rect(center_x, near_y), rect(far_x, near_y), rect(far_x, center_y), rect(far_x, far_y),
    rect(center_x, far_y), rect(near_x, far_y), rect(near_x, center_y), rect(center_x, center_y), scaled,
    [12] = rect(near_x, near_y), [-1] = rect(near_x, near_y),
} do
    for _, mode in ipairs{0, 1} do
        gui(root(400, 300), node("Dialogs", keys("D", with(stored, {m_iAlignType = align, ScaleMode = mode}), guid(1))))
        local is_scaled = mode == 1 or align == 9
        expect(host.get("D").m_rect, is_scaled and scaled or wanted, "dialog of alignment " .. align)
        expect(host.get("D").m_bScaleMode, is_scaled and 1 or 0)
        expect(host.get("D").m_iAlignType, align)
    end
end

-- Controls in a dialog that has grown from 100 × 50 to 200 × 100.
local in_dialog = {POSX = 10, POSY = 5, WIDTH = 20, HEIGHT = 10, VISIBLE = 1}
near_x, center_x, far_x = {90, 110}, {110, 130}, {190, 210}
near_y, center_y, far_y = {65, 75}, {75, 85}, {115, 125}
for align, wanted in pairs{
    [0] = rect(near_x, near_y), rect(center_x, near_y), rect(far_x, near_y), rect(far_x, center_y), rect(far_x, far_y),
    rect(center_x, far_y), rect(near_x, far_y), rect(near_x, center_y), rect(center_x, center_y), rect(near_x, near_y),
} do
    for _, mode in ipairs{0, 1} do
        gui(root(400, 300), node("Dialogs", keys("D", with(stored, {m_iAlignType = 9}), guid(1),
            node("Controls", control("C", with(in_dialog, {Align = align, ScaleMode = mode}), guid(2))))))
        expect(host.get("C").m_rect, mode == 1 and {100, 70, 140, 90} or wanted, "control of alignment " .. align)
        expect(host.get("C").m_bScaleMode, mode, "9 alone is no scale mode")
        host.update("D", "children")
        expect(host.get("C").m_rect, mode == 1 and {100, 70, 140, 90} or wanted, "laid out again")
    end
end

-- Anchors in the middle of an odd frame are truncated where the halves of offsets are rounded, so laying the project
-- out at its end moves what hangs there by one pixel.
local middle = {POSX = 300, POSY = 20, WIDTH = 100, HEIGHT = 50, Flag = 1, VISIBLE = 1, m_iAlignType = 1, Align = 1}
host.new(801, 601)
assert(host.import(node("old", node("GUI", root(801, 601, node("Controls", control("R", middle, guid(5)))),
    node("Dialogs", keys("D", middle, guid(6), node("Controls", control("C", {WIDTH = 10, HEIGHT = 5}, guid(7)))))))))
expect(host.get("D").m_rect, {299, 20, 399, 70})
expect(host.get("R").m_rect, {299, 20, 399, 70})
expect(host.get("C").m_rect, {299, 20, 309, 25})

-- Offsets that are not in force stay as they were stored.
local offsets = {m_offsetx = 3, m_offsety = 4, offsetx = 5, offsety = 6, m_iAlignType = 9, Align = 9}
gui(root(800, 600, node("Controls", control("R", {})), {name = "m_offsetx", code = 3, value = 8}, {name = "m_offsety", code = 3, value = 9}),
    node("Dialogs", keys("D", offsets, guid(1), node("Controls", control("one", offsets), control("two", offsets)))))
expect({host.get("D").m_offsetx, host.get("D").m_offsety}, {3, 4})
expect({host.get("one").m_offsetx, host.get("one").m_offsety}, {5, 6})
expect({host.get("根界面").m_offsetx, host.get("根界面").m_offsety}, {8, 9})
expect(host.state().children.D, {"two", "one"}, "the last of the file lies lowest here too")

-- Unchanged view: a control lies where it lay. Identifiers, names, kinds, texts that are too long.
gui(root(800, 600), node("Dialogs", keys("D", with(plain, {Flag = 6}), guid(1), node("Controls",
    control("Fünf", {POSX = 5, POSY = 6, WIDTH = 30, HEIGHT = 12, VISIBLE = 2, Type = 10, BKIMAGE = 1}, guid(5),
        value("Caption", 20, ("字"):rep(300))),
    control(("n"):rep(70), {Type = 7}), control("label", {Type = 1}), control("picture", {Type = 11})))))
local shape = host.get("Fünf")
expect(shape.m_rect, {15, 26, 45, 38})
expect({shape.id, shape.m_item_id, shape.parent, shape.visible, shape.m_bk_image}, {id(5), id(5), "D", true, 1})
expect({shape.m_is_static_pic, shape.m_color, shape.m_title}, {0, {1, 1, 1, 1}, ("字"):rep(255)})
expect(host.get("D").visible, false, "no bit but the lowest counts")
expect({host.get("D").id, host.get("D").m_item_id}, {id(1), id(1)})
local unknown = host.get(("n"):rep(63))
expect({unknown.m_is_static_pic, unknown.visible, unknown.m_rect}, {1, false, {10, 20, 10, 20}})
assert(math.abs(unknown.m_color[4] - 0.2) < 1e-6, "a kind that nobody knows keeps a new shape's colour")
expect(unknown.id, "00000000-0000-0000-0000-000000000000", "a missing identifier is empty")
expect({host.get("label").m_color, host.get("label").m_is_static_pic}, {{1, 1, 1, 0}, 1})
expect({host.get("picture").m_color, host.get("picture").m_is_static_pic}, {{1, 1, 1, 1}, 1})

-- Pictures: where the author had them, in the project's folder by their whole path, by their names alone, nowhere.
local here = "samples/showroom/pictures/"
local function picture(key, file) return node(key, value("FILENAME", 4, file)) end
import("samples/showroom/showroom.xyz", node("GUI", node("Dialogs", keys("D", plain, guid(1), node("Controls",
    control("button", {Type = 10}, guid(2), picture("Texture0", here .. "logo.png"),
        picture("Texture1", "..\\pictures\\logo.png"), picture("Texture2", "D:\\gone\\close_down.png"),
        picture("Texture", here .. "logo.png")),
    control("lost", {Type = 11}, guid(3), picture("Texture", "D:\\gone\\nothing.png"), picture("Texture0", here .. "logo.png")),
    control("bare", {Type = 10}, guid(4), node("Texture1")),
    control("label", {Type = 1}, guid(5), picture("Texture", here .. "logo.png")))))))
local button = host.get("button")
expect(button.loaded, {normal = true, hover = true, down = true})
expect(button.textures.normal, here .. "logo.png")
expect(button.textures.hover, "samples/showroom/showroom_textures/..\\pictures\\logo.png")
expect(button.textures.down, "samples/showroom/showroom_textures/close_down.png")
expect(host.get("lost").textures, {normal = "文件不存在"})
expect(host.get("bare").textures, {hover = "文件不存在"}, "a picture node without a path")
expect(host.get("label").textures, {})
