-- Any script may do anything to anything: each mouse event at each place of its walk, with each change to the shape that
-- acts, its neighbours and the dialogs around. What is met, what is lit and what is hovered, in this event and in those
-- that follow, is held against a plain walk over a copy of the list.
local events = {"left_down", "left_up", "right_down", "right_up", "middle_down", "middle_up"}
-- Where a mouse can be: over the acting shape, over another place, over none.
local here, there, far = {20, 20}, {320, 20}, {700, 500}
local at_here, at_there, at_far = {0, 0, 50, 50}, {300, 0, 350, 50}, {600, 0, 610, 10}

---- The plain walk --------------------------------------------------------------------------------------------------

local plain
local function plain_add(name, dialog, rect, scripts)
    local made = {name = name, dialog = dialog, rect = rect, scripts = scripts, alive = true, in_scene = true,
        visible = true, usable = true, mode = 1}
    plain.list[#plain.list + 1] = made
    plain.named[name] = made
    return made
end
local function plain_kill(it)
    it.alive = false
    if plain.hover == it then plain.hover = nil end
    if plain.named[it.name] == it then plain.named[it.name] = nil end
    for at, one in ipairs(plain.list) do
        if one == it then return table.remove(plain.list, at) end
    end
end
local function plain_stop()
    plain.run, plain.running = plain.run + 1, false
    for _, it in ipairs(plain.list) do it.mode = 1 end
end
local function plain_start() plain.running = true end
local function plain_script(it, event)
    if it.scripts[event] then it.scripts[event]() end
end
local function plain_walk(x, y, visit)
    local run, list = plain.run, table.move(plain.list, 1, #plain.list, 1, {})
    for at = #list, 1, -1 do
        local it = list[at]
        if run ~= plain.run then return end
        if it.alive and it.in_scene and it.visible and it.dialog and it.dialog.visible then
            local r = it.rect
            if visit(it, x >= r[1] and y >= r[2] and x < r[3] and y < r[4]) then return end
        end
    end
end
local function plain_mouse(event, x, y)
    local used, hover = false, nil
    if not plain.running then return false end
    plain_walk(x, y, function(it, inside)
        if event == "move" then
            if not inside then
                if it.mode ~= 3 then it.mode = 1 end
                return
            end
            if it.mode == 1 then it.mode = 2 end
            if it.usable and next(it.scripts) then hover = it end
        elseif event:find("up") then
            it.mode = inside and 2 or 1
            if inside and it.usable then plain_script(it, event) end
        elseif inside then
            it.mode = 3
            used = it.usable and it.scripts[event] ~= nil
            if used then plain_script(it, event) end
            return used
        end
    end)
    if event ~= "move" then return used end
    if hover ~= plain.hover then
        if hover then plain_script(hover, "mouse_in") end
        if plain.hover then plain_script(plain.hover, "mouse_out") end
    end
    plain.hover = hover and hover.alive and hover or nil
    return false
end

---- What a script does: to the host, and to the plain list. ----------------------------------------------------------

local empty
local function plain_each(dialog, act)
    for _, it in ipairs(table.move(plain.list, 1, #plain.list, 1, {})) do
        if it.dialog == dialog then act(it) end
    end
end
local function each(dialog, act)
    for _, name in ipairs(host.state().children[dialog] or {}) do act(name) end
end
local restyled = {m_color = {1, 0, 0, 0.5}, m_title = "长", m_font_type = 7, m_font_shadow = 1, align = 8, scale = 1}
local function plain_clear()
    plain_stop()
    while plain.list[1] do plain_kill(plain.list[1]) end
end
local log
local function logged(name, event) return function() log[#log + 1] = name .. " " .. event end end

local shape_changes = {
    {"delete", function(name) gui_script_del_ctrl(name) end, plain_kill},
    {"end", function(name) host.destroy(name) end, plain_kill},
    {"hide", function(name) gui_script_show_ctrl(name, 0) end, function(it) it.visible = false end},
    {"hide and show", function(name)
        gui_script_show_ctrl(name, 0)
        gui_script_show_ctrl(name, 1)
    end, function() end},
    {"move", function(name) host.set(name, {rect = at_far}) end, function(it) it.rect = at_far end},
    {"move over there", function(name) host.set(name, {rect = at_there}) end, function(it) it.rect = at_there end},
    {"turn inside out", function(name) host.set(name, {rect = {50, 50, 0, 0}}) end, function(it) it.rect = {0, 0, 0, 0} end},
    {"restyle", function(name)
        host.set(name, restyled)
        for slot = 0, 2 do set_ctrl_texture(name, slot, "none.png") end
    end, function() end},
    {"make static", function(name)
        set_ctrl_type(name, 1)
        set_ctrl_bkimage(name, 1)
    end, function() end},
    {"disable", function(name) set_ctrl_usable(name, false) end, function(it) it.usable = false end},
    {"take the scripts", function(name)
        local none = {mouse_in = false, mouse_out = false}
        for _, event in ipairs(events) do none[event] = false end
        host.set(name, {scripts = none})
    end, function(it) it.scripts = {} end},
    {"give to the last dialog", function(name) host.set(name, {parent = "C"}) end,
        function(it) it.dialog = plain.dialogs.C end},
    {"give to a hidden dialog", function(name)
        gui_script_show_dialog("A", 0)
        host.set(name, {parent = "A"})
    end, function(it)
        plain.dialogs.A.visible = false
        it.dialog = plain.dialogs.A
    end},
    {"put on top", function(name) gui_script_set_ctrl_layer(name, 1) end, function() end},
    {"put at the bottom", function(name) gui_script_set_ctrl_layer(name, 0) end, function() end},
    {"remove", function(name) host.remove{name} end, function(it) it.in_scene = false end},
    {"remove and restore", function(name)
        host.remove{name}
        host.restore{name}
    end, function() end},
    {"put another in its place", function(name, scripts)
        gui_script_del_ctrl(name)
        host.shape{dialog = "B", name = name, rect = at_here, flag = 1, scripts = scripts}
    end, function(it, scripts)
        plain_kill(it)
        plain_add(it.name, plain.dialogs.B, at_here, scripts)
    end},
    {"animate", function(name)
        host.node(name)
        host.key(name, "visible", 0, {m_visible = 0}, true)
        host.animate(name, 0, 1)
    end, function(it) it.visible = false end},
}
local dialog_changes = {
    {"delete with all in it", function(name)
        each(name, gui_script_del_ctrl)
        host.destroy(name)
    end, function(it) plain_each(it, plain_kill) end},
    {"end", function(name) host.destroy(name) end, function(it) plain_each(it, function(child) child.dialog = nil end) end},
    {"hide", function(name) gui_script_show_dialog(name, 0) end, function(it) it.visible = false end},
    {"hide and show", function(name)
        gui_script_show_dialog(name, 0)
        gui_script_show_dialog(name, 1)
    end, function() end},
    {"move", function(name) host.set(name, {rect = {400, 300, 800, 600}}) end, function(it)
        plain_each(it, function(child)
            local r = child.rect
            child.rect = {r[1] + 400, r[2] + 300, r[3] + 400, r[4] + 300}
        end)
    end},
    {"restyle", function(name) host.set(name, {align = 8, scale = 1}) end, function() end},
    -- Whether a dialog is in the scene plays no part for the mouse.
    {"remove", function(name) host.remove{name} end, function() end},
    {"remove and restore", function(name)
        host.remove{name}
        host.restore{name}
    end, function() end},
    {"empty into the first", function(name)
        each(name, function(child) host.set(child, {parent = "A"}) end)
    end, function(it) plain_each(it, function(child) child.dialog = plain.dialogs.A end) end},
    {"turn over", function(name) each(name, function(child) gui_script_set_ctrl_layer(child, 1) end) end, function() end},
}
local changes_of_all = {
    {"nothing", function() end, function() end},
    {"stop the run", function() host.stop() end, plain_stop},
    {"stop the run and begin another", function()
        host.stop()
        host.start()
    end, function()
        plain_stop()
        plain_start()
    end},
    -- Refused for as long as an event is on its way.
    {"open another project", function() assert(not host.open(empty)) end, function() end},
    {"begin a new project", function() host.new(800, 600) end, plain_clear},
    {"add many", function(_, scripts)
        for at = 1, 40 do
            host.shape{dialog = "A", name = "new" .. at, rect = at_here, flag = 1, scripts = scripts}
        end
    end, function(_, scripts)
        for at = 1, 40 do plain_add("new" .. at, plain.dialogs.A, at_here, scripts) end
    end},
    {"let the view vanish and come back", function()
        host.view(0, 0)
        host.frame()
        host.view(800, 600)
    end, function() end},
    {"send the same event once more", function(_, _, again) again(host.mouse) end,
        function(_, _, again) again(plain_mouse) end},
}

---- The cells --------------------------------------------------------------------------------------------------------

local shapes = {}
for at = 1, 9 do shapes[at] = {name = "s" .. at, dialog = ("ABC"):sub((at + 2) // 3, (at + 2) // 3)} end
local cells, wrong = 0, 0

-- `before` and `at` are where the mouse is ahead of the event and in it; `event` is what the acting shape answers.
local function cell(acting, event, before, at, change, target)
    local moves = event:find("mouse") ~= nil
    local pointer = moves and "move" or event
    local function again(mouse) mouse(pointer, at[1], at[2]) end
    -- Both sides from the same start, each with what its script does.
    local function scripts_of(number, act)
        local scripts = {left_up = true, mouse_in = true, mouse_out = true}
        -- A press meets the first one that has a script for it.
        if number <= acting or not event:find("down") then scripts[event] = true end
        local made, acted = {}, false
        for key in pairs(scripts) do
            local tell = logged("s" .. number, key)
            made[key] = function()
                tell()
                if number ~= acting or key ~= event or acted then return end
                acted = true
                act()
            end
        end
        return made
    end
    -- Of those that can be hovered the first in the list is, so these lie elsewhere; the last one instead of none.
    local function rect_of(number)
        local is_other = moves and (number < acting or acting == 1 and number == 9)
        return is_other and at_there or at_here
    end
    local new_scripts = {left_up = logged("new", "left_up"), mouse_in = logged("new", "mouse_in")}
    -- A press and its look outlast moves; a release ends it.
    local function follow(mouse, state)
        for _, one in ipairs{{"move", far}, {"move", here}, {"left_down", here}, {"left_up", here}, {"move", there}} do
            log[#log + 1] = tostring(mouse(one[1], one[2][1], one[2][2]))
            log[#log + 1] = state()
        end
    end

    host.new(800, 600)
    for _, name in ipairs{"A", "B", "C"} do host.dialog{name = name, rect = {0, 0, 400, 300}} end
    for number, it in ipairs(shapes) do
        host.shape{dialog = it.dialog, name = it.name, rect = rect_of(number), flag = 1,
            scripts = scripts_of(number, function() change[2](target, new_scripts, again) end)}
    end
    local function state_of_host()
        local looks = {}
        for _, name in ipairs(host.state().shapes) do
            looks[#looks + 1] = name .. host.get(name).m_texture_mode
        end
        return table.concat(looks, " ") .. ", " .. tostring(host.state().hover)
    end
    log = {}
    host.start()
    host.mouse("move", before[1], before[2])
    log[#log + 1] = tostring(host.mouse(pointer, at[1], at[2]))
    log[#log + 1] = state_of_host()
    follow(host.mouse, state_of_host)
    host.frame()
    log[#log + 1] = state_of_host()
    host.stop()
    log[#log + 1] = state_of_host()
    local got = table.concat(log, "; ")

    log = {}
    plain = {list = {}, named = {}, dialogs = {}, run = 0}
    for _, name in ipairs{"A", "B", "C"} do plain.dialogs[name] = {visible = true} end
    for number, it in ipairs(shapes) do
        plain_add(it.name, plain.dialogs[it.dialog], rect_of(number), scripts_of(number, function()
            change[3](plain.dialogs[target] or plain.named[target], new_scripts, again)
        end))
    end
    local function state_of_plain()
        local looks = {}
        for _, it in ipairs(plain.list) do looks[#looks + 1] = it.name .. it.mode end
        return table.concat(looks, " ") .. ", " .. tostring(plain.hover and plain.hover.name)
    end
    plain_start()
    plain_mouse("move", before[1], before[2])
    log[#log + 1] = tostring(plain_mouse(pointer, at[1], at[2]))
    log[#log + 1] = state_of_plain()
    follow(plain_mouse, state_of_plain)
    log[#log + 1] = state_of_plain()
    plain_stop()
    log[#log + 1] = state_of_plain()

    cells = cells + 1
    if got == table.concat(log, "; ") then return end
    wrong = wrong + 1
    if wrong <= 10 then
        print(("%s of s%d, %s: %s\n  is  %s\n  not %s"):format(event, acting, change[1], tostring(target), got,
            table.concat(log, "; ")))
    end
end

host.new(800, 600)
host.dialog{name = "D", rect = {0, 0, 10, 10}}
empty = host.save()
for acting = 1, 9 do
    local stories = {{"mouse_in", far, here}, {"mouse_in", there, here}, {"mouse_out", here, far}, {"mouse_out", here, there}}
    for _, event in ipairs(events) do stories[#stories + 1] = {event, far, here} end
    for _, story in ipairs(stories) do
        local event, before, at = table.unpack(story)
        for _, change in ipairs(changes_of_all) do cell(acting, event, before, at, change) end
        -- The shape itself, and its neighbours in the walk.
        for number = math.max(acting - 1, 1), math.min(acting + 1, 9) do
            for _, change in ipairs(shape_changes) do cell(acting, event, before, at, change, "s" .. number) end
        end
        for _, dialog in ipairs{"A", "B", "C"} do
            for _, change in ipairs(dialog_changes) do cell(acting, event, before, at, change, dialog) end
        end
    end
end
local holds = wrong == 0 and cells > 8000
print(("scripts: each change in each event\t%d cells, %d not as the plain walk\tnone of at least 8000\t%s"):format(cells,
    wrong, holds and "holds" or "DOES NOT HOLD"))
assert(holds)
