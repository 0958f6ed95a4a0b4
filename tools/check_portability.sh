#!/usr/bin/env bash
# Builds the core with the other compilers: with clang++ together with its tests, which are run, and for Windows
# with mingw-w64. No ordinary test calls it; it installs what is missing.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
source tools/setup.sh

install_missing "${build_packages[@]}" "${test_packages[@]}" clang g++-mingw-w64-x86-64-posix
build clang
ctest --preset clang -j "$(getconf _NPROCESSORS_ONLN)" -E random_walk
build mingw
say "the core builds with clang++ and for Windows without a warning, and passes its tests with clang++"
