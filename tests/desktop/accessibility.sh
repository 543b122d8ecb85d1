#!/bin/bash
# What a screen reader is told of the program, on a bus and a virtual screen of their own:
#
#   accessibility.sh PROGRAM WORLD_MAP
#
# Needs the packages xvfb, openbox, xdotool, dbus-daemon, at-spi2-core, gir1.2-atspi-2.0 and python3-gi; where no
# program can ask for names it is passed over.
# shellcheck source=tests/desktop/virtual_screen.sh
set -euo pipefail

if [ "${3:-}" != inside ]; then
    if ! command -v dbus-run-session >/dev/null ||
        ! /usr/bin/python3 -c 'import gi; gi.require_version("Atspi", "2.0")' 2>/dev/null; then
        echo "gir1.2-atspi-2.0, python3-gi or dbus-daemon is not installed: names are not read back."
        exit 77
    fi
    exec dbus-run-session -- "$0" "$1" "$2" inside
fi

. "$(dirname "$0")/virtual_screen.sh"
start_screen 1280x1024x24 openbox
install_program "$1" "$2"
/usr/bin/python3 -B "$(dirname "$0")/accessibility.py" "$work/quelmont"
