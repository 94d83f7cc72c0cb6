#!/usr/bin/python3
"""Draws every picture of the legacy samples into their folders. Needs pycairo; the same code gives the same pixels."""

import math
from pathlib import Path

import cairo

HERE = Path(__file__).resolve().parent

NIGHT, CELADON, SAND, RUST = (0.06, 0.10, 0.13), (0.48, 0.66, 0.60), (0.93, 0.88, 0.77), (0.72, 0.36, 0.24)


def picture(path, width, height, draw):
    surface = cairo.ImageSurface(cairo.FORMAT_ARGB32, width, height)
    draw(cairo.Context(surface), width, height)
    target = HERE / path
    target.parent.mkdir(parents=True, exist_ok=True)
    surface.write_to_png(str(target))


def rounded(context, width, height, radius, inset=1.5):
    context.new_sub_path()
    for x, y, start in (
        (width - inset - radius, inset + radius, -90),
        (width - inset - radius, height - inset - radius, 0),
        (inset + radius, height - inset - radius, 90),
        (inset + radius, inset + radius, 180),
    ):
        context.arc(x, y, radius, math.radians(start), math.radians(start + 90))
    context.close_path()


def plate(color, alpha, rim):
    def draw(context, width, height):
        rounded(context, width, height, 10)
        context.set_source_rgba(*color, alpha)
        context.fill_preserve()
        context.set_source_rgba(*rim, 0.9)
        context.set_line_width(1.5)
        context.stroke()

    return draw


def band(context, width, height):
    shade = cairo.LinearGradient(0, 0, 0, height)
    shade.add_color_stop_rgba(0, *NIGHT, 0.92)
    shade.add_color_stop_rgba(1, *NIGHT, 0.55)
    context.set_source(shade)
    context.paint()
    context.set_source_rgba(*CELADON, 0.8)
    context.rectangle(0, height - 2, width, 2)
    context.fill()


def vase(context, width, height):
    """Half of the outline, as shares of the height from the top and of half the width; the other half mirrors it."""
    outline = ((0.05, 0.30), (0.10, 0.24), (0.22, 0.22), (0.38, 0.62), (0.55, 0.72), (0.75, 0.52), (0.92, 0.30), (0.96, 0.34))
    middle = width / 2
    points = [(middle + share * middle, at * height) for at, share in outline]
    points += [(2 * middle - x, y) for x, y in reversed(points)]
    context.move_to(*points[0])
    for one, two in zip(points, points[1:]):
        bend = (two[1] - one[1]) / 2
        context.curve_to(one[0], one[1] + bend, two[0], two[1] - bend, *two)
    context.close_path()
    glaze = cairo.LinearGradient(width * 0.15, 0, width * 0.9, 0)
    for at, color in ((0, RUST), (0.35, SAND), (0.6, CELADON), (1, NIGHT)):
        glaze.add_color_stop_rgb(at, *color)
    context.set_source(glaze)
    context.fill_preserve()
    context.set_source_rgba(*NIGHT, 0.8)
    context.set_line_width(2)
    context.stroke()
    context.set_source_rgba(*NIGHT, 0.35)
    for at in (0.40, 0.44, 0.70):
        context.move_to(width * 0.22, at * height)
        context.curve_to(width * 0.4, at * height + 10, width * 0.6, at * height + 10, width * 0.78, at * height)
        context.stroke()


def seal(context, width, height):
    context.arc(width / 2, height / 2, width / 2 - 3, 0, 2 * math.pi)
    context.set_source_rgba(*RUST, 0.95)
    context.fill_preserve()
    context.set_source_rgb(*SAND)
    context.set_line_width(2)
    context.stroke()
    for turn in range(8):
        angle = turn * math.pi / 4
        context.move_to(width / 2, height / 2)
        context.line_to(width / 2 + math.cos(angle) * width * 0.32, height / 2 + math.sin(angle) * height * 0.32)
    context.stroke()


STATES = {
    "normal": plate(NIGHT, 0.75, CELADON),
    "hover": plate(CELADON, 0.55, SAND),
    "down": plate(RUST, 0.90, SAND),
}
PICTURES = (
    [(f"plain_textures/buttons/entry_{state}.png", 200, 48, draw) for state, draw in STATES.items()]
    + [
        ("plain_textures/band.png", 512, 72, band),
        ("plain_textures/board.png", 240, 300, plate(NIGHT, 0.6, CELADON)),
        ("plain_textures/vase.png", 240, 320, vase),
        ("primary_textures/band.png", 512, 72, band),
        ("primary_textures/seal.png", 96, 96, seal),
        ("primary_textures/key.png", 160, 48, plate(RUST, 0.85, SAND)),
        ("both_textures/vase.png", 240, 320, vase),
        ("both_textures/seal.png", 96, 96, seal),
        ("both_textures/board.png", 240, 300, plate(NIGHT, 0.6, CELADON)),
    ]
)

for path, width, height, draw in PICTURES:
    picture(path, width, height, draw)
