#!/usr/bin/env bash
# Sets up, builds the x86-64 library and runs the demo program.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/setup.sh
cmake --preset demo > build-demo.log 2>&1 || { cat build-demo.log; exit 1; }
cmake --build --preset demo -j "$(nproc)" --target zams_demo >> build-demo.log 2>&1 || { tail -n 80 build-demo.log; exit 1; }
./build/demo/examples/zams_demo
