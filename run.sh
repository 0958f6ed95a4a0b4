#!/usr/bin/env bash
# Installs what the build needs, builds the trainer and starts it. Arguments are passed to the program.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")"
source tools/functions.sh

install_missing "${build_packages[@]}" "${run_packages[@]}"
build release
# Checked only on Linux, where X and Wayland name the display in a variable.
if [ "$(uname -s)" = Linux ] && [ -z "${DISPLAY:-}${WAYLAND_DISPLAY:-}${QT_QPA_PLATFORM:-}" ]; then
    say "V.O.R.N. is built, but there is no display: neither DISPLAY nor WAYLAND_DISPLAY is set." \
        "Run this script on a desktop, or start build/release/vorn there."
    exit 1
fi
exec build/release/vorn "$@"
