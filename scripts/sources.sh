#!/usr/bin/env bash
# Prints the C++ files of the tree, one a line. Usage: scripts/sources.sh [all|units]   (units: no headers, no tests)
set -euo pipefail
cd "$(dirname "$0")/.."
case "${1:-all}" in
  all) git ls-files -- '*.cpp' '*.h' ;;
  units) git ls-files -- '*.cpp' ':!tests/**' ':!benchmarks/**' ':!fuzz/**' ;;
  *) echo "Usage: scripts/sources.sh [all|units]" >&2; exit 2 ;;
esac
