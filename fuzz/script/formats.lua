return string.format('%5.1f %q %x %s %c', 1.5, 'a', 255, {}, 65), string.pack('<i4s', 1, 'a'), utf8.char(0x4E2D), utf8.len('ä¸­'), tonumber('0x1p4'), math.random(3)
