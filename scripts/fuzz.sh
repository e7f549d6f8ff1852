#!/usr/bin/env bash
# Builds the fuzz targets with clang and libFuzzer (with ASan and UBSan) in a folder of their own
# and runs each for a while, starting from its seeds in fuzz/corpus. What the runs add to a corpus
# stays in the build folder; an input that breaks a target is saved there and fails the script.
#   scripts/fuzz.sh [SECONDS per target] [BUILD folder]
set -euo pipefail
cd "$(dirname "$0")/.."
seconds=${1:-300}
build=${2:-build-fuzz}
./scripts/install-deps.sh fuzz
cmake -S . -B "$build" -DCMAKE_BUILD_TYPE=Release -DCMAKE_CXX_COMPILER=clang++ \
      -DBQ_FUZZ=ON -DBQ_WITH_QT=OFF >/dev/null
targets=$(cut -d' ' -f1 "$build/fuzz_targets.txt")
# shellcheck disable=SC2086
cmake --build "$build" -j"${JOBS:-2}" --target $targets -- --no-print-directory >/dev/null
mkdir -p "$build/artifacts"
status=0
while read -r name program seeds dict; do
  corpus="$build/corpus/$name"
  mkdir -p "$corpus"
  args=(-max_total_time="$seconds" -print_final_stats=1 -close_fd_mask=1
        -artifact_prefix="$build/artifacts/$name-" "$corpus" "$seeds")
  [ -n "${dict:-}" ] && args+=(-dict="$dict")
  echo "fuzzing $name for $seconds s (log: $build/$name.log)"
  if ! "$program" "${args[@]}" >"$build/$name.log" 2>&1; then
    status=1
    tail -n 40 "$build/$name.log"
  fi
  # The last status line and the totals: executions, speed, coverage, corpus size.
  grep -E '^#[0-9]+' "$build/$name.log" | tail -n 1 || true
  grep -E 'stat::(number_of_executed_units|average_exec_per_sec|peak_rss_mb)' "$build/$name.log" || true
done <"$build/fuzz_targets.txt"
exit $status
