-- How dialogs and shapes follow their frames.

local function place(name)
    local item = host.get(name)
    return {item.m_offsetx, item.m_offsety}, item.m_rect
end

-- The nine anchors: offsets in a view of 800 x 600, and the rectangle when it grows to 1000 x 800. A shape in a dialog
-- that grows by as much does the same.
local start = {300, 250, 500, 350}
local rows = {
    [0] = {{300, 250}, {300, 250, 500, 350}},
    {{-100, 250}, {400, 250, 600, 350}},
    {{-500, 250}, {500, 250, 700, 350}},
    {{-500, -50}, {500, 350, 700, 450}},
    {{-500, -350}, {500, 450, 700, 550}},
    {{-100, -350}, {400, 450, 600, 550}},
    {{300, -350}, {300, 450, 500, 550}},
    {{300, -50}, {300, 350, 500, 450}},
    {{-100, -50}, {400, 350, 600, 450}},
    -- The scale mode leaves the offsets: they are still those of alignment 0.
    {{300, 250}, {375, 333, 625, 467}},
}
host.new(800, 600)
host.dialog{name = "View", rect = {0, 0, 800, 600}, scale = true}
for align = 0, 9 do
    local settings = {rect = start, align = align < 9 and align or 0, scale = align == 9}
    host.dialog{name = "d" .. align, rect = start, align = settings.align, scale = settings.scale}
    host.shape{dialog = "View", name = "s" .. align, rect = start, align = settings.align, scale = settings.scale}
end
-- A thousand sizes in between, some of them without any: only the last counts.
for at = 1, 1000 do host.view(at * 7919 % 2500, at * 104729 % 1500) end
host.view(1, 1)
host.view(1000, 800)
for align, row in pairs(rows) do
    for _, kind in ipairs{"d", "s"} do
        local offsets, rect = place(kind .. align)
        expect(offsets, row[1], kind .. align)
        expect(rect, row[2], kind .. align)
    end
end
expect(host.state().m_scene_rect, {0, 0, 1, 1}, "the size before the last change")
expect(host.state().m_view_rect, {0, 0, 1000, 800})

-- A view without a size: what is scaled has none either, what is anchored stands at its offsets. Nothing is lost.
host.view(0, 0)
expect(host.get("d4").m_rect, {-500, -350, -300, -250})
expect(host.get("d9").m_rect, {0, 0, 0, 0})
host.view(800, 600)
for align = 0, 9 do
    expect(host.get("d" .. align).m_rect, start)
    expect(host.get("s" .. align).m_rect, start)
end
-- What a frame without a size is asked, it answers with numbers.
host.view(0, 600)
host.set("d9", {rect = {10, 60, 20, 120}})
local d9 = host.get("d9")
for _, key in ipairs{"m_left_scaleMode", "m_right_scaleMode"} do assert(d9[key] - d9[key] == 0, key) end
expect(d9.m_top_scaleMode * 10, string.unpack("f", string.pack("f", 0.1)) * 10)
local percent = host.convert("d0", "percent_offset", {10, 60})
assert(percent[1] - percent[1] == 0)

-- Odd sizes: anchors cut their half, offsets round it, so each storing moves an element by one pixel.
host.new(801, 600)
host.dialog{name = "odd", rect = {300, 10, 400, 20}, align = 1}
for _, step in ipairs{{"offsets", -101, 300}, {"rect", -101, 299}, {"offsets", -102, 299}, {"rect", -102, 298}} do
    host.update("odd", step[1])
    expect({host.get("odd").m_offsetx, host.get("odd").m_rect[1]}, {step[2], step[3]}, step)
end
-- Fractions round each edge for itself, a half upwards.
for _, row in ipairs{{0.25, 0.75, 200, 601}, {0.5, 1, 401, 801}, {-0.5, -0.25, -400, -200}, {1.5, 0, 1202, 0}} do
    host.set("odd", {m_bScaleMode = 1, m_left_scaleMode = row[1], m_right_scaleMode = row[2]})
    host.update("odd", "rect")
    local rect = host.get("odd").m_rect
    expect({rect[1], rect[3]}, {row[3], row[4]}, row)
end

-- Alignment and scale mode say how the present place is described; only the next size moves anything.
host.new(800, 600)
host.dialog{name = "D", rect = {100, 100, 300, 200}}
host.set("D", {align = 4})
expect({place("D")}, {{-700, -500}, {100, 100, 300, 200}})
host.view(1000, 700)
expect(host.get("D").m_rect, {300, 200, 500, 300})
host.set("D", {scale = 1})
host.set("D", {align = 2})
local d = host.get("D")
expect({d.m_iAlignType, d.m_offsetx, d.m_offsety}, {2, -700, -500}, "in scale mode the offsets stay")
expect({d.m_left_scaleMode * 1000, d.m_right_scaleMode},
    {(string.unpack("f", string.pack("f", 0.3))) * 1000, 0.5})
host.view(2000, 1400)
expect(host.get("D").m_rect, {600, 400, 1000, 600})
host.set("D", {scale = 0})
host.view(3000, 1400)
expect(host.get("D").m_rect, {1600, 400, 2000, 600}, "kept at the size of that moment, on the right")
host.set("D", {m_bScaleMode = 0, m_iAlignType = 9})
host.view(500, 500)
expect(host.get("D").m_rect, {1600, 400, 2000, 600}, "what has no anchor keeps its place")

-- The place of the view in the window plays no part, and a size is only followed when the module is told.
host.new(800, 600)
host.dialog{name = "D", rect = {300, 250, 500, 350}, align = 4}
host.client{50, 40, 1050, 840}
expect(host.get("D").m_rect, {300, 250, 500, 350})
expect(host.state().m_view_rect, {0, 0, 800, 600})
host.size_changed()
expect(host.get("D").m_rect, {500, 450, 700, 550})
expect({host.state().m_scene_rect, host.state().m_view_rect}, {{0, 0, 800, 600}, {0, 0, 1000, 800}})
host.remove{"D"}
host.view(800, 600)
expect(host.get("D").m_rect, {300, 250, 500, 350}, "out of the scene it follows the view all the same")

-- From outside in: the view scales the dialog, the dialog its shapes.
host.new(800, 600)
host.dialog{name = "D", rect = {200, 150, 600, 450}, scale = 1}
host.shape{dialog = "D", name = "scaled", rect = {300, 225, 500, 375}, scale = 1}
host.shape{dialog = "D", name = "corner", rect = {560, 420, 580, 440}, align = 4}
host.shape{dialog = "D", name = "middle", rect = {390, 290, 410, 310}, align = 8}
host.shape{dialog = "D", name = "outside", rect = {0, 0, 10, 10}}
host.view(1000, 800)
for name, rect in pairs{D = {250, 200, 750, 600}, scaled = {375, 300, 625, 500}, corner = {710, 570, 730, 590},
    middle = {490, 390, 510, 410}, outside = {50, 50, 60, 60}} do
    expect(host.get(name).m_rect, rect, name)
end
host.set("D", {rect = {0, 0, 400, 300}})
expect(host.get("scaled").m_rect, {100, 75, 300, 225}, "shapes follow a dialog that is moved by hand too")

-- keep_rect leaves the memory of the last adjustment of keys behind; rect brings it along.
host.set("D", {keep_rect = {0, 0, 200, 300}})
expect(host.get("D").m_last_rect, {0, 0, 400, 300})
host.set("D", {rect = {0, 0, 200, 150}})
expect(host.get("D").m_last_rect, {0, 0, 200, 150})

-- The point that a text hangs on, by its position; relative to the dialog.
host.new(800, 600)
host.dialog{name = "D", rect = {5, 3, 205, 103}}
host.shape{dialog = "D", name = "S", rect = {10, 10, 31, 21}}
local xs, ys = {5, 16, 26}, {7, 7, 13, 18}
for position = 0, 11 do
    host.set("S", {m_font_org_position = position})
    host.update("S", "fontpos")
    local s = host.get("S")
    expect({s.m_font_pos_x, s.m_font_pos_y}, {xs[position // 4 + 1], ys[position % 4 + 1]}, position)
end

-- Between pixels and fractions: a dialog by the view on record, a shape by its dialog, anything else gives nothing.
host.client{0, 0, 400, 300}
for _, row in ipairs{
    {"D", "offset_by_percent", {0.5, 0.25}, {400, 150}}, {"S", "size_by_percent", {0.5, -1}, {100, -100}},
    {"D", "percent_offset", {200, 150}, {0.25, 0.25}}, {"S", "percent_size", {50, 25}, {0.25, 0.25}},
    {nil, "percent_size", {50, 25}, {0, 0}, n = 4}, {"D", "size_by_percent", {0.5, 0.25}, {400, 150}},
} do
    expect(host.convert(row[1], row[2], row[3]), row[4], row[2])
end

host.destroy("D")
expect(host.convert("S", "percent_offset", {50, 25}), {0, 0}, "no frame")

-- Arithmetic that editors share.
for x, wanted in pairs{[2.5] = 3, [-2.5] = -2, [2.49] = 2, [-0.5] = 0, [0.5] = 1, [-3] = -3} do
    expect(host.round_half_up(x), wanted, x)
end
local frame = {10, 10, 811, 611}
for _, row in ipairs{
    {0, 8, {10, 20}, {410.5, 320.5}}, {8, 0, {410.5, 320.5}, {10, 20}}, {4, 4, {1.5, 2}, {1.5, 2}},
    {9, 4, {-100, -100}, {701, 501}}, {3, 6, {0, 0}, {-801, 300.5}}, {17, -1, {1, 2}, {1, 2}},
} do
    expect(host.dif_align(row[1], row[2], frame, row[3]), row[4], row)
end
-- 800 x 600 at (10, 20) becomes 1000 x 900 at (0, 5): the rectangle at (100, 100) in it, of odd size.
local old, new = {10, 20, 810, 620}, {0, 5, 1000, 905}
for align, wanted in pairs{
    [0] = {100, 105, 151, 205}, {131, 105, 182, 205}, {300, 105, 351, 205}, {300, 180, 351, 280},
    {300, 405, 351, 505}, {131, 405, 182, 505}, {100, 405, 151, 505}, {100, 180, 151, 280}, {131, 180, 182, 280},
    {100, 105, 151, 205},
} do
    expect(host.resize_rect({110, 120, 161, 220}, old, new, align, 0), wanted, align)
end
expect(host.resize_rect({110, 120, 161, 220}, old, new, 4, 1), {125, 155, 188, 305})
expect(host.resize_rect({-11, 0, -10, 3}, {0, 0, 800, 600}, {0, 0, 400, 600}, 0, 1), {-5, 0, -5, 3}, "cut towards zero")
