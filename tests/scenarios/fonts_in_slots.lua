-- Eight fonts in eight slots: saved, opened again, missing in the middle, and carried to a machine without them. The
-- file of the engine's own font serves as every font.
local folder = ARGS[1]
local file = host.fonts().slots[1].file
local path = file:gsub("/([^/]*)$", "\\%1")
local file_name = path:match("[^\\]*$")
local project = folder .. "/show.sgui"

local function list(names)
    local pairs_of = {}
    for _, name in ipairs(names) do pairs_of[#pairs_of + 1] = {name .. " (TrueType)", path} end
    host.font_registry(pairs_of, folder)
end
local function faces()
    local found = {}
    for at, slot in ipairs(host.fonts().slots) do found[at] = slot.face end
    return found
end
local function record(slot)
    return {face = "Face " .. slot, height = slot % 2 == 0 and -10 - slot or 10 + slot, width = slot, escapement = 2,
        orientation = 3, weight = 400, italic = 0, underline = 200 + slot, strikeout = 255, charset = 134,
        outprecision = 7, clipprecision = 8, quality = 9, pitch = 250}
end

list{"Face 1", "Face 2", "Face 3", "Face 4", "Face 5", "Face 6", "Face 7", "Face 8"}
expect(host.font_map(), {}, "a table that stands knows nothing of a new list")
host.new(800, 600)
expect(host.font_map()["Face 3"], path)
host.dialog{name = "Panel", rect = {0, 0, 800, 600}}
for slot = 0, 7 do
    host.shape{dialog = "Panel", name = "T" .. slot, rect = {0, 0, 99, 20},
        fields = {m_title = "text " .. slot, m_font_type = slot}}
    expect(host.change_font(slot + 1, record(slot + 1), false), true)
end
local function fonts_of_texts()
    local found = {}
    for _, call in ipairs(host.frame()) do
        if call.op == "text" and call.text:find("^text") then found[call.text] = call.font end
    end
    return found
end
expect(fonts_of_texts()["text 5"], 5)
local before = host.fonts()
assert(host.save(project))

-- The way out and back, every field of every record.
assert(host.open(project))
local after = host.fonts()
expect(after.slots, before.slots)
expect(after.slots[2].size, 12, "a negative height is a size too")
expect(after.file_names[8], file_name)
expect(after.records[8].pitch, 250)
expect(after.showing, false, "a load shows no sample")
expect(fonts_of_texts()["text 5"], 5)

-- The third is missing where nothing was ever published: it and all behind it fall back.
list{"Face 1", "Face 2", "Face 4", "Face 8"}
host.calls()
assert(host.open(host.tree(project), folder .. "/bare.sgui"))
expect(faces(), {"Face 1", "Face 2", "Default", "Default", "Default", "Default", "Default", "Default"})
expect(host.calls(), {{"log", 3, "无法加载" .. folder .. "/" .. file_name},
    {"log", 3, "无法加载" .. folder .. "/bare_textures/" .. file_name}})
expect(fonts_of_texts()["text 5"], "default")
expect(host.fonts().created, 2)

-- Published, and carried to where no font is listed.
list{"Face 1", "Face 2", "Face 3", "Face 4", "Face 5", "Face 6", "Face 7", "Face 8"}
assert(host.open(project))
host.calls()
host.publish_fonts()
local told = host.calls()
expect(#told, 17)
expect({told[1], told[2], told[17]}, {{"folder", folder .. "/show_textures/"},
    {"copy", path, folder .. "/show_textures/" .. file_name}, {"box", "复制完成"}})
for _, nothing in ipairs{false, true} do
    if nothing then host.font_registry(nil) else host.font_registry({}, folder) end
    assert(host.open(project))
    local slot = host.fonts().slots[8]
    expect({slot.face, slot.path, slot.size}, {"Face 8", "", 18})
    expect(slot.file, folder .. "/show_textures/" .. file_name)
    expect(host.fonts().status, "Unable to create: " .. folder .. "/" .. file_name)
end

-- What came from beside the project has no name of a file to save, nor a file to publish.
host.calls()
host.publish_fonts()
told = host.calls()
expect({told[2], told[17]}, {{"log", 3, "Font file open failed."}, {"box", "复制完成"}})
for _, child in ipairs(host.save().children[1].children[1].children) do
    for _, property in ipairs(child.properties) do
        if property.key:find("FontFileName$") then expect(property.value, "", property.key) end
    end
end
