#!/usr/bin/env bash
# Counts under callgrind the instructions of loading definitions from a file into the store, and those in which two
# libraries build a tree of the same data, and fails where these are too few times ours. Unlike times, the counts hardly
# depend on what else the machine does.
#
# usage: count_loading.sh FOLDER    the folder that holds CountedLoading
set -euo pipefail

if [[ $# -ne 1 ]]; then
    echo 'usage: count_loading.sh FOLDER' >&2
    exit 2
fi
program="$1/CountedLoading"
if [[ ! -x $program ]]; then
    printf 'There is no %s: it needs the standalone host, yaml-cpp, nlohmann-json and valgrind\n' "$program" >&2
    exit 2
fi

# How many times ours theirs must be at least.
nlohmann_json=3
yaml_cpp=20

work="$(mktemp -d)"
trap 'rm -rf "$work"' EXIT
failed=0

# Counts with that many DEFINITIONS beside the PEER, which must take at least TIMES as much.
judge()
{
    local definitions="$1" peer="$2" times="$3"
    valgrind --tool=callgrind --quiet --instr-atstart=no --combine-dumps=yes \
        --callgrind-out-file="$work/profile" "$program" "$definitions" "$peer" >&2
    awk '/^desc: Trigger: Client Request: / { name = $5 }
         /^totals: / && name != ""          { print name, $2; name = "" }' "$work/profile" >"$work/counts"
    rm "$work/profile"
    awk -v peer="$peer" -v definitions="$definitions" -v times="$times" '
        { count[$1] = $2 }
        END {
            if (!count["ours"] || !count["theirs"]) {
                print "callgrind did not count the loading beside " peer > "/dev/stderr"
                exit 2
            }
            ratio = count["theirs"] / count["ours"]
            printf "%6d definitions: %11d, a tree of %s %12d: %.2f times, at least %d\n",
                definitions, count["ours"], peer, count["theirs"], ratio, times
            exit ratio < times
        }' "$work/counts" || failed=1
}

judge 10000 json "$nlohmann_json"
judge 1000 yaml "$yaml_cpp"    # fewer: it takes long
exit "$failed"
