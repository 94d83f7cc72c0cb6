local t = setmetatable({}, {__index = function(_, k) return k .. "x" end})
for i = 1, 9 do t[i] = t[i - 1] end
table.sort(t, function(a, b) return #a > #b end)
print(table.concat(t, ","), select("#", table.unpack(t)))
