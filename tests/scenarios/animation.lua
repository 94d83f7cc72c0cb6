-- Key frames: what an item is at a moment between its keys, in either direction of play.
local function float(x) return (string.unpack("f", string.pack("f", x))) end
local function keys(name, track, member, values)
    for _, row in ipairs(values) do host.key(name, track, row[1], {[member] = row[2]}) end
end
local function stage(w, h)
    host.new(w or 800, h or 600)
    host.dialog{name = "D", rect = {100, 50, 500, 350}}
    host.shape{dialog = "D", name = "S", rect = {110, 60, 130, 80}, fields = {m_color = {1, 1, 1, 1}}}
end

-- Place, size and colour run straight between the keys and stand still ahead of the first and behind the last;
-- visibility and alignment step.
stage()
host.node("S")
keys("S", "offset", "m_offset", {{1, {0, 0}}, {2, {100, 40}}})
keys("S", "size", "m_size", {{1, {20, 20}}, {3, {60, 20}}})
keys("S", "color", "m_color", {{1, {0, 1, 0.5, 0}}, {3, {1, 0, 0.5, 1}}})
keys("S", "visible", "m_visible", {{1, 0}, {2, 1}})
for _, row in ipairs{
    {-5, {100, 50, 120, 70}, {0, 1, 0.5, 0}, false}, {1, {100, 50, 120, 70}, {0, 1, 0.5, 0}, false},
    {1.5, {150, 70, 180, 90}, {0.25, 0.75, 0.5, 0.25}, false},
    {2, {200, 90, 240, 110}, {0.5, 0.5, 0.5, 0.5}, false, "at a key's moment what steps is still the key before"},
    {2.5, {200, 90, 250, 110}, {0.75, 0.25, 0.5, 0.75}, true}, {9, {200, 90, 260, 110}, {1, 0, 0.5, 1}, true},
} do
    for _, speed in ipairs{1, 0, 2.5} do
        host.animate("S", row[1], speed)
        local s = host.get("S")
        expect({s.m_rect, s.m_color, s.visible}, {row[2], row[3], row[4]}, row)
    end
end
host.animate("S", 2, -1)
expect(host.get("S").visible, true, "backwards the key at the moment is the one before")
-- A dialog takes no colour, and carries its shapes along.
host.node("D", {"offset", "size", "color"})
keys("D", "offset", "m_offset", {{0, {0, 0}}, {1, {100, 100}}})
host.animate("D", 0.5)
expect(host.get("D").m_rect, {50, 50, 450, 350}, "a track that is not there leaves size and alignment")
expect(host.get("S").m_rect, {150, 90, 190, 110})

-- Keys under different alignments are mixed under that of the moment: the way is straight and ends without a jump.
-- 9 has no anchor, on either side.
for _, row in ipairs{
    {0, {0, 0}, 4, {-100, -100}, {[0] = {0, 0}, [0.5] = {350, 250}, [0.75] = {525, 375}, [1] = {700, 500}}},
    {9, {100, 100}, 4, {-100, -100}, {[0] = {100, 100}, [0.5] = {400, 300}, [1] = {700, 500}}},
    {4, {-100, -100}, 9, {50, 50}, {[0] = {700, 500}, [0.5] = {375, 275}, [1] = {50, 50}}},
    {8, {0, 0}, 8, {100, 60}, {[0.25] = {425, 315}, [0.5] = {450, 330}}},
} do
    stage()
    host.node("D")
    keys("D", "align", "m_align", {{0, row[1]}, {1, row[3]}})
    keys("D", "offset", "m_offset", {{0, row[2]}, {1, row[4]}})
    for time, corner in pairs(row[5]) do
        host.animate("D", time)
        local d = host.get("D")
        expect({d.m_rect[1], d.m_rect[2]}, corner, row)
        local align = time < 1 and row[1] or row[3]
        expect({d.m_bScaleMode, align < 9 and d.m_iAlignType or 9}, {align == 9, align})
        if align == 9 then expect(d.m_left_scaleMode, corner[1] / 800) end
    end
end
-- Backwards, at exactly the later key: that key alone.
host.animate("D", 1, -1)
expect(host.get("D").m_rect, {500, 360, 900, 660})

-- Alignments that change between two places, or hardly behind the moment; two places at one moment.
for _, row in ipairs{
    {{{0, 0}, {1, 4}}, {{0, {0, 0}}, {1, {-100, -100}}}, 0.98, {702, 502, 1102, 802}},
    {{{0, 0}, {1, 2}, {1.5, 0}}, {{0, {0, 0}}, {2, {100, 0}}}, 0.5, {225, 0, 625, 300}},
    {{{0, 0}}, {{1, {10, 20}}, {1, {100, 0}}}, 1, {10, 20, 410, 320}},
    {{{0, 8}}, {}, 0, {500, 350, 900, 650}},
} do
    stage()
    host.node("D")
    keys("D", "align", "m_align", row[1])
    for _, place in ipairs(row[2]) do host.key("D", "offset", place[1], {m_offset = place[2]}, true) end
    host.animate("D", row[3])
    expect(host.get("D").m_rect, row[4], row)
end

-- Halves of anchors are exact here, and each edge is rounded: 801 / 2 + 0 and + 10.
stage(801, 600)
host.node("D")
keys("D", "align", "m_align", {{0, 1}})
keys("D", "offset", "m_offset", {{0, {0, 5}}})
keys("D", "size", "m_size", {{0, {10, 20.5}}})
host.animate("D", 0)
expect(host.get("D").m_rect, {401, 5, 411, 26})

-- Without keys an item stays what it is, a scaled one too; a node of nobody does nothing.
stage()
host.set("S", {rect = {200, 125, 300, 200}, scale = 1})
host.node("S")
host.node("D")
local before = {host.get("D"), host.get("S")}
host.animate("S", 1)
host.animate("D", 1)
expect({host.get("D"), host.get("S")}, before)
local gone = "AAAAAAAA-0000-0000-0000-000000000001"
host.node(gone)
host.animate(gone, 1)
expect(host.record(gone, 1), false)
expect(host.state().nodes, {"S", "D", gone})
host.remove{"S"}
host.animate("S", 1)
expect(host.record("S", 1), false, "out of the scene it is not found")

-- Keys in their track. Two moments nearer than the tolerance are one, but for the second key of all.
stage()
host.node("S")
local function times(track)
    local list, active = host.keys("S", track)
    local all = {}
    for at, key in ipairs(list) do all[at] = key.time end
    return all, active
end
expect({times("align")}, {{}, false}, "a track without keys is not active")
expect(host.key("S", "align", 1, {m_align = 1}), 1)
expect(host.key("S", "align", 1.0078125, {m_align = 2}), 2)
expect(host.key("S", "align", 1.015625, {m_align = 3}), 2, "taken: the key that is there is written over")
expect({times("align")}, {{1, 1.0078125}, true})
expect(host.key_at("S", "align", 1), {time = 1.0078125, m_align = 3}, "of two within reach the later")
expect(host.key("S", "align", 0.5, {m_align = 4}), 3)
expect(host.key("S", "align", 2, {m_align = 5}, true), 4)
expect(host.key("S", "align", 0.75, {m_align = 6}, true), 5)
expect({times("align")}, {{0.5, 1, 1.0078125, 2, 0.75}, true}, "appended as it comes")
host.remove_key("S", "align", 1)
expect(times("align"), {0.5, 1.0078125, 2, 0.75}, "of two within reach the earlier")
host.remove_key("S", "align", 5)
expect(host.key_at("S", "align", 5), nil)
expect(host.key("S", "visible", 1), 1)
expect(host.key_at("S", "visible", 1), {time = 1, m_visible = 0})
-- The edge of the reach is outside.
expect(host.key("S", "size", 0), 1)
expect(host.key_at("S", "size", 0.03003002).time, 0)
expect(host.key_at("S", "size", 0.03003003), nil)
expect(host.key_at("S", "size", -0.03003003), nil)
-- Around a moment.
keys("S", "offset", "m_offset", {{1, {0, 0}}, {2, {1, 1}}, {3, {2, 2}}})
for _, row in ipairs{{0, nil, 1, 1}, {1, nil, 1, 1}, {1.5, 1, 2, 1}, {2, 1, 2, 1}, {2, 2, 3, -1}, {3, 3, nil, -1},
    {4, 3, nil, 1}, {0.5, nil, 1, -1}} do
    expect({host.near("S", "offset", row[1], row[4])}, {row[2], row[3]}, row)
end
expect(host.before("S", "offset", 2), 1)
expect(host.before("S", "offset", 1), nil)
expect({host.near("S", "color", 1)}, {})

-- Keys closer than a ten-thousandth have only a middle, wherever the moment lies between them.
stage()
host.node("S", {"offset"})
host.key("S", "offset", 1, {m_offset = {0, 0}})
host.key("S", "offset", 1.00005, {m_offset = {100, 50}}, true)
for _, time in ipairs{1.00001, 1.00002, 1.00004} do
    host.animate("S", time)
    expect(host.get("S").m_rect, {150, 75, 170, 95})
end

-- Recording: both forms of the place, from the description in force; into tracks that the node knows.
stage()
host.node("D")
host.node("S")
host.set("D", {align = 4})
expect(host.record("D", 0), true)
expect(host.keys("D", "offset"), {{time = 0, m_offset = {-700, -550}, m_offset_percent = {-0.875, float(-550 / 600)}}})
expect(host.keys("D", "size"), {{time = 0, m_size = {400, 300}, m_size_percent = {0.5, 0.5}}})
expect(host.keys("D", "align"), {{time = 0, m_align = 4}})
expect(host.keys("D", "visible"), {{time = 0, m_visible = 1}})
expect(host.keys("D", "color"), {})
host.set("S", {rect = {200, 125, 300, 200}, scale = 1, visible = false})
host.record("S", 0)
host.record("S", 1)
host.set("S", {rect = {100, 50, 200, 125}, scale = 1})
host.record("S", 1.015625)
expect(host.keys("S", "offset"), {{time = 0, m_offset = {100, 75}, m_offset_percent = {0.25, 0.25}},
    {time = 1, m_offset = {0, 0}, m_offset_percent = {0, 0}}}, "a key within reach is written over and keeps its time")
expect(host.keys("S", "size")[2], {time = 1, m_size = {100, 75}, m_size_percent = {0.25, 0.25}})
expect(host.keys("S", "align")[1], {time = 0, m_align = 9})
expect(host.keys("S", "visible")[1], {time = 0, m_visible = 0})
expect(host.keys("S", "color")[1], {time = 0, m_color = {1, 1, 1, 1}})
host.destroy("D")
expect(host.record("S", 3), true)
expect({host.key_at("S", "offset", 3), host.key_at("S", "align", 3).m_align, #host.keys("S", "color")},
    {{time = 3, m_offset = {0, 0}, m_offset_percent = {0, 0}}, 0, 2}, "without a dialog neither place nor colour")
stage()
host.node("S", {"size", "visible"})
expect(host.record("S", 0), true)
expect({#host.keys("S", "size"), #host.keys("S", "visible"), (pcall(host.keys, "S", "offset"))}, {1, 1, false})
