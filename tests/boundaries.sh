#!/usr/bin/env bash
# Checks what the compiler can't: includes point one way, and only the desktop uses Qt, SDL or code for an
# operating system.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
failed=0

# none RULE PATTERN PATHS-AND-GREP-OPTIONS...: reports the rule as broken if a line matches the pattern.
none() {
    local rule=$1 pattern=$2 found=0
    shift 2
    grep -rnP "$pattern" "$@" || found=$?   # status 1: no line matches; 2: grep has failed
    [ $found -eq 1 ] || { echo "broken: $rule"; failed=1; }
}
include='#include *[<"]'
above='(flow|setup|ranges|gunnery|debrief|calibration|trainer)'

none "only the desktop has code for an operating system" \
    '^\s*#.*(WIN(32|64)|_MSC_VER|__(linux|unix|APPLE|MINGW|CYGWIN)|Q_OS_|<(windows|unistd|direct|io|fcntl|dirent|pwd|dlfcn|pthread|sys/\w+)\.h>)' \
    src --exclude-dir=desktop
none "only the desktop includes Qt and SDL" "$include(Q[A-Z]|Qt|SDL)" src tests --exclude-dir=desktop
none "the state includes nothing above it" "$include($above|platform)" src/state
# Two exceptions: the desktop draws the scales of the sight from the numbers in gunnery/sight.h, and each
# main.cpp starts the trainer.
none "the platform includes nothing above it" "$include(?!gunnery/sight.h)$above" src/platform --exclude=main.cpp
none "only the platform knows the two machines" "${include}platform/(headless|desktop)" src --exclude-dir=platform
none "drawing doesn't know the windows" "${include}platform/desktop/(windows|dialogs)" src/platform/desktop/drawing
exit $failed
