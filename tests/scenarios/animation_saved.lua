-- Keys of a project that is opened in a view of another size: the form that leads is kept, the other follows the new
-- frame. A dialog in the scale mode leads with its fractions, an anchored one with its pixels.

local function place(name)
    local offset, size = host.key_at(name, "offset", 0), host.key_at(name, "size", 0)
    return {offset.m_offset, offset.m_offset_percent, size.m_size, size.m_size_percent}
end

host.new(400, 300)
host.dialog{name = "Scaled", rect = {0, 0, 400, 300}, scale = 1}
host.dialog{name = "Anchored", rect = {10, 10, 50, 50}}
for _, name in ipairs{"Scaled", "Anchored"} do
    host.node(name)
    host.key(name, "offset", 0, {m_offset = {100, 150}, m_offset_percent = {0.25, 0.5}})
    host.key(name, "size", 0, {m_size = {200, 75}, m_size_percent = {0.5, 0.25}})
end
local tree = host.save()

host.new(800, 600)
expect(host.open(tree), true)
expect(place("Scaled"), {{200, 300}, {0.25, 0.5}, {400, 150}, {0.5, 0.25}})
expect(place("Anchored"), {{100, 150}, {0.125, 0.25}, {200, 75}, {0.25, 0.125}})
expect(host.state().nodes, {"Scaled", "Anchored"})
host.animate("Scaled", 0)
expect(host.get("Scaled").m_rect, {200, 300, 600, 450})

-- Without a change of the view nothing is left to bring in line, so what was opened is what is saved.
local saved = host.save()
expect(host.open(saved), true)
expect(host.save(), saved)
