#!/bin/sh
# hardened.sh PROGRAM: fails unless the program can lie at any address, resolves its symbols before it
# starts and write-protects them, keeps its stack free of code and guards its stack frames.
set -u
program=$1
failed=0

# wanted NAME PATTERN READELF_OPTION...
wanted() {
    name=$1
    pattern=$2
    shift 2
    if ! readelf -W "$@" "$program" | grep -Eq "$pattern"; then
        echo "$program: $name is missing" >&2
        failed=1
    fi
}

wanted "position independence" 'Type: +DYN' -h
wanted "a read-only relocation segment" 'GNU_RELRO' -l
wanted "binding at the start" 'BIND_NOW|FLAGS_1.*NOW' -d
wanted "a stack without code" 'GNU_STACK.* RW ' -l
wanted "the stack guard" '__stack_chk_fail' --dyn-syms
exit $failed
