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

# A script that fails is told with its place, and the run goes on.
sed 's|message(&quot;The button was pressed.&quot;)|message("one")\nnothing.x = 1|;
     s|<text key="script" value="\(.*\)"/>|<text key="script">message("one")\nlocal nothing\nnothing.x = 1</text>|' \
    hello.sgui >wrong_script.sgui
expect 0 render wrong_script.sgui --mouse click:640,395 --mouse click:640,395 --out wrong.png
[ "$(grep -c '^one$' out)" = 2 ] || fault "the run did not go on behind the error"
says err "Button, left_down, line 3: "
[ -s wrong.png ] || fault "no picture behind the error"

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
    echo '</items></project>'
} >problems.sgui
expect 1 inspect problems.sgui
says out 'problems.sgui:3: "first": m_texture: "gone/欢迎.png" is missing'
says out 'problems.sgui:4: "second": has the order number 5 of "first"'
says out 'problems.sgui:5: "orphan": is a shape without a dialog'
[ "$(grep -c '^problem:' out)" = 3 ] || fault "problems that are none"
expect 1 inspect problems.sgui --json
says out '"name": "对话框"'
expect 0 render problems.sgui --out problems.png
says err "gone/欢迎.png"

# Wrong command lines and files that can't be read or written: one clear line, and the right code.
while read -r line; do
    # shellcheck disable=SC2086
    expect 2 $line
    [ -s err ] || fault "no word on: sgui $line"
done <<'END'

paint hello.sgui
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
play hello.sgui --frames -1
inspect
END
head -c 400 hello.sgui >broken.sgui
mkdir folder
while read -r text line; do
    # shellcheck disable=SC2086
    expect 1 $line
    says err "$text"
    [ "$(wc -l <err)" = 1 ] || fault "not one line: sgui $line"
done <<'END'
missing.sgui: inspect missing.sgui
missing.sgui: render missing.sgui --out x.png
broken.sgui: inspect broken.sgui
broken.sgui: render broken.sgui --out x.png
folder: inspect folder
no.so render hello.sgui --out x.png --module no.so
no/x.png render hello.sgui --out no/x.png
no/x.sgui render hello.sgui --out x.png --save no/x.sgui
no/new.sgui new no/new.sgui
END
expect 0 --help
says out "sgui new"
expect 0 --version

# Frames in a window that nobody sees.
SDL_VIDEODRIVER=dummy expect 0 play hello.sgui --frames 3
SDL_VIDEODRIVER=none expect 1 play hello.sgui --frames 3
says err "sgui render"

# The sample: sound, the same picture every time, and no other for a way round by way of its file.
expect 0 inspect "$samples/showroom/showroom.sgui"
for picture in a b; do
    expect 0 render "$samples/showroom/showroom.sgui" --size 640x360 --running --at 0.5 --out $picture.png
    silent err
done
same a.png b.png
expect 0 render "$samples/showroom/showroom.sgui" --size 640x360 --running --at 0.9 --out later.png
differ a.png later.png
expect 0 render "$samples/showroom/showroom.sgui" --size 640x360 --out still.png --save moved.sgui
expect 0 render moved.sgui --size 640x360 --out moved.png
same still.png moved.png

[ "$faults" = 0 ] || exit 1
echo "no faults"
