local s = ("ab%d"):rep(20, "-"):format(1, 2, 3)
for w in s:gmatch("%a+") do s = s:gsub(w, "%0%0", 3) end
return s:find("(b+)%-%1"), ("%q %5.2f %x"):format(s, 1.5, 255)
