-- Scripts of shapes as texts, as a project holds them: those that never end or ask for all memory are stopped, those
-- that are wrong end by themselves, and in each case the next event works. What was wrong goes to standard error; that
-- each ends at all is seen from the time that this file may take.
host.new(800, 600)
host.dialog{name = "D", rect = {0, 0, 400, 300}}
host.shape{dialog = "D", name = "S", rect = {0, 0, 50, 50}}
host.start()

-- Each begins by leaving a sign, and would leave another at its end.
local function run(body)
    set_ctrl_title("S", "")
    host.set("S", {scripts = {left_down = 'set_ctrl_title("S", "begun")\n' .. body .. '\nset_ctrl_title("S", "done")'}})
    host.calls()
    expect(host.mouse("left_down", 20, 20), true, "a script that failed has run all the same")
    expect(host.calls(), {{"script", "S", "left_down"}})
    return get_ctrl_title("S")
end
expect(run(""), "done")
for _, body in ipairs{
    "while true do end",
    "repeat local ok = pcall(function() while true do end end) until false",
    "local function again() return again() end again()",
    "local function deep() return 1 + deep() end deep()",
    "local t = {} for i = 1, 1e12 do t[i] = i end",
    "local s = 'x' while true do s = s .. s end",
    "string.rep('x', 1e10)",
    "local t = setmetatable({}, {__index = function(t, k) return t[k + 1] end}) local x = t[1]",
    "local x = ('a'):rep(40):find(('a*'):rep(30) .. 'b')",
    "error('no way')",
    "nothing.x = 1",
    "get_ctrl_rect(5)",
    "get_ctrl_rect()",
    "host.stop()",
    "io.open('x')",
} do
    expect(run(body), "begun", body)
    expect(run(""), "done", "after " .. body)
end
host.set("S", {scripts = {left_down = "this is no Lua"}})
expect(host.mouse("left_down", 20, 20), true)

-- A function of the scenario is no exception; what stopped it is an error of the call that led to it.
for _, never in ipairs{
    function() while true do end end,
    function() while true do pcall(error) end end,
    function() local t = {} while true do t[#t + 1] = ("x"):rep(1e5) .. #t end end,
} do
    host.set("S", {scripts = {left_down = never, right_down = function() set_ctrl_title("S", "right") end}})
    local good, message = pcall(host.mouse, "left_down", 20, 20)
    expect(good, false)
    assert(message:find("too m") or message:find("memory"), message)
    set_ctrl_title("S", "")
    expect({host.mouse("right_down", 20, 20), get_ctrl_title("S")}, {true, "right"})
end
for _ = 1, 3e7 do end  -- The scenario itself may go on for as long as it likes.

-- One script's failure leaves the other scripts of the same event alone, and globals last as long as the run.
host.shape{dialog = "D", name = "T", rect = {0, 0, 50, 50}, scripts = {left_up = "while true do end"}}
host.set("S", {scripts = {left_up = 'count = (count or 0) + 1 set_ctrl_title("S", "up " .. count)'}})
for at = 1, 2 do
    host.mouse("left_up", 20, 20)
    expect(get_ctrl_title("S"), "up " .. at)
end
host.stop()
host.start()
host.mouse("left_up", 20, 20)
expect(get_ctrl_title("S"), "up 1", "a new run begins without the globals of the last")

-- What a getter leaves unwritten is, to a script, what the answer held before.
host.set("S", {scripts = {left_down = 'set_ctrl_title("S", tostring(get_ctrl_txt_color("nobody")[4]))'}})
host.mouse("left_down", 20, 20)
expect(get_ctrl_title("S"), "1.0")
