#!/bin/sh
# sanitized.sh PROBE: fails unless a program that a sanitizer ends can be told from one that refuses.
set -u
failed=0
for fault in memory overflow leak; do
    "$1" "$fault" >/dev/null 2>&1
    status=$?
    if [ $status -ne 66 ]; then
        echo "after the fault \"$fault\" the status is $status" >&2
        failed=1
    fi
done
"$1" none || { echo "without a fault the status is $?" >&2; failed=1; }
exit $failed
