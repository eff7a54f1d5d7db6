#!/usr/bin/env bash
# Installs what building and testing zams needs on a Debian machine; a
# package already present is left alone. Needs root (or sudo) only when
# something is missing.
set -euo pipefail

PACKAGES=(
  cmake make g++ gcc-multilib g++-multilib binutils python3 pkg-config
  googletest      # built from source with each target's flags
  qemu-user       # runs the i386 tests where the kernel cannot run 32-bit programs
  libfftw3-dev    # FFT oracle (x86-64 tests) and benchmark peer
  libmpfr-dev     # reference for elementary-function accuracy tests
  doxygen         # the HTML API reference (target docs)
  gnuplot-nox     # the demo's picture
  libsndfile1-dev # sound files in the examples
  libbenchmark-dev libvolk2-dev libsleef-dev libliquid-dev   # benchmark peers
  libgsl-dev      # wavelet benchmark peer
  libsoxr-dev libsamplerate0-dev   # resampling benchmark peers
)

missing=()
for p in "${PACKAGES[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
if [ ${#missing[@]} -gt 0 ]; then
  echo "Installing: ${missing[*]}"
  SUDO=""
  [ "$(id -u)" -eq 0 ] || SUDO="sudo"
  export DEBIAN_FRONTEND=noninteractive
  $SUDO apt-get update -qq
  $SUDO apt-get install -y -qq --no-install-recommends "${missing[@]}"
fi
