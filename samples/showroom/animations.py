"""The animations of the showroom: what moves, and when. Change the tables here and run make_project.py again."""

import xml.etree.ElementTree as xml
from dataclasses import dataclass, field

from writing import identifier, put, text_of

GUI_NODE = 1001
PLACE, SIZE, VISIBLE, ALIGN, COLOR = range(1002, 1007)
SCALED = 9  # the alignment of keys whose fractions lead


# ---- what the tables below are made of ----------------------------------------------------------------------------


@dataclass
class At:
    """A moment of an anchored item: pixels from the anchor. None keeps the item's own number."""

    seconds: float
    x: int = None
    y: int = None
    align: int = None


@dataclass
class Stretched:
    """A moment of a scaled item: how far it is from its place, as fractions of the frame."""

    seconds: float
    right: float = 0.0
    down: float = 0.0


@dataclass
class Fade:
    """From clear to the item's own colour, or to another one, between two moments."""

    start: float
    end: float
    color: tuple = None


@dataclass
class Move:
    """What becomes of one item. With `shown` it is hidden up to that moment."""

    name: str
    places: tuple = ()
    fade: Fade = None
    shown: float = None


@dataclass
class Animation:
    name: str
    length: float
    moves: list
    there_and_back: bool = False
    count: int = 1
    start: bool = False


# ---- what moves ---------------------------------------------------------------------------------------------------


def fade_in(shapes, start, step=0.0, length=0.35):
    """Pictures and surfaces fade, words appear when the surface under them can be read on; each `step` later."""
    moves = []
    for index, shape in enumerate(shapes):
        begin = start + step * index
        if shape.color[3] > 0:
            moves.append(Move(shape.name, fade=Fade(begin, begin + length)))
        else:
            moves.append(Move(shape.name, shown=begin + length * 0.6))
    return moves


def by_row(dialog, start, step):
    """The shapes of a dialog from the top down, those of one line together, behind the surface under them."""
    ground = [shape for shape in dialog.shapes if shape.background]
    rest = [shape for shape in dialog.shapes if not shape.background]
    lines = sorted({shape.place.y for shape in rest})
    moves = fade_in(ground, start)
    for shape in rest:
        moves += fade_in([shape], start + 0.15 + step * lines.index(shape.place.y))
    return moves


def opening(dialogs):
    """The panels come in from their sides, the mark travels from the middle of its bar to its place at the left. All
    lies near its place from the beginning, so that nobody has to wait before pressing a button."""
    menu, panel, finish = (dialogs[name] for name in ("侧栏菜单", "信息面板", "配色栏"))
    moves = [
        Move("顶栏", (Stretched(0.0, down=-0.02), Stretched(0.4, down=-0.004), Stretched(0.7))),
        Move("顶栏底图", fade=Fade(0.0, 0.5)),
        Move("顶栏边线", shown=0.4),
        Move("标志", (At(0.0, -24, -24, align=8), At(0.5, -24, -24), At(1.25, 40, -24, align=7)), Fade(0.1, 0.45)),
        Move("产品名", shown=1.3),
        Move("产品类别", shown=1.4),
        Move("按钮语言", fade=Fade(0.8, 1.2)),
        Move("按钮复位", fade=Fade(0.9, 1.3)),
        Move("按钮说明", fade=Fade(1.0, 1.4)),
        Move("侧栏菜单", (At(0.3, menu.place.x - 72), At(0.55, menu.place.x - 16), At(0.9))),
        Move("信息面板", (At(0.3, panel.place.x + 72), At(0.55, panel.place.x + 16), At(0.9))),
    ]
    moves += by_row(menu, 0.3, 0.06)
    moves += by_row(panel, 0.3, 0.03)
    swatches = [shape for shape in finish.shapes if shape.name.startswith("配色") and shape.button]
    others = [shape for shape in finish.shapes if shape not in swatches]
    moves += fade_in(others, 0.7) + fade_in(swatches, 0.9, 0.07)
    return Animation("入场", 1.8, moves, start=True)


def folding(dialogs):
    """The information panel leaves to the right; turned round it comes back."""
    panel = dialogs["信息面板"]
    moves = [Move("信息面板", (At(0.0), At(0.35, panel.place.x + 36), At(0.6, 40)))]
    for shape in panel.shapes:
        if shape.background:
            moves.append(Move(shape.name, fade=Fade(0.6, 0.2)))
    return Animation("信息收起", 0.6, moves)


def breathing():
    """The line under the bar glows as long as the show runs; it is scaled, so its keys are fractions of the bar."""
    glow = Fade(0.0, 1.6, color=(0.91, 0.75, 0.51, 0.55))
    return Animation("呼吸", 1.6, [Move("顶栏边线", (Stretched(0.0),), glow)], there_and_back=True, count=-1, start=True)


# ---- from the tables to keys --------------------------------------------------------------------------------------


@dataclass
class Tracks:
    """The keys of one item: for each track a list of (seconds, ((kind, key, value), ...))."""

    keys: dict = field(default_factory=lambda: {track: [] for track in range(PLACE, COLOR + 1)})

    def add(self, track, seconds, *properties):
        self.keys[track].append((seconds, properties))

    def add_place(self, seconds, frame, pixels, fractions):
        width, height = frame[2] - frame[0], frame[3] - frame[1]
        x, y = pixels or (fractions[0] * width, fractions[1] * height)
        left, top = fractions or (x / width, y / height)
        self.add(PLACE, seconds, pair("offset", x, y), pair("offset_percent", left, top))

    def add_size(self, seconds, frame, rect, fractions=None):
        width, height = rect[2] - rect[0], rect[3] - rect[1]
        share = fractions or (width / (frame[2] - frame[0]), height / (frame[3] - frame[1]))
        self.add(SIZE, seconds, pair("size", width, height), pair("size_percent", *share))

    def add_color(self, seconds, color):
        red, green, blue, alpha = (float(part) for part in color)
        self.add(COLOR, seconds, ("vec3", "color", (red, green, blue)), ("float", "alpha", alpha))


def pair(key, x, y):
    return "vec3", key, (float(x), float(y), 0.0)


def tracks_of(move, item, frame):
    """`frame` is the rectangle that the item lies in."""
    tracks = Tracks()
    rect = item.place.rect(frame)
    scaled = hasattr(item.place, "bottom")
    if scaled and (move.places or move.fade):
        # Without keys its own fractions would be taken from whole pixels at every step.
        place = item.place
        for at in move.places or (Stretched(0.0),):
            tracks.add_place(at.seconds, frame, None, (place.left + at.right, place.top + at.down))
        tracks.add_size(0.0, frame, rect, (place.right - place.left, place.bottom - place.top))
        tracks.add(ALIGN, 0.0, ("int", "align", SCALED))
    elif move.places:
        for at in move.places:
            x = item.place.x if at.x is None else at.x
            y = item.place.y if at.y is None else at.y
            tracks.add_place(at.seconds, frame, (x, y), None)
            if at.align is not None:
                tracks.add(ALIGN, at.seconds, ("int", "align", at.align))
        tracks.add_size(0.0, frame, rect)
        if not tracks.keys[ALIGN]:
            tracks.add(ALIGN, 0.0, ("int", "align", item.place.align))
    if move.fade:
        clear = item.color if move.fade.color else (*item.color[:3], 0.0)
        full = move.fade.color or item.color
        for seconds, color in sorted(((move.fade.start, clear), (move.fade.end, full))):
            tracks.add_color(seconds, color)
    if move.shown is not None:
        tracks.add(VISIBLE, 0.0, ("int", "visible", 0))
        tracks.add(VISIBLE, move.shown, ("int", "visible", 1))
    return tracks


def put_tracks(node, tracks):
    parent = xml.SubElement(node, "node", name="tracks")
    for number, keys in tracks.keys.items():
        track = xml.SubElement(parent, "node", name="track")
        put(track, "int", "track_type", number)
        put(track, "int", "type", number)
        list_of_keys = xml.SubElement(track, "node", name="keys")
        for seconds, properties in keys:
            key = xml.SubElement(list_of_keys, "node", name="child")
            put(key, "float", "time", float(seconds))
            for kind, name, value in properties:
                put(key, kind, name, value)


def put_animations(project, dialogs, view):
    """Behind the items of the project. `view` is the rectangle in which it is stored."""
    frames = {dialog.name: (dialog, view) for dialog in dialogs}
    for dialog in dialogs:
        frames |= {shape.name: (shape, dialog.place.rect(view)) for shape in dialog.shapes}
    by_name = {dialog.name: dialog for dialog in dialogs}
    section = xml.SubElement(project, "animations")
    for animation in (opening(by_name), breathing(), folding(by_name)):
        settings = {
            "name": animation.name,
            "length": text_of(float(animation.length)),
            "rate": "30",
            "mode_flag": text_of(animation.there_and_back),
            "mode_count": str(animation.count),
            "factor": "1",
            "start": text_of(animation.start),
        }
        element = xml.SubElement(section, "animation", settings)
        for move in animation.moves:
            node = xml.SubElement(element, "anim_node", type=str(GUI_NODE), item=identifier(move.name))
            put_tracks(node, tracks_of(move, *frames[move.name]))
