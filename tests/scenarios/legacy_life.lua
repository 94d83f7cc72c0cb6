-- An imported project lives like any other: drawn, resized, run, animated, saved, opened, cleaned, imported again.
-- Nothing names a dialog that the import itself has thrown away.
host.include("tests/scenarios/support/legacy_tree.lua")
local out = ARGS[1] or "out"

local function dialog(name, number, ...)
    return keys(name, {POSX = 100, POSY = 50, WIDTH = 200, HEIGHT = 100, Flag = 1, m_iAlignType = 8}, value("GUID", 11, id(number)), ...)
end
local control = keys("control", {POSX = 10, POSY = 10, WIDTH = 50, HEIGHT = 20, VISIBLE = 1, Type = 11, Align = 4},
    value("NAME", 6, "C"), value("GUID", 11, id(2)), value("Caption", 20, "一二"),
    node("Texture", value("FILENAME", 4, "C:\\gone.png")))
local stage = node("S", keys("P", {color = 0}, value("id", 11, id(3)),
    keys("panel_pos", {align_mode = 9}, value("size_in_pixel", 15, {50, 20}), value("offset_in_pixel", 8, {10, 10, 0}))))
local bars = node("BARS", node("move", node("CMDS",
    keys("one", {TYPE = 3}, value("DLG", 11, id(1)), node("KEYS", keys("k", {m_bVisible = 1, iAlignType = 8}, value("m_sizex", 9, 200), value("m_sizey", 9, 100)),
        keys("k", {m_bVisible = 1, iAlignType = 8}, value("TIME", 3, 1.5), value("m_offset_x", 9, 50), value("m_sizex", 9, 200), value("m_sizey", 9, 100)))),
    keys("two", {TYPE = 5}, value("ID", 11, id(3)), node("KEYS", keys("k", {COLOR = 0xFF}))))))

local trees = {
    ["both layouts"] = {node("GUI", node("Dialogs", dialog("D", 1, node("Controls", control)))), node("UIStages", stage, node("主页面"))},
    ["an empty main stage first"] = {node("UIStages", node("主页面"), stage)},
    ["a root dialog that goes"] = {node("GUI", node("Root Dialog", keys("ROOT", {WIDTH = 640, HEIGHT = 480})))},
    ["a root dialog that stays"] = {node("GUI", node("Root Dialog", keys("ROOT", {WIDTH = 640, HEIGHT = 480, Flag = 1}, node("Controls", control))))},
    ["nothing but places without nodes"] = {false, node("GUI", false), node("UIStages", false)},
}
local function named(list, name)
    for _, one in ipairs(list) do if one == name then return true end end
    return false
end
for note, tree in pairs(trees) do
    host.new(801, 601)
    assert(host.import(node("old", node("Timebar", bars), table.unpack(tree)), "C:/a/b.xyz"))
    local state = host.state()
    assert(state.root == nil and #state.dialogs == 0 or named(state.dialogs, state.root), note)
    expect(state.editing, nil, note)
    local before = host.frame()
    host.start()
    for _, seconds in ipairs{0, 0.75, 1.5, 3} do
        host.clock(seconds)
        for at in ipairs(host.state().nodes) do host.animate(at, seconds) end
        host.mouse("move", 400, 300)
        host.frame()
    end
    host.stop()
    host.view(400, 300)
    host.view(0, 0)
    host.view(801, 601)
    -- What was saved comes back as it was, the words in the place of lost pictures included.
    local items = {}
    for _, name in ipairs(host.state().shapes) do items[name] = host.get(name) end
    local file = out .. "/life.sgui"
    assert(host.save(file))
    assert(host.open(file))
    expect(#host.state().dialogs, #state.dialogs, note)
    expect(host.state().animations, state.animations, note)
    for name, item in pairs(items) do
        local again = host.get(name)
        for _, field in ipairs{"m_rect", "m_color", "m_title", "m_iAlignType", "m_font_org_position", "id", "visible"} do
            expect(again[field], item[field], note .. ": " .. field)
        end
    end
    host.frame()
    host.clean()
    host.frame()
end

-- The first dialog stands for the root dialog only while it lives; a shape without a dialog then finds none.
host.new(800, 600)
assert(host.import(node("old", trees["both layouts"][1]), "x"))
expect(host.state().root, "D")
host.destroy("D")
expect(host.state().root, nil)
host.frame()

-- A file is read as a tree that gives the same project.
for _, name in ipairs{"plain", "primary", "both"} do
    local file = "samples/legacy/" .. name .. ".legacy"
    local states = {}
    for at, source in ipairs{file, assert(host.tree(file))} do
        host.new(1024, 768)
        assert(host.import(source, file))
        states[at] = {host.state(), host.frame()}
        host.start()
        host.stop()
    end
    expect(states[2], states[1], name)
end
local tree = host.tree("samples/legacy/plain.legacy")
local root_keys = tree.children[1].children[1].children[1].children
expect(root_keys[1].value, root_keys[1].value:upper())
expect({root_keys[1].name, root_keys[1].code, root_keys[2]}, {"GUID", 11, {name = "WIDTH", code = 3, value = 1024, children = {}}})

-- A tree that is none, and a file that is none, leave the open project as it is.
host.new(800, 600)
host.dialog{name = "kept"}
for _, tree in ipairs{{name = "old", children = {{name = "x", code = 3, value = "text"}}}, {children = 5}, {name = "x", code = 99, value = 1},
    {name = "x", code = 3}, {name = "x", value = {hex = "0"}}, {nonsense = 1}, {name = "x", code = 8, value = {1, 2}}} do
    local made, message = host.import(tree, "x")
    expect(made, nil)
    assert(#message > 10, message)
    expect(host.state().dialogs, {"kept"})
end
for _, path in ipairs{"nowhere.legacy", "samples/showroom/showroom.sgui", "README.md"} do
    local made, message = host.import(path)
    expect(made, nil)
    assert(message:find(path .. ":1: ", 1, true) or message:find(path .. ":", 1, true), message)
    expect(host.state().dialogs, {"kept"})
end
