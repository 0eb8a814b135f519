#!/usr/bin/env bash
# Builds the benchmarks and prints each beside its yardstick. Usage: scripts/benchmarks.sh [BENCHMARK ARGUMENTS]
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/packages.sh build check
mkdir -p build/benchmark
cmake --preset benchmark >build/benchmark/configure.log 2>&1 || { cat build/benchmark/configure.log >&2; exit 1; }
cmake --build build/benchmark --target benchmarks
export QT_QPA_PLATFORM=offscreen
for program in build/benchmark/benchmarks/*; do
  [ -x "$program" ] && [ -f "$program" ] || continue
  echo "== $(basename "$program") =="
  "$program" "$@"
done
