-- What a frame draws, and in which order.
local function float(x) return (string.unpack("f", string.pack("f", x))) end
local pictures = "samples/showroom/pictures/"
local white, black = {1, 1, 1, 1}, {0, 0, 0, 1}

-- Shapes are told apart by their left edge; viewports by their place.
local function order()
    local all = {}
    for _, call in ipairs(host.frame()) do
        if call.op == "rect" or call.op == "texture" then all[#all + 1] = call.rect[1] end
        if call.op == "viewport" then all[#all + 1] = call.x .. "," .. call.y end
    end
    return all
end
local function shape(dialog, left, fields)
    return host.shape{dialog = dialog, name = dialog .. left, rect = {left, 20, left + 5, 30}, fields = fields}
end
local view = "0.0,0.0"

-- Dialogs from the back to the front, each in a viewport of its own that is put back; shapes in their order, but
-- background pictures ahead of all others. The stand-in is made once, in the size of the first shape that is drawn.
host.new(800, 600)
host.dialog{name = "D", rect = {1, 2, 301, 202}}
for _, row in ipairs{{10, 0}, {20, 0}, {30, 1}, {40, 0}, {50, 1}} do shape("D", row[1], {m_bk_image = row[2]}) end
host.dialog{name = "E", rect = {-50, 590, 300, 900}}
shape("E", 60)
local frame = host.frame()
expect(frame[2], {op = "target", w = 5, h = 10})
expect(frame[9], {op = "viewport", x = -50, y = 590, w = 350, h = 310}, "nothing is cut to the view")
expect(order(), {"1.0,2.0", 30, 50, 10, 20, 40, view, "-50.0,590.0", 60, view})
host.view(400, 300)
expect(host.frame()[7], {op = "viewport", x = 0, y = 0, w = 400, h = 300})
host.view(800, 600)

-- What is not seen: by its own actor, by its dialog's, or out of the scene. A hidden dialog sets no viewport.
local all, dialog_only = {"1.0,2.0", 10, 20, view}, {"1.0,2.0", 10, view}
host.new(800, 600)
host.dialog{name = "D", rect = {1, 2, 301, 202}}
shape("D", 10)
shape("D", 20)
expect(order(), all)
for _, row in ipairs{
    {host.set, "D20", {visible = false}, dialog_only}, {host.set, "D20", {visible = true}, all},
    {host.set, "D", {visible = false}, {}}, {host.set, "D", {visible = true}, all},
    {host.remove, {"D20"}, nil, dialog_only}, {host.restore, {"D20"}, nil, all},
    {host.remove, {"D"}, nil, {}}, {host.restore, {"D"}, nil, all},
    {gui_script_set_ctrl_layer, "D20", 0, {"1.0,2.0", 20, 10, view}},
} do
    row[1](row[2], row[3])
    expect(order(), row[4])
end

-- The whole GUI is hidden only while the engine is in its state 4, and the first frame of another state shows it.
for _, hide in ipairs{host.clean, function() gui_script_show_gui(0) end} do
    hide()
    host.system_state(4)
    expect({host.frame(), host.state().m_gui_hidden}, {{}, 1})
    host.system_state(3)
    expect({#host.frame() > 0, host.state().m_gui_hidden}, {true, 0})
    host.system_state(4)
    expect(#host.frame() > 0, true)
    host.system_state(0)
end
for selector, hidden in pairs{[0] = 1, [1] = 0, [2] = 1, [3] = 0} do
    gui_script_show_gui(1)
    gui_script_show_gui(selector)
    expect(host.state().m_gui_hidden, hidden, selector)
end
host.system_state(0)

-- One shape alone: the calls between the two viewports.
local function drawn(settings, running)
    host.new(800, 600)
    host.dialog{name = "D", rect = {10, 20, 410, 320}}
    settings.dialog, settings.name, settings.rect = "D", "S", settings.rect or {20, 40, 60, 80}
    host.shape(settings)
    if running then host.start() end
    local calls = host.frame()
    return {table.unpack(calls, 2, #calls - 1)}
end
local rect = {20, 40, 60, 80}
local first = {0.25, 0.5, 0.75, 0.5}
local disabled = {float(0.4), float(0.4), float(0.4), float(0.15)}
local function solid(color) return {op = "rect", rect = rect, color = color} end
local function picture(name, color) return {op = "texture", rect = rect, texture = name, color = color} end
local normal, hover, missing = pictures .. "menu_normal.png", pictures .. "menu_hover.png", "no such.png"
for at, row in ipairs{
    -- A static picture and a disabled shape are one layer, running or not, whatever other pictures there are.
    {{}, {}, solid(first)},
    {{}, {}, solid(first), true},
    {{}, {m_is_usable = 0}, solid(disabled), true},
    {{textures = {hover = hover}}, {}, solid(first), true},
    {{textures = {normal = normal, hover = hover}}, {}, picture("menu_normal.png", first)},
    {{textures = {normal = normal}}, {m_is_usable = 0}, picture("menu_normal.png", disabled)},
    {{textures = {normal = missing}}, {}, picture("", first)},
    {{textures = {normal = normal}}, {m_is_static_pic = 0, m_is_usable = 0},
        picture("menu_normal.png", disabled), true},
    -- The author sees a button's normal picture, or the stand-in if there are only others.
    {{}, {m_is_static_pic = 0}, solid(first)},
    {{textures = {normal = normal, hover = hover}}, {m_is_static_pic = 0}, picture("menu_normal.png", first)},
    {{textures = {down = hover}}, {m_is_static_pic = 0}, picture("target", first)},
    {{textures = {normal = missing}}, {m_is_static_pic = 0}, picture("", first)},
    {{}, {m_is_static_pic = 0}, solid(first), true},
} do
    row[1].fields = row[2]
    row[2].m_color = first
    expect(drawn(row[1], row[4]), {row[3]}, at)
end

-- The text over it: around the anchor of its position, its shadow two pixels off; "default" where the slot is empty.
local function text(x, y, color, position)
    return {op = "text", x = x, y = y, text = "一\n二", color = color, font = "default", position = position}
end
local blue = {0, 0, 1, 0.5}
local function titled(fields)
    fields.m_title, fields.m_font_color = "一\n二", blue
    local calls = drawn{rect = {20, 40, 61, 80}, fields = fields}
    return {table.unpack(calls, 2)}
end
expect(titled{m_font_type = 5}, {text(31, 40, blue, 6)}, "20 + 41 / 2, rounded up, less the dialog's 10")
expect(titled{m_font_org_position = 11, m_font_shadow = 1}, {text(53, 62, black, 11), text(51, 60, blue, 11)})
expect(titled{m_font_org_position = 1, m_is_usable = 0}, {text(10, 20, blue, 1)})

-- The dialog under edit: a veil over everything, its mark, and it once more on top; its name in the corner of the view.
host.new(800, 600)
host.dialog{name = "D", rect = {10, 20, 110, 80}}
shape("D", 15)
host.dialog{name = "E", rect = {300, 20, 400, 80}}
host.edit("D")
local plain = host.frame()
expect(#plain, 5)
host.select{"D15"}
frame = host.frame()
expect({table.unpack(frame, 1, 5)}, plain)
expect(frame[6], {op = "rect", rect = {0, 0, 800, 600}, color = {0, 0, 0, float(0.9)}})
expect(frame[7], {op = "rect", rect = {10, 20, 110, 80}, color = {1, 1, 1, float(0.1)}})
expect(frame[8], {op = "line", points = {{10, 20}, {110, 20}, {110, 80}, {10, 80}, {10, 20}}, color = white,
    pattern = 0xAAAAAAAA})
local shadow, name = frame[9], frame[10]
expect({name.op, name.text, name.x, name.color, name.font, name.position}, {"text", "D", 780, white, "default", 11})
expect({shadow.text, shadow.x, shadow.y - name.y, shadow.color, shadow.position}, {"D", 781, 1, black, 11})
assert(name.y < 600 and name.y > 500, "a line's height above the bottom")
expect({table.unpack(frame, 11)}, {table.unpack(plain, 1, 3)})
local edited = frame
-- The mark stands out against the veil, component by component; exactly one half is not above it.
for _, row in ipairs{{{1, 0, 0.25, 0}, {0, 1, 1}}, {{0.5, 0.5, 0.5, 1}, {0, 0, 0}}} do
    local r, g, b = table.unpack(row[2])
    host.dim_color(row[1])
    frame = host.frame()
    expect(frame[6].color, {row[1][1], row[1][2], row[1][3], float(0.9)}, "the veil's own alpha")
    expect({frame[7].color, frame[8].color, frame[10].color},
        {{r, g, b, float(0.1)}, {r, g, b, 1}, {r, g, b, 1}})
end
host.dim_color(black)
-- Hidden, the dialog keeps its mark; the frame is plain in a run, in the formal view, and with nothing under edit.
host.set("D", {visible = false})
expect(#host.frame(), 2 + 5, "the other dialog, and the mark")
host.set("D", {visible = true, rect = {900, 900, 900, 900}})
expect(host.frame()[8].points, {{900, 900}, {900, 900}, {900, 900}, {900, 900}, {900, 900}})
host.set("D", {rect = {10, 20, 110, 80}})
for _, row in ipairs{
    {function() host.formal_view(1) end, function() host.formal_view(0) end}, {host.start, host.stop},
    {function() host.edit(nil) end, function() host.edit("D") end},
    {function() host.select{} end, function() host.select{"E"} end},
} do
    row[1]()
    expect(host.frame(), plain)
    row[2]()
    expect(host.frame(), edited)
end
host.remove{"D"}
expect({host.frame(), host.state().editing}, {{table.unpack(plain, 4)}, nil})

-- A picture of the same frame: two of one moment are the same file.
expect(host.image(ARGS[1] .. "/frame.png"), true)
expect(host.image("no such folder/frame.png"), nil)
