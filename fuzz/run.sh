#!/usr/bin/env bash
# fuzz/run.sh [SECONDS]: builds the harness under the sanitizers and runs it, by libFuzzer where clang has it.
# What libFuzzer finds lies in build/fuzz as crash-*; run it again with: build/fuzz/operations FILE
# Without it a finding is told by its seed; run that again with: build/fuzz/operations SEED 1
set -euo pipefail
cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/.."

seconds=${1:-60}
if [ $# -gt 1 ] || ! [[ $seconds =~ ^[0-9]{1,6}$ ]] || [ "$seconds" = 0 ]; then
    echo 'usage: fuzz/run.sh [SECONDS]   (from 1 up; 60 if not given)' >&2
    exit 2
fi

out=build/fuzz
mkdir -p "$out/corpus"
export ASAN_OPTIONS=abort_on_error=1
flags=(-std=c++20 -g -O1 -Wall -Wextra -Wpedantic -Wconversion -Wshadow -fno-sanitize-recover=all -Iinclude -Ic -Itests
    '-Wl,--wrap=malloc,--wrap=realloc,--wrap=strdup,--wrap=free')
sources=(fuzz/operations.cpp tests/support/memory.cpp c/*/*.cpp)

if clang++ -x c++ -fsanitize=fuzzer -o "$out/probe" - 2>/dev/null <<<'extern "C" int LLVMFuzzerTestOneInput(const char *, unsigned long) { return 0; }'; then
    clang++ "${flags[@]}" -fsanitize=fuzzer,address,undefined "${sources[@]}" -lgtest -o "$out/operations"
    exec "$out/operations" -max_total_time="$seconds" -max_len=3000 -artifact_prefix="$out/" \
        "$out/corpus"
else
    c++ "${flags[@]}" -fsanitize=address,undefined "${sources[@]}" fuzz/driver.cpp -lgtest -o "$out/operations"
    exec "$out/operations" "$(date +%s)" "$seconds"
fi
