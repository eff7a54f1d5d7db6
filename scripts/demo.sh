#!/usr/bin/env bash
# Sets up, builds the x86-64 library and runs the demo program: a low-pass
# filter designed and run by the library on a generated signal (or on the WAV
# file given), writing demo-out/filtered.wav and demo-out/spectra.png.
#   scripts/demo.sh [input.wav] [-o outdir] [-c cutoff_hz]
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/setup.sh
cmake --preset demo > build-demo.log 2>&1 || { cat build-demo.log; exit 1; }
cmake --build --preset demo -j "$(nproc)" --target zams_demo >> build-demo.log 2>&1 || { tail -n 80 build-demo.log; exit 1; }
./build/demo/examples/zams_demo "$@"
