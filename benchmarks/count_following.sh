#!/usr/bin/env bash
# Counts under callgrind the instructions of checking a large case, and of following it when one value changes, and fails
# where there are too many. Unlike times, the counts hardly depend on what else the machine does.
#
# usage: count_following.sh FOLDER    the folder that holds CountedFollowing
set -euo pipefail

if [[ $# -ne 1 ]]; then
    echo 'usage: count_following.sh FOLDER' >&2
    exit 2
fi
program="$1/CountedFollowing"
if [[ ! -x $program ]]; then
    printf 'There is no %s: it needs the standalone host and valgrind\n' "$program" >&2
    exit 2
fi

# The most that is allowed.
twice_the_parameters=2.1    # check from scratch: 100,000 parameters to 50,000
one_change=0.02             # following one change, to the check from scratch; counts differ a little with processors

work="$(mktemp -d)"
trap 'rm -rf "$work"' EXIT

# Counts with that many PARAMETERS into a file of lines "WHAT 1 INSTRUCTIONS".
count()
{
    valgrind --tool=callgrind --quiet --instr-atstart=no --combine-dumps=yes \
        --callgrind-out-file="$work/profile" "$program" "$1" >&2
    awk '/^desc: Trigger: Client Request: / { name = $5 " " $6 }
         /^totals: / && name != ""          { print name, $2; name = "" }' "$work/profile" >"$work/$1.txt"
    rm "$work/profile"
}

# The instructions of WHAT with that many PARAMETERS.
instructions() { awk -v what="$1" '$1 == what { print $3; found = 1 } END { exit !found }' "$work/$2.txt"; }

failed=0

# Prints a ratio with its limit and remembers whether it is above.
judge()
{
    local what="$1" over="$2" under="$3" limit="$4"
    printf '%-52s %7.4f, at most %.3f\n' "$what" "$(awk -v a="$over" -v b="$under" 'BEGIN { print a / b }')" "$limit"
    if ! awk -v a="$over" -v b="$under" -v limit="$limit" 'BEGIN { exit !(a <= limit * b) }'; then
        printf 'Too many instructions: %s\n' "$what" >&2
        failed=1
    fi
}

count 50000
count 100000
scratch="$(instructions scratch 100000)"
change="$(instructions change 100000)"
printf 'Instructions for 100,000 parameters: %s from scratch, %s recording, %s after one change\n' \
    "$scratch" "$(instructions first 100000)" "$change"
judge 'Check from scratch, 100,000 parameters to 50,000' "$scratch" "$(instructions scratch 50000)" \
    "$twice_the_parameters"
judge 'Following one change, to the check from scratch' "$change" "$scratch" "$one_change"
exit "$failed"
