# Sourced by scripts/bench.sh and scripts/bench_targets.sh: which preset times
# a target on this machine, and building it.

# bench_preset x86_64|i386: prints the preset. i386 runs natively, against the
# peers' own i386 builds (Debian multiarch, installed here when missing); where
# this machine cannot run 32-bit programs it is the x86-64 build on eight
# vector registers, and a note on stderr says so. Never an emulator.
bench_preset() {
  local target=$1 probe p
  local -a need=()
  case $target in
    x86_64) echo bench; return ;;
    i386) ;;
    *) echo "unknown target: $target (x86_64 or i386)" >&2; return 2 ;;
  esac
  probe=$(mktemp -d)
  printf 'int main(void) { return 0; }\n' > "$probe/p.c"
  if ! { gcc -m32 "$probe/p.c" -o "$probe/p" 2>/dev/null && "$probe/p" 2>/dev/null; }; then
    rm -rf "$probe"
    echo "This machine cannot run 32-bit programs: timing the x86-64 proxy on eight vector registers instead." >&2
    echo bench-proxy
    return
  fi
  rm -rf "$probe"
  for p in libfftw3-dev:i386 libvolk2-dev:i386 libsleef-dev:i386 libliquid-dev:i386 libgsl27:i386 libgslcblas0:i386 \
           libsoxr-dev:i386 libsamplerate0-dev:i386; do
    dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || need+=("$p")
  done
  if [ ${#need[@]} -gt 0 ]; then
    local SUDO=""
    [ "$(id -u)" -eq 0 ] || SUDO="sudo"
    dpkg --print-foreign-architectures | grep -qx i386 || $SUDO dpkg --add-architecture i386 >&2
    DEBIAN_FRONTEND=noninteractive $SUDO apt-get update -qq >&2
    DEBIAN_FRONTEND=noninteractive $SUDO apt-get install -y -qq --no-install-recommends "${need[@]}" >&2
  fi
  echo bench-i386
}

# bench_build preset: configures (once) and builds zams_bench, the log in
# build-<preset>.log; prints the log's tail and fails on an error.
bench_build() {
  local preset=$1 log="build-$1.log"
  if [ ! -f "build/$preset/CMakeCache.txt" ]; then
    cmake --preset "$preset" > "$log" 2>&1 || { cat "$log" >&2; return 1; }
  fi
  cmake --build "build/$preset" -j "$(nproc)" --target zams_bench >> "$log" 2>&1 || { tail -n 80 "$log" >&2; return 1; }
}
