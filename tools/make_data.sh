#!/usr/bin/env bash
# Makes the shipped data again in the source tree: target icons, ranges, explosion, fire and bursts, the icons of
# program and file types, and sounds. Then makes the pictures of the manual, which show that data. Takes some minutes.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
source tools/functions.sh

install_missing "${build_packages[@]}" "${run_packages[@]}" povray povray-includes imagemagick flite sox \
    librsvg2-bin gifsicle
build release
for target in data pictures sounds help_pictures; do cmake --build --preset release --target "$target"; done
git status --short data
