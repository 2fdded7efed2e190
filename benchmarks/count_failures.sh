#!/usr/bin/env bash
# Counts under callgrind the instructions of failing checks beyond those of passing ones that are like them, and fails
# where they are too many times those of one message and one exception. Unlike times, the counts hardly depend on what
# else the machine does.
#
# usage: count_failures.sh FOLDER    the folder that holds CountedFailures
set -euo pipefail

if [[ $# -ne 1 ]]; then
    echo 'usage: count_failures.sh FOLDER' >&2
    exit 2
fi
program="$1/CountedFailures"
if [[ ! -x $program ]]; then
    printf 'There is no %s: it needs the standalone host and valgrind\n' "$program" >&2
    exit 2
fi

limit=2        # times one message and one exception
failures=5

work="$(mktemp -d)"
trap 'rm -rf "$work"' EXIT

valgrind --tool=callgrind --quiet --instr-atstart=no --combine-dumps=yes \
    --callgrind-out-file="$work/profile" "$program" >"$work/names"
awk '/^desc: Trigger: Client Request: / { name = $5 " " $6 }
     /^totals: / && name != ""          { print name, $2; name = "" }' "$work/profile" >"$work/counts"

awk -v limit="$limit" -v failures="$failures" '
    NR == FNR { count[$1, $2] = $3; next }
    {
        number = $1
        pass = count["pass", number]; fail = count["fail", number]; one = count["throw", number]
        if (!pass || !fail || !one) {
            print "callgrind did not count failure " number > "/dev/stderr"
            exit status = 2
        }
        ratio = (fail - pass) / one
        printf "%8d passing, %8d failing, %8d one message and exception: %.2f times, at most %s:", pass, fail, one, ratio, limit
        sub(/^[0-9]+/, ""); print
        if (ratio > limit)
            status = 1
        ++judged
    }
    END {
        if (judged != failures && !status) {
            printf "%d failures were counted, not %d\n", judged, failures > "/dev/stderr"
            status = 2
        }
        exit status
    }' "$work/counts" "$work/names"
