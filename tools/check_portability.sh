#!/usr/bin/env bash
# Builds the core with clang++ and runs its tests, then builds it for Windows with mingw-w64. Installs what is missing.
# The tests don't call it.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
source tools/setup.sh

install_missing "${build_packages[@]}" "${test_packages[@]}" clang g++-mingw-w64-x86-64-posix
build clang
ctest --preset clang -j "$(getconf _NPROCESSORS_ONLN)" -E random_walk
build mingw
say "the core builds without warnings with clang++ and for Windows, and passes its tests with clang++"
