#!/usr/bin/env bash
# Builds the core with clang++ and runs its tests, except the random walks. Then builds the core for Windows with
# mingw-w64, and the preset debug with each source compiled on its own, which finds a missing #include. Installs what
# is missing. Needs some minutes, so the tests don't call it.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
source tools/functions.sh

install_missing "${build_packages[@]}" "${test_packages[@]}" clang g++-mingw-w64-x86-64-posix
build clang
ctest --preset clang -j "$(getconf _NPROCESSORS_ONLN)" -E random_walk
build mingw
cmake --preset debug -B build/separate -DVORN_FAST_BUILD=OFF
cmake --build build/separate -j "$(getconf _NPROCESSORS_ONLN)"
say "the core builds without warnings with clang++ and for Windows, and passes its tests with clang++ (random walks not run). Each source compiles on its own."
