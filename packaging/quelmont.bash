# shellcheck shell=bash
# Completion of quelmont, quelmont-draw and quelmont-convert for bash. Options are those that the programs tell
# themselves.

_quelmont_files() {
    local IFS=$'\n'
    compopt -o filenames
    mapfile -t COMPREPLY < <(compgen -f -- "$1")
}

_quelmont() {
    local program=$1 word=$2 before=$3
    COMPREPLY=()
    if [[ $word == -* ]]; then
        mapfile -t COMPREPLY < <(compgen -W "$("$program" --help 2>/dev/null | grep -oE -- '--[a-z][a-z-]*' | sort -u)" \
            -- "$word")
        return
    fi
    case $before in
    --projection)
        mapfile -t COMPREPLY < <(compgen -W "mercator equirectangular cylindrical hammer mollweide interrupted robinson
            conformal albers gnomonic stereographic orthographic vertical utm" -- "$word")
        ;;
    *)
        _quelmont_files "$word"
        ;;
    esac
}

complete -F _quelmont quelmont quelmont-draw quelmont-convert
