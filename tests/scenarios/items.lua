-- Making dialogs and shapes: their names, their order, how they are found again, and what becomes of those that leave.
host.new(800, 600)
expect({host.dialog{}, host.dialog{}}, {"窗口0", "窗口1"})
expect({host.shape{dialog = "窗口1"}, host.shape{dialog = "窗口0"}}, {"图片按钮0", "图片按钮1"},
    "shapes count apart from dialogs")
local state = host.state()
expect(state.dialogs, {"窗口1", "窗口0"}, "a new dialog lies in front of the others")
expect(state.shapes, {"图片按钮0", "图片按钮1"})
expect(state.children, {["窗口0"] = {"图片按钮1"}, ["窗口1"] = {"图片按钮0"}})
expect(state.editing, nil, "a shape with a dialog of its own leaves the editing alone")

-- What a new item is, as far as its maker said nothing.
local fresh_place = {m_rect = {0, 0, 0, 0}, m_in_scene = true, m_iAlignType = 0, m_offsetx = 0, m_offsety = 0,
    m_bScaleMode = 0, m_left_scaleMode = 0, m_right_scaleMode = 0, m_top_scaleMode = 0, m_bottom_scaleMode = 0,
    m_order_num = -1, visible = true}
local fresh = {
    ["窗口0"] = {kind = "dialog", m_type = 83783, m_last_rect = {0, 0, 0, 0}},
    ["图片按钮0"] = {kind = "shape", m_type = 83782, parent = "窗口1", m_title = "", m_texture_mode = 1,
        m_fade_start = {0, 0, 0, 0}, m_fade_now = {0, 0, 0, 0}, m_font_org_position = 6, m_font_pos_x = 0,
        m_font_pos_y = 0, m_font_color = {1, 1, 1, 1}, m_font_shadow = 0, m_bk_image = 0, m_is_static_pic = 1,
        m_font_type = 0, m_is_usable = 1, m_primary_import = false, textures = {},
        loaded = {normal = false, hover = false, down = false},
        m_color = {1, 1, 1, (string.unpack("f", string.pack("f", 0.2)))}},
}
for name, wanted in pairs(fresh) do
    local item = host.get(name)
    for _, fields in ipairs{fresh_place, wanted} do
        for key, value in pairs(fields) do expect(item[key], value, name .. "." .. key) end
    end
end

-- Found by name and by identifier, however the identifier is written; by the first in the list of several.
local ID = "ABCDEF00-1111-2222-3333-444455556666"
host.dialog{name = "Panel", id = ID:lower()}
host.shape{dialog = "Panel", name = "Twin"}
host.shape{dialog = "Panel", name = "Twin"}
local twin = host.find("shape", "Twin")
expect(host.get(ID:lower()).name, "Panel")
expect(host.get("Panel").id, ID)
host.set(twin, {visible = false})
host.remove{twin}
for _, row in ipairs{
    {"dialog", "Panel", ID}, {"dialog", "panel", nil}, {"dialog", {id = ID}, ID}, {"shape", {id = ID}, nil},
    {"shape", "Panel", nil}, {"shape", "Twin", twin}, {"shape", {id = twin}, twin},
} do
    expect(host.find(row[1], row[2]), row[3], row)
end
expect({host.get("Twin").id, host.get("nobody")}, {twin}, "of two of one name the earlier one, also out of the scene")

-- Without a dialog a shape goes to the one under edit, else to the root dialog, which is then under edit.
expect(pcall(host.shape, {}), false, "no dialog under edit and no root dialog")
host.edit("窗口0")
expect(host.get(host.shape{}).parent, "窗口0")
host.edit(nil)
host.root()
local root = host.state().root
expect(host.get(root).m_rect, {0, 0, 800, 600})
expect(host.get(host.shape{}).parent, root)
expect(host.state().editing, root)
host.view(1000, 500)
expect(host.get(root).m_rect, {0, 0, 1000, 500}, "the root dialog follows the view")

-- Messages of leaving and coming back: only those two, only for items of this kind, whatever else the list holds.
host.edit("Panel")
local function in_scene() return {host.get("Panel").m_in_scene, host.get("窗口0").m_in_scene} end
host.message(23, {"Panel"})
host.message(0)
expect(in_scene(), {true, true})
host.message(21, {false, "Panel", "图片按钮0", false})
expect(in_scene(), {false, true})
expect(host.get("图片按钮0").m_in_scene, false)
expect(host.state().editing, nil, "what is gone can't be edited")
host.message(22, {false, "Panel", "图片按钮0"})
expect(in_scene(), {true, true})
expect(host.state().editing, nil, "coming back does not bring the editing back")
host.edit("窗口0")
host.message(21, {"Panel"})
expect(host.state().editing, "窗口0")
expect(host.get(host.find("shape", "Twin")).m_in_scene, false, "the shapes of a removed dialog are named themselves")

-- Destroyed: the dialog is forgotten everywhere, its shapes stay without a parent and bear what may be done to them.
host.shape{dialog = "窗口0", name = "Orphan", rect = {1, 2, 3, 4}}
host.destroy("窗口0")
expect(host.state().editing, nil)
expect(host.state().children["窗口0"], nil)
expect(host.get("Orphan").parent, nil)
host.clock(5)
host.set("Orphan", {rect = {5, 6, 7, 8}, align = 4, mode = 2})
for _, what in ipairs{"rect", "offsets", "fontpos"} do host.update("Orphan", what) end
expect(host.get("Orphan").m_rect, {5, 6, 7, 8})
expect(host.get("Orphan").m_mode_time, 0)
expect(host.get("Orphan").m_offsetx, 1, "without a frame the offsets stay")
host.destroy(root)
expect(host.state().root, nil)

-- A clean project begins the numbers again, whatever names there are; a new one has nothing of the old.
host.clean()
expect(host.dialog{}, "窗口0")
host.new(640, 480)
expect(host.state().dialogs, {})
expect(host.state().shapes, {})
expect({host.find("dialog", "窗口0"), host.find("shape", {id = twin})}, {})
expect(host.state().m_view_rect, {0, 0, 640, 480})

-- A shape that changes its dialog stays where it is and is described anew; the engine hears of it once.
host.dialog{name = "From", rect = {100, 50, 500, 350}}
host.dialog{name = "To", rect = {10, 20, 210, 120}}
host.shape{dialog = "To", name = "Other"}
host.shape{dialog = "From", name = "Mover", rect = {110, 60, 130, 80}}
host.calls()
host.set("Mover", {parent = "From"})
expect(host.calls(), {}, "its own dialog is no change")
host.set("Mover", {parent = "To"})
expect(host.calls(), {{"parent", "Mover", "To"}, {"message", 35, 0, 0, 0, 0, 0, 0}})
expect(host.state().children, {From = {}, To = {"Other", "Mover"}}, "on top of the others")
local mover = host.get("Mover")
expect({mover.m_rect, mover.m_offsetx, mover.m_offsety}, {{110, 60, 130, 80}, 100, 40})

-- A name is found without a walk through all items, which would take minutes here.
host.new(800, 600)
host.dialog{name = "D"}
for at = 1, 10000 do host.shape{dialog = "D", name = "S" .. at} end
for _ = 1, 6 do
    for at = 1, 10000 do host.update("S" .. at, "offsets") end
end
