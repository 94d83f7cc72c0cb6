#!/usr/bin/python3
"""Writes showroom.sgui, the project of the showroom. Change the tables here and run it again."""

import struct
import xml.etree.ElementTree as xml
from dataclasses import dataclass, field
from pathlib import Path

from animations import put_animations
from behaviour import BOOK, CLOSE_VISIT, FOLD, HURRY, VISIT, choose_day, entry, language, say
from writing import identifier, put, put_text, text_of

PROJECT = Path(__file__).resolve().parent / "showroom.sgui"
VIEW = (0, 0, 1280, 720)  # the size at which the project is stored; every other size follows from the anchors
FADE_SECONDS = 0.3

DIALOG, SHAPE, TEXTURE, SCRIPT = 83783, 83782, 100001, 100002

# Anchors on the frame, and the points of a shape on which its text hangs, by the numbers that projects store.
LEFT_TOP, TOP, RIGHT_TOP, RIGHT, RIGHT_BOTTOM, BOTTOM, LEFT_BOTTOM, LEFT, CENTER = range(9)
ANCHOR_HALVES = ((0, 0), (1, 0), (2, 0), (2, 1), (2, 2), (1, 2), (0, 2), (0, 1), (1, 1))
TEXT_LEFT_TOP, TEXT_LEFT, TEXT_CENTER_TOP, TEXT_CENTER, TEXT_RIGHT = 0, 2, 4, 6, 10

CLEAR = (1, 1, 1, 0)
OPAQUE = (1, 1, 1, 1)
HAIRLINE = (1, 1, 1, 0.12)
IVORY = (0.95, 0.93, 0.89, 1)
MUTED = (0.72, 0.74, 0.78, 1)
FAINT = (0.72, 0.74, 0.78, 0.5)
CHAMPAGNE = (0.91, 0.75, 0.51, 1)


# ---- the fonts, a slot each; the others show the engine's default font -----------------------------------------------


@dataclass
class Font:
    face: str = "Default"
    height: int = 18
    weight: int = 400
    char_set: int = 255
    file: str = "Default"  # lies in showroom_textures/, for machines without the font


LATIN_SLOT, NUMBER_SLOT = 1, 2
FONTS = {
    LATIN_SLOT: Font("Quicksand", 18, 500, 1, "Quicksand-Medium.ttf"),
    NUMBER_SLOT: Font("Quicksand", 22, 500, 1, "Quicksand-Medium.ttf"),
}


# ---- what the tables below are made of ----------------------------------------------------------------------------


@dataclass
class Anchored:
    """Keeps its size in pixels; x and y lead from the anchor to the left top corner."""

    align: int
    x: int
    y: int
    width: int
    height: int

    def rect(self, frame):
        left, top, right, bottom = frame
        across, down = ANCHOR_HALVES[self.align]
        x = left + self.x + (right - left) * across // 2
        y = top + self.y + (bottom - top) * down // 2
        return x, y, x + self.width, y + self.height


@dataclass
class Scaled:
    """Grows and shrinks with its frame; the four numbers are fractions of it."""

    left: float
    top: float
    right: float
    bottom: float

    def rect(self, frame):
        left, top, right, bottom = frame
        width, height = right - left, bottom - top
        return (
            left + int(width * self.left + 0.5),
            top + int(height * self.top + 0.5),
            left + int(width * self.right + 0.5),
            top + int(height * self.bottom + 0.5),
        )


@dataclass
class Shape:
    name: str
    place: object
    color: tuple = OPAQUE
    title: str = ""
    text_at: int = TEXT_CENTER
    text_color: tuple = IVORY
    font: int = 0  # the slot
    shadow: bool = False
    background: bool = False
    button: bool = False
    usable: bool = True
    pictures: tuple = ()  # normal, hover, pressed
    scripts: dict = field(default_factory=dict)


@dataclass
class Dialog:
    name: str
    place: object
    shapes: list  # the first lies at the bottom
    visible: bool = True


def label(name, place, title, text_at=TEXT_LEFT, text_color=IVORY, shadow=False, font=0):
    return Shape(name, place, CLEAR, title, text_at, text_color, font, shadow)


def image(name, place, file, background=False):
    return Shape(name, place, background=background, pictures=(file,))


def button(name, place, pictures, script, color=OPAQUE, usable=True):
    """`pictures` is the common start of the names of the three pictures."""
    states = tuple(f"{pictures}_{state}" for state in ("normal", "hover", "down"))
    return Shape(name, place, color, button=True, usable=usable, pictures=states, scripts={"m_func_left_down": script})


def small_button(name, place, icon, action):
    """Its pictures lie where scripts find them too."""
    return button(name, place, f"showroom_textures/{icon}", action)


# ---- the elements, from the back to the front ---------------------------------------------------------------------


def backdrop():
    return Dialog("背景", Scaled(0, 0, 1, 1), [image("暗角", Scaled(0, 0, 1, 1), "vignette", background=True)])


def top_bar():
    return Dialog(
        "顶栏",
        Scaled(0, 0, 1, 0.1),
        [
            image("顶栏底图", Scaled(0, 0, 1, 1), "top_bar", background=True),
            Shape("顶栏边线", Scaled(0, 0.988, 1, 1), HAIRLINE),
            image("标志", Anchored(LEFT, 40, -24, 48, 48), "logo"),
            label("产品名", Anchored(LEFT, 108, -25, 240, 24), "流光  FLOW", shadow=True),
            label("产品类别", Anchored(LEFT, 108, 1, 320, 24), "动态雕塑  Kinetic Sculpture", text_color=MUTED),
            button("按钮语言", Anchored(RIGHT, -176, -20, 40, 40), "language", language(words(), MENU_NAMES)),
            button(
                "按钮复位",
                Anchored(RIGHT, -128, -20, 40, 40),
                "home",
                say("已恢复初始配色与灯光  Finish and light reset", "scene_paint(0.72, 0.1, 0.12)", "scene_light(1)"),
            ),
            button(
                "按钮说明",
                Anchored(RIGHT, -80, -20, 40, 40),
                "info",
                say(
                    "在下方选择配色，转动雕塑，调节灯光  Pick a finish, turn it, set the light",
                    HURRY,
                    'animation_reverse("信息收起")',
                ),
            ),
        ],
    )


MENU = (
    # key, Chinese, English, script; an entry without a script is not open yet
    ("form", "造型", "Form", entry("造型", "造型：一条连续的曲线  One continuous curve", "scene_turn(45)")),
    ("material", "材质", "Material", entry("材质", "材质：抛光铝  Polished aluminium", "scene_paint(0.80, 0.81, 0.83)")),
    ("light", "光影", "Light", entry("光影", "光影：展厅灯光  Gallery lighting", "scene_light(0.75)")),
    ("visit", "预约", "Visit", None),
)
MENU_NAMES = tuple(chinese for _, chinese, _, _ in MENU)


def menu_entry(row, key, chinese, english, script):
    y = 56 + 60 * row
    usable = script is not None
    script = script or VISIT
    return [
        button(f"菜单{chinese}", Anchored(LEFT_TOP, 16, y, 192, 56), "menu", script, usable=usable),
        Shape(
            f"菜单图标{chinese}",
            Anchored(LEFT_TOP, 32, y + 16, 24, 24),
            OPAQUE if usable else (1, 1, 1, 0.4),
            pictures=(f"icon_{key}",),
        ),
        label(
            f"菜单文字{chinese}", Anchored(LEFT_TOP, 72, y, 40, 56), chinese, text_color=IVORY if usable else FAINT
        ),
        label(
            f"菜单英文{chinese}",
            Anchored(LEFT_TOP, 112, y, 80, 56),
            english,
            TEXT_RIGHT,
            MUTED if usable else FAINT,
            font=LATIN_SLOT,
        ),
    ]


def side_menu():
    shapes = [
        image("菜单底图", Anchored(LEFT_TOP, 0, 0, 224, 308), "menu_panel", background=True),
        label("菜单标题", Anchored(LEFT_TOP, 32, 16, 128, 28), "探索  Explore", text_color=CHAMPAGNE),
        small_button("按钮收起", Anchored(LEFT_TOP, 186, 16, 28, 28), "fold", FOLD),
    ]
    for row, entry in enumerate(MENU):
        shapes += menu_entry(row, *entry)
    return Dialog("侧栏菜单", Anchored(LEFT, 40, -154, 224, 308), shapes)


GAUGES = (("光泽\nGloss", 82), ("通透\nClarity", 64), ("静谧\nCalm", 91))
FACTS = (("材质 Material", "铝 Aluminium"), ("高度 Height", "1.80 m"), ("重量 Weight", "42 kg"), ("版数 Edition", "3 / 12"))


def gauge(column, caption, percent):
    x = 24 + 92 * column
    return [
        image(f"仪表{column + 1}", Anchored(LEFT_TOP, x, 212, 72, 72), f"gauge_{percent}"),
        label(f"仪表数值{column + 1}", Anchored(LEFT_TOP, x, 212, 72, 72), str(percent), TEXT_CENTER, font=NUMBER_SLOT),
        label(f"仪表名称{column + 1}", Anchored(LEFT_TOP, x, 292, 72, 48), caption, TEXT_CENTER_TOP, MUTED),
    ]


def fact(row, caption, value):
    y = 372 + 32 * row
    return [
        label(f"参数{row + 1}", Anchored(LEFT_TOP, 24, y, 128, 32), caption, text_color=MUTED),
        label(f"参数值{row + 1}", Anchored(LEFT_TOP, 152, y, 128, 32), value, TEXT_RIGHT),
    ]


def info_panel():
    shapes = [
        image("信息底图", Anchored(LEFT_TOP, 0, 0, 304, 520), "info_panel", background=True),
        label("信息编号", Anchored(LEFT_TOP, 24, 20, 256, 24), "展品 01  Exhibit 01", text_color=CHAMPAGNE),
        label("信息标题", Anchored(LEFT_TOP, 24, 48, 256, 24), "流光  FLOW", shadow=True),
        label("信息简介", Anchored(LEFT_TOP, 24, 84, 256, 48), "光沿曲面流动，\n每个角度都是新的轮廓。", TEXT_LEFT_TOP),
        label(
            "信息英文",
            Anchored(LEFT_TOP, 24, 136, 256, 48),
            "Light runs along the curve;\nevery angle is a new outline.",
            TEXT_LEFT_TOP,
            MUTED,
            font=LATIN_SLOT,
        ),
        Shape("信息分隔一", Anchored(LEFT_TOP, 24, 196, 256, 1), HAIRLINE),
        Shape("信息分隔二", Anchored(LEFT_TOP, 24, 356, 256, 1), HAIRLINE),
    ]
    for column, row in enumerate(GAUGES):
        shapes += gauge(column, *row)
    for row, entry in enumerate(FACTS):
        shapes += fact(row, *entry)
    return Dialog("信息面板", Anchored(RIGHT, -344, -260, 304, 520), shapes)


FINISHES = (
    ("釉白", "Porcelain", (0.92, 0.91, 0.88)),
    ("香槟", "Champagne", (0.86, 0.69, 0.44)),
    ("朱砂", "Cinnabar", (0.72, 0.10, 0.12)),
    ("松石", "Turquoise", (0.15, 0.58, 0.56)),
    ("靛蓝", "Indigo", (0.20, 0.30, 0.62)),
    ("石墨", "Graphite", (0.32, 0.33, 0.36)),
)


def swatch(column, chinese, english, color):
    red, green, blue = color
    return button(
        f"配色{chinese}",
        Anchored(LEFT_TOP, 132 + 48 * column, 37, 40, 40),
        "swatch",
        say(f"{chinese}  {english}", f"scene_paint({red}, {green}, {blue})"),
        color=(*color, 1),
    )


def finish_bar():
    shapes = [
        image("配色底图", Anchored(LEFT_TOP, 0, 0, 544, 88), "finish_panel", background=True),
        label("转动标题", Anchored(LEFT_TOP, 24, 7, 88, 24), "转动 Turn", TEXT_CENTER, MUTED),
        label("配色标题", Anchored(LEFT_TOP, 132, 7, 280, 24), "配色 Finish", TEXT_CENTER, MUTED),
        label("灯光标题", Anchored(LEFT_TOP, 432, 7, 88, 24), "灯光 Light", TEXT_CENTER, MUTED),
        Shape("配色分隔一", Anchored(LEFT_TOP, 122, 16, 1, 56), HAIRLINE),
        Shape("配色分隔二", Anchored(LEFT_TOP, 421, 16, 1, 56), HAIRLINE),
        button(
            "按钮左转", Anchored(LEFT_TOP, 24, 37, 40, 40), "turn_left", say("向左转动 15°  Turned left", "scene_turn(-15)")
        ),
        button(
            "按钮右转", Anchored(LEFT_TOP, 72, 37, 40, 40), "turn_right", say("向右转动 15°  Turned right", "scene_turn(15)")
        ),
        button("按钮调暗", Anchored(LEFT_TOP, 432, 37, 40, 40), "dim", say("灯光 50%  Half light", "scene_light(0.5)")),
        button("按钮调亮", Anchored(LEFT_TOP, 480, 37, 40, 40), "bright", say("灯光 100%  Full light", "scene_light(1)")),
    ]
    shapes += [swatch(column, *finish) for column, finish in enumerate(FINISHES)]
    return Dialog("配色栏", Anchored(BOTTOM, -272, -128, 544, 88), shapes)


DAYS = (("今天", "Today"), ("明天", "Tomorrow"), ("周末", "Weekend"))


def day_choice(column, chinese, english):
    place = Anchored(LEFT_TOP, 24 + 94 * column, 84, 84, 44)
    names = tuple(f"{a} {b}" for a, b in DAYS)
    return [
        button(f"日期{chinese} {english}", place, "choice", choose_day(f"{chinese} {english}", names)),
        label(f"日期文字{column + 1}", place, chinese, TEXT_CENTER),
    ]


def visit_window():
    shapes = [
        image("预约底图", Anchored(LEFT_TOP, 0, 0, 320, 232), "visit_panel", background=True),
        label("预约标题", Anchored(LEFT_TOP, 24, 16, 200, 32), "预约参观  Book a visit", text_color=CHAMPAGNE),
        small_button("按钮关闭", Anchored(LEFT_TOP, 280, 16, 28, 28), "close", CLOSE_VISIT),
        label("预约提示", Anchored(LEFT_TOP, 24, 48, 272, 28), "选择日期  Pick a day", text_color=MUTED),
    ]
    for column, day in enumerate(DAYS):
        shapes += day_choice(column, *day)
    confirm = Anchored(LEFT_TOP, 24, 156, 272, 48)
    shapes += [
        button("按钮确认", confirm, "book", BOOK, usable=False),
        label("文字确认", confirm, "确认预约  Confirm", TEXT_CENTER, FAINT),
    ]
    return Dialog("预约窗口", Anchored(CENTER, -160, -116, 320, 232), shapes, visible=False)


def words():
    """What changes with the language: (control, Chinese, English)."""
    gauges = [(f"仪表名称{at + 1}", *caption.split("\n")) for at, (caption, _) in enumerate(GAUGES)]
    facts = [(f"参数{at + 1}", *caption.split(" ")) for at, (caption, _) in enumerate(FACTS)]
    days = [(f"日期文字{at + 1}", *day) for at, day in enumerate(DAYS)]
    return [
        ("产品名", "流光", "FLOW"),
        ("产品类别", "动态雕塑", "Kinetic Sculpture"),
        ("菜单标题", "探索", "Explore"),
        ("信息标题", "流光", "FLOW"),
        ("信息简介", "光沿曲面流动，\\n每个角度都是新的轮廓。", "Light runs along the curve;\\nevery angle is a new outline."),
        ("信息英文", "", ""),
        ("转动标题", "转动", "Turn"),
        ("配色标题", "配色", "Finish"),
        ("灯光标题", "灯光", "Light"),
        ("预约标题", "预约参观", "Book a visit"),
        ("预约提示", "选择日期", "Pick a day"),
        *gauges,
        *facts,
        ("参数值1", "铝", "Aluminium"),
        *days,
    ]


# ---- writing ------------------------------------------------------------------------------------------------------


def put_place(parent, place, rect, frame):
    """Both descriptions of a place are stored; the switch tells which one counts."""
    scaled = isinstance(place, Scaled)
    put(parent, "int", "m_iAlignType", LEFT_TOP if scaled else place.align)
    put(parent, "int", "m_offsetx", rect[0] - frame[0] if scaled else place.x)
    put(parent, "int", "m_offsety", rect[1] - frame[1] if scaled else place.y)
    put(parent, "bool", "m_bScaleMode", scaled)
    for edge in ("left", "right", "top", "bottom"):
        put(parent, "float", f"m_{edge}_scaleMode", float(getattr(place, edge)) if scaled else 0.0)


def put_item(items, kind, name, visible=True, **attributes):
    attributes = {"type": str(kind), "id": identifier(name), **attributes, "name": name, "visible": text_of(visible)}
    attributes["flag"] = "0"
    return xml.SubElement(items, "item", attributes)


def put_sub_item(parent, name, kind, key, text):
    node = xml.SubElement(parent, "node", name=name)
    put(node, "int", "type", kind)
    put_text(node, key, text)


def put_shape(items, dialog, frame, shape, order):
    item = put_item(items, SHAPE, shape.name, parent=identifier(dialog.name))
    rect = shape.place.rect(frame)
    put(item, "rect", "m_rect", rect)
    put(item, "vec4", "m_color", shape.color)
    if shape.title:
        put_text(item, "m_title", shape.title)
    put_place(item, shape.place, rect, frame)
    put(item, "bool", "m_bk_image", shape.background)
    put(item, "int", "m_font_pos_x", 0)  # both are computed anew before each drawing
    put(item, "int", "m_font_pos_y", 0)
    put(item, "int", "m_font_org_position", shape.text_at)
    put(item, "vec4", "m_font_color", shape.text_color)
    put(item, "bool", "m_font_shadow", shape.shadow)
    put(item, "bool", "m_is_static_pic", not shape.button)
    put(item, "int", "m_font_type", shape.font)
    put(item, "int", "m_order_num", order)
    put(item, "bool", "m_is_usable", shape.usable)
    for key, file in zip(("m_texture", "m_texture_hover", "m_texture_down"), shape.pictures):
        put_sub_item(item, key, TEXTURE, "file_name", f"{file}.png" if "/" in file else f"pictures/{file}.png")
    for key, script in shape.scripts.items():
        put_sub_item(item, key, SCRIPT, "script", script)


def put_dialog(items, dialog, order):
    item = put_item(items, DIALOG, dialog.name, visible=dialog.visible)
    rect = dialog.place.rect(VIEW)
    put_place(item, dialog.place, rect, VIEW)
    put(item, "rect", "m_rect", rect)
    put(item, "int", "m_order_num", order)
    for index, shape in enumerate(dialog.shapes):
        put_shape(items, dialog, rect, shape, len(dialog.shapes) - 1 - index)


def put_font(setting, slot, font):
    """Byte fields are stored as the word that begins at their place."""
    prefix = f"m_gui_logfonts_for_loading{slot}"
    face = font.face.encode("utf-16-le")
    record = struct.pack("<5i8B", font.height, 0, 0, 0, font.weight, 0, 0, 0, font.char_set, 0, 0, 0, 0) + face
    places = {"lfHeight": 0, "lfWidth": 4, "lfEscapement": 8, "lfOrientation": 12, "lfWeight": 16, "lfItalic": 20,
              "lfUnderline": 21, "lfStrikeOut": 22, "lfCharSet": 23, "lfOutPrecision": 24, "lfClipPrecision": 25,
              "lfQuality": 26, "lfPitchAndFamily_fix": 27}
    for suffix, place in places.items():
        put(setting, "int", prefix + suffix, struct.unpack_from("<i", record, place)[0])
    put(setting, "text", prefix + "lfFaceName", font.face)
    put(setting, "text", prefix + "FontFileName", font.file)


def main():
    project = xml.Element("project", version="1")
    manager = xml.SubElement(xml.SubElement(project, "modules"), "node", name="CSimpleGUIManager")
    setting = xml.SubElement(manager, "node", name="SimpleGUIEnvSetting")
    put(setting, "float", "m_ani_trans_time", FADE_SECONDS)
    for slot in range(8):
        put_font(setting, slot, FONTS.get(slot, Font()))
    put(setting, "float", "m_scene_width", float(VIEW[2]))
    put(setting, "float", "m_scene_height", float(VIEW[3]))

    items = xml.SubElement(project, "items")
    dialogs = [backdrop(), finish_bar(), side_menu(), info_panel(), top_bar(), visit_window()]
    for index, dialog in enumerate(dialogs):
        put_dialog(items, dialog, len(dialogs) - 1 - index)

    put_animations(project, dialogs, VIEW)

    # Spelled as the player spells it, so that a saved project differs only by what it adds or changes.
    xml.indent(project)
    body = xml.tostring(project, encoding="unicode").replace(" />", "/>")
    PROJECT.write_text(f'<?xml version="1.0" encoding="UTF-8"?>\n{body}\n', encoding="UTF-8")


if __name__ == "__main__":
    main()
