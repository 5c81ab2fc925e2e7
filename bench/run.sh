#!/usr/bin/env bash
# Measures the tool on a generated module of about 10 MB and 270,000 lines
# against peers on the same file, then runs the in-process benchmarks (IDE
# calls per command, text work alone, the tool windows on a project of
# 250,000 lines).
#   bash bench/run.sh
# Each row: best wall time of three runs, its throughput, the peer's time,
# the ratio the target is about, and the peak memory of the tool's process.
set -euo pipefail
cd "$(dirname "$0")/.."

bash scripts/install-deps.sh --linux-only >/dev/null
cmake --preset bench >/dev/null
cmake --build --preset bench >/dev/null

work=build/bench/run
mkdir -p "$work"
input=$work/large.bas
build/bench/bench/generate_module "$input"
tavrin=build/bench/tavrin
input_mb=$(awk -v b="$(stat -c %s "$input")" 'BEGIN { printf "%.2f", b / 1048576 }')
lines=$(wc -l < "$input")

# best_of CMD...: prints "seconds peak_kb" of the fastest of three runs.
best_of() {
  local best="" peak=0
  for _ in 1 2 3; do
    if ! /usr/bin/time -f "%e %M" -o "$work/time.txt" sh -c "$1" >/dev/null 2>"$work/stderr.txt"; then
      echo "bench: failed: $1" >&2
      cat "$work/stderr.txt" >&2
      exit 1
    fi
    read -r seconds kb < "$work/time.txt"
    if [[ -z $best ]] || awk -v a="$seconds" -v b="$best" 'BEGIN { exit !(a < b) }'; then
      best=$seconds
    fi
    (( kb > peak )) && peak=$kb
  done
  echo "$best $peak"
}

printf '\nInput: %s (%s MB, %s lines)\n\n' "$input" "$input_mb" "$lines"
printf '| %-24s | %8s | %8s | %-28s | %8s | %-22s | %9s | %-6s |\n' \
  task seconds 'MB/s' peer 'peer s' ratio 'peak MB' target
printf '|%s|%s|%s|%s|%s|%s|%s|%s|\n' -------------------------- ---------- ---------- \
  ------------------------------ ---------- ------------------------ ----------- --------

# row TASK TAVRIN_COMMAND PEER_NAME PEER_COMMAND KIND LIMIT
#   KIND faster: the peer's time over ours must reach LIMIT;
#   KIND within: our time over the peer's must stay under LIMIT;
#   KIND under:  our time must stay under LIMIT seconds.
row() {
  local task=$1 ours=$2 peer_name=$3 peer=$4 kind=$5 limit=$6
  read -r seconds kb <<<"$(best_of "$ours")"
  local peer_seconds="-" ratio="-" met
  if [[ -n $peer ]]; then read -r peer_seconds _ <<<"$(best_of "$peer")"; fi
  case $kind in
    faster) ratio=$(awk -v p="$peer_seconds" -v s="$seconds" 'BEGIN { printf "%.1fx faster", p / (s > 0 ? s : 0.001) }')
            met=$(awk -v p="$peer_seconds" -v s="$seconds" -v l="$limit" 'BEGIN { print (p >= l * s) ? "met" : "NOT met" }') ;;
    within) ratio=$(awk -v p="$peer_seconds" -v s="$seconds" 'BEGIN { printf "%.2fx the peer", s / (p > 0 ? p : 0.001) }')
            met=$(awk -v p="$peer_seconds" -v s="$seconds" -v l="$limit" 'BEGIN { print (s <= l * p) ? "met" : "NOT met" }') ;;
    under)  met=$(awk -v s="$seconds" -v l="$limit" 'BEGIN { print (s < l) ? "met" : "NOT met" }') ;;
  esac
  local mbps peak_mb
  mbps=$(awk -v m="$input_mb" -v s="$seconds" 'BEGIN { printf "%.1f", m / (s > 0 ? s : 0.001) }')
  peak_mb=$(awk -v k="$kb" -v m="$input_mb" 'BEGIN { printf "%.0f (%.1fx)", k / 1024, k / 1024 / m }')
  printf '| %-24s | %8s | %8s | %-28s | %8s | %-22s | %9s | %-6s |\n' \
    "$task" "$seconds" "$mbps" "$peer_name" "$peer_seconds" "$ratio ($kind $limit)" "$peak_mb" "$met"
}

commented=$work/commented.bas
"$tavrin" comment add "$input" -o "$commented"

row "code to HTML (fragment)" "$tavrin html $input --fragment -o $work/out.htm" \
    "highlight -S vb -O html" "highlight -S vb -O html -i $input -o $work/peer.html" faster 10
row "line numbers, add" "$tavrin lines add $input -o $work/numbered.bas" \
    "awk '{print NR*10 \" \" \$0}'" "awk '{print NR*10 \" \" \$0}' $input > $work/peer.txt" within 2
row "comment marks, add" "$tavrin comment add $input -o $work/out.bas" \
    "awk '{print \"'\"'\"'\" \$0}'" "awk '{print \"'\"'\"'\" \$0}' $input > $work/peer.txt" within 2
row "comment marks, remove" "$tavrin comment remove $commented -o $work/out.bas" \
    "awk '{sub(/'\"'\"'/, \"\"); print}'" "awk '{sub(/'\"'\"'/, \"\"); print}' $commented > $work/peer.txt" within 2
if "$tavrin" --help | grep -q "^  procs"; then
  row "procs --json" "$tavrin --json procs $input > $work/procs.json" "" "" under 1
fi

echo
build/bench/bench/tavrin_bench --benchmark_counters_tabular=true
