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
                     (a table for docs/benchmarks.md), docs/bench-cut.svg and docs/bench-ratios.svg
  --quick            the same up to 100,000 nodes in three passes, no charts
  --filter REGEX     only these, as OPERATION/KEYS/NODES/CONTAINER: --filter '^find/random/1000/(avl_set|ovant)$'
  --levels           the library itself by each compiler at -O2 and -O3
  --cut              cost of cutting half of the nodes out of trees of 1,000 to 4,096,000, with its bounds checked
  --beyond           counts, trees against trees, many searches at once: with and without, and beside what others have
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

# compile FOLDER TARGET [CMAKE ARGUMENTS]: names what is left out.
compile() {
    local folder=$1 target=$2 log=$1/build.log
    mkdir -p "$folder"
    { cmake -S . -B "$folder" -G Ninja -DCMAKE_BUILD_TYPE=Release -DOVANT_BUILD_BENCH=ON -DOVANT_BUILD_TESTS=OFF \
          -DOVANT_BUILD_EXAMPLES=OFF "${@:3}" && cmake --build "$folder" --target "$target"; } >"$log" 2>&1 ||
        { cat "$log" >&2; die "does not build"; }
    sed -n 's/^-- bench: without /bench: left out: /p' "$log"
}

# compile_builds TARGET: in a folder for each compiler and level, named g2, g3, c2 and c3.
compile_builds() {
    local compiler level
    want /usr/bin/clang++:clang
    for compiler in g++ clang++; do
        command -v "$compiler" >/dev/null || { echo "bench: left out: the builds by $compiler"; continue; }
        for level in 2 3; do
            compile "$build/${compiler:0:1}$level" "$1" -DCMAKE_CXX_COMPILER="$compiler" \
                -DCMAKE_CXX_FLAGS_RELEASE="-O$level -DNDEBUG"
        done
    done | sort -u
}

# g2 of build/bench/g2/inlined/avl_set; nothing where there is one build alone.
build_of() { [[ $1 != */??/* ]] || basename "${1%/*/*}"; }

# passes FILTER NODES:PASSES,... PROGRAM...: in turns, so that a slow minute of the machine meets all alike, and in an
# order that changes, so that nobody always runs behind the same one.
passes() {
    local filter=$1 plan item pass program order
    IFS=, read -ra plan <<<"$2"
    for ((pass = 1; pass <= 15; ++pass)); do
        for item in "${plan[@]}"; do
            [ "$pass" -le "${item#*:}" ] || continue
            mapfile -t order < <(shuf -e "${@:3}")
            for program in "${order[@]}"; do
                "$program" "${item%:*}" "$pass" "$(build_of "$program")" "$filter"
            done
        done
    done >"$build/passes.csv"
    [ -s "$build/passes.csv" ] || die "nothing is called that"
}

# report COLUMN: the table, with that column as the yardstick.
report() {
    local compiler # of the line that tells where the figures are from
    { LC_ALL=C sort -s -t , -k 4,4 "$build/passes.csv" |
          LC_ALL=C awk -v base="$1" -v csv="$build/results.csv" -f bench/report.awk
      printf '\n%s, %s, ' "$(date +%F)" "$(sed -n 's/^model name.*: //p' /proc/cpuinfo | head -n 1)"
      for compiler in g++ clang++; do "$compiler" --version 2>/dev/null | head -n 1; done | paste -sd , | sed 's/,/, /'
      printf 'Load: %s; an idle machine has 1 while this runs.\n' "$(cut -d ' ' -f 2 /proc/loadavg)"
    } | tee "$build/results.md"
}

# side_by_side FILTER NODES:PASSES,...
side_by_side() {
    want /usr/include/boost/intrusive/avl_set.hpp:libboost-dev /usr/include/absl/container/btree_set.h:libabsl-dev \
        /usr/include/glib-2.0/glib.h:libglib2.0-dev /usr/include/bsd/sys/tree.h:libbsd-dev \
        /usr/bin/pkg-config:pkg-config
    compile "$build" bench_called
    compile_builds bench_inlined
    passes "$@" "$build"/called/* "$build"/??/inlined/*
    report avl_set
}

# The released library has the first column, and each of its builds one of its own.
levels() {
    compile "$build" ovant_tree
    compile_builds ovant_tree
    passes '^(insert|find|lower bound|erase|walk|cut 50 %)/random/.*ovant$' 1000:15,100000:15 "$build"/{,??/}called/ovant_tree
    sed -i -E 's/,ovant,([^,]+),/,ovant \1,,/' "$build/passes.csv"
    report ovant
}

# plot NAME: bench/NAME.gp draws the results into docs/bench-NAME.svg.
plot() {
    want /usr/bin/gnuplot:gnuplot-nox
    command -v gnuplot >/dev/null || return 0
    gnuplot -e "csv='$build/results.csv'; svg='docs/bench-$1.svg'" "bench/$1.gp"
}

# Per step, or per operation for a range: instructions, branches guessed wrong, accesses that miss the first cache.
count_all() {
    local out operation n container steps
    out=$(mktemp)
    printf '%-14s%10s  %-9s%14s%12s%12s\n' operation n container instructions wrong misses
    for operation in 'find dependent' erase walk 'pop first' 'cut 50 %' join; do
        for n in 1000 100000; do
            for container in avl_set ovant; do
                valgrind --tool=callgrind --branch-sim=yes --cache-sim=yes --collect-atstart=no --quiet \
                    --callgrind-out-file="$out" "$programs/bench_counters" "$container" "$operation" "$n" 2>/dev/null
                case $operation in
                'find dependent') steps=$((n < 4096 ? 4096 : n < 65536 ? n : 65536)) ;; # what a pass asks
                cut* | join) steps=1 ;;
                *) steps=$n ;;
                esac
                awk -v steps="$steps" -v row="$(printf '%-14s%10d  %-9s' "$operation" "$n" "$container")" '
                    /^events:/ { for (i = 2; i <= NF; ++i) at[$i] = i }
                    /^totals:/ { printf "%s%14.1f%12.2f%12.2f\n", row, $at["Ir"] / steps,
                                 ($at["Bcm"] + $at["Bim"]) / steps, ($at["D1mr"] + $at["D1mw"]) / steps }' "$out"
            done
        done
    done
    rm -f "$out"
}

case ${1:-} in
'')
    side_by_side '/1000(00|000)?/|^cut 50 %' 1000:15,10000:9,100000:9,1000000:5
    plot cut
    plot ratios
    ;;
--quick) side_by_side . 1000:3,100000:3 ;;
--filter)
    [ $# = 2 ] || die "--filter needs an expression"
    side_by_side "$2" 1000:15,100000:9,1000000:5
    ;;
--levels) levels ;;
--cut)
    compile "$build" cut
    "$programs/bench_cut" | column -t -s ,
    ;;
--beyond)
    want /usr/include/absl/container/btree_set.h:libabsl-dev
    compile "$build" beyond
    "$programs/bench_beyond"
    ;;
--limit)
    compile "$build" limit
    "$programs/bench_limit"
    ;;
--counters)
    want /usr/bin/valgrind:valgrind /usr/include/boost/intrusive/avl_set.hpp:libboost-dev
    compile "$build" counters
    count_all
    ;;
--budget)
    want /usr/bin/valgrind:valgrind
    compile "$build" budget
    bench/budget.sh "$programs" "${@:2}"
    ;;
--compile)
    want /usr/include/boost/intrusive/avl_set.hpp:libboost-dev /usr/bin/clang++:clang
    bench/compile.sh "${@:2}"
    ;;
help | -h | --help) usage ;;
*) die "unknown argument $1 (./dev bench --help lists them)" ;;
esac
