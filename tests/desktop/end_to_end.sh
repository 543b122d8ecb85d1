#!/bin/bash
# The program under a virtual screen with a real window manager, worked by the keys that a person
# presses:
#
#   end_to_end.sh PROGRAM WORLD_MAP
#
# Alt and a letter reach each menu and a projection's dialog; a draw is stopped by Escape, a second
# one by the Stop item, and the window is closed in the middle of a third.
# Needs the packages xvfb, openbox, xdotool.
set -euo pipefail
program=$1
worldMap=$2

work=$(mktemp -d)
pids=()
finish() {
    for pid in "${pids[@]}"; do kill "$pid" 2>/dev/null || true; done
    wait 2>/dev/null || true
    rm -rf "$work"
}
trap finish EXIT

fail() {
    echo "FAILED: $1" >&2
    exit 1
}

# Waits until a command succeeds, at most half a minute.
eventually() {
    local what=$1
    shift
    for _ in $(seq 300); do
        if "$@"; then return 0; fi
        sleep 0.1
    done
    fail "$what (the window is called \"$(title 2>/dev/null || true)\")"
}

# The program takes the folder of its executable for its own. Its map is the world and behind it,
# without using up the disk, as many points in one place as take minutes to draw.
cp "$program" "$work/quelmont"
cp "$worldMap" "$work/Qmnt4.map"
truncate -s 24G "$work/Qmnt4.map"

Xvfb -displayfd 3 -screen 0 1280x1024x24 3>"$work/display" >/dev/null 2>&1 &
pids+=($!)
eventually "a virtual screen" test -s "$work/display"
DISPLAY=":$(cat "$work/display")"
export DISPLAY
openbox >/dev/null 2>&1 &
pids+=($!)
managed() { xdotool get_desktop >/dev/null 2>&1; }
eventually "a window manager" managed

# Without a session bus: its library would keep memory that the sanitizer counts.
env -u WAYLAND_DISPLAY DBUS_SESSION_BUS_ADDRESS=disabled: QT_QPA_PLATFORM=xcb HOME="$work" XDG_CONFIG_HOME="$work" XDG_RUNTIME_DIR="$work" \
    "$work/quelmont" 2>"$work/errors" &
quelmont=$!
pids+=("$quelmont")

main=
find_main() { main=$(xdotool search --onlyvisible --name '^Quelmont: ' 2>/dev/null | head -1) && [ -n "$main" ]; }
title() { xdotool getwindowname "$main"; }
titled() { [ "$(title)" = "$1" ]; }
dialog_there() { xdotool search --onlyvisible --name "^$1\$" >/dev/null 2>&1; }
dialog_gone() { ! dialog_there "$1"; }
active_named() { [ "$(xdotool getactivewindow getwindowname 2>/dev/null)" = "$1" ]; }
# Windows of the program that are on the screen; an open menu is one.
windows() { xdotool search --onlyvisible --pid "$quelmont" 2>/dev/null | wc -l; }
more_windows() { [ "$(windows)" -gt "$1" ]; }
as_many_windows() { [ "$(windows)" -eq "$1" ]; }
active_main() { [ "$(xdotool getactivewindow 2>/dev/null)" = "$main" ]; }

eventually "the window" find_main
xdotool windowactivate "$main"
eventually "the window to be active" active_main

count=$(windows)
for letter in f p m h; do
    xdotool key "alt+$letter"
    eventually "a menu on Alt+$letter" more_windows "$count"
    xdotool key Escape
    eventually "the menu of Alt+$letter to close" as_many_windows "$count"
    xdotool key Escape # out of the menu bar
done
echo "menus: each opens on its letter"

dialog="Non-azimuthal Projection Boundaries"
xdotool key alt+p
eventually "the projection menu" more_windows "$count"
xdotool key r
eventually "the dialog of the bounds" active_named "$dialog"
xdotool key Return
eventually "the dialog to close" dialog_gone "$dialog"
caption="Quelmont: Robinson projection"
drawing="Quelmont: click on Stop or press Esc to stop plotting Qmnt4.map"
eventually "the caption of the projection" titled "$caption"
echo "projection: chosen by keys alone"

# Begins a draw and waits until it reads the map file, which it names in its caption.
begin_draw() {
    eventually "the window to be active" active_main
    xdotool key alt+d
    eventually "the dialog of the size" active_named "Select Map Size"
    xdotool key Return
    eventually "the map file to be drawn" titled "$drawing"
}

begin_draw
sleep 1
titled "$drawing" || fail "the draw should take minutes"
xdotool key Escape
eventually "Escape to stop the draw" titled "$caption"
echo "draw: stopped by Escape"

begin_draw
xdotool key alt+s
eventually "Stop to stop the draw" titled "$caption"
echo "draw: stopped by its menu item"

begin_draw
xdotool key alt+F4
gone() { ! kill -0 "$quelmont" 2>/dev/null; }
eventually "the program to end" gone
wait "$quelmont" || { status=$?; cat "$work/errors" >&2; fail "the program ended with $status"; }
[ -s "$work/Qmnt.ini" ] || fail "no settings were left"
if grep -qi -e 'sanitizer' -e 'runtime error' "$work/errors"; then
    cat "$work/errors" >&2
    fail "a sanitizer has something to say"
fi
echo "window: closed in the middle of a draw"
