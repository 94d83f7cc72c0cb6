local t = {3, 1, 2}
table.sort(t, function(a, b) return a > b end)
table.insert(t, 1, 9) table.remove(t)
return table.concat(t, ','), table.unpack(table.move(t, 1, 2, 3)), select('#', pairs(t))
