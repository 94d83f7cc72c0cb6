#!/usr/bin/python3
"""Writes the three legacy projects of this folder. Change the tables here and run it again."""

import xml.etree.ElementTree as xml

from tree import color, guid, moment, node, picture, value, wholes, write

LABEL, BUTTON, PICTURE = 1, 10, 11
LEFT_TOP, TOP, RIGHT_TOP, RIGHT, RIGHT_BOTTOM, BOTTOM, LEFT_BOTTOM, LEFT, CENTER, SCALE = range(10)
# Anchors of panels run row by row, counted from 1.
ROW_LEFT_TOP, ROW_TOP, ROW_RIGHT_TOP, ROW_LEFT, ROW_CENTER, ROW_RIGHT, ROW_LEFT_BOTTOM, ROW_BOTTOM, ROW_RIGHT_BOTTOM = range(1, 10)
TEXT_LEFT, TEXT_CENTER, TEXT_RIGHT = 4, 5, 6
ONCE, FOREVER, THERE_AND_BACK = 0, 1, 2
MOVES_CONTROL, MOVES_DIALOG, MOVES_PANEL = 2, 3, 5


# ---- the plain layout: rectangles in the view that the project was made for ----------------------------------------


def control(project, name, kind, place, align=LEFT_TOP, title="", pictures=(), background=0):
    left, top, width, height = place
    numbers = wholes(
        Align=9 if align == SCALE else align, offsetx=left, offsety=top, ScaleMode=1 if align == SCALE else 0, VISIBLE=1,
        POSX=left, POSY=top, WIDTH=width, HEIGHT=height, Type=kind, BKIMAGE=background,
    )
    keys = ("Texture0", "Texture1", "Texture2") if kind == BUTTON else ("Texture",)
    shown = [picture(key, path) for key, path in zip(keys, pictures)]
    return node(
        "control", value("NAME", 6, name), value("Caption", 20, title), guid("GUID", f"{project}/{name}"), *numbers, *shown
    )


def dialog(project, name, place, align, controls):
    left, top, width, height = place
    numbers = wholes(
        m_iAlignType=align, m_offsetx=left, m_offsety=top, POSX=left, POSY=top, WIDTH=width, HEIGHT=height,
        ScaleMode=1 if align == SCALE else 0, Flag=1,
    )
    return node(name, guid("GUID", f"{project}/{name}"), *numbers, node("Controls", *controls))


def root_dialog(project, width, height, controls):
    numbers = wholes(WIDTH=width, HEIGHT=height, m_iAlignType=0, m_offsetx=0, m_offsety=0, POSX=0, POSY=0, Flag=1)
    return node("Root Dialog", node("ROOT", guid("GUID", f"{project}/root"), *numbers, node("Controls", *controls)))


def plain_key(seconds, x, y, width, height, align, visible=1):
    floats = (("m_offset_x", x), ("m_offset_y", y), ("m_sizex", width), ("m_sizey", height))
    numbers = wholes(m_bVisible=visible, iAlignType=align, m_bScaleMode=1 if align == SCALE else 0)
    return node("key", moment(seconds), *(value(name, 9, float(number)) for name, number in floats), *numbers)


# ---- the primary layout: panels that hang on a point of their stage -------------------------------------------------


def pixels(align, x, y, width, height):
    return node(
        "panel_pos", *wholes(locate_mode=0, align_mode=align), value("offset_in_pixel", 8, (float(x), float(y), 0.0)),
        value("size_in_pixel", 15, (width, height)),
    )


def percents(left, top, right, bottom):
    edges = (("percent_left", left), ("percent_top", top), ("percent_right", right), ("percent_bottom", bottom))
    return node("panel_pos", *wholes(locate_mode=1, align_mode=ROW_LEFT_TOP), *(value(key, 9, float(share)) for key, share in edges))


def panel(project, name, place, fill, text="", text_fill=(240, 230, 210), text_format=TEXT_CENTER, alpha=None, kind=0, file=None):
    numbers = wholes(
        visible=1, panel_type=kind, color=color(*fill), text_color=color(*text_fill), text_format=text_format, text_font_idx=0,
    )
    if alpha is not None:
        numbers += wholes(ENABLE_TRANSP=1, TRANSP_TYPE=1, TRANS_FACTOR=alpha)
    # The text is raw units; here without the mark of an end that old editors left behind.
    words = xml.Element("node", name="text_buf", value=text) if text else None
    return node(name, guid("id", f"{project}/{name}"), place, *numbers, words, picture("texture", file) if file else None)


def panel_key(seconds, place, fill, alpha=255):
    return node("key", moment(seconds), node("POS", place), *wholes(COLOR=color(*fill), ALPHA=alpha))


# ---- animations ------------------------------------------------------------------------------------------------------


def command(project, kind, item, keys):
    key = {MOVES_CONTROL: "CTRL", MOVES_DIALOG: "DLG", MOVES_PANEL: "ID"}[kind]
    return node("command", *wholes(TYPE=kind), guid(key, f"{project}/{item}"), node("KEYS", *keys))


def bar(name, kind, *commands):
    return node(name, *wholes(TYPE=kind), node("CMDS", *commands))


# ---- the projects ----------------------------------------------------------------------------------------------------

# Where the author had the pictures: a machine that is long gone. They are found beside the project.
OLD = "D:\\展厅\\瓷器\\"


def plain():
    entries = ("器形", "釉色", "纹样", "窑口")
    buttons = tuple(f"buttons\\entry_{state}.png" for state in ("normal", "hover", "down"))
    menu = [control("plain", "菜单底图", PICTURE, (0, 0, 240, 300), SCALE, pictures=(OLD + "board.png",), background=1)]
    menu += [
        control("plain", f"按钮{at}", BUTTON, (20, 30 + 62 * at, 200, 48), TOP, title, buttons)
        for at, title in enumerate(entries)
    ]
    root = [
        control("plain", "顶栏", PICTURE, (0, 0, 1024, 72), SCALE, pictures=(OLD + "band.png",), background=1),
        control("plain", "标题", LABEL, (32, 12, 320, 48), LEFT_TOP, "馆藏瓷器 · Ceramics"),
        control("plain", "页脚", LABEL, (704, 720, 300, 36), RIGHT_BOTTOM, "轻触左侧条目"),
    ]
    exhibit = [
        control("plain", "花瓶", PICTURE, (0, 0, 240, 320), CENTER, pictures=(OLD + "vase.png",)),
        control("plain", "名牌", LABEL, (0, 330, 240, 40), BOTTOM, "青釉弦纹瓶"),
    ]
    opening = bar(
        "开场", ONCE,
        command("plain", MOVES_DIALOG, "菜单", [
            plain_key(0, -260, -150, 240, 300, LEFT, 0), plain_key(0.1, -260, -150, 240, 300, LEFT), plain_key(1, 40, -150, 240, 300, LEFT),
        ]),
        command("plain", MOVES_DIALOG, "展品", [plain_key(0, 0.72, 0.30, 0.10, 0.20, SCALE), plain_key(1.5, 0.38, 0.23, 0.24, 0.54, SCALE)]),
    )
    swing = bar("摆动", THERE_AND_BACK, command("plain", MOVES_CONTROL, "花瓶", [
        plain_key(0, -132, -160, 240, 320, CENTER), plain_key(1, -108, -160, 240, 320, CENTER),
    ]))
    write(
        "plain.legacy",
        node(
            "GUI", root_dialog("plain", 1024, 768, root),
            node("Dialogs", dialog("plain", "菜单", (40, 234, 240, 300), LEFT, menu), dialog("plain", "展品", (392, 199, 240, 370), CENTER, exhibit)),
        ),
        node("Timebar", node("BARS", opening, swing)),
    )


def primary():
    cover = node(
        "封面", value("stage_name", 20, "封面"), value("stage_type", 3, 1),
        panel("primary", "顶栏", percents(0, 0, 1, 0.1), (255, 255, 254), file="band.png"),
        panel("primary", "题目", pixels(ROW_TOP, 0, 10, 420, 52), (20, 30, 40), "瓷器之路", alpha=0),
        panel("primary", "印章", pixels(ROW_RIGHT_TOP, 24, 90, 96, 96), (255, 255, 254), file=OLD + "seal.png"),
        panel("primary", "说明", pixels(ROW_LEFT, 40, 0, 300, 160), (16, 26, 33), "一千年的窑火", (230, 214, 180), TEXT_LEFT, 150),
        panel("primary", "光带", pixels(ROW_CENTER, 0, 0, 320, 8), (184, 92, 61), alpha=255),
        panel("primary", "返回", pixels(ROW_LEFT_BOTTOM, 32, 32, 160, 48), (255, 255, 254), "返回", kind=10, file=OLD + "key.png"),
        panel("primary", "前进", pixels(ROW_RIGHT_BOTTOM, 32, 32, 160, 48), (255, 255, 254), "前进", kind=20, file=OLD + "key.png"),
        panel("primary", "年份", pixels(ROW_BOTTOM, 0, 40, 240, 32), (16, 26, 33), "公元 960 – 1279", text_format=0x20000 + TEXT_RIGHT, alpha=120),
    )
    glow = bar("光带", THERE_AND_BACK, command("primary", MOVES_PANEL, "光带", [
        panel_key(0, pixels(ROW_CENTER, 0, 0, 80, 8), (184, 92, 61), 40),
        panel_key(1.2, pixels(ROW_CENTER, 0, 0, 520, 8), (237, 224, 196), 255),
    ]))
    stamp = bar("盖章", FOREVER, command("primary", MOVES_PANEL, "印章", [
        panel_key(0, percents(0.40, 0.30, 0.60, 0.65), (255, 255, 254)), panel_key(0.6, percents(0.91, 0.12, 0.98, 0.25), (255, 255, 254)),
    ]))
    write(
        "primary.legacy",
        node("UIStages", node("加载页面", node("进度")), node("主页面", node("绘图区"), node("桌面")), cover),
        node("Timebar", node("BARS", glow, stamp)),
    )


def both():
    board = [
        control("both", "底图", PICTURE, (0, 0, 240, 380), SCALE, pictures=("board.png",), background=1),
        control("both", "花瓶", PICTURE, (40, 20, 160, 214), TOP, pictures=("vase.png",)),
        control("both", "名牌", LABEL, (0, 320, 240, 40), BOTTOM, "对话框里的花瓶"),
    ]
    stage = node(
        "舞台",
        panel("both", "底色", percents(0, 0.85, 1, 1), (16, 26, 33), "舞台上的文字", alpha=190),
        panel("both", "印章", pixels(ROW_RIGHT, 60, 0, 96, 96), (255, 255, 254), file="seal.png"),
    )
    enter = bar(
        "登场", ONCE,
        command("both", MOVES_DIALOG, "展板", [plain_key(0, -120, -600, 240, 380, CENTER), plain_key(1, -120, -190, 240, 380, CENTER)]),
        command("both", MOVES_PANEL, "印章", [panel_key(0, pixels(ROW_RIGHT, -120, 0, 96, 96), (255, 255, 254)), panel_key(1, pixels(ROW_RIGHT, 60, 0, 96, 96), (255, 255, 254))]),
    )
    write(
        "both.legacy",
        node("GUI", node("Root Dialog", node("ROOT", *wholes(WIDTH=1280, HEIGHT=720, m_iAlignType=0, m_offsetx=0, m_offsety=0, Flag=1), guid("GUID", "both/root"))), node("Dialogs", dialog("both", "展板", (520, 170, 240, 380), CENTER, board))),
        node("UIStages", stage),
        node("Timebar", node("BARS", enter)),
    )


plain()
primary()
both()
