#!/usr/bin/env bash
# Installs what the tests need, builds and runs all tests, and makes 5,000 runs of each fuzzer. Arguments are passed to
# ctest, and the fuzzers are then skipped: ./test.sh -R desktop
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")"
source tools/functions.sh

install_missing "${build_packages[@]}" "${run_packages[@]}" "${test_packages[@]}"
# The fuzzers are built and run during the build of the tests, since either build leaves a processor idle while it
# configures and links. They have their own process group, so that a failed build or Ctrl+C also ends all of them.
fuzzers=
if [ $# -eq 0 ] && install_fuzzer_compiler; then
    mkdir -p build
    set -m
    run_fuzzers >build/fuzz.log 2>&1 &
    set +m
    fuzzers=$!
    trap 'kill -- "-$fuzzers" 2>/dev/null || true' EXIT
fi
build debug
if [ -n "$fuzzers" ]; then
    wait "$fuzzers" && failed= || failed=1
    cat build/fuzz.log
    [ -z "$failed" ] || { say "the fuzzers have failed"; exit 1; }
fi
exec ctest --preset debug -j "$(getconf _NPROCESSORS_ONLN)" "$@"
