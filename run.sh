#!/usr/bin/env bash
# Builds the trainer, with what it needs, and starts it. Arguments go to the program.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")"
source tools/setup.sh

install_missing "${build_packages[@]}" "${run_packages[@]}"
build release
# Elsewhere than on a window system of X or Wayland a program finds its display by itself.
if [ "$(uname -s)" = Linux ] && [ -z "${DISPLAY:-}${WAYLAND_DISPLAY:-}${QT_QPA_PLATFORM:-}" ]; then
    say "V.O.R.N. is built, but there is no display to show it on: neither DISPLAY nor WAYLAND_DISPLAY is set." \
        "Run this on a desktop, or start build/release/vorn there."
    exit 1
fi
exec build/release/vorn "$@"
