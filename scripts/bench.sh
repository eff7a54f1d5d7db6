#!/usr/bin/env bash
# Builds and runs the benchmarks for one target against its peers.
#   scripts/bench.sh [x86_64|i386] [filter]     (default x86_64, every benchmark)
# i386 runs natively, against the peers' own i386 builds (Debian multiarch).
# Where this machine cannot run 32-bit programs, the i386 run falls back to an
# x86-64 build on eight vector registers and says so: a proxy, not i386.
# Never run under an emulator: its times mean nothing.
set -euo pipefail
cd "$(dirname "$0")/.."
target=${1:-x86_64}
filter=${2:-}
scripts/setup.sh

SUDO=""
[ "$(id -u)" -eq 0 ] || SUDO="sudo"
preset=bench
if [ "$target" = i386 ]; then
  probe=$(mktemp -d)
  trap 'rm -rf "$probe"' EXIT
  printf 'int main(void) { return 0; }\n' > "$probe/p.c"
  if gcc -m32 "$probe/p.c" -o "$probe/p" 2>/dev/null && "$probe/p" 2>/dev/null; then
    preset=bench-i386
    need=()
    for p in libfftw3-dev:i386 libvolk2-dev:i386 libsleef-dev:i386 libliquid-dev:i386 libgsl27:i386 libgslcblas0:i386 \
             libsoxr-dev:i386 libsamplerate0-dev:i386; do
      dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || need+=("$p")
    done
    if [ ${#need[@]} -gt 0 ]; then
      dpkg --print-foreign-architectures | grep -qx i386 || $SUDO dpkg --add-architecture i386
      export DEBIAN_FRONTEND=noninteractive
      $SUDO apt-get update -qq
      $SUDO apt-get install -y -qq --no-install-recommends "${need[@]}"
    fi
  else
    echo "This machine cannot run 32-bit programs: timing the x86-64 proxy on eight vector registers instead."
    preset=bench-proxy
  fi
elif [ "$target" != x86_64 ]; then
  echo "usage: scripts/bench.sh [x86_64|i386] [filter]" >&2
  exit 2
fi
cmake --preset "$preset" > "build-$preset.log" 2>&1 || { cat "build-$preset.log"; exit 1; }
cmake --build --preset "$preset" -j "$(nproc)" >> "build-$preset.log" 2>&1 || { tail -n 80 "build-$preset.log"; exit 1; }
exec "build/$preset/bench/zams_bench" "$filter"
