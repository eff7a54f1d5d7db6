#!/usr/bin/env bash
# Builds and runs the benchmarks for one target against its peers.
#   scripts/bench.sh [x86_64|i386] [filter]     (default x86_64, every benchmark)
# i386 runs natively, against the peers' own i386 builds (Debian multiarch).
# Where this machine cannot run 32-bit programs, the i386 run falls back to an
# x86-64 build on eight vector registers and says so: a proxy, not i386.
# Never run under an emulator: its times mean nothing.
# Both targets side by side, row by row: scripts/bench_targets.sh.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/bench_lib.sh
target=${1:-x86_64}
filter=${2:-}
case $target in
  x86_64|i386) ;;
  *) echo "usage: scripts/bench.sh [x86_64|i386] [filter]" >&2; exit 2 ;;
esac
scripts/setup.sh
preset=$(bench_preset "$target")
bench_build "$preset"
exec "build/$preset/bench/zams_bench" "$filter"
