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
  --budget           instructions of ten fixed runs, held against bench/budget.txt; --store rewrites that
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
--budget)
    want /usr/bin/valgrind:valgrind
    compile bench_budget
    bench/budget.sh "$programs" "${@:2}"
    ;;
help | -h | --help) usage ;;
*) die "unknown argument $1 (./dev bench --help lists them)" ;;
esac
