#!/usr/bin/python3
"""Draws every picture of the showroom into pictures/. Needs pycairo; the same code gives the same pixels."""

import math
from pathlib import Path

import cairo

PICTURES = Path(__file__).resolve().parent / "pictures"
# Where scripts find pictures by their names alone: beside the project, in a folder named after it.
SCRIPT_PICTURES = Path(__file__).resolve().parent / "showroom_textures"

# The palette: one dark glass, one ivory for lines, one champagne accent. Alpha is given where a colour is used.
INK = (0.045, 0.052, 0.070)
WHITE = (1.0, 1.0, 1.0)
IVORY = (0.95, 0.93, 0.89)
CHAMPAGNE = (0.91, 0.75, 0.51)
BRONZE = (0.47, 0.35, 0.20)

# A plate of a button in its three states: fill, fill alpha, rim, rim alpha, colour of the icon on it.
PLATES = {
    "normal": (WHITE, 0.07, WHITE, 0.10, IVORY),
    "hover": (WHITE, 0.16, CHAMPAGNE, 0.75, CHAMPAGNE),
    "down": (BRONZE, 0.90, CHAMPAGNE, 1.00, WHITE),
}


# ---- canvas -------------------------------------------------------------------------------------------------------


def picture(name, width, height, draw, folder=PICTURES):
    """Draws one picture with `draw(context)` and stores it."""
    surface = cairo.ImageSurface(cairo.FORMAT_ARGB32, width, height)
    draw(cairo.Context(surface))
    surface.write_to_png(str(folder / f"{name}.png"))


def rounded(context, x, y, width, height, radius):
    context.new_sub_path()
    for corner_x, corner_y, start in (
        (x + width - radius, y + radius, -90),
        (x + width - radius, y + height - radius, 0),
        (x + radius, y + height - radius, 90),
        (x + radius, y + radius, 180),
    ):
        context.arc(corner_x, corner_y, radius, math.radians(start), math.radians(start + 90))
    context.close_path()


def polyline(context, points, closed=False):
    context.move_to(*points[0])
    for point in points[1:]:
        context.line_to(*point)
    if closed:
        context.close_path()
    context.stroke()


def circle(context, x, y, radius):
    context.new_sub_path()
    context.arc(x, y, radius, 0, 2 * math.pi)


def ray(context, degrees, near, far):
    across, down = math.cos(math.radians(degrees)), math.sin(math.radians(degrees))
    polyline(context, [(across * near, down * near), (across * far, down * far)])


# ---- icons: drawn around the origin in a square of 24, with the stroke and colour that the caller has set ---------


def loop(context, width, height):
    """The mark of the house: one line that crosses itself and never ends."""
    steps = [2 * math.pi * i / 96 for i in range(96)]
    polyline(context, [(width * math.sin(t), height * math.sin(2 * t)) for t in steps], closed=True)


def icon_form(context):
    loop(context, 10, 5)


def icon_material(context):
    polyline(context, [(0, -9), (10, -4), (0, 1), (-10, -4)], closed=True)
    polyline(context, [(-10, 0.5), (0, 5.5), (10, 0.5)])
    polyline(context, [(-10, 5), (0, 10), (10, 5)])


def sun(context, core, near, far, rays):
    circle(context, 0, 0, core)
    context.stroke()
    for i in range(rays):
        ray(context, 360 * i / rays, near, far)


def icon_light(context):
    sun(context, 4.2, 7.6, 10, 8)


def icon_dim(context):
    sun(context, 3.4, 7.0, 7.01, 8)


def icon_bright(context):
    sun(context, 4.6, 8.0, 11, 8)


def icon_visit(context):
    rounded(context, -9, -7.5, 18, 17, 2.5)
    context.stroke()
    polyline(context, [(-9, -2), (9, -2)])
    for x in (-4.5, 4.5):
        polyline(context, [(x, -10), (x, -5.5)])


def icon_turn_right(context):
    context.arc(0, 0, 8, math.radians(25), math.radians(335))
    context.stroke()
    polyline(context, [(7.25, -9.4), (7.25, -3.4), (1.25, -3.4)])


def icon_turn_left(context):
    context.scale(-1, 1)
    icon_turn_right(context)


def icon_home(context):
    polyline(context, [(-9.5, -0.5), (0, -9), (9.5, -0.5)])
    polyline(context, [(-6.5, -2.5), (-6.5, 8.5), (6.5, 8.5), (6.5, -2.5)])
    polyline(context, [(0, 8.5), (0, 3.5)])


def icon_info(context):
    circle(context, 0, 0, 9)
    context.stroke()
    polyline(context, [(0, -0.5), (0, 4.5)])
    polyline(context, [(0, -4.5), (0, -4.49)])


def icon_language(context):
    circle(context, 0, 0, 9)
    context.stroke()
    context.save()
    context.scale(0.45, 1)
    circle(context, 0, 0, 9)
    context.restore()
    context.stroke()
    polyline(context, [(-9, 0), (9, 0)])


def icon_close(context):
    polyline(context, [(-6, -6), (6, 6)])
    polyline(context, [(-6, 6), (6, -6)])


def icon_fold(context):
    for x in (-5, 2):
        polyline(context, [(x + 4, -6), (x - 2, 0), (x + 4, 6)])


def icon_unfold(context):
    context.scale(-1, 1)
    icon_fold(context)


MENU_ICONS = {"form": icon_form, "material": icon_material, "light": icon_light, "visit": icon_visit}
BUTTON_ICONS = {
    "home": icon_home,
    "info": icon_info,
    "turn_left": icon_turn_left,
    "turn_right": icon_turn_right,
    "dim": icon_dim,
    "bright": icon_bright,
    "language": icon_language,
}
SMALL_ICONS = {"close": icon_close, "fold": icon_fold, "unfold": icon_unfold}


def icon_at(context, icon, x, y, color):
    context.save()
    context.translate(x, y)
    context.set_source_rgb(*color)
    context.set_line_width(1.75)
    context.set_line_cap(cairo.LINE_CAP_ROUND)
    context.set_line_join(cairo.LINE_JOIN_ROUND)
    icon(context)
    context.restore()


# ---- surfaces -----------------------------------------------------------------------------------------------------


def glass(context, width, height, radius=16):
    """A pane of dark glass: lighter where the light falls on its upper edge."""
    shade = cairo.LinearGradient(0, 0, 0, height)
    shade.add_color_stop_rgba(0, 0.085, 0.096, 0.122, 0.80)
    shade.add_color_stop_rgba(1, *INK, 0.86)
    rounded(context, 0, 0, width, height, radius)
    context.set_source(shade)
    context.fill()
    rim = cairo.LinearGradient(0, 0, 0, height)
    rim.add_color_stop_rgba(0, *WHITE, 0.22)
    rim.add_color_stop_rgba(1, *WHITE, 0.06)
    rounded(context, 0.5, 0.5, width - 1, height - 1, radius - 0.5)
    context.set_source(rim)
    context.set_line_width(1)
    context.stroke()


def plate(context, width, height, state, radius):
    fill, fill_alpha, rim, rim_alpha, _ = PLATES[state]
    rounded(context, 0.5, 0.5, width - 1, height - 1, radius)
    context.set_source_rgba(*fill, fill_alpha)
    context.fill_preserve()
    context.set_source_rgba(*rim, rim_alpha)
    context.set_line_width(1)
    context.stroke()


def menu_plate(context, width, height, state):
    plate(context, width, height, state, 10)
    if state != "normal":
        rounded(context, 1, height / 2 - 12, 3, 24, 1.5)
        context.set_source_rgb(*CHAMPAGNE)
        context.fill()


def icon_button(context, size, state, icon):
    plate(context, size, size, state, 10)
    icon_at(context, icon, size / 2, size / 2, PLATES[state][4])


def small_button(context, size, state, icon):
    """Without a plate until the mouse is on it, so that it does not compete with what it closes."""
    if state != "normal":
        plate(context, size, size, state, 8)
    context.save()
    context.translate(size / 2, size / 2)
    context.scale(0.7, 0.7)
    icon_at(context, icon, 0, 0, PLATES[state][4])
    context.restore()


def swatch(context, size, state):
    """White on purpose: the project tints it, so one set of pictures serves every colour."""
    middle = size / 2
    radius = {"normal": 15, "hover": 15, "down": 13}[state]
    ball = cairo.RadialGradient(middle - 4, middle - 5, 2, middle, middle, radius)
    ball.add_color_stop_rgb(0, 1.0, 1.0, 1.0)
    ball.add_color_stop_rgb(1, 0.80, 0.80, 0.80)
    circle(context, middle, middle, radius)
    context.set_source(ball)
    context.fill()
    if state != "normal":
        circle(context, middle, middle, 18.5)
        context.set_source_rgba(*WHITE, 1.0 if state == "down" else 0.8)
        context.set_line_width(2.5 if state == "down" else 1.5)
        context.stroke()


def gauge(context, size, percent):
    middle, start = size / 2, math.radians(-90)
    context.set_line_width(4)
    context.set_line_cap(cairo.LINE_CAP_ROUND)
    circle(context, middle, middle, middle - 3)
    context.set_source_rgba(*WHITE, 0.12)
    context.stroke()
    context.arc(middle, middle, middle - 3, start, start + 2 * math.pi * percent / 100)
    context.set_source_rgb(*CHAMPAGNE)
    context.stroke()


def logo(context, size):
    context.translate(size / 2, size / 2)
    sheen = cairo.LinearGradient(-size / 2, -size / 4, size / 2, size / 4)
    sheen.add_color_stop_rgb(0, 1.0, 0.93, 0.80)
    sheen.add_color_stop_rgb(1, 0.78, 0.57, 0.31)
    context.set_source(sheen)
    context.set_line_width(3.5)
    loop(context, size / 2 - 2, size / 4)


def top_bar(context, width, height):
    shade = cairo.LinearGradient(0, 0, 0, height)
    shade.add_color_stop_rgba(0, *INK, 0.95)
    shade.add_color_stop_rgba(1, *INK, 0.78)
    context.set_source(shade)
    context.paint()


def vignette(context, width, height):
    """Only black with a falling alpha, so that it darkens any scene without tinting it."""
    context.scale(width / 2, height / 2)
    context.translate(1, 1)
    shade = cairo.RadialGradient(0, 0, 0.55, 0, 0, 1.42)
    for stop, alpha in ((0.0, 0.0), (0.35, 0.07), (0.7, 0.26), (1.0, 0.55)):
        shade.add_color_stop_rgba(stop, 0, 0, 0, alpha)
    context.set_source(shade)
    context.paint()


# ---- the list of pictures: sizes are those of the shapes that show them, but for gradients that are stretched -----

GLASS_PANES = {
    "menu_panel": (224, 308),
    "info_panel": (304, 520),
    "finish_panel": (544, 88),
    "visit_panel": (320, 232),
}
GAUGES = (82, 64, 91)


def main():
    PICTURES.mkdir(exist_ok=True)
    SCRIPT_PICTURES.mkdir(exist_ok=True)
    picture("vignette", 640, 360, lambda c: vignette(c, 640, 360))
    picture("top_bar", 8, 72, lambda c: top_bar(c, 8, 72))
    picture("logo", 48, 48, lambda c: logo(c, 48))
    for name, (width, height) in GLASS_PANES.items():
        picture(name, width, height, lambda c: glass(c, width, height))
    for percent in GAUGES:
        picture(f"gauge_{percent}", 72, 72, lambda c: gauge(c, 72, percent))
    for name, icon in MENU_ICONS.items():
        picture(f"icon_{name}", 24, 24, lambda c: icon_at(c, icon, 12, 12, IVORY))
    for state in PLATES:
        picture(f"menu_{state}", 192, 56, lambda c: menu_plate(c, 192, 56, state))
        picture(f"choice_{state}", 84, 44, lambda c: plate(c, 84, 44, state, 10))
        picture(f"book_{state}", 272, 48, lambda c: plate(c, 272, 48, state, 10))
        for name, icon in SMALL_ICONS.items():
            picture(f"{name}_{state}", 28, 28, lambda c: small_button(c, 28, state, icon), SCRIPT_PICTURES)
        picture(f"swatch_{state}", 40, 40, lambda c: swatch(c, 40, state))
        for name, icon in BUTTON_ICONS.items():
            picture(f"{name}_{state}", 40, 40, lambda c: icon_button(c, 40, state, icon))


if __name__ == "__main__":
    main()
