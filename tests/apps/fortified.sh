#!/bin/sh
# fortified.sh COMPILE_COMMANDS: fails unless every source of the programs was compiled to call the functions
# of the C library that check what they write into. A program that happens to call none of them cannot show
# it by itself.
set -u
commands=$(grep '"command":' "$1" | grep -E -- '-c [^ ]*/(src|apps)/[^ ]*\.cpp')
[ -n "$commands" ] || { echo "$1: no source of the programs" >&2; exit 1; }
if echo "$commands" | grep -v -- '-D_FORTIFY_SOURCE=2' | grep -v '/mocs_compilation' | grep -Eo -- '-c [^ ]*' >&2; then
    exit 1
fi
