-- A project saved and opened again: what is written, what comes back, and what a file may lack.
local folder = ARGS[1] .. "/"

local function property(node, key)
    for _, entry in ipairs(node.properties) do
        if entry.key == key then return entry end
    end
end
local function set(node, key, value) property(node, key).value = value end
local function drop(node, key)
    for at, entry in ipairs(node.properties) do
        if entry.key == key then return table.remove(node.properties, at) end
    end
    error("no " .. key)
end
local function named(node, name)
    if node.name == name then return node end
    for _, child in ipairs(node.children) do
        local found = named(child, name)
        if found then return found end
    end
end
local function item(tree, name)
    local id = host.get(name).id
    for _, node in ipairs(named(tree, "items").children) do
        if property(node, "id").value == id then return node end
    end
end
local function numbers(tree, names)
    local all = {}
    for _, name in ipairs(names) do all[#all + 1] = property(item(tree, name), "m_order_num").value end
    return all
end

-- The keys of both kinds, in the order in which they stand.
local place_keys = {"m_iAlignType", "m_offsetx", "m_offsety", "m_bScaleMode", "m_left_scaleMode", "m_right_scaleMode",
    "m_top_scaleMode", "m_bottom_scaleMode"}
local dialog_keys = {table.unpack(place_keys)}
for _, key in ipairs{"m_rect", "m_order_num"} do table.insert(dialog_keys, key) end
local shape_keys = {"m_rect", "m_color", "m_title", table.unpack(place_keys)}
for _, key in ipairs{"m_bk_image", "m_font_pos_x", "m_font_pos_y", "m_font_org_position", "m_font_color",
    "m_font_shadow", "m_is_static_pic", "m_font_type", "m_order_num", "m_is_usable"} do
    table.insert(shape_keys, key)
end
local sub_items = {"m_texture", "m_texture_hover", "m_texture_down", "m_func_left_down", "m_func_left_up",
    "m_func_right_down", "m_func_right_up", "m_func_middle_down", "m_func_middle_up", "m_func_mouse_in",
    "m_func_mouse_out"}
local function keys_of(node)
    local keys = {}
    for _, entry in ipairs(node.properties) do
        if entry.key:find("^m_") and entry.key ~= "m_item_id" then keys[#keys + 1] = entry.key end
    end
    return keys
end
local function names_of(node)
    local names = {}
    for _, child in ipairs(node.children) do names[#names + 1] = child.name end
    return names
end

-- Every stored field with a value of its own, so that none can come back as another or as its default.
local picture = "samples/showroom/pictures/menu_normal.png"
local stored = {m_color = {0.25, 0.5, 0.75, 1}, m_title = "标题\n2", m_bk_image = 1, m_font_org_position = 11,
    m_font_color = {1, 0.5, 0.25, 0.125}, m_font_shadow = 1, m_is_static_pic = 0, m_font_type = 7, m_is_usable = 0,
    m_left_scaleMode = 0.125, m_right_scaleMode = -0.25, m_top_scaleMode = 2, m_bottom_scaleMode = 0.5}
host.new(800, 600)
host.trans_time(0.25)
for _, name in ipairs{"back", "middle", "front"} do
    host.dialog{name = name, rect = {100, 50, 500, 350}, align = 8}
    for place = 1, 3 do host.shape{dialog = name, name = name .. place, rect = {110, 60, 130, 80}, align = 4} end
end
host.set("front1", stored)
host.set("front1", {textures = {normal = picture, down = "no such.png"},
    scripts = {left_down = "set_ctrl_title('front2', 'pressed')", mouse_out = function() end}})
host.set("back", {visible = false, flag = 1})
gui_script_set_ctrl_layer("front1", 1)
gui_script_set_ctrl_layer("back3", 0)
local tree = host.save()
expect(keys_of(item(tree, "front")), dialog_keys)
expect(keys_of(item(tree, "front1")), shape_keys)
local environment = keys_of(named(tree, "SimpleGUIEnvSetting"))
expect({environment[1], environment[#environment - 1], environment[#environment]},
    {"m_ani_trans_time", "m_scene_width", "m_scene_height"})
table.remove(shape_keys, 3)
expect(keys_of(item(tree, "front2")), shape_keys, "an empty title is not written")
expect(names_of(item(tree, "front2")), sub_items, "the empty ones too")
expect(numbers(tree, {"front", "middle", "back"}), {0, 1, 2}, "the front of the dialogs is number 0")
expect(numbers(tree, {"front1", "front3", "front2"}), {0, 1, 2}, "the top of the shapes is number 0")

-- A file is the tree, and opened elsewhere it gives what was there.
expect(host.save(folder .. "show.sgui"), true)
expect(host.save("no such folder/show.sgui"), nil)
local function without_pictures(node) return {node.name, node.properties} end
for _, name in ipairs{"front", "front1", "back"} do
    expect(without_pictures(item(host.tree(folder .. "show.sgui"), name)), without_pictures(item(tree, name)))
end
local before = host.state()
local front1 = host.get("front1")
host.new(1000, 800)
expect(host.open(folder .. "show.sgui"), true)
local after = host.state()
expect({after.dialogs, after.shapes, after.children}, {before.dialogs, before.shapes, before.children})
expect(after.m_ani_trans_time, 0.25)
expect({after.m_scene_rect, after.m_view_rect}, {{0, 0, 1000, 800}, {0, 0, 1000, 800}})
-- Alignment 8 in a view that is 200 wider and 200 higher, and the shapes at the dialog's corner.
expect(host.get("front").m_rect, {200, 150, 600, 450})
expect(host.get("front").m_last_rect, {200, 150, 600, 450})
expect(host.get("front2").m_rect, {210, 160, 230, 180})
expect({host.get("back").visible, host.get("back").flag}, {false, 1})
local opened = host.get("front1")
for key, value in pairs(stored) do expect(opened[key], value, key) end
expect({opened.id, opened.parent, opened.loaded}, {front1.id, "front", {normal = true, hover = false, down = false}})
expect({opened.m_texture_mode, opened.m_fade_now, opened.m_fade_start}, {1, {0, 0, 0, 0}, {0, 0, 0, 0}})
host.set("front1", {m_is_usable = 1})
host.set("front1", {rect = {0, 0, 50, 50}})
host.start()
expect(host.mouse("left_down", 10, 10), true, "a script comes back")
expect(get_ctrl_title("front2"), "pressed")
expect(host.state().m_gui_hidden, 1, "until a frame of another state shows it")
host.frame()
expect(host.state().m_gui_hidden, 0)

-- Whatever is out of the scene writes nothing, nor do the shapes of such a dialog; the numbers count it all the same.
host.remove{"middle", "front2"}
tree = host.save()
for _, name in ipairs{"middle", "middle1", "front2"} do expect(item(tree, name), nil, name) end
expect(numbers(tree, {"front", "back"}), {0, 2})
expect(numbers(tree, {"front1", "front3"}), {0, 1})
host.restore{"middle", "front2"}
expect(item(host.save(), "front2").name, "item")

-- Trees as no save of today writes them.
local function fresh_tree()
    host.new(800, 600)
    for _, name in ipairs{"A", "B", "C"} do
        host.dialog{name = name, rect = {10, 10, 210, 110}, align = 1}
        host.shape{dialog = name, name = name .. "1", rect = {20, 20, 40, 40}}
        host.shape{dialog = name, name = name .. "2", rect = {20, 20, 40, 40}}
    end
    return host.save()
end
local setting = "SimpleGUIEnvSetting"
-- From the front C, B, A.
local orders = {
    {{A = 7, B = -5, C = 3}, {"B", "C", "A"}},
    {{A = 4, B = 4, C = 9}, {"A", "C"}, "of two with one number the first read stays"},
    {{A = 0, B = 0, C = 0}, {"A"}},
    {{A = -1, B = 1, C = 0}, {"A", "B", "C"}, "an unnumbered dialog leaves the order of the file"},
    {{A = 2, B = 1, C = -1}, {"A", "B", "C"}},
    {{}, {"C", "B", "A"}},
}
for _, row in ipairs(orders) do
    tree = fresh_tree()
    for name, number in pairs(row[1]) do set(item(tree, name), "m_order_num", number) end
    expect(host.open(tree), true)
    expect(host.state().dialogs, row[2], row[3])
    expect(#host.state().shapes, 6, "no shape is lost")
end
-- Shapes the other way round: the higher number lies further below.
for _, row in ipairs{{3, 8, {"A2", "A1"}}, {8, 3, {"A1", "A2"}}, {-1, 0, {"A2", "A1"}}, {5, 5, {"A1"}}} do
    tree = fresh_tree()
    for at, name in ipairs{"A1", "A2"} do set(item(tree, name), "m_order_num", row[at]) end
    expect(host.open(tree), true)
    expect(host.state().children.A, row[3])
end

-- The size at which the project was saved is seen where the opening ends early; else the present view takes its place.
for _, row in ipairs{
    {1023.5, 600.25, {0, 0, 1024, 600}}, {0, 600, {0, 0, 800, 600}}, {-5, 600, {0, 0, 800, 600}},
    {1, 0.5, {0, 0, 1, 1}},
} do
    tree = fresh_tree()
    set(named(tree, setting), "m_scene_width", row[1])
    set(named(tree, setting), "m_scene_height", row[2])
    set(item(tree, "A"), "m_order_num", -1)
    expect(host.open(tree), true)
    expect(host.state().m_scene_rect, row[3], row)
end

-- Keys that are not there leave the defaults.
tree = fresh_tree()
for _, key in ipairs{"m_iAlignType", "m_bScaleMode", "m_offsetx"} do drop(item(tree, "A"), key) end
for _, key in ipairs{"m_color", "m_is_static_pic", "m_is_usable", "m_font_org_position"} do
    drop(item(tree, "A1"), key)
end
item(tree, "A1").children = {}
drop(named(tree, setting), "m_ani_trans_time")
host.trans_time(3)
expect(host.open(tree), true)
expect({host.get("A").m_iAlignType, host.get("A").m_rect}, {0, {0, 10, 200, 110}})
local a1 = host.get("A1")
expect({a1.m_color[1], a1.m_is_static_pic, a1.m_is_usable, a1.m_font_org_position}, {1, 1, 1, 6})
expect(host.state().m_ani_trans_time, 0.5)
named(tree, "CSimpleGUIManager").children = {}
expect(host.open(tree), true)
expect(host.state().m_ani_trans_time, 0.5)
expect(host.state().dialogs, {"C", "B", "A"})

-- A shape under something that is no dialog has no parent, and the mouse passes it over.
tree = fresh_tree()
set(item(tree, "A2"), "parent", host.get("A1").id)
expect(host.open(tree), true)
expect(host.get("A2").parent, nil)
expect(host.state().children.A, {"A1"})

-- Of a kind that nobody makes: said of which item, for a tree has no lines.
tree = fresh_tree()
set(item(tree, "A2"), "type", 4711)
local opened, reason = host.open(tree)
expect(opened, nil)
assert(reason:find('^"A2": unknown kind of item %(found type 4711'), reason)

-- What can't be opened leaves the open project as it is and says why.
local no_tree = {name = "x", children = {1}}
for _, wrong in ipairs{folder .. "nothing.sgui", "samples", "tests/scenarios/saving.lua", no_tree} do
    local good, message = host.open(wrong)
    expect(good, nil)
    assert(#message > 0)
end
expect(host.state().dialogs, {"C", "B", "A"})
expect(host.tree(folder .. "nothing.sgui"), nil)
