-- The primary layout of legacy projects: stages become dialogs that fill the view, panels become their shapes.
host.include("tests/scenarios/support/legacy_tree.lua")
local function place(numbers, ...) return keys("panel_pos", numbers, ...) end
local function import(...)
    host.new(801, 601)
    assert(host.import(node("old", node("UIStages", ...)), "samples/showroom/showroom.xyz"))
    return host.state()
end
local function only(...)
    import(node("stage", keys("p", ...)))
    return host.get("p")
end

-- Which stages become dialogs, and which of them stands for the root dialog.
local p = keys("p", {})
local extras = {node("绘图区"), node("桌面"), value("stage_name", 20, "x"), value("stage_type", 3, 1), false}
for note, row in pairs{
    ["in the order of the file"] = {{node("A", p), false, node("B")}, {"B", "A"}, "A"},
    ["the loading stage"] = {{node("加载页面", p), node("B", p)}, {"B"}, "B"},
    ["an empty main stage that was the root"] = {{node("主页面", table.unpack(extras)), node("B")}, {"B"}, "B"},
    ["an empty main stage behind another"] = {{node("B"), node("主页面")}, {"B"}, "B"},
    ["an empty main stage alone"] = {{node("主页面")}, {}},
    ["a main stage with a panel"] = {{node("主页面", p, table.unpack(extras)), node("B")}, {"B", "主页面"}, "主页面"},
} do
    local state = import(table.unpack(row[1]))
    expect(state.dialogs, row[2], note)
    expect(state.root, row[3], note)
    host.frame()
end
local state = import(node("A", keys("one", {}), table.unpack(extras)), node("B", keys("two", {}), keys("three", {})))
expect(state.children, {A = {"one"}, B = {"two", "three"}}, "panels keep the order of the file")
local fills = host.get("A")
expect({fills.m_rect, fills.m_last_rect, fills.m_bScaleMode, fills.visible}, {{0, 0, 801, 601}, {0, 0, 801, 601}, 1, true})

-- Offset 10.5, 6.4 and size 100 × 21 at each anchor of a stage of 801 × 601: the offset is rounded first, then each
-- axis is near, in the middle (400.5 - 50 + 11, 300.5 - 10.5 + 6) or far (801 - 100 - 11, 601 - 21 - 6).
local x, y = {11, 362, 690}, {6, 296, 574}
for mode, align in pairs{0, 1, 2, 7, 8, 3, 6, 5, 4} do
    local left, top = x[(mode - 1) % 3 + 1], y[(mode - 1) // 3 + 1]
    local got = only({}, place({align_mode = mode}, value("offset_in_pixel", 8, {10.5, 6.4, 3}),
        value("size_in_pixel", 15, {100, 21})))
    expect(got.m_rect, {left, top, left + 100, top + 21}, "align_mode " .. mode)
    expect({got.m_iAlignType, got.m_bScaleMode}, {align, 0})
end
for _, mode in ipairs{0, 10, -1} do
    local got = only({}, place({align_mode = mode, locate_mode = 2}, value("offset_in_pixel", 8, {10, 6, 0}),
        value("size_in_pixel", 15, {100, 20})))
    expect({got.m_rect, got.m_iAlignType, got.m_bScaleMode}, {{0, 0, 100, 20}, 0, 0}, "no anchor")
end

-- By fractions the size in pixels means nothing, and halves go up: 801 / 2 is 400.5, 601 / 2 is 300.5.
local got = only({}, place({locate_mode = 1, align_mode = 3}, value("size_in_pixel", 15, {100, 20}),
    value("percent_left", 9, 0.5), value("percent_top", 9, 0.25), value("percent_right", 9, 1), value("percent_bottom", 9, 0.5)))
expect({got.m_rect, got.m_bScaleMode, got.m_iAlignType}, {{401, 150, 801, 301}, 1, 2})

-- Without any key: no place, the defaults of the format.
got = only({})
expect({got.m_rect, got.m_iAlignType, got.visible, got.m_is_static_pic}, {{0, 0, 0, 0}, 0, true, 1})
expect(got.m_color, {1, 1, float32(254 / 255), 1})
expect({got.m_font_color, got.m_font_org_position, got.m_font_type, got.m_title}, {{1, 1, float32(254 / 255), 1}, 0, 0, ""})
expect({got.id, got.m_primary_import}, {"00000000-0000-0000-0000-000000000000", false})

-- Keys one by one.
for _, row in ipairs{
    {{visible = 0}, {visible = false}}, {{visible = 5}, {visible = true}},
    {{panel_type = 10}, {m_is_static_pic = 0}}, {{panel_type = 20}, {m_is_static_pic = 0}}, {{panel_type = 11}, {m_is_static_pic = 1}},
    {{color = 0}, {m_color = {0, 0, 0, 1}}}, {{text_color = 0xFFFF}, {m_font_color = {1, 0, 0, 1}}},
    {{text_format = 0x25}, {m_font_org_position = 6}}, {{text_format = 0x20002}, {m_font_org_position = 0}},
    {{text_font_idx = 7}, {m_font_type = 7}}, {{text_font_idx = 8}, {m_font_type = 0}}, {{text_font_idx = -1}, {m_font_type = 0}},
    {{color = 0, ENABLE_TRANSP = 2, TRANSP_TYPE = 1, TRANS_FACTOR = 51}, {m_color = {0, 0, 0, float32(0.2)}, m_primary_import = true}},
    {{color = 0, ENABLE_TRANSP = 1, TRANSP_TYPE = 1}, {m_color = {0, 0, 0, 0}, m_primary_import = true}},
    {{color = 0, ENABLE_TRANSP = 1, TRANSP_TYPE = 2, TRANS_FACTOR = 51}, {m_color = {0, 0, 0, 1}, m_primary_import = false}},
    {{color = 0, TRANSP_TYPE = 1, TRANS_FACTOR = 51}, {m_color = {0, 0, 0, 1}, m_primary_import = false}},
} do
    got = only(row[1])
    for field, wanted in pairs(row[2]) do expect(got[field], wanted, host.json(row[1]) .. " " .. field) end
end
got = only({}, value("id", 11, id(3)))
expect({got.id, got.m_item_id}, {id(3), id(3)})

-- Raw texts: an end by a zero, by the mark ABAB, by the length; an odd byte is dropped.
for hex, wanted in pairs{
    ["61006200ABAB63006400"] = "ab", ["6100620063"] = "ab", ["610000006200"] = "a", ["61"] = "", [""] = "",
    ["6100ABCD6200"] = "a\u{CDAB}b", ["3DD800DE6100"] = "😀a", ["00006100"] = "",
} do
    expect(only({}, {name = "text_buf", value = {hex = hex}}).m_title, wanted, hex)
end
expect(only({}, {name = "text_buf", value = "开始"}).m_title, "开始")
expect(only({}, {name = "text_buf", value = ("x"):rep(5000)}).m_title, ("x"):rep(5000), "of any length")
expect(only({}, node("text_buf")).m_title, "")

-- A picture that can't be shown is dropped; a panel has one picture alone.
local function texture(file) return node("texture", value("FILENAME", 4, file)) end
expect(only({panel_type = 10}, texture("E:/old/close_down.png")).textures,
    {normal = "samples/showroom/showroom_textures/close_down.png"})
expect(only({}, texture("E:/old/nothing.png")).textures, {})
expect(only({}, texture("README.md")).textures, {}, "a file that is no picture")
expect(only({}, node("texture")).textures, {})
