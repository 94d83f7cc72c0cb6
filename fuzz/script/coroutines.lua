local co = coroutine.wrap(function(...) for i, v in ipairs{...} do coroutine.yield(v, i) end error{"end"} end)
print(pcall(function() while true do co(1, 2, 3) end end))
goto done
do local x <close> = setmetatable({}, {__close = function() print("closed") end}) end
::done::
