#!/usr/bin/env bash
# Makes all shipped data anew in the source tree: icons, ranges, explosion, program icon, voices and sounds, and last,
# by a trainer built with them, the pictures of the manual. Takes some minutes.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
source tools/setup.sh

install_missing "${build_packages[@]}" "${run_packages[@]}" flite sox
build release
for target in data pictures sounds help_pictures; do cmake --build --preset release --target "$target"; done
git status --short data
