local n = 0
for i = 1, 10 do if i % 2 == 0 then goto next end n = n + i ::next:: end
while n > 3 do n = n // 2 end
repeat n = n + 1 until n > 5
return n & 1 | 2 ~ 3 << 1
