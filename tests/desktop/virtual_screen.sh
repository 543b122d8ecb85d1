# shellcheck shell=bash
# Sourced by the tests that work the program on a virtual screen with a real window manager, by the keys
# that a person presses. Needs the packages xvfb and xdotool.

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
    fail "$what (the window is called \"$(title 2>/dev/null || true)\", the active one \"$(active_name)\")"
}

# start_screen WIDTHxHEIGHTxDEPTH WINDOW_MANAGER...
start_screen() {
    Xvfb -displayfd 3 -screen 0 "$1" 3>"$work/display" >/dev/null 2>&1 &
    pids+=($!)
    eventually "a virtual screen" test -s "$work/display"
    DISPLAY=":$(cat "$work/display")"
    export DISPLAY
    HOME="$work" "${@:2}" >/dev/null 2>&1 &
    pids+=($!)
    eventually "a window manager" managed
}
managed() { xdotool get_desktop >/dev/null 2>&1; }

# The program takes the folder of its executable for its own.
install_program() {
    cp "$1" "$work/quelmont"
    cp "$2" "$work/Qmnt4.map"
}

# start_program [DESIGN]: starts the program and waits until its window has the keyboard. $quelmont is the process, $main the
# window, $alone the number of windows without a dialog or a menu.
start_program() {
    # Without a session bus: its library would keep memory that the sanitizer counts.
    env -u WAYLAND_DISPLAY DBUS_SESSION_BUS_ADDRESS=disabled: QT_QPA_PLATFORM=xcb HOME="$work" \
        XDG_CONFIG_HOME="$work" XDG_RUNTIME_DIR="$work" "$work/quelmont" "$@" 2>"$work/errors" &
    quelmont=$!
    pids+=("$quelmont")
    eventually "the window" find_main
    xdotool windowactivate "$main"
    eventually "the window to be active" active_main
    # shellcheck disable=SC2034 # the tests that source this ask for it
    alone=$(windows)
}

main=
find_main() { main=$(xdotool search --onlyvisible --name '^Quelmont: ' 2>/dev/null | head -1) && [ -n "$main" ]; }
title() { xdotool getwindowname "$main"; }
titled() { [ "$(title)" = "$1" ]; }
dialog_there() { xdotool search --onlyvisible --name "^$1\$" >/dev/null 2>&1; }
dialog_gone() { ! dialog_there "$1"; }
active_name() { xdotool getactivewindow getwindowname 2>/dev/null || true; }
active_named() { [ "$(active_name)" = "$1" ]; }
# Windows of the program that are on the screen; an open menu is one.
windows() { xdotool search --onlyvisible --pid "$quelmont" 2>/dev/null | wc -l; }
more_windows() { [ "$(windows)" -gt "$1" ]; }
as_many_windows() { [ "$(windows)" -eq "$1" ]; }
active_main() { [ "$(xdotool getactivewindow 2>/dev/null)" = "$main" ]; }
gone() { ! kill -0 "$quelmont" 2>/dev/null; }

# Waits for the program's end: it says that all went well and has left its settings.
expect_good_end() {
    eventually "the program to end" gone
    wait "$quelmont" || { status=$?; cat "$work/errors" >&2; fail "the program ended with $status"; }
    [ -s "$work/Qmnt.ini" ] || fail "no settings were left"
    if grep -qi -e 'sanitizer' -e 'runtime error' "$work/errors"; then
        cat "$work/errors" >&2
        fail "a sanitizer has something to say"
    fi
}
