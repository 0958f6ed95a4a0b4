#!/usr/bin/env bash
# Builds the tests, with what they need, and runs every one. Arguments go to ctest: ./test.sh -R thermal_practice
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")"
source tools/setup.sh

install_missing "${build_packages[@]}" "${run_packages[@]}" "${test_packages[@]}"
build debug
exec ctest --preset debug "$@"
