#!/usr/bin/env bash
# Builds the libFuzzer targets and runs each for SECONDS (default 600), two
# at a time, over a scratch corpus seeded from fuzz/corpus/<name>/.
# Findings (crash-*, leak-*, timeout-* files) and logs land in build/fuzz/runs/.
#   bash scripts/fuzz.sh [SECONDS] [TARGET...]
set -euo pipefail
cd "$(dirname "$0")/.."

seconds=${1:-600}
shift || true
cmake --preset fuzz >/dev/null
cmake --build --preset fuzz

runs=build/fuzz/runs
mkdir -p "$runs"
targets=("$@")
if [ ${#targets[@]} -eq 0 ]; then
  for source in fuzz/*_fuzz.cpp; do targets+=("$(basename "$source" _fuzz.cpp)"); done
fi

run_one() {
  local name=$1 corpus=$runs/$1/corpus
  mkdir -p "$corpus"
  cp -n fuzz/corpus/"$name"/* "$corpus"/ 2>/dev/null || true
  (cd "$runs/$name" && ASAN_OPTIONS=detect_leaks=1 UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1 \
     nice -n 10 ../../fuzz/"${name}_fuzz" -max_total_time="$seconds" -timeout=10 \
     -rss_limit_mb=2048 -max_len=65536 -print_final_stats=1 corpus >log.txt 2>&1) &&
    echo "$name: ok ($(grep -m1 -o 'stat::number_of_executed_units: *[0-9]*' "$runs/$name/log.txt" | grep -o '[0-9]*$') runs)" ||
    echo "$name: FAILED, see $runs/$name/log.txt"
}
export -f run_one
export seconds runs
printf '%s\n' "${targets[@]}" | xargs -P 2 -I{} bash -c 'run_one {}'
