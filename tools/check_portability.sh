#!/usr/bin/env bash
# Builds the core with the other compilers: with clang++ together with its tests, which are run, and for Windows
# with mingw-w64; builds the fuzzers, which clang brings, and runs each for some seconds. No ordinary test calls it; it
# installs what is missing.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
source tools/setup.sh

install_missing "${build_packages[@]}" "${test_packages[@]}" clang g++-mingw-w64-x86-64-posix
# What the fuzzers link with: on Debian a package apart, which has the version in its name.
install_missing "libclang-rt-$(clang -dumpversion | cut -d. -f1)-dev"
build clang
ctest --preset clang -j "$(getconf _NPROCESSORS_ONLN)" -E random_walk
build mingw
cmake --preset fuzz
cmake --build --preset fuzz -j "$(getconf _NPROCESSORS_ONLN)" --target fuzz_items fuzz_range fuzz_practice fuzz_results fuzz_help
ctest --preset fuzz
say "the core builds with clang++ and for Windows without a warning, and passes its tests with clang++; the fuzzers run"
