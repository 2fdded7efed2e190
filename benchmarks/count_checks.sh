#!/usr/bin/env bash
# Counts the instructions of full checks of the benchmarks' formulas under callgrind and fails where there are too many:
# in multiples of what other programs make of the same formulas and of the host's part in the check, and as the catalogue
# of variables and the model grow. Likewise of finding variables by their names, as the catalogue grows. Unlike times, the
# counts hardly depend on what else the machine does.
#
# usage: count_checks.sh FOLDER    the folder that holds CountedChecks and CountedComparisons
set -euo pipefail

if [[ $# -ne 1 ]]; then
    echo 'usage: count_checks.sh FOLDER' >&2
    exit 2
fi
folder="$1"
for program in CountedChecks CountedComparisons; do
    if [[ ! -x $folder/$program ]]; then
        printf 'There is no %s: it needs the standalone host, muParser, fparser, libSBML and valgrind\n' \
            "$folder/$program" >&2
        exit 2
    fi
done

# The most that is allowed.
against_muparser=0.25      # mean of the ratios of the formulas
against_host=1.5           # likewise: to the calls that the check makes of its host, by themselves
against_fparser=5          # likewise: to fparser's parse
against_libsbml=0.05       # likewise: to libSBML's derivation of the units
larger_catalogue=1.15      # ratio of the sums: 100,000 variables to 100
larger_model=1.5           # likewise: 100,000 objects to 10
larger_look_up=1.15        # of finding variables by name: 100,000 variables to 100
formulas=20                # and as many names

work="$(mktemp -d)"
trap 'rm -rf "$work"' EXIT

# Runs a program and counts into a file of lines "SIDE NUMBER INSTRUCTIONS", and names the file.
#
# usage: count 'SIDE...' PROGRAM [ARGUMENT...]
count()
{
    local sides="$1" program="$2"
    shift 2
    local name="$program $*"
    local counts="$work/${name// /-}.txt"
    valgrind --tool=callgrind --quiet --instr-atstart=no --combine-dumps=yes \
        --callgrind-out-file="$work/profile" "$folder/$program" "$@" >&2
    awk '/^desc: Trigger: Client Request: / { name = $5 " " $6 }
         /^totals: / && name != ""          { print name, $2; name = "" }' "$work/profile" >"$counts"
    rm "$work/profile"
    local side
    for side in $sides; do
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

# The mean of the formulas' ratios of the check to another side.
mean_ratio_to()
{
    awk -v other="$1" '{ of[$1, $2] = $3 } $1 == "check" { numbers[$2] }
        END { for (n in numbers) { sum += of["check", n] / of[other, n]; ++count }
              printf "%.4f", sum / count }' "$2"
}

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

small="$(count 'check muparser lookup' CountedChecks 100 10)"
many_variables="$(count 'check muparser lookup' CountedChecks 100000 10)"
many_objects="$(count 'check muparser lookup' CountedChecks 100 100000)"
comparisons="$(count 'check host fparser libsbml' CountedComparisons)"

printf 'Instructions of %s checks, %s texts each: %s\n' "$formulas" 8 "$(sum_of_checks "$small")"
judge 'Check to muParser, mean of the formulas' "$(mean_ratio_to muparser "$small")" "$against_muparser"
judge 'Check to the calls of its host, mean of the formulas' "$(mean_ratio_to host "$comparisons")" "$against_host"
judge "Check to fparser's parse, mean of the formulas" "$(mean_ratio_to fparser "$comparisons")" "$against_fparser"
judge "Check to libSBML's units, mean of the formulas" "$(mean_ratio_to libsbml "$comparisons")" "$against_libsbml"
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
