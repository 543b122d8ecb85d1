#!/bin/bash
# Where the keyboard is after two dialogs have closed together, under a real window manager:
#
#   keyboard_return.sh PROGRAM WORLD_MAP WINDOW_MANAGER
#
# Twenty times the window must have it after the bounds and the standard parallels were accepted, and the
# list of map files after a file was chosen and its parameters were accepted. The window is told so by
# the next key alone.
# Needs the packages xvfb, xdotool and that of the window manager.
# shellcheck source=tests/desktop/virtual_screen.sh
set -euo pipefail
. "$(dirname "$0")/virtual_screen.sh"

start_screen 1280x1024x24 "$3"
install_program "$1" "$2"
start_program
for run in $(seq 20); do
    xdotool key alt+p
    eventually "the projection menu" more_windows "$alone"
    xdotool key a
    eventually "the dialog of the bounds" active_named "Non-azimuthal Projection Boundaries"
    xdotool key Return
    eventually "the dialog of the standard parallels" active_named "Latitudes of Standard Parallels"
    xdotool key Return
    eventually "the dialogs to close" as_many_windows "$alone"
    sleep 0.2
    xdotool key alt+d
    eventually "Alt+D to reach the window (run $run)" active_named "Select Map Size"
    xdotool key Escape
    eventually "the dialog to close" as_many_windows "$alone"
    eventually "the window to have the keyboard again" active_main
done
echo "window: has the keyboard after two dialogs ($3)"

cp "$work/Qmnt4.map" "$work/other.map"
list="Add or Edit Digital Map File"
xdotool key alt+f
eventually "the file menu" more_windows "$alone"
xdotool key o
eventually "the list of map files" active_named "$list"
for run in $(seq 20); do
    xdotool key alt+a
    eventually "the file dialog" active_named "Open Digital Map File"
    xdotool type --delay 5 "$work/other.map"
    xdotool key Return
    eventually "the parameters" active_named "Digital Map File Plot Parameters"
    xdotool key Return
    eventually "the parameters to close" dialog_gone "Digital Map File Plot Parameters"
    sleep 0.2
    # The line behind the file that was added is selected; the one before it is that file.
    xdotool key Up alt+e
    eventually "Alt+E to reach the list (run $run)" active_named "Digital Map File Plot Parameters"
    xdotool key Escape
    eventually "the parameters to close" dialog_gone "Digital Map File Plot Parameters"
    eventually "the list to have the keyboard again" active_named "$list"
done
echo "list of map files: has the keyboard after two dialogs ($3)"
xdotool key Escape
eventually "the window to have the keyboard" active_main
xdotool key alt+F4
expect_good_end
