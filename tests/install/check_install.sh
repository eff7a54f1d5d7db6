#!/usr/bin/env bash
# Installs the built library under a fresh temporary prefix and builds a C
# program against it twice, through pkg-config and through the CMake
# package, then runs both. usage: check_install.sh <build dir> <source dir> <-m32|-m64>
set -euo pipefail
build=$1 src=$2 arch=$3
tmp=$(mktemp -d)
trap 'rm -rf "$tmp"' EXIT
prefix=$tmp/some/prefix
cmake --install "$build" --prefix "$prefix" > "$tmp/install.log"
pc=$(find "$prefix" -name zams.pc)
[ -n "$pc" ] || { echo "no zams.pc installed"; exit 1; }
libdir=$(dirname "$(find "$prefix" -name 'libzams.so' | head -n 1)")
export LD_LIBRARY_PATH=$libdir

# pkg-config, from the file's own place
export PKG_CONFIG_PATH=$(dirname "$pc")
cc $arch "$src/tests/c/header_c.c" -o "$tmp/by_pkgconfig" $(pkg-config --cflags --libs zams) -Wl,-rpath-link,"$libdir"
"$tmp/by_pkgconfig"

# the CMake package
mkdir "$tmp/app"
cp "$src/tests/c/header_c.c" "$tmp/app/"
cat > "$tmp/app/CMakeLists.txt" <<CM
cmake_minimum_required(VERSION 3.25)
project(app C)
find_package(zams REQUIRED)
add_executable(app header_c.c)
target_link_libraries(app PRIVATE zams::zams)
CM
CFLAGS=$arch LDFLAGS=$arch cmake -S "$tmp/app" -B "$tmp/app/build" -DCMAKE_PREFIX_PATH="$prefix" > "$tmp/app.log" 2>&1 || { cat "$tmp/app.log"; exit 1; }
cmake --build "$tmp/app/build" >> "$tmp/app.log" 2>&1 || { cat "$tmp/app.log"; exit 1; }
"$tmp/app/build/app"
echo "installed under $prefix: pkg-config and CMake consumers built and ran"
