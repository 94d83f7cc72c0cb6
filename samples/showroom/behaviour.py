"""What the buttons of the showroom do: the scripts in Lua that make_project.py ties to them."""

# Whoever presses during the opening has seen enough of it; it must not go on hiding what a press has shown.
HURRY = 'if animation_state("入场") == "playing" then animation_seek("入场", 9) end'

CHAMPAGNE, IVORY = "{0.91, 0.75, 0.51, 1}", "{0.95, 0.93, 0.89, 1}"
MUTED, OPAQUE = "{0.72, 0.74, 0.78, 1}", "{1, 1, 1, 1}"


def script(*lines):
    return "\n".join(lines)


def say(text, *actions):
    return script(*actions, f'message("{text}")')


def entry(section, text, *actions):
    """An entry of the menu: its words light up, the panel says what it is about, and once all three have been looked
    at, the fourth opens."""
    return script(
        HURRY,
        f'section = "{section}"',
        "seen = seen or {}",
        "seen[section] = true",
        'for _, name in ipairs({"造型", "材质", "光影"}) do',
        f'    set_ctrl_txt_color("菜单文字" .. name, name == section and {CHAMPAGNE} or {IVORY})',
        f'    set_ctrl_txt_color("菜单英文" .. name, name == section and {CHAMPAGNE} or {MUTED})',
        "end",
        f'set_ctrl_title("信息编号", "{text}")',
        'if seen["造型"] and seen["材质"] and seen["光影"] then',
        '    set_ctrl_usable("菜单预约", true)',
        f'    set_ctrl_bkcolor("菜单图标预约", {OPAQUE})',
        f'    set_ctrl_txt_color("菜单文字预约", {IVORY})',
        f'    set_ctrl_txt_color("菜单英文预约", {MUTED})',
        "end",
        *actions,
        f'message("{text}")',
    )


VISIT = script(HURRY, 'gui_script_show_dialog("预约窗口", 2)')
CLOSE_VISIT = 'gui_script_show_dialog("预约窗口", 0)'


def choose_day(day, days):
    """The chosen day is tinted, the others are not, and the visit can be booked."""
    names = ", ".join(f'"{name}"' for name in days)
    return script(
        f"for at, name in ipairs({{{names}}}) do",
        f'    set_ctrl_bkcolor("日期" .. name, name == "{day}" and {CHAMPAGNE} or {OPAQUE})',
        f'    set_ctrl_txt_color("日期文字" .. at, name == "{day}" and {CHAMPAGNE} or {IVORY})',
        "end",
        f'day = "{day}"',
        'set_ctrl_usable("按钮确认", true)',
        'set_ctrl_title("文字确认", "确认预约  Confirm")',
        f'set_ctrl_txt_color("文字确认", {IVORY})',
    )


BOOK = script(
    'set_ctrl_usable("按钮确认", false)',
    'set_ctrl_title("文字确认", "已预约 Booked: " .. day)',
    f'set_ctrl_txt_color("文字确认", {CHAMPAGNE})',
    'message("已预约  Booked: " .. day)',
)

# Moves the menu to the edge of the view and back. Its entries leave with it, so that none can be pressed half hidden.
FOLDED_BY = 216
FOLD = script(
    HURRY,
    "folded = not folded",
    'local rect = get_wnd_rect("侧栏菜单")',
    f'gui_script_move_wnd("侧栏菜单", 1, 0, {{rect[1], rect[2], 0}}, {{folded and -{FOLDED_BY} or {FOLDED_BY}, 0, 0}})',
    'for slot, state in ipairs({"normal", "hover", "down"}) do',
    '    set_ctrl_texture("按钮收起", slot - 1, (folded and "unfold_" or "fold_") .. state .. ".png")',
    "end",
)


def language(words, entries):
    """Both languages, Chinese alone, English alone, and round again. `words`: (control, Chinese, English); `entries`
    are the names of the menu's entries, each with a word of its own for each language."""
    rows = "\n".join(f'    {{"{name}", "{chinese}", "{english}"}},' for name, chinese, english in words)
    names = ", ".join(f'"{name}"' for name in entries)
    return script(
        HURRY,
        "local words = {",
        rows,
        "}",
        "if not both then",
        "    both = {}",
        "    for _, row in ipairs(words) do both[row[1]] = get_ctrl_title(row[1]) end",
        "end",
        "language = ((language or 0) + 1) % 3",
        "for _, row in ipairs(words) do",
        "    set_ctrl_title(row[1], language == 1 and row[2] or language == 2 and row[3] or both[row[1]])",
        "end",
        f"for at, name in ipairs({{{names}}}) do",
        '    gui_script_show_ctrl("菜单文字" .. name, language == 2 and 0 or 1)',
        '    gui_script_show_ctrl("菜单英文" .. name, language == 1 and 0 or 1)',
        '    set_ctrl_txt_align("菜单英文" .. name, language == 2 and 2 or 10)',
        '    ctrl_align_offset("菜单英文" .. name, language == 2 and 72 or 112, 60 * at - 4)',
        "end",
    )
