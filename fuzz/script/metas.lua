local t = setmetatable({}, {__index = function(t, k) return k end, __call = print, __tostring = function() return 'x' end})
local x <close> = setmetatable({}, {__close = error})
print(pcall(t, t.a .. tostring(t)), xpcall(error, print, t))
