#!/usr/bin/env bash
# Builds the tests, with what they need, and runs every one, after the fuzzers, each for some seconds. Arguments go to
# ctest, and then only the tests run: ./test.sh -R thermal_practice
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")"
source tools/setup.sh

install_missing "${build_packages[@]}" "${run_packages[@]}" "${test_packages[@]}"
if [ $# -eq 0 ]; then run_fuzzers; fi
build debug
exec ctest --preset debug "$@"
