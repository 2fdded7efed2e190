#!/usr/bin/env bash
# Counts the instructions of full checks of the benchmarks' formulas under callgrind and fails where there are too many:
# in multiples of muParser's for the same formulas, and as the catalogue of variables and the model grow. Likewise of
# finding variables by their names, as the catalogue grows. Unlike times, the counts hardly depend on what else the machine does.
#
# usage: count_checks.sh FOLDER    the folder that holds CountedChecks
set -euo pipefail

if [[ $# -ne 1 ]]; then
    echo 'usage: count_checks.sh FOLDER' >&2
    exit 2
fi
program="$1/CountedChecks"
if [[ ! -x $program ]]; then
    printf 'There is no %s: it needs the standalone host, muParser and valgrind\n' "$program" >&2
    exit 2
fi

# The most that is allowed.
against_muparser=0.25      # mean of the ratios of the formulas
larger_catalogue=1.15      # ratio of the sums: 100,000 variables to 100
larger_model=1.5           # likewise: 100,000 objects to 10
larger_look_up=1.15        # of finding variables by name: 100,000 variables to 100
formulas=20                # and as many names

work="$(mktemp -d)"
trap 'rm -rf "$work"' EXIT

# Counts with that many VARIABLES and OBJECTS into a file of lines "SIDE NUMBER INSTRUCTIONS", and names the file.
count()
{
    local counts="$work/$1-$2.txt"
    valgrind --tool=callgrind --quiet --instr-atstart=no --combine-dumps=yes \
        --callgrind-out-file="$work/profile" "$program" "$1" "$2" >&2
    awk '/^desc: Trigger: Client Request: / { name = $5 " " $6 }
         /^totals: / && name != ""          { print name, $2; name = "" }' "$work/profile" >"$counts"
    rm "$work/profile"
    local side
    for side in check muparser lookup; do
        if [[ $(grep -c "^$side [0-9]* [1-9]" "$counts") -ne $formulas ]]; then
            printf 'callgrind counted not all of the %s for "%s"\n' "$formulas" "$side" >&2
            return 1
        fi
    done
    echo "$counts"
}

# The instructions of a side in a file of counts.
sum_of()
{
    awk -v side="$1" '$1 == side { sum += $3 } END { printf "%d", sum }' "$2"
}

sum_of_checks() { sum_of check "$1"; }

failed=0

# Prints a ratio with its limit and remembers whether it is above.
judge()
{
    local what="$1" ratio="$2" limit="$3"
    printf '%-52s %7.3f, at most %.2f\n' "$what" "$ratio" "$limit"
    if ! awk -v ratio="$ratio" -v limit="$limit" 'BEGIN { exit !(ratio <= limit) }'; then
        printf 'Too many instructions: %s\n' "$what" >&2
        failed=1
    fi
}

small="$(count 100 10)"
many_variables="$(count 100000 10)"
many_objects="$(count 100 100000)"

printf 'Instructions of %s checks, %s texts each: %s\n' "$formulas" 8 "$(sum_of_checks "$small")"
judge 'Check to muParser, mean of the formulas' \
    "$(awk '{ of[$1, $2] = $3 } $1 == "check" { numbers[$2] }
            END { for (n in numbers) { sum += of["check", n] / of["muparser", n]; ++count }
                  printf "%.4f", sum / count }' "$small")" "$against_muparser"
judge '100,000 variables to 100' \
    "$(awk -v a="$(sum_of_checks "$many_variables")" -v b="$(sum_of_checks "$small")" \
        'BEGIN { printf "%.4f", a / b }')" "$larger_catalogue"
printf 'Instructions to find a variable by its name in %s ways, mean: %s\n' 3 \
    "$(($(sum_of lookup "$small") / formulas))"
judge 'Finding by name, 100,000 variables to 100' \
    "$(awk -v a="$(sum_of lookup "$many_variables")" -v b="$(sum_of lookup "$small")" \
        'BEGIN { printf "%.4f", a / b }')" "$larger_look_up"
judge '100,000 objects to 10' \
    "$(awk -v a="$(sum_of_checks "$many_objects")" -v b="$(sum_of_checks "$small")" \
        'BEGIN { printf "%.4f", a / b }')" "$larger_model"
exit "$failed"
