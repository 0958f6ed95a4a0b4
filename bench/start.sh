#!/usr/bin/env bash
# Measures how long the trainer takes from its start to its first window.
#
#   bench/start.sh [PROGRAM [TIMES]]
#
# Needs an X display, without which Xvfb will do, and xdotool. Starts PROGRAM (build/release/vorn) TIMES times (9), looks
# at the X server without a pause until a window of it is there, and ends it. Where PROGRAM lies in a build folder it is
# then installed for reading alone, and each of another TIMES starts is the first one of an ordinary user, who gets a copy
# of the data: if root runs this, it is nobody who starts it. A look takes some milliseconds, which are in the figures;
# the disk isn't: all has been read before.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

program=$(realpath "${1:-build/release/vorn}") times=${2:-9}
temporary=$(mktemp -d) client=
trap 'kill "$client" 2>/dev/null || true; chmod -R u+w "$temporary"; rm -rf "$temporary"' EXIT
chmod 755 "$temporary"
xdotool getmouselocation >/dev/null   # is there a display?
# Waits for a window that never comes: an X server whose last client leaves may start anew, and then takes none.
xdotool search --sync --pid $$ >/dev/null 2>&1 &
client=$!

# Starts the command, which becomes the program, and prints the milliseconds to its first window.
one_start() {
    local begin=$EPOCHREALTIME end pid
    "$@" 2>/dev/null &
    pid=$!
    until xdotool search --onlyvisible --pid "$pid" >/dev/null 2>&1; do
        kill -0 "$pid" || { echo "$1 has ended without a window" >&2; exit 1; }
    done
    end=$EPOCHREALTIME
    kill "$pid"
    wait "$pid" || true
    echo $(((${end//[!0-9]/} - ${begin//[!0-9]/} + 500) / 1000))
}

# Tells the median and the worst of some lines.
tell() { sort -n | awk -v what="$1" '{ at[NR] = $1 } END { printf "%s: median %d ms, worst %d ms of %d\n", what, at[int((NR + 1) / 2)], at[NR], NR }'; }

one_start "$program" >/dev/null   # reads it from the disk
for ((i = 0; i < times; ++i)); do one_start "$program"; done | tell "start to first window"

[ -e "$(dirname "$program")/cmake_install.cmake" ] || exit 0
cmake --install "$(dirname "$program")" --prefix "$temporary/installed" >/dev/null
chmod -R a-w "$temporary/installed"
user=()
[ "$(id -u)" -ne 0 ] || user=(setpriv --reuid=nobody --regid=nogroup --clear-groups)
for ((i = 0; i < times; ++i)); do
    home=$temporary/home$i
    mkdir -m 777 "$home"
    one_start "${user[@]}" env HOME="$home" XDG_DATA_HOME="$home/data" XDG_RUNTIME_DIR="$home" "$temporary/installed/bin/vorn"
    [ -s "$home/data/vorn/ranges/.copied" ] || { echo "no copy has been made" >&2; exit 1; }
done | tell "the same with a copy of the data to be made"
