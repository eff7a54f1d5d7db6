#!/usr/bin/env bash
# Sets up, builds and tests: both targets (i386 and x86-64) with every test,
# then the x86-64 library under AddressSanitizer/UBSan with the hostile-input
# and thread tests, and under ThreadSanitizer with the thread test.
#   scripts/test.sh                  all four presets
#   scripts/test.sh x86_64 i386      only the presets named
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/setup.sh

jobs=$(nproc)
presets=(x86_64 i386 asan tsan)
[ $# -gt 0 ] && presets=("$@")
start=$SECONDS
for p in "${presets[@]}"; do
  echo "=== $p: configure and build"
  cmake --preset "$p" > "build-$p.log" 2>&1 || { cat "build-$p.log"; exit 1; }
  cmake --build --preset "$p" -j "$jobs" >> "build-$p.log" 2>&1 || { tail -n 80 "build-$p.log"; exit 1; }
done
status=0
for p in "${presets[@]}"; do
  echo "=== $p: tests"
  ctest --preset "$p" -j "$jobs" || status=1
done
echo "=== built and tested ${presets[*]} in $((SECONDS - start)) s"
exit $status
