-- An author picks fonts: what is tried, what is found, and what shows for two seconds.
local file = host.fonts().slots[1].file
local path = file:gsub("/([^/]*)$", "\\%1")

expect(host.font_candidates{face = "Arial", weight = 250}, {"Arialensed ExtraLight", "Arial ExtraLight", "Arialensed",
    "Arial", "Arial", "Arial Regular"})
expect(host.font_candidates{face = "Default"}, {}, "the engine's own font is not looked for")
expect(host.font_names(path).single, {}, "a collection is no single font")
expect(host.font_names("no such file"), {single = {}, collection = {}})

host.font_registry({{"Own Bold (TrueType)", path}, {"Own(Thin)", path}, {"Lost", "lost.ttf"}}, "no folder")
host.default_font{height = 40, italic = true}
host.cursor_pos(3, 4)
host.new(400, 300)
local map = host.font_map()
expect({map["Own Bold"], map["Ow"], map["Lost"]}, {path, path, "no folder\\lost.ttf"})
for _, name in ipairs(host.font_names(path).collection) do expect(map[name], path, name) end
local slot = host.fonts().slots[1]
expect({slot.face, slot.height, slot.italic, slot.weight, slot.charset}, {"Default", 40, 1, 400, 255})

local function shown()
    local calls = host.frame()
    return calls[#calls] and {calls[#calls].text, calls[#calls].font, calls[#calls].x, calls[#calls].y}
end
host.clock(10)
expect(host.change_font(2, {face = "Default"}), true)
expect(shown(), {"蓝岭科Quorlin", "default", 200, 150})
expect(host.state().sample_flag, true)
host.clock(11)
expect(host.change_font(2, {face = "Own", weight = 700, height = -20}), true)
expect(shown(), {"Own Bold", 1, 200, 150})
host.clock(12.5)
expect(host.change_font(2, {face = "own", weight = 700}), false, "names are told apart by case")
expect(shown(), {"Unable to find font path.", 1, 200, 150})
host.calls()
expect(host.change_font(2, {face = "Lost"}), false, "the first name that is listed decides")
expect(host.calls(), {{"log", 3, "无法加载no folder\\lost.ttf"}})
expect(shown(), {"Unable to create: no folder\\lost.ttf", 1, 200, 150})
for _, number in ipairs{0, 9, -1} do
    host.clock(13)
    expect(host.change_font(number, {face = "Own"}), false)
end
host.clock(14.25)
expect(shown()[2], 1, "a wrong number changes no moment")
host.clock(14.5)
expect(shown(), nil)
expect({host.state().sample_flag, host.fonts().showing}, {false, false})
expect(host.fonts().created, 1)
expect(host.change_font(2, {face = "Default"}, true), true)
expect(host.fonts().created, 0)
expect(host.fonts().slots[2].default, true)

-- A flag that another has raised stays up.
host.sample_view(true)
host.change_font(1, {face = "Default"})
host.advance(2)
host.frame()
expect(host.state().sample_flag, true)
