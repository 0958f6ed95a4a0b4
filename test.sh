#!/usr/bin/env bash
# Installs what the tests need, makes 5,000 runs of each fuzzer, then builds and runs all tests. Arguments are passed to
# ctest, and the fuzzers are then skipped: ./test.sh -R desktop
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")"
source tools/setup.sh

install_missing "${build_packages[@]}" "${run_packages[@]}" "${test_packages[@]}"
if [ $# -eq 0 ]; then run_fuzzers; fi
build debug
exec ctest --preset debug -j "$(getconf _NPROCESSORS_ONLN)" "$@"
