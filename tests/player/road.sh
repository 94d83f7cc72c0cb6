#!/usr/bin/env bash
# Walks the player's road from a new project to a saved picture, as a person would.
# Use: road.sh SGUI SAMPLES
set -u
sgui=$1
samples=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work" || exit 1
faults=0

fault() {
    echo "FAULT: $*"
    sed 's/^/    out: /' out | tail -n 4
    sed 's/^/    err: /' err | tail -n 4
    faults=$((faults + 1))
}

# expect CODE ARGUMENTS...: what the player prints is in out and err afterwards.
expect() {
    local code=$1 found
    shift
    "$sgui" "$@" >out 2>err
    found=$?
    [ "$found" = "$code" ] || fault "exit code $found, expected $code: sgui $*"
}
# says FILE TEXT: the text stands in a line of out or err.
says() { grep -qF -- "$2" "$1" || fault "nothing of \"$2\" in $1"; }
silent() { [ ! -s "$1" ] || fault "$1 is not empty"; }
same() { cmp -s "$1" "$2" || fault "$1 and $2 differ"; }
differ() { ! cmp -s "$1" "$2" || fault "$1 and $2 are the same"; }

# A new project is sound, answers the mouse, and comes back from its file.
expect 0 new hello.sgui
expect 0 inspect hello.sgui
says out "no problems"
cp hello.sgui kept.sgui
expect 1 new hello.sgui
says err "such a file already"
same hello.sgui kept.sgui
for size in 1280x720 501x403; do
    expect 0 render hello.sgui --size $size --out plain.png --save saved.sgui
    silent err
    expect 0 render saved.sgui --size $size --out again.png
    same plain.png again.png
    [ "$(head -c 8 plain.png | od -An -tx1)" = " 89 50 4e 47 0d 0a 1a 0a" ] || fault "plain.png is no PNG"
done
expect 0 render hello.sgui --mouse click:640,395 --out pressed.png
says out "The button was pressed."
expect 0 render hello.sgui --mouse click:450,270 --out beside.png
silent out

# Scenarios: the same bytes in every run, the place of an error, and exit codes that a caller can use.
tests=$(dirname "$0")
expect 0 run "$tests/two_runs.lua"
silent err
cp out first_run
expect 0 run "$tests/two_runs.lua"
same out first_run
expect 0 run "$tests/two_runs.lua" -5 --help
says out "$(printf -- '-5\t--help')"
expect 0 run "$tests/../scenarios/script_limits.lua"
says err "script: S, left_down, line 2: the script took too many steps"
says err "script: S, left_down: not enough memory"
printf 'print(ARGS[1])\n\nexpect({a = {1, 2}}, {a = {1, 3}}, "note")\n' >differs.lua
expect 1 run differs.lua word
says out word
says err 'differs.lua:3: "note": got {"a":[1,2]}, wanted {"a":[1,3]}; they differ at .a[2]: 2 and 3'
printf 'function helper(x) expect(x, 1) end\n' >helper.lua
printf 'host.include("helper.lua")\nhelper(1)\nhelper(2)\n' >includes.lua
expect 1 run includes.lua
says err "includes.lua:3: helper.lua:1: got 2, wanted 1"
printf 'x = = 1' >broken.lua
expect 1 run broken.lua
says err 'broken.lua:1: '
expect 1 run nothing.lua
says err 'nothing.lua: '
expect 2 run

# The page about scenarios begins with one that works.
sed -n '/^```lua/,/^```/p' "$samples/../docs/scenarios.md" | sed '1d;$d' |
    sed "s#\"samples/#\"$samples/#" >of_the_page.lua
expect 0 run of_the_page.lua
[ -s pressed.png ] || fault "no picture from the page's scenario"

# A script that fails is told with its place, and the run goes on.
sed 's|message(&quot;The button was pressed.&quot;)|message("one")\nnothing.x = 1|;
     s|<text key="script" value="\(.*\)"/>|<text key="script">message("one")\nlocal nothing\nnothing.x = 1</text>|' \
    hello.sgui >wrong_script.sgui
expect 0 render wrong_script.sgui --mouse click:640,395 --mouse click:640,395 --out wrong.png
[ "$(grep -c '^one$' out)" = 2 ] || fault "the run did not go on behind the error"
says err "Button, left_down, line 3: "
[ -s wrong.png ] || fault "no picture behind the error"

# A damaged file names the one that its last save has kept, and that one comes back.
cp hello.sgui kept.sgui
expect 0 render hello.sgui --out x.png --save hello.sgui
head -c 99 kept.sgui >hello.sgui
expect 1 inspect hello.sgui
says err "hello.sgui.bak holds it as it was before it was last saved"
expect 0 restore hello.sgui
same hello.sgui kept.sgui
expect 1 restore plain.png
says err "plain.png.bak:1: cannot open"

# The whole GUI hides and comes back like its dialogs.
hides() { sed "s|message(&quot;The button was pressed.&quot;)|$2|" hello.sgui >"$1.sgui"; }
hides gui 'gui_script_show_gui(2)'
hides dialog 'gui_script_show_dialog([[Welcome]], 0)'
for what in gui dialog; do expect 0 render $what.sgui --mouse click:640,395 --at 1 --out $what.png; done
silent err
same gui.png dialog.png
differ gui.png pressed.png
expect 0 render gui.sgui --mouse click:640,395 --mouse click:640,395 --at 1 --out shown.png
differ gui.png shown.png

# Inspection names what is wrong with a project that can be opened all the same.
shape() { echo "<item type=\"83782\" id=\"00000000-0000-0000-0000-00000000000$1\" $2 name=\"$3\">$4</item>"; }
under='parent="00000000-0000-0000-0000-000000000001"'
picture='<node name="m_texture"><int key="type" value="100001"/><text key="file_name" value="gone/欢迎.png"/></node>'
{
    echo '<project version="1"><items>'
    echo '<item type="83783" id="00000000-0000-0000-0000-000000000001" name="对话框"><int key="m_order_num" value="0"/></item>'
    shape 2 "$under" first "<int key=\"m_order_num\" value=\"5\"/>$picture"
    shape 3 "$under" second '<int key="m_order_num" value="5"/>'
    shape 4 "" orphan '<int key="m_order_num" value="0"/>'
    echo '</items>'
    echo '<animations><animation name="晃" length="0" mode_count="0" factor="inf">'
    echo '<anim_node type="1001" item="00000000-0000-0000-0000-000000000009"/>'
    echo '<anim_node type="1001" item="00000000-0000-0000-0000-000000000002"/>'
    echo '</animation><animation name="晃"/></animations></project>'
} >problems.sgui
expect 1 inspect problems.sgui
says out 'problems.sgui:3: "first": m_texture: "gone/欢迎.png" is missing'
says out 'problems.sgui:4: "second": has the order number 5 of "first"'
says out 'problems.sgui:5: "orphan": is a shape without a dialog'
says out 'problems.sgui:7: "晃": has no length'
says out 'problems.sgui:7: "晃": plays 0 times'
says out 'problems.sgui:7: "晃": has no speed'
says out 'problems.sgui:8: "晃": a node moves nothing: there is no item 00000000-0000-0000-0000-000000000009'
says out 'problems.sgui:10: "晃": has the name of an animation further up'
says out 'animation "晃"  10 s, without an end'
says out 'moves "first"'
[ "$(grep -c '^problem:' out)" = 8 ] || fault "problems that are none"
expect 1 inspect problems.sgui --json
says out '"name": "对话框"'
says out '"item_name": "first"'
expect 0 render problems.sgui --out problems.png
says err "gone/欢迎.png"

# Fonts: names, the road from a face to its file, and a project that shows the same on a machine without fonts.
cat >fonts.lua <<'END'
local file = host.fonts().slots[1].file
host.font_registry({{"WenQuanYi Micro Hei (TrueType)", (file:gsub("/([^/]*)$", "\\%1"))}}, "")
host.new(640, 360)
host.dialog{name = "Panel", rect = {0, 0, 640, 360}}
host.shape{dialog = "Panel", name = "Text", rect = {9, 9, 600, 90}, fields = {m_title = "欢迎 welcome", m_font_type = 2}}
assert(host.change_font(3, {face = "WenQuanYi Micro Hei", height = 40}))
assert(host.save("fonts.sgui"))
END
echo '<fontconfig/>' >no_fonts.conf
without_fonts() { FONTCONFIG_FILE=$PWD/no_fonts.conf expect "$@"; }
expect 0 run fonts.lua
expect 0 fonts "micro HEI" --json
says out wqy-microhei.ttc
expect 0 fonts --why "WenQuanYi Micro Hei" --weight 700
says out "-      WenQuanYi Micro Hei old"
says out "found  WenQuanYi Micro Hei "
expect 1 fonts --why "wenquanyi micro hei"
expect 1 fonts "no such font"
expect 1 inspect fonts.sgui
says out 'slot 2 is not beside the project: where'
expect 0 render fonts.sgui --size 640x360 --out installed.png
silent err
without_fonts 1 inspect fonts.sgui
says out 'nor is it installed here'
without_fonts 0 render fonts.sgui --size 640x360 --out fallen_back.png
says err '("wqy-microhei.ttc") is neither beside the project nor installed'
differ installed.png fallen_back.png
without_fonts 1 publish fonts.sgui
says out "slot 2  WenQuanYi Micro Hei       NOT FOUND"
expect 0 publish fonts.sgui
says out "-> fonts_textures/wqy-microhei.ttc"
expect 0 inspect fonts.sgui
without_fonts 0 render fonts.sgui --size 640x360 --out carried.png --save saved.sgui
silent err
same installed.png carried.png
head -c 9 fonts.sgui >fonts_textures/wqy-microhei.ttc
without_fonts 1 inspect fonts.sgui
says out 'slot 2 can'"'"'t be shown in 40 pixels from "fonts_textures/wqy-microhei.ttc"'
expect 0 publish fonts.sgui
# What was saved there has lost the file's name, and publishing finds it again.
mv saved.sgui fonts.sgui
without_fonts 1 inspect fonts.sgui
says out 'slot 2 has no file name in the project'
without_fonts 0 publish fonts.sgui
says out "is beside the project; the project now names it"
without_fonts 0 inspect fonts.sgui

# Wrong command lines and files that can't be read or written: one clear line, and the right code.
while read -r line; do
    # shellcheck disable=SC2086
    expect 2 $line
    [ -s err ] || fault "no word on: sgui $line"
done <<'END'

paint hello.sgui
import hello.sgui
import hello.sgui --out x.sgui --size 5
render hello.sgui
render --out x.png
render hello.sgui --out x.png --size 0x10
render hello.sgui --out x.png --size 20000x10
render hello.sgui --out x.png --size 10x10x
render hello.sgui --out x.png --at -1
render hello.sgui --out x.png --at soon
render hello.sgui --out x.png --mouse click
render hello.sgui --out x.png --mouse fly:1,2
render hello.sgui --out x.png --mouse click:1,2,3
render hello.sgui --out x.png --paint
sheet hello.sgui --out x.png
sheet hello.sgui --animation a --out x.png --frames 0
play hello.sgui --frames -1
inspect
functions --json --lua
restore
fonts a --why b
fonts --weight 400
publish
END
head -c 400 hello.sgui >broken.sgui
show=$samples/showroom/showroom.sgui
mkdir folder
echo '<legacy version="1"/>' >empty.legacy
while read -r text line; do
    # shellcheck disable=SC2086
    expect 1 ${line/SHOW/$show}
    says err "$text"
    [ "$(wc -l <err)" = 1 ] || fault "not one line: sgui $line"
done <<'END'
missing.sgui: inspect missing.sgui
missing.sgui: render missing.sgui --out x.png
broken.sgui: inspect broken.sgui
broken.sgui: render broken.sgui --out x.png
folder: inspect folder
no.so render hello.sgui --out x.png --module no.so
no/x.png sheet SHOW --animation 呼吸 --size 32x18 --out no/x.png
入场, sheet SHOW --animation 出场 --out x.png
none) sheet hello.sgui --animation 出场 --out x.png
no/x.png render hello.sgui --out no/x.png
no/x.sgui render hello.sgui --out x.png --save no/x.sgui
no/new.sgui new no/new.sgui
no.so functions --module no.so
missing.sgui: publish missing.sgui
missing.legacy: import missing.legacy --out x.sgui
hello.sgui:2: import hello.sgui --out x.sgui
import" render empty.legacy --out x.png
import" inspect empty.legacy
no/x.sgui import empty.legacy --out no/x.sgui
empty.legacy: import empty.legacy --out ./empty.legacy
END
expect 0 --help
says out "sgui new"
expect 0 --version

# Frames in a window that nobody sees.
SDL_VIDEODRIVER=dummy expect 0 play hello.sgui --frames 3
SDL_VIDEODRIVER=none expect 1 play hello.sgui --frames 3
says err "sgui render"

# The sample: sound, the same picture every time, and no other for a way round by way of its file.
expect 0 inspect "$show"
for picture in a b; do
    expect 0 render "$show" --size 640x360 --running --at 0.5 --out $picture.png
    silent err
done
same a.png b.png
expect 0 render "$show" --size 640x360 --running --at 0.9 --out later.png
differ a.png later.png
expect 0 render "$show" --size 640x360 --out still.png --save moved.sgui
# A font that lay beside the project has lost its file's name there; publishing finds it again.
mkdir moved_textures
cp "$samples/showroom/showroom_textures/"*.ttf moved_textures
without_fonts 0 publish moved.sgui
expect 0 render moved.sgui --size 640x360 --out moved.png
same still.png moved.png

# Its animations: the moment after the start without a run, and the moments of one beside each other.
expect 0 render "$show" --size 640x360 --at 0.5 --out opening.png
differ opening.png still.png
for sheet in "a 入场 8" "b 入场 8" "c 入场 9" "d 信息收起 8"; do
    set -- $sheet
    expect 0 sheet "$show" --animation "$2" --frames "$3" --size 320x180 --out "$1.png"
    silent err
done
same a.png b.png
differ a.png c.png
differ a.png d.png
# On a terminal a second thread tells what takes long, wipes it off again, and changes nothing of the work beside it.
script -qec "'$sgui' sheet '$show' --animation 入场 --frames 9 --size 320x180 --out told.png" /dev/null >out 2>err </dev/null ||
    fault "sheet on a terminal"
same c.png told.png
[ ! -s out ] || [ "$(tail -c 3 out)" = $'\e[K' ] || fault "a terminal keeps what it was told"

# Legacy projects come over as they were, look the same after a way round by way of the present format, and move.
# Nothing of theirs is changed, and what is lost is told.
cp -r "$samples/legacy" .
sha256sum legacy/*.legacy >untouched
cat >looks.lua <<'END'
host.new(1280, 720)
assert((ARGS[1]:find("legacy$") and host.import or host.open)(ARGS[1]))
for at, size in ipairs{{1280, 720}, {801, 601}, {320, 500}} do
    host.view(table.unpack(size))
    host.image(("%s_%d.png"):format(ARGS[2], at))
    for _, seconds in ipairs{0, 0.35, 0.9, 2} do
        for node in ipairs(host.state().nodes) do host.animate(node, seconds) end
        host.image(("%s_%d_%g.png"):format(ARGS[2], at, seconds))
    end
end
END
while read -r name animation made; do
    expect 0 import legacy/$name.legacy --out legacy/$name.sgui --start $animation
    silent err
    says out "$made"
    expect 0 inspect legacy/$name.sgui
    expect 0 render legacy/$name.sgui --out once.png --save legacy/again.sgui
    expect 0 render legacy/again.sgui --at 0.35 --out started.png
    differ once.png started.png
    for way in $name.legacy $name.sgui again.sgui; do expect 0 run looks.lua legacy/$way $way; done
    for picture in $name.legacy_*.png; do
        same "$picture" "$name.sgui${picture#"$name.legacy"}"
        same "$picture" "again.sgui${picture#"$name.legacy"}"
    done
    differ $name.legacy_1.png $name.legacy_1_0.35.png
done <<'END'
plain 开场 3 dialogs, 10 controls, 2 animations of 3 items
primary 光带 1 dialog, 8 controls, 2 animations of 2 items
both 登场 2 dialogs, 5 controls, 1 animation of 2 items
END
sha256sum --quiet -c untouched >out 2>err || fault "a legacy file was changed"
expect 0 import legacy/plain.legacy --out plain.sgui
says out 'no start of its own (a script or --start gives it one): "开场"'
expect 1 import legacy/plain.legacy --out plain.sgui --start 出场
says err 'there is no animation "出场" to start (there are "开场", "摆动")'

# Whatever lies outside of the new project's folder goes along with it, under a name that no other picture has.
mkdir far away
expect 0 import legacy/plain.legacy --out far/show.sgui
copied=$(find far/show_textures -type f | wc -l)
says out "$copied pictures copied beside it"
expect 0 render far/show.sgui --out far.png
mv far/* away && mv legacy elsewhere
expect 0 render away/show.sgui --out away.png
silent err
same far.png away.png
mv elsewhere legacy
same_name() { echo "<node name=\"Texture$1\"><node name=\"FILENAME\" code=\"4\" value=\"$PWD/$2\"/></node>"; }
mkdir one two
cp once.png one/p.png && cp started.png two/p.png
{
    echo '<legacy version="1"><node name="GUI"><node name="Dialogs"><node name="D"><node name="Controls"><node>'
    echo '<node name="Type" code="3" value="10"/>'
    echo "$(same_name 0 one/p.png)$(same_name 1 two/p.png)$(same_name 2 one/p.png)"
    echo '</node></node></node></node></node></legacy>'
} >two.legacy
for again in 1 2; do expect 0 import two.legacy --out away/two.sgui; done
same one/p.png away/two_textures/p.png
same two/p.png away/two_textures/p_2.png
[ "$(find away/two_textures -type f | wc -l)" = 2 ] || fault "a picture was copied twice"
[ "$(grep -c '"two_textures/p.png"' away/two.sgui)" = 2 ] || fault "one picture has two names"
expect 1 import two.legacy --out no/two.sgui
says err "no/two_textures: the pictures can't be copied there"
[ ! -e no ] || fault "a folder was made"
expect 0 import empty.legacy --out empty.sgui
says out "1 thing did not come over"
expect 0 import legacy/both.legacy --out small.sgui --size 640x360 --report
says out 'legacy/both.legacy:5: "根界面": the root dialog holds nothing: dropped'
lost() { echo "<node name=\"$1\" code=\"$2\" value=\"$3\"/>"; }
{
    echo '<legacy version="1"><node name="GUI"><node name="Dialogs"><node name="D">'
    echo "<node name=\"Controls\"><node>$(lost Type 3 7)$(lost NAME 6 控件)</node>"
    echo "<node>$(lost Type 3 11)<node name=\"Texture\">$(lost FILENAME 4 'D:\gone.png')</node><node name=\"Texture1\"/></node>"
    echo "<node>$(lost NAME 6 "$(printf '%070d' 0)")<node name=\"Type\" code=\"3\" hex=\"0B00\"/></node>"
    echo '</node></node></node></node><node name="UIStages"><node name="S">'
    echo "<node name=\"P\">$(lost text_format 3 37)$(lost text_font_idx 3 8)<node name=\"panel_pos\">"
    echo "$(lost align_mode 3 10)$(lost percent_top 9 nan)</node>$(lost glow 3 1)$(lost glow 3 1)"
    echo "$(lost color 3 1)$(lost color 3 2)<node name=\"text_buf\" hex=\"610062\"/>$(lost ENABLE_TRANSP 3 1)</node></node></node>"
    echo "<node name=\"Timebar\"><node name=\"BARS\"><node name=\"B\">$(lost TYPE 3 4)<node name=\"CMDS\">"
    echo "<node>$(lost TYPE 3 4)</node>"
    echo "<node>$(lost TYPE 3 5)$(lost ID 11 00000000-0000-0000-0000-000000000077)<node name=\"KEYS\">"
    echo "<node>$(lost TIME 3 0)</node></node></node>"
    echo "<node>$(lost TYPE 3 3)<node name=\"KEYS\"><node>$(lost TIME 9 inf)$(lost iAlignType 3 12)</node></node></node>"
    echo '</node></node></node><node name="BAR"/></node></legacy>'
} >lossy.legacy
expect 0 import lossy.legacy --out lossy.sgui --report
silent err
while read -r line; do says out "lossy.legacy:$line"; done <<'END'
1: "D": WIDTH is missing: 0 stands for it
2: "控件": Type 7 is unknown
3: Texture: "D:\gone.png" is missing
3: Texture1: a control of Type 11 has no such picture: dropped
4: "000000000000000000000000000000000000000000000000000000000000000": NAME is cut to 63 characters
4: "000000000000000000000000000000000000000000000000000000000000000": Type can't be read (2 bytes of code 3, expected code 3)
6: "P": text_format 37 is unknown
6: "P": text_font_idx is 8
6: "P": TRANSP_TYPE is not 1
6: "P": align_mode is 10
7: "P": percent_top is no number with a limit
7: "P": "glow" is nothing that the new format has: dropped
8: "P": color stands a second time: dropped
8: "P": text_buf has half a character at its end: dropped
9: "B": an animation of TYPE 4 is unknown
10: "B": a command of TYPE 4 is unknown: dropped
11: "B": a command moves nothing: there is no item 00000000-0000-0000-0000-000000000077
12: "B": a key has no panel_pos: it hides the panel
13: "B": TIME is no number with a limit
13: "B": iAlignType is 12, not 0 to 9
14: "BAR" is nothing that the new format has: dropped
END
expect 1 inspect lossy.sgui
says out "文件不存在"

[ "$faults" = 0 ] || exit 1
echo "no faults"
