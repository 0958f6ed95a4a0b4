#!/usr/bin/env bash
# Measures the time from the start of the trainer to its first window.
#
#   bench/start.sh [PROGRAM [TIMES]]
#
# Needs xdotool and an X display, for example Xvfb. Starts PROGRAM (default build/release/vorn) TIMES times (default 9),
# polls the X server until the window exists, and ends the program. If PROGRAM is in a build folder, also installs it
# read-only and measures TIMES first starts of an ordinary user, which copy the data. If root runs this script, that
# user is the account `nobody`. The figures include some milliseconds of polling, but no disk access: program and data
# are in the disk cache.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

program=$(realpath "${1:-build/release/vorn}") times=${2:-9}
temporary=$(mktemp -d) client=
trap 'kill "$client" 2>/dev/null || true; chmod -R u+w "$temporary"; rm -rf "$temporary"' EXIT
chmod 755 "$temporary"
xdotool getmouselocation >/dev/null   # fails without a display
# Keeps one client connected: an X server may reset when its last client disconnects, and refuse new clients meanwhile.
xdotool search --sync --pid $$ >/dev/null 2>&1 &
client=$!

# Runs the command and prints the milliseconds to its first window.
one_start() {
    local begin=$EPOCHREALTIME end pid
    "$@" 2>/dev/null &
    pid=$!
    until xdotool search --onlyvisible --pid "$pid" >/dev/null 2>&1; do
        kill -0 "$pid" || { echo "the trainer ended without a window: $*" >&2; exit 1; }
    done
    end=$EPOCHREALTIME
    kill "$pid"
    wait "$pid" || true
    echo $(((${end//[!0-9]/} - ${begin//[!0-9]/} + 500) / 1000))
}

# Prints median and maximum of the numbers on standard input.
summary() { sort -n | awk -v what="$1" '{ at[NR] = $1 } END { printf "%s: median %d ms, worst %d ms of %d starts\n", what, at[int((NR + 1) / 2)], at[NR], NR }'; }

one_start "$program" >/dev/null   # fills the disk cache
for ((i = 0; i < times; ++i)); do one_start "$program"; done | summary "start to first window"

[ -e "$(dirname "$program")/cmake_install.cmake" ] || exit 0
cmake --install "$(dirname "$program")" --prefix "$temporary/installed" >/dev/null
chmod -R a-w "$temporary/installed"
user=()
[ "$(id -u)" -ne 0 ] || user=(setpriv --reuid=nobody --regid=nogroup --clear-groups)
for ((i = 0; i < times; ++i)); do
    home=$temporary/home$i
    mkdir -m 777 "$home"
    one_start "${user[@]}" env HOME="$home" XDG_DATA_HOME="$home/data" XDG_RUNTIME_DIR="$home" "$temporary/installed/bin/vorn"
    [ -s "$home/data/vorn/ranges/.copied" ] || { echo "the data was not copied" >&2; exit 1; }
done | summary "first start, with the copy of the data"
