-- Facts of the legacy format that are arithmetic: colours and text formats.
host.include("tests/scenarios/support/legacy_tree.lua")
local function color(r, g, b) return {float32(r / 255), float32(g / 255), float32(b / 255), 1} end

-- The number, and the channels that it stands for: 255 minus each byte of its absolute value, blue in the lowest;
-- then what is 255 from blue on becomes 0, as far as it goes without a gap.
for _, row in ipairs{
    {0, 0, 0, 0}, {1, 255, 255, 254}, {-1, 255, 255, 254}, {0xFFFFFF, 0, 0, 0}, {0x010203, 254, 253, 252},
    {0x0000FF, 255, 255, 0}, {0x00FF00, 255, 0, 0}, {0xFF0000, 0, 0, 0}, {0x800000, 127, 0, 0}, {0x008000, 255, 127, 0},
    {-256, 255, 254, 0}, {-0x01010200, 254, 253, 0}, {-0x80000000, 0, 0, 0}, {0x7FFFFFFF, 0, 0, 0},
    {0xFFFFFFFF, 255, 255, 254}, {0x01000000, 0, 0, 0},
} do
    expect(host.legacy_color(row[1]), color(row[2], row[3], row[4]), ("colour %d"):format(row[1]))
end

-- The lowest four bits: left, centre, right in the first two of them, top, middle, bottom in the others. The second
-- column is that of texts that run the other way.
local plain = {[0] = 0, 4, 8, 6, 2, 6, 10, 6, 3, 7, 11}
local mirrored = {[0] = 8, 4, 0, 6, 10, 6, 2, 6, 11, 7, 3}
for format = 0, 31 do
    local bits = format & 15
    local known = format <= 26
    expect(host.text_format(format), known and plain[bits] or 6, "format " .. format)
    expect(host.text_format(0x20000 + format), known and mirrored[bits] or 6, "mirrored format " .. format)
end
for _, format in ipairs{-1, 0x25, 0x40, 0x10000, 0x1FFFF, 0x20020, 0x40000, -0x80000000, 0x7FFFFFFF} do
    expect(host.text_format(format), 6, ("unknown format %d"):format(format))
end
