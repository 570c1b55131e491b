#!/usr/bin/env bash
# Builds and runs the benchmarks; ./dev bench calls it.
set -euo pipefail
cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/.."

build=build/bench
programs=$PWD/$build/bench

usage() {
    cat <<'TEXT'
usage: ./dev bench [OPTION]

  (none)             all operations beside the other containers; writes build/bench/results.csv, results.md
                     (the same as a table for docs/benchmarks.md) and docs/bench-ratios.svg
  --quick            the same up to 100,000 nodes, three repetitions, no plot
  --filter REGEX     only these, as OPERATION/KEYS/NODES/CONTAINER: --filter 'find hit/random/1000/(avl_set|ovant)/'
  --cut              cost of cutting half of the nodes out of trees of 1,000 to 4,096,000; plots it
  --limit            searches beside a bare chase down the same links
  --counters         what callgrind counts for the operations that are hardest to make fast, beside avl_set
  --budget           instructions of ten fixed runs, held against bench/budget.txt; --store rewrites that
  --compile [ROUNDS] what including the C++ headers costs a compiler, beside avl_set's
TEXT
}

die() { printf 'bench: %s\n' "$*" >&2; exit 1; }

# Installs what is missing of FILE:PACKAGE..., and goes on without it where that is not possible.
want() {
    local pair missing=()
    for pair in "$@"; do
        [ -e "${pair%:*}" ] || missing+=("${pair##*:}")
    done
    [ ${#missing[@]} = 0 ] && return
    local as_root=() log
    [ "$(id -u)" = 0 ] || as_root=(sudo -n)
    log=$(mktemp)
    printf '==> Installing %s\n' "${missing[*]}"
    { "${as_root[@]}" apt-get -qq update || true
      "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -qq -o DPkg::Lock::Timeout=120 install -y \
          --no-install-recommends "${missing[@]}"; } >"$log" 2>&1 ||
        printf 'bench: could not install %s\n' "${missing[*]}" >&2
    rm -f "$log"
}

# compile TARGET
compile() {
    local log=$build/build.log
    mkdir -p "$build"
    { cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release -DOVANT_BUILD_BENCH=ON -DOVANT_BUILD_TESTS=OFF \
          -DOVANT_BUILD_EXAMPLES=OFF && cmake --build "$build" --target "$1"; } >"$log" 2>&1 ||
        { cat "$log" >&2; die "does not build"; }
    sed -n 's/^-- bench: without /bench: left out: /p' "$log"
}

side_by_side() {
    want /usr/include/benchmark/benchmark.h:libbenchmark-dev /usr/include/boost/intrusive/avl_set.hpp:libboost-dev \
        /usr/include/absl/container/btree_set.h:libabsl-dev /usr/include/glib-2.0/glib.h:libglib2.0-dev \
        /usr/include/bsd/sys/tree.h:libbsd-dev /usr/bin/pkg-config:pkg-config /usr/bin/clang++:clang
    compile bench
    "$programs/bench" --csv="$build/results.csv" "$@"
}

# plot SCRIPT CSV: into docs/bench-SCRIPT.svg
plot() {
    want /usr/bin/gnuplot:gnuplot-nox
    command -v gnuplot >/dev/null || return 0
    gnuplot -e "csv='$2'; svg='docs/bench-$1.svg'" "bench/$1.gp"
}

# Per step, or per operation for a range: instructions, branches guessed wrong, accesses that miss the first cache.
count_all() {
    local out operation n container steps
    out=$(mktemp)
    printf '%-14s%10s  %-9s%14s%8s%8s\n' operation n container instructions wrong misses
    for operation in 'find dependent' 'erase by key' walk 'pop first' 'cut 50 %' join; do
        for n in 1000 100000; do
            for container in avl_set ovant; do
                valgrind --tool=callgrind --branch-sim=yes --cache-sim=yes --collect-atstart=no --quiet \
                    --callgrind-out-file="$out" "$programs/bench_counters" "$container" "$operation" "$n" 2>/dev/null
                case $operation in
                'find dependent') steps=$((n > 16384 ? n : 16384)) ;; # as many questions as a pass asks
                cut* | join) steps=1 ;;
                *) steps=$n ;;
                esac
                awk -v steps="$steps" -v row="$(printf '%-14s%10d  %-9s' "$operation" "$n" "$container")" '
                    /^events:/ { for (i = 2; i <= NF; ++i) at[$i] = i }
                    /^totals:/ { printf "%s%14.1f%8.2f%8.2f\n", row, $at["Ir"] / steps,
                                 ($at["Bcm"] + $at["Bim"]) / steps, ($at["D1mr"] + $at["D1mw"]) / steps }' "$out"
            done
        done
    done
    rm -f "$out"
}

case ${1:-} in
'')
    side_by_side
    awk -f bench/table.awk "$build/results.csv" >"$build/results.md"
    plot ratios "$build/results.csv"
    ;;
--quick) side_by_side --benchmark_repetitions=3 --benchmark_filter='/(1000|100000)/' ;;
--filter)
    [ $# -ge 2 ] || die "--filter needs an expression"
    side_by_side --benchmark_filter="$2" "${@:3}"
    ;;
--cut)
    compile bench_cut
    status=0
    "$programs/bench_cut" >"$build/cut.csv" || status=$?
    column -t -s , "$build/cut.csv"
    plot cut "$build/cut.csv"
    exit "$status"
    ;;
--limit)
    compile bench_limit
    "$programs/bench_limit"
    ;;
--counters)
    want /usr/bin/valgrind:valgrind /usr/include/boost/intrusive/avl_set.hpp:libboost-dev
    compile bench_counters
    count_all
    ;;
--budget)
    want /usr/bin/valgrind:valgrind
    compile bench_budget
    bench/budget.sh "$programs" "${@:2}"
    ;;
--compile)
    want /usr/include/boost/intrusive/avl_set.hpp:libboost-dev /usr/bin/clang++:clang
    bench/compile.sh "${@:2}"
    ;;
help | -h | --help) usage ;;
*) die "unknown argument $1 (./dev bench --help lists them)" ;;
esac
