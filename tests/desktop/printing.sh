#!/bin/bash
# Maps and pages of the help printed on a real print queue, whose jobs are read back:
#
#   printing.sh PROGRAM WORLD_MAP HELP PRINT_QUEUE_TEST LIKENESS
#
# First print_queue_test, on a screen that nobody sees; then the whole program under a virtual screen: the map is
# drawn in the window, printed by "Print Map" and saved by "Save as PDF", and both pages are compared with the
# window's picture (likeness.py). The page about printing is printed too, and has its text and its picture.
# Needs the packages xvfb, openbox, xdotool, imagemagick, poppler-utils, cups-daemon, cups-client.
# shellcheck source=tests/desktop/virtual_screen.sh
# shellcheck source=tests/desktop/print_queue.sh
# shellcheck disable=SC2154 # of the files that are sourced
set -euo pipefail
folder=$(dirname "$0")
. "$folder/virtual_screen.sh"
. "$folder/print_queue.sh"
program=$1
worldMap=$2
help=$3
queueTest=$4
likeness=$5

start_screen 1280x1024x24 openbox
start_queue Paper
QUELMONT_JOB=$job "$queueTest"
rm -f "$job"

install_program "$program" "$worldMap"
cp "$help" "$work/Qmnt.qch"
# What is not white below the menu bar counts as the map.
printf '[Quelmont]\r\nStatusLine=0\r\n' >"$work/Qmnt.ini"
start_program
xdotool key alt+d
eventually "the dialog of the size" active_named "Select Map Size"
xdotool key Return
eventually "the dialog to close" dialog_gone "Select Map Size"
eventually "the map to be drawn" active_main
sleep 2
import -window "$main" "$work/window.png"

xdotool key alt+f
eventually "the file menu" more_windows "$alone"
xdotool key p
eventually "the dialog of printing" active_named "Print Map on Paper"
import -window "$(xdotool getactivewindow)" "$work/dialog.png"
xdotool key Return
job_whole() { [ -s "$job" ] && [ "$(tail -c 6 "$job")" = "%%EOF" ]; }
eventually "the job" job_whole
pdftoppm -r 200 -png -singlefile "$job" "$work/page"
cp "$work"/{window,page,dialog}.png "${QUELMONT_KEEP:-$work/cups}/"
python3 -B "$likeness" "$work/window.png" "$work/page.png"
echo "print: the page looks like the window"

eventually "the window to be active" active_main
rm -f "$job"
xdotool key alt+f
eventually "the file menu" more_windows "$alone"
xdotool key p
eventually "the dialog of printing" active_named "Print Map on Paper"
xdotool key F1
eventually "the help" active_named "Quelmont Help"
sleep 1
import -window "$(xdotool getactivewindow)" "$work/help.png"
xdotool key ctrl+p
eventually "the dialog of the printer" active_named Print
xdotool key Return
eventually "the job" job_whole
pdftotext -layout "$job" "$work/help.txt"
pdftoppm -r 100 -png "$job" "$work/help-page"
pdfimages -png "$job" "$work/help-picture"
cp "$work"/help*.png "${QUELMONT_KEEP:-$work/cups}/"
for words in "Print the map" "Everything below the menu bar is printed" "Portrait, Landscape"; do
    grep -q "$words" "$work/help.txt" || fail "the page should say \"$words\""
done
[ "$(pdfinfo "$job" | sed -n 's/^Title: *//p')" = "Print the map" ] || fail "the job should bear the name of its page"
# The picture of the page, whatever its size.
for picture in "$work/help-picture-000.png" "$folder/../../docs/look/dialogs/print-map.png"; do
    convert "$picture" -alpha off -resize "300x200!" "$work/$(basename "$picture" .png)-small.png"
done
differs=$({ compare -metric RMSE "$work"/{help-picture-000,print-map}-small.png null: 2>&1 || true; } |
    sed 's/.*(\(.*\))/\1/')
awk -v differs="$differs" 'BEGIN { exit !(differs < 0.03) }' || fail "the picture is another one ($differs)"
eventually "the help to be active" active_named "Quelmont Help"
xdotool key Escape
eventually "the help to close" dialog_gone "Quelmont Help"
eventually "the dialog of printing" active_named "Print Map on Paper"
xdotool key Escape
eventually "the dialog to close" dialog_gone "Print Map on Paper"
echo "print: a page of the help has its text and its picture"

eventually "the window to be active" active_main
xdotool key alt+f
eventually "the file menu" more_windows "$alone"
xdotool key u
eventually "the dialog of the printer" active_named "Print Setup"
import -window "$(xdotool getactivewindow)" "$work/setup.png"
xdotool key Escape
eventually "the dialog to close" dialog_gone "Print Setup"

eventually "the window to be active" active_main
xdotool key alt+f
eventually "the file menu" more_windows "$alone"
xdotool key f
eventually "the dialog of pages" active_named "Print Map on PDF"
xdotool key Return
eventually "the dialog of files" active_named "Save Map As PDF File"
xdotool type "$work/saved.pdf"
xdotool key Return
saved_whole() { [ -s "$work/saved.pdf" ] && active_main; }
eventually "the file" saved_whole
pdftoppm -r 200 -png -singlefile "$work/saved.pdf" "$work/saved"
cp "$work"/{setup,saved}.png "${QUELMONT_KEEP:-$work/cups}/"
python3 -B "$likeness" "$work/window.png" "$work/saved.png"
echo "print: so does the page in a file"

eventually "the window to be active" active_main
xdotool key alt+F4
expect_good_end
