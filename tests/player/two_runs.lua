-- What would differ between two runs if it came from addresses, clocks or chance.
print({}, print, math.random(1000000), math.randomseed(), math.random(1000000), host.json(host.state()))
for key, value in pairs({b = 1, a = 2, 10, 20, [2.5] = 3}) do print(key, value) end
host.dialog{name = "D"}
print(host.get("D").id, 0/0, 1/0, -1/0)
print(table.unpack(ARGS))
