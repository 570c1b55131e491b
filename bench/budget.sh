#!/usr/bin/env bash
# Counts the instructions that the library spends in ten fixed runs and holds them against bench/budget.txt.
# Arguments: the folder of the built programs, and --store to write the figures down instead.
set -euo pipefail
cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")"

programs=$1
budget=budget.txt
tolerance=3
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# Instructions inside the library's own object file: neither the host's comparator nor the harness counts.
library_share() {
    awk '/^c?ob=/ { id = $1; sub(/^c/, "", id); if (NF > 1) name[id] = $2 } # a name comes with its first mention only
         /^ob=/ { inside = name[id] ~ /libovant/ }
         /^calls=/ { getline; next }
         inside && /^[0-9+*-]/ { sum += $2 }
         END { printf "%d\n", sum }' "$1"
}

compiler=$("${CXX:-c++}" --version | head -n 1)
for run in $("$programs/bench_budget"); do
    valgrind --tool=callgrind --collect-atstart=no --callgrind-out-file="$work/$run" --quiet \
        "$programs/bench_budget" "$run" >/dev/null 2>"$work/log" || { cat "$work/log" >&2; exit 1; }
    printf '%s %s\n' "$run" "$(library_share "$work/$run")"
done >"$work/counted"

if [ "${2:-}" = --store ]; then
    { printf '# Instructions of the library in each run of budget.cpp, compiled by %s\n' "$compiler"
      cat "$work/counted"; } >"$budget"
    cat "$budget"
    exit
fi
grep -qF "$compiler" "$budget" || printf 'bench: the budget was stored with another compiler than %s\n' "$compiler" >&2
awk -v tolerance="$tolerance" '
    /^#/ { next }
    NR == FNR { stored[$1] = $2; next }
    {
        change = stored[$1] ? 100 * ($2 / stored[$1] - 1) : 100
        verdict = change > tolerance ? "over budget" : change < -tolerance ? "below: store it" : ""
        printf "%-14s%12d%+9.2f %%  %s\n", $1, $2, change, verdict
        over += change > tolerance
    }
    END { exit over > 0 }' "$budget" "$work/counted"
