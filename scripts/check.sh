#!/usr/bin/env bash
# The checks beside the tests. Usage: scripts/check.sh format|tidy|fuzz|benchmarks ...
set -euo pipefail
cd "$(dirname "$0")/.."

fuzz_seconds=${LORVANE_FUZZ_SECONDS:-60}

configure() { # PRESET ARGUMENTS...
  local preset=$1
  shift
  mkdir -p "build/$preset"
  cmake --preset "$preset" "$@" >"build/$preset/configure.log" 2>&1 || { cat "build/$preset/configure.log" >&2; exit 1; }
}

# Clean files are remembered by their content and that of every header, so that a second run is quick.
tidy() {
  local stamps=build/tidy headers
  mkdir -p "$stamps"
  headers=$({ cat .clang-tidy; scripts/sources.sh all | grep '\.h$' | xargs cat; } | sha256sum | cut -c1-16)
  scripts/sources.sh units | xargs -P "$(nproc)" -I{} bash -c '
    stamp='"$stamps"'/$(cat "{}" | sha256sum | cut -c1-24)-'"$headers"'
    [ -e "$stamp" ] && exit 0
    clang-tidy --quiet -p build --extra-arg=-std=c++17 "{}" 2>"$stamp.log" >"$stamp.out" && touch "$stamp" && rm -f "$stamp.log" "$stamp.out" && exit 0
    cat "$stamp.out" "$stamp.log" >&2; exit 1'
}

fuzz() {
  configure fuzz
  cmake --build build/fuzz --target fuzzers
  local target corpus failed=0 pids=()
  for target in build/fuzz/fuzz/*; do
    [ -x "$target" ] && [ -f "$target" ] || continue
    corpus=build/fuzz/corpus/$(basename "$target")
    mkdir -p "$corpus"
    seeds=$(find fuzz -type d -path "*corpus/$(basename "$target")")
    echo "Fuzzing $(basename "$target") for $fuzz_seconds s"
    # shellcheck disable=SC2086 # no seeds means no argument
    "$target" -max_total_time="$fuzz_seconds" -print_final_stats=1 -artifact_prefix="build/fuzz/" "$corpus" $seeds \
      >"build/fuzz/$(basename "$target").log" 2>&1 &
    pids+=($!)
    if [ "${#pids[@]}" -ge "$(nproc)" ]; then
      wait "${pids[0]}" || failed=1
      pids=("${pids[@]:1}")
    fi
  done
  for pid in "${pids[@]}"; do
    wait "$pid" || failed=1
  done
  for log in build/fuzz/*Fuzzer.log; do
    echo "$(basename "$log" .log): $(grep -E 'number_of_executed_units' "$log" || tail -n 20 "$log")"
  done
  return "$failed"
}

for check in "$@"; do
  echo "== $check =="
  case "$check" in
    format) scripts/sources.sh all | xargs clang-format --dry-run --Werror ;;
    tidy) tidy ;;
    fuzz) fuzz ;;
    benchmarks)
      # Built and run for an instant, so that they do not rot; scripts/benchmarks.sh measures.
      configure benchmark
      cmake --build build/benchmark --target benchmarks
      for program in build/benchmark/benchmarks/*; do
        [ -x "$program" ] && [ -f "$program" ] || continue
        "$program" --benchmark_min_time=0.001 >/dev/null
      done ;;
    *) echo "Usage: scripts/check.sh format|tidy|fuzz|benchmarks ..." >&2; exit 2 ;;
  esac
done
