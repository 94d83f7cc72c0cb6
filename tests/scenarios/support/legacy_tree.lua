-- Nodes of legacy trees, as host.import takes them.
function node(name, ...) return {name = name, children = {...}} end
function value(key, code, given) return {name = key, code = code, value = given} end
function id(n) return ("00000000-0000-0000-0000-%012d"):format(n) end
-- A node with whole numbers under its keys, and what else is handed in behind them.
function keys(name, numbers, ...)
    local made = node(name, ...)
    for key, number in pairs(numbers) do table.insert(made.children, value(key, 3, number)) end
    return made
end
-- As whoever stores four bytes for a number has it.
function float32(number) return (string.unpack("f", string.pack("f", number))) end
