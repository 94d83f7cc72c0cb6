-- The time bar of legacy projects: bars become animations, commands nodes, keys keys of their tracks.
host.include("tests/scenarios/support/legacy_tree.lua")
local function bits(seconds) return (string.unpack("i4", string.pack("f", seconds))) end
local function near(got, wanted, note)
    for at, number in ipairs(wanted) do
        assert(math.abs(got[at] - number) < 1e-5, ("%s: %g, wanted %g"):format(note, got[at], number))
    end
end

-- Ahead of the time bar stand a dialog "D" of 400 × 200 with a control "C", and a stage with panels "P" and "T", the
-- second of them transparent, in a view of 800 × 600.
local function rect(x, y, w, h) return {POSX = x, POSY = y, WIDTH = w, HEIGHT = h, Flag = 1, VISIBLE = 1} end
local control = keys("control", rect(0, 0, 10, 10), value("NAME", 6, "C"), value("GUID", 11, id(2)))
local items = {
    node("GUI", node("Dialogs", keys("D", rect(100, 100, 400, 200), value("GUID", 11, id(1)), node("Controls", control)))),
    node("UIStages", node("S", keys("P", {}, value("id", 11, id(3))),
        keys("T", {ENABLE_TRANSP = 1, TRANSP_TYPE = 1, TRANS_FACTOR = 255}, value("id", 11, id(4))))),
}
local function import(...)
    host.new(800, 600)
    assert(host.import(node("old", items[1], items[2], node("Timebar", node("BARS", ...))), "C:/a/b.xyz"))
    return host.state()
end
local identifier_key = {[2] = "CTRL", [3] = "DLG", [5] = "ID"}
local function command(kind, item, ...)
    return keys("command", {TYPE = kind}, value(identifier_key[kind] or "ID", 11, id(item)), node("KEYS", ...))
end
local function bar(kind, ...) return keys("bar", {TYPE = kind}, node("CMDS", ...)) end
local function key(seconds, numbers, ...) return keys("key", numbers, value("TIME", 3, bits(seconds)), ...) end
local function floats(offset_x, offset_y, width, height)
    return value("m_offset_x", 9, offset_x), value("m_offset_y", 9, offset_y), value("m_sizex", 9, width), value("m_sizey", 9, height)
end
local function panel_key(seconds, numbers, mode, place, ...)
    local panel_pos = keys("panel_pos", mode, table.unpack(place))
    return key(seconds, numbers, node("POS", panel_pos), ...)
end

-- Settings by the type of the bar, and its length.
for kind, wanted in pairs{[0] = {0, 1}, [1] = {0, -1}, [2] = {1, -1}, [3] = {0, 1}, [4] = {0, -1}, [-1] = {0, -1}} do
    local made = import(bar(kind, command(3, 1, key(2.5, {}), key(1, {})), command(2, 2, key(1.5, {})))).animations
    expect(#made, 1)
    expect({made[1].name, made[1].length, made[1].rate, made[1].factor, made[1].mode_flag, made[1].mode_count},
        {"bar", 2.5, 30, 1, wanted[1], wanted[2]}, "bar of type " .. kind)
    expect(made[1].nodes, {"D", "C"})
end
local state = import(node("plain"), false, bar(2), bar(1, command(3, 1, key(-1, {}))))
expect(#state.animations, 3)
for at, wanted in ipairs{{0, 0, 1}, {0, 1, -1}, {0, 0, -1}} do
    local made = state.animations[at]
    expect({made.length, made.mode_flag, made.mode_count}, wanted, "without commands, or without a key behind 0")
end

-- What is passed over, and what stays although it moves nothing.
state = import(bar(0, command(1, 1, key(1, {})), false, command(4, 1, key(1, {})), keys("command", {TYPE = 3}),
    command(3, 77, key(1, {m_bVisible = 1, iAlignType = 3}, floats(10, 20, 30, 40)),
        key(2, {m_bScaleMode = 1}, floats(0.5, 0.25, 0.125, 1)))))
expect(state.nodes, {"00000000-0000-0000-0000-000000000000", id(77)})
expect(state.animations[1].length, 2)
local gone = host.keys(id(77), "offset")
expect({gone[1].m_offset, gone[1].m_offset_percent}, {{10, 20}, {0, 0}}, "pixels stay where there is no item")
expect({gone[2].m_offset, gone[2].m_offset_percent}, {{0, 0}, {0.5, 0.25}}, "and so do fractions")

-- Keys of the plain layout: fractions from pixels, and the other way round in scale mode.
import(bar(0, command(2, 2, key(0, {m_bVisible = 1, iAlignType = 4}, floats(-40, -20, 100, 50)),
    key(1, {m_bScaleMode = 1}, floats(0.5, 0.25, 0.125, 1)), key(2, {iAlignType = 9}, floats(0.5, 0.25, 0.125, 1)),
    key(3, {m_bScaleMode = 2, iAlignType = 1}, floats(0.5, 0, 0, 0)), key(4, {}))))
local offsets, sizes = host.keys("C", "offset"), host.keys("C", "size")
expect({offsets[1].time, offsets[1].m_offset, sizes[1].m_size}, {0, {-40, -20}, {100, 50}})
near(offsets[1].m_offset_percent, {-0.1, -0.1}, "offset")
near(sizes[1].m_size_percent, {0.25, 0.25}, "size")
for _, at in ipairs{2, 3} do
    expect({offsets[at].m_offset, offsets[at].m_offset_percent}, {{200, 50}, {0.5, 0.25}})
    expect({sizes[at].m_size, sizes[at].m_size_percent}, {{50, 200}, {0.125, 1}})
end
expect(offsets[4].m_offset, {200, 0}, "any scale but 0 counts")
local function column(track, field)
    local values = {}
    for at, made in ipairs(host.keys("C", track)) do values[at] = made[field] end
    return values
end
expect(column("align", "m_align"), {4, 9, 9, 1, 0})
expect(column("visible", "m_visible"), {1, 0, 0, 0, 0})
expect(column("visible", "time"), {0, 1, 2, 3, 4})
expect(host.keys("C", "color"), {}, "the plain layout has no colours")
import(bar(0, command(3, 1, key(0, {}, floats(80, 60, 400, 300)))))
near(host.keys("D", "offset")[1].m_offset_percent, {0.1, 0.1}, "the frame of a dialog is the view")

-- Keys of panels: offset 8, 6 and size 40 × 20 at each anchor, measured to the left top corner, nothing rounded.
local x, y = {8, 8 - 20, -8 - 40}, {6.5, 6.5 - 10, -6.5 - 20}
local place = {value("offset_in_pixel", 8, {8, 6.5, 9}), value("size_in_pixel", 15, {40, 20}),
    value("percent_left", 9, 0.25), value("percent_top", 9, 0.5), value("percent_right", 9, 0.75), value("percent_bottom", 9, 0.625)}
for mode, align in pairs{0, 1, 2, 7, 8, 3, 6, 5, 4} do
    import(bar(0, command(5, 3, panel_key(1, {}, {align_mode = mode}, place))))
    expect(host.keys("P", "offset")[1].m_offset, {x[(mode - 1) % 3 + 1], y[(mode - 1) // 3 + 1]}, "align_mode " .. mode)
    expect(host.keys("P", "align")[1].m_align, align)
    expect({host.keys("P", "size")[1].m_size, host.keys("P", "visible")[1].m_visible}, {{40, 20}, 1})
    near(host.keys("P", "size")[1].m_size_percent, {40 / 800, 20 / 600}, "fractions of the stage")
end
import(bar(0, command(5, 3, panel_key(1, {}, {align_mode = 10}, place), panel_key(2, {}, {locate_mode = 1, align_mode = 9}, place))))
expect({host.keys("P", "offset")[1].m_offset, host.keys("P", "align")[1].m_align}, {{0, 0}, 0}, "no anchor")
local scaled = {host.keys("P", "offset")[2], host.keys("P", "size")[2], host.keys("P", "align")[2]}
expect({scaled[1].m_offset_percent, scaled[2].m_size_percent, scaled[3].m_align}, {{0.25, 0.5}, {0.5, 0.125}, 9})
expect({scaled[1].m_offset, scaled[2].m_size}, {{200, 300}, {400, 75}})

-- Without a place a panel hides, and still has its colour. Only a transparent panel has an alpha.
local opaque, clear = {m_color = {0, 0, 0, 1}, time = 1}, {m_color = {0, 0, 0, float32(1 / 255)}, time = 1}
import(bar(0, command(5, 3, key(1, {}), key(2, {COLOR = 0xFFFF, ALPHA = 51})),
    command(5, 4, key(1, {}), key(2, {COLOR = 0xFFFF, ALPHA = 51}, node("POS"))), command(5, 2, key(1, {ALPHA = 9}))))
expect({host.keys("P", "visible")[1].m_visible, host.keys("P", "size")[1].m_size}, {0, {0, 0}})
expect(host.keys("P", "color"), {opaque, {m_color = {1, 0, 0, 1}, time = 2}})
expect(host.keys("T", "color"), {clear, {m_color = {1, 0, 0, float32(0.2)}, time = 2}})
expect(host.keys("T", "visible")[2].m_visible, 0)
expect(host.keys("C", "color"), {opaque}, "a control under the command of a panel")

-- The moment is a float in an integer's place. Keys as near as they like, in any order, all stay with their values.
local moments = {3, 2.51, 2.5, 0.0625, 2.5}
local made = {}
for at, seconds in ipairs(moments) do made[at] = key(seconds, {m_bVisible = at}) end
import(bar(0, command(2, 2, table.unpack(made))))
expect(column("visible", "time"), {0.0625, 2.5, 2.5, float32(2.51), 3})
expect(column("visible", "m_visible"), {4, 3, 5, 2, 1})
for _, time in ipairs{value("TIME", 9, 2.5), {name = "TIME", code = 3, value = {hex = "00002040"}}, value("TIME", 3, 1075838976), value("TIME", 3, 2.5)} do
    import(bar(0, command(2, 2, keys("key", {}, time))))
    expect(column("visible", "time"), {2.5})
end
-- What is no moment counts as missing: no number, one without a limit, too few bytes, no key at all.
for _, time in ipairs{value("TIME", 3, -1), value("TIME", 9, math.huge), {name = "TIME", code = 3, value = {hex = "0000"}}, node("TIME")} do
    state = import(bar(0, command(2, 2, keys("key", {m_bVisible = 1}, time))))
    expect({column("visible", "time"), column("visible", "m_visible"), state.animations[1].length}, {{0}, {1}, 0})
end
-- So late that the span of one moment is below the steps of a float: the key has its values all the same.
import(bar(0, command(2, 2, key(1e7, {m_bVisible = 1}))))
expect({column("visible", "time"), column("visible", "m_visible")}, {{1e7}, {1}})

expect(#host.state().animations, 1)
host.new(800, 600)
assert(host.import(node("old", node("Timebar"))))
expect(host.state().animations, {}, "no bars")
