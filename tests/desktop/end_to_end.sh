#!/bin/bash
# The program under a virtual screen with a real window manager, worked by the keys that a person
# presses:
#
#   end_to_end.sh PROGRAM WORLD_MAP
#
# Alt and a letter reach each menu and a projection's dialog; a text is placed; a draw is stopped by Escape, a second
# one by the Stop item, and the window is closed in the middle of a third. Then the program is told to end
# by a signal, once while it is idle and once while dialogs are open: it leaves its settings each time. At last it is
# begun with a design in a file whose name is no UTF-8.
# Needs the packages xvfb, openbox, xdotool.
# shellcheck source=tests/desktop/virtual_screen.sh
set -euo pipefail
. "$(dirname "$0")/virtual_screen.sh"
program=$1
worldMap=$2

start_screen 1280x1024x24 openbox
# The map is the world and behind it, without using up the disk, as many points in one place as take
# minutes to draw.
install_program "$program" "$worldMap"
truncate -s 24G "$work/Qmnt4.map"
start_program


for letter in f p m h; do
    xdotool key "alt+$letter"
    eventually "a menu on Alt+$letter" more_windows "$alone"
    xdotool key Escape
    eventually "the menu of Alt+$letter to close" as_many_windows "$alone"
    xdotool key Escape # out of the menu bar
done
echo "menus: each opens on its letter"

dialog="Non-azimuthal Projection Boundaries"
xdotool key alt+p
eventually "the projection menu" more_windows "$alone"
xdotool key r
eventually "the dialog of the bounds" active_named "$dialog"
xdotool key Return
eventually "the dialog to close" dialog_gone "$dialog"
caption="Quelmont: Robinson projection"
drawing="Quelmont: click on Stop or press Esc to stop plotting Qmnt4.map"
eventually "the caption of the projection" titled "$caption"
echo "projection: chosen by keys alone"

# A text is typed, follows the mouse, is dropped and stays until Escape fixes it there.
placing() { [[ "$(title)" =~ ^Quelmont:\ \ x\ =\ [0-9]{5}\ \ \ y\ =\ [0-9]{5}$ ]]; }
xdotool key alt+m
eventually "the menu of the design" more_windows "$alone"
xdotool key t
eventually "the dialog of texts" active_named "Select Text and Rotation"
xdotool type Atlantis
xdotool key Return
eventually "the text to be placed" placing
eventually "the window to be active" active_main
before=$(title)
xdotool mousemove --window "$main" 300 300
eventually "the text to follow the mouse" eval '[ "$(title)" != "$before" ]'
placing || fail "the caption should tell the place"
xdotool click 1
before=$(title)
xdotool key Right
eventually "an arrow key to move the text" eval '[ "$(title)" != "$before" ]'
before=$(title)
xdotool mousemove --window "$main" 200 200
sleep 0.5
titled "$before" || fail "a text that was dropped should stay"
xdotool key Escape
eventually "Escape to end the placing" titled "$caption"
echo "text: placed by keys and by the mouse"

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
expect_good_end
echo "window: closed in the middle of a draw"

for state in idle dialogs draw; do
    rm -f "$work/Qmnt.ini" "$work"/Qmnt-kept-*
    start_program
    case $state in
    dialogs)
        xdotool key alt+p
        eventually "the projection menu" more_windows "$alone"
        xdotool key a
        eventually "the dialog of the bounds" active_named "$dialog"
        xdotool key Return
        eventually "the dialog of the standard parallels" active_named "Latitudes of Standard Parallels"
        ;;
    draw)
        begin_draw
        ;;
    esac
    kill -TERM "$quelmont"
    expect_good_end
    # The projection that was chosen is not lost; the next start would offer it.
    [ "$state" != dialogs ] || compgen -G "$work/Qmnt-kept-*.cnf" >/dev/null || fail "the design should be kept"
    echo "signal: ends the program ($state)"
done

# A design is saved by its keys, and begun with under a name that is no UTF-8.
rm -f "$work/Qmnt.ini" "$work"/Qmnt-kept-*
start_program
xdotool key alt+p
eventually "the projection menu" more_windows "$alone"
xdotool key r
eventually "the dialog of the bounds" active_named "Non-azimuthal Projection Boundaries"
xdotool key Return
eventually "the caption of the projection" titled "$caption"
eventually "the window to be active" active_main
xdotool key ctrl+s
eventually "the dialog of files" active_named "Save Map Design"
xdotool type "$work/map.cnf"
xdotool key Return
eventually "the design" test -s "$work/map.cnf"
eventually "the window to be active" active_main
xdotool key alt+F4
expect_good_end
mkdir "$work"/$'K\xF6ln'
mv "$work/map.cnf" "$work"/$'K\xF6ln/caf\xE9.cnf'
start_program "$work"/$'K\xF6ln/caf\xE9.cnf'
eventually "the caption of the design's projection" titled "$caption"
kill -TERM "$quelmont"
expect_good_end
echo "design: begun with, whatever its name"
