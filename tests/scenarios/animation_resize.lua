-- Keys hold a place in pixels and as fractions of the frame. When the frame changes its size, the form that leads under
-- the alignment of the key's moment stays, and the other follows.
local function float(x) return (string.unpack("f", string.pack("f", x))) end
local function place(name, time)
    local offset, size = host.key_at(name, "offset", time), host.key_at(name, "size", time)
    return {offset.m_offset, offset.m_offset_percent, size.m_size, size.m_size_percent}
end
-- A key that lies in a frame of 400 x 300, at moment 0.
local function animated(name, align, tracks)
    host.node(name, tracks)
    if align then host.key(name, "align", 0, {m_align = align}) end
    host.key(name, "offset", 0, {m_offset = {100, 150}, m_offset_percent = {0.25, 0.5}})
    host.key(name, "size", 0, {m_size = {200, 75}, m_size_percent = {0.5, 0.25}})
end
local old = {{100, 150}, {0.25, 0.5}, {200, 75}, {0.5, 0.25}}
-- Twice as wide and as high.
local pixels_lead = {{100, 150}, {0.125, 0.25}, {200, 75}, {0.25, 0.125}}
local percent_leads = {{200, 300}, {0.25, 0.5}, {400, 150}, {0.5, 0.25}}

local function stage()
    host.new(800, 600)
    host.dialog{name = "D", rect = {10, 20, 410, 320}}
    host.dialog{name = "other", rect = {10, 20, 410, 320}}
    for name, align in pairs{pixels = 4, percent = 9, own_scale = false, own_anchor = false} do
        host.shape{dialog = "D", name = name, rect = {20, 20, 40, 40}, scale = name == "own_scale"}
        animated(name, align)
    end
    host.shape{dialog = "other", name = "elsewhere"}
    animated("elsewhere", 9)
    host.shape{dialog = "D", name = "no align"}
    host.node("no align", {"offset", "size"})
    host.key("no align", "offset", 0, {m_offset = {100, 150}, m_offset_percent = {0.25, 0.5}})
    host.key("no align", "size", 0, {m_size = {200, 75}, m_size_percent = {0.5, 0.25}})
end

-- Whatever changes the dialog's size does it; what moves the dialog alone does not, nor does a shape's own size.
for at, resize in ipairs{
    function() host.set("D", {rect = {0, 0, 800, 600}}) end,
    function() set_wnd_rect("D", {5, 5, 805, 605}) end,
    function() gui_script_set_wnd_size("D", 1, {0, 0, 0}, {1, 1, 0}, 0) end,
    function()
        host.set("D", {keep_rect = {0, 0, 700, 500}})
        expect(place("percent", 0), old, "whoever keeps the keys leaves the difference to the next")
        host.set("D", {rect = {0, 0, 800, 600}})
    end,
    function()
        host.set("D", {scale = 1})
        host.view(1600, 1200)
    end,
    function()
        host.node("D")
        host.key("D", "size", 0, {m_size = {800, 600}})
        host.animate("D", 0)
    end,
} do
    stage()
    gui_script_move_wnd("D", 0, 0, {0, 0, 0}, {50, 60, 0})
    wnd_align("other", 1, "D")
    set_ctrl_size("percent", 0, {100, 100, 0})
    host.view(801, 601)
    host.view(800, 600)
    for _, name in ipairs{"pixels", "percent", "own_scale"} do expect(place(name, 0), old, name) end
    resize()
    expect(place("pixels", 0), pixels_lead, at)
    expect(place("own_anchor", 0), pixels_lead, at)
    expect(place("percent", 0), percent_leads, at)
    expect(place("own_scale", 0), percent_leads, at)
    for _, name in ipairs{"elsewhere", "no align"} do expect(place(name, 0), old, name) end
    -- There and back a dozen times: nothing drifts.
    host.set("D", {scale = 0})
    for _ = 1, 12 do
        host.set("D", {rect = {0, 0, 500, 375}})
        host.set("D", {rect = {0, 0, 400, 300}})
    end
    for _, name in ipairs{"pixels", "percent"} do expect(place(name, 0), old, name) end
end

-- The keys of a dialog follow the view in the same way.
for _, row in ipairs{{4, pixels_lead}, {9, percent_leads}} do
    host.new(400, 300)
    host.dialog{name = "D", rect = {0, 0, 100, 100}}
    animated("D", row[1])
    host.view(800, 600)
    expect(place("D", 0), row[2])
    for _ = 1, 12 do
        host.view(500, 375)
        host.view(400, 300)
    end
    expect(place("D", 0), old)
end

-- Several keys, each under the alignment of its moment; offset and size for themselves. A key at once behind another
-- comes out as the middle of both, in either form.
host.new(400, 300)
host.dialog{name = "D", rect = {0, 0, 100, 100}}
host.node("D")
for time, align in pairs{[0] = 9, [1] = 4, [2] = 9} do host.key("D", "align", time, {m_align = align}) end
for _, row in ipairs{{0, {40, 30}, {0.25, 0.25}}, {1, {40, 30}, {0.25, 0.25}}, {1.5, {80, 60}, {0.5, 0.5}},
    {2, {80, 60}, {0.5, 0.5}}} do
    host.key("D", "offset", row[1], {m_offset = row[2], m_offset_percent = row[3]})
end
host.key("D", "size", 3, {m_size = {100, 150}, m_size_percent = {0.25, 0.5}})
host.view(800, 600)
local function keys(track)
    local all = {}
    for at, key in ipairs((host.keys("D", track))) do
        all[at] = {key.m_offset or key.m_size, key.m_offset_percent or key.m_size_percent}
    end
    return all
end
expect(keys("offset"), {{{200, 150}, {0.25, 0.25}}, {{40, 30}, {float(0.05), float(0.05)}},
    {{80, 60}, {float(0.1), float(0.1)}}, {{400, 300}, {0.5, 0.5}}})
expect(keys("size"), {{{200, 300}, {0.25, 0.5}}})
host.new(400, 300)
host.dialog{name = "D", rect = {0, 0, 100, 100}}
host.node("D")
for at, time in ipairs{1, 1.00005} do
    host.key("D", "offset", time, {m_offset = {(at - 1) * 64, 0}, m_offset_percent = {0.5, 0.5}}, true)
end
host.view(800, 512)
expect(keys("offset"), {{{0, 0}, {0, 0}}, {{32, 0}, {float(0.04), 0}}})

-- What a moment amounts to in both forms, without touching anything.
host.new(800, 600)
host.dialog{name = "D", rect = {100, 150, 300, 300}}
host.shape{dialog = "D", name = "S", rect = {150, 180, 200, 195}}
host.node("S")
expect(host.evaluate("S", 1), {offset = {50, 30}, size = {50, 15}, offset_percent = {0.25, float(0.2)},
    size_percent = {0.25, float(0.1)}})
host.key("S", "offset", 0, {m_offset = {0, 0}, m_offset_percent = {0, 0}})
host.key("S", "offset", 2, {m_offset = {100, 60}, m_offset_percent = {1, 0.5}})
host.key("S", "size", 0, {m_size = {50, 75}, m_size_percent = {0.5, 0.5}})
expect(host.evaluate("S", 0.5), {offset = {25, 15}, size = {50, 75}, offset_percent = {0.125, float(0.1)},
    size_percent = {0.25, 0.5}})
host.key("S", "align", 0, {m_align = 9})
expect(host.evaluate("S", 0.5, -1), {offset = {50, 18.75}, size = {100, 75}, offset_percent = {0.25, 0.125},
    size_percent = {0.5, 0.5}})
expect(host.get("S").m_rect, {150, 180, 200, 195})

-- Everything at once: an animated dialog whose scaled shape is animated too, played to and fro in a view that changes.
-- The rectangles at each moment are those of the first time, whatever happened in between.
host.new(800, 600)
host.dialog{name = "D", rect = {0, 0, 400, 300}}
host.shape{dialog = "D", name = "S", rect = {100, 75, 200, 150}, scale = 1}
host.node("D")
host.record("D", 0)
host.set("D", {rect = {400, 300, 800, 600}})
host.record("D", 1)
host.key("D", "size", 1, {m_size = {200, 150}})
host.node("S")
host.set("S", {rect = {500, 375, 600, 450}})
host.record("S", 0)
host.set("S", {rect = {600, 450, 700, 525}})
host.record("S", 1)
-- At 0.5: D is 300 x 225 at (200, 150). In it S goes from a quarter to a half, and is a quarter wide and high.
local wanted = {[0] = {{0, 0, 400, 300}, {100, 75, 200, 150}}, [0.5] = {{200, 150, 500, 375}, {313, 234, 388, 291}},
    [1] = {{400, 300, 600, 450}, {500, 375, 550, 413}}}
local function play(time, speed)
    host.animate("D", time, speed)
    host.animate("S", time, speed)
    expect({host.get("D").m_rect, host.get("S").m_rect}, wanted[time], time)
end
for _ = 1, 5 do
    for _, time in ipairs{0, 0.5, 1} do play(time, 1) end
    host.view(1000, 800)
    for _, time in ipairs{1, 0.5, 0} do play(time, -1) end
    host.view(800, 600)
end

-- A view without a size, while something plays: what is scaled comes back with it.
host.new(800, 600)
host.dialog{name = "D", rect = {200, 150, 600, 450}, scale = 1}
host.shape{dialog = "D", name = "S", rect = {300, 225, 400, 300}, scale = 1}
for _, name in ipairs{"D", "S"} do
    host.node(name)
    host.key(name, "visible", 0, {m_visible = 1})
end
for _, size in ipairs{{0, 0}, {0, 600}, {800, 0}} do
    host.view(size[1], size[2])
    for _, name in ipairs{"D", "S"} do host.animate(name, 0) end
    host.view(800, 600)
    expect({host.get("D").m_rect, host.get("S").m_rect}, {{200, 150, 600, 450}, {300, 225, 400, 300}}, size)
end
