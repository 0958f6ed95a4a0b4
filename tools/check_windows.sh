#!/usr/bin/env bash
# Checks the trainer for Windows under Wine. tools/build_windows.sh must have run.
#
# Runs the core's tests. Installs the trainer silently into a fresh Wine prefix, and operates it by mouse and keys until
# a target is destroyed and files are saved. Installs it again and over another version, uninstalls it, and checks what
# is left. Installs and uninstalls it for one user too. Then operates the unpacked program, in a path with spaces,
# umlauts and Cyrillic letters. Compares its start time with that of the trainer for this system. With `core` runs only
# the core's tests, with `program` everything else.
#
#   tools/check_windows.sh [core | program]
#
# Its screenshots are in build/windows/pictures. Needs some minutes, so the tests don't call it.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
source tools/functions.sh
source tools/drive.sh

work=$(realpath build/windows)
version=$(sed -n 's/^project(vorn VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)
export WINDOWS_PREFIX=$work/prefix
export WINEPREFIX=$work/wine WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml=" XDG_RUNTIME_DIR=$work/run LC_ALL=C.UTF-8
export CUPS_SERVER=/nowhere   # hides the printers of this system
jobs=${JOBS:-$(getconf _NPROCESSORS_ONLN)}
helpers=()
fail() { say "$1"; exit 1; }

check_packages=(nsis wine wine64 xvfb openbox xdotool imagemagick poppler-utils python3-fonttools ninja-build
    g++-mingw-w64-x86-64-posix)

end_all() {
    wineserver -k 2>/dev/null || true
    for helper in "${helpers[@]}"; do kill "$helper" 2>/dev/null || true; done
}
trap end_all EXIT

# The core's tests ---------------------------------------------------------------------------------------------------

cross_cmake() { cmake -G Ninja -DCMAKE_TOOLCHAIN_FILE="$PWD/packaging/windows/toolchain.cmake" "$@" >/dev/null; }

run_core_tests() {
    say "building the core's tests for Windows"
    cross_cmake -S /usr/src/googletest -B "$work/gtest" -DCMAKE_INSTALL_PREFIX="$WINDOWS_PREFIX" -DBUILD_GMOCK=OFF \
        -DCMAKE_BUILD_TYPE=Release
    ninja -C "$work/gtest" -j "$jobs" install >/dev/null
    cross_cmake -S . -B "$work/core" -DCMAKE_BUILD_TYPE=Release -DVORN_DESKTOP=OFF
    ninja -C "$work/core" -j "$jobs" vorn_tests
    cp "$(dirname "$(x86_64-w64-mingw32-gcc-posix -print-file-name=libstdc++-6.dll)")"/{libstdc++-6,libgcc_s_seh-1}.dll \
        /usr/x86_64-w64-mingw32/lib/libwinpthread-1.dll "$work/core"
    say "running the core's tests"
    timeout 1800 wine "$work/core/vorn_tests.exe" --gtest_brief=1
    say "repeating the tests that open and save files, with the files on a network path"
    mkdir -p "$WINEPREFIX/dosdevices/unc/server/share"   # Wine's folder for \\server\share
    (cd "$work/core" && timeout 600 wine cmd /c \
        'set TMP=\\server\share&& vorn_tests.exe --gtest_brief=1 --gtest_filter=program.*:debrief.*:author.*')
}

# The program --------------------------------------------------------------------------------------------------------

fresh_windows() {
    say "making a fresh Wine prefix"
    wineserver -k 2>/dev/null || true
    rm -rf "$WINEPREFIX" && mkdir -p "$WINEPREFIX"
    echo '<fontconfig/>' >"$work/no_fonts.conf"
    wineboot -i >/dev/null 2>&1
    wine winecfg -v win10
    wine reg add 'HKCU\Software\Wine\WineDbg' /v ShowCrashDialog /t REG_DWORD /d 0 /f >/dev/null   # a crash shows no dialog
    wineserver -w
    add_arial
}

# Installs a font named Arial, since Windows has Arial and no Liberation Sans. Its letters are those of Liberation Sans,
# which are as wide as those of Arial. The fonts of this system are hidden from Wine: it must not find Liberation Sans.
add_arial() {
    /usr/bin/python3 - "$WINEPREFIX/drive_c/windows/Fonts" /usr/share/fonts/truetype/liberation*/LiberationSans-*.ttf <<'PYTHON'
import os, sys
from fontTools.ttLib import TTFont
for file in sys.argv[2:]:
    font = TTFont(file)
    for name in font["name"].names:
        name.string = name.toUnicode().replace("Liberation Sans", "Arial").replace("LiberationSans", "Arial")
    font.save(os.path.join(sys.argv[1], os.path.basename(file).replace("LiberationSans", "Arial")))
PYTHON
}

title="V. O. R. N."

start() {
    "$@" >/dev/null 2>&1 &
    program=$!
    await "$title" 90
}

await_end() {
    for _ in $(seq 300); do kill -0 "$program" 2>/dev/null || break; sleep 0.1; done
    ! kill -0 "$program" 2>/dev/null || fail "the program is still running"
    wait "$program" || fail "the program ended with an error"
}

# Waits until a window fills the display. Fails if it doesn't within some seconds.
fills_screen() { for _ in $(seq 100); do covers_screen "$1" && return; sleep 0.1; done; return 1; }
covers_screen() { [ "$(xdotool getwindowgeometry "$(window "$1")" | tail -1 | tr -d ' ')" = Geometry:1280x1024 ]; }

# Goes from the title to the set-up screen in full screen, and checks that each fills the display.
carry_full_screen() {
    local width
    for _ in $(seq 20); do   # Return closes the first box
        sleep 2
        width=$(xdotool getwindowgeometry --shell "$(window "$title")" 2>/dev/null | sed -n s/WIDTH=//p)
        [ "${width:-0}" -lt 1000 ] || break
        [ -z "$width" ] || xdotool key Return   # after the box there is no window until the title screen is shown
    done
    xdotool key F11
    fills_screen "$title" || fail "the title screen isn't full screen"
    sleep 2
    picture title
    [ "$(identify -format %k "$pictures/title.png")" -gt 1000 ] || fail "the title screen isn't painted"
    to_the_editor
    picture full_screen
    fills_screen "$editor" || fail "the next screen isn't full screen"
    xdotool key F11 sleep 2
    ! covers_screen "$editor" || fail "full screen doesn't end"
}

# Prints the milliseconds from start to first window.
start_time() {
    local before took deadline=$((SECONDS + 60))
    before=$(date +%s%N)
    "$@" >/dev/null 2>&1 &
    program=$!
    until [ -n "$(window "$title")" ]; do [ $SECONDS -lt $deadline ] || { kill $program; fail "no window: $*"; }; done
    took=$((($(date +%s%N) - before) / 1000000))
    kill $program || true
    wait $program 2>/dev/null || true
    while [ -n "$(window "$title")" ]; do [ $SECONDS -lt $deadline ] || fail "the window stays: $*"; done
    echo $took
}

# Compares the shortest of twelve starts of each program. They start in turn, so that other work on the machine delays
# both. On Windows the desktop is always there; Wine's desktop ends with its last window, so Notepad keeps one open.
compare_starts() {   # FOLDER with the program
    local took windows=999999 here=999999
    cmake --preset release >/dev/null
    cmake --build --preset release -j "$jobs" --target vorn >/dev/null
    say "comparing the start times"
    wine notepad >/dev/null 2>&1 &
    await Notepad
    for _ in $(seq 12); do
        took=$(start_time wine "$1/vorn.exe")
        [ $took -gt $windows ] || windows=$took
        took=$(start_time env -u FONTCONFIG_FILE -u QT_QPA_PLATFORM build/release/vorn)
        [ $took -gt $here ] || here=$took
    done
    say "from start to first window: $windows ms; the trainer for this system takes $here ms"
    [ "$windows" -le $((2 * here)) ] || fail "the program starts too slowly"
}

run_setup() {   # INSTALLER OPTIONS...
    timeout 300 wine "$@" /S || fail "$1 reports an error"
    timeout 120 wineserver -w
}

registered() { wine reg query "$1" >/dev/null 2>&1; }
keys=('Software\Microsoft\Windows\CurrentVersion\Uninstall\V.O.R.N' 'Software\Classes\.'{arf,prf,vrn}
    'Software\Classes\vorn.'{range,practice,record}{'\DefaultIcon','\shell\open\command'})

# Prints a value of the registry.
value() { wine reg query "$@" 2>/dev/null | tr -d '\r' | sed -n 's/.*REG_SZ *//p'; }

look_at_installation() {   # HKLM or HKCU, the folder that the installer contains, its version
    local key type icon classes="$1\\Software\\Classes"
    cmp "$2/vorn.exe" "$installed/vorn.exe" || fail "the program isn't installed"
    diff -rq -x uninstall.exe "$2" "$installed" || fail "the installed files differ"
    for key in "${keys[@]}"; do registered "$1\\$key" || fail "$key isn't registered"; done
    [ "$(value "$1\\${keys[0]}" /v DisplayVersion)" = "$3" ] || fail "the version registered isn't $3"
    for type in range practice record; do
        icon=$(value "$classes\\vorn.$type\\DefaultIcon" /ve)
        [ -f "$(winepath -u "$icon" 2>/dev/null)" ] || fail "the icon of the type $type isn't there: $icon"
    done
    [ "$(for type in arf prf vrn; do value "$classes\\.$type" /ve; done | xargs)" = "vorn.range vorn.practice vorn.record" ] ||
        fail "the file types aren't registered for the trainer"
    [ -n "$(find "$WINEPREFIX/drive_c" -name 'V.O.R.N..lnk')" ] || fail "there is no entry in the start menu"
}

look_at_saved() {   # FOLDER
    grep -q YES "$1/record.vrn" || fail "the record has no destroyed target"
    [ -s "$1/own.prf" ] || fail "the practice wasn't saved"
}

report=$WINEPREFIX/drive_c/report.pdf

magenta_icons() { for n in 1 2 3; do convert -size 64x64 xc:magenta "$1/target icons/target$n.ico"; done; }

fire_and_save() {   # FOLDER of the data, then the command
    local folder=$1
    shift
    start "$@"
    to_the_editor
    set_up
    picture editor
    xdotool key F1
    await "V.O.R.N. Help"
    sleep 2
    picture manual
    xdotool key Escape sleep 1
    destroy_a_target
    rm -f "$report"
    save_all own.prf record.vrn 'C:\report.pdf'
    look_at_saved "$folder"
    pdftotext "$report" - | grep -q "PRACTICE SUMMARY" || fail "the report wasn't printed to a PDF file"
    leave
    await_end
}

# Another version: the program, the icons and the manual of this version, and a file that this version doesn't have.
make_other_version() {
    mkdir -p "$other/V.O.R.N/ranges"
    cp -r "$stage"/{vorn.exe,icons} "$other/V.O.R.N"
    cp "$stage/ranges/vorn.HLP" "$other/V.O.R.N/ranges"
    echo another version >"$other/V.O.R.N/ranges/another_version.txt"
    packaging/windows/make_setup.sh 9.9 "$other/V.O.R.N" "$other/setup.exe" >/dev/null
}

# Installs over an installation. A file that the user has put into the folder stays.
install_over() {   # INSTALLER, the folder that it contains, its version
    touch "$installed/ranges/of_the_user.arf"
    run_setup "$1"
    rm "$installed/ranges/of_the_user.arf" || fail "a file of the user was removed"
    look_at_installation HKLM "$2" "$3"
    look_at_saved "$own"
}

check_installed() {
    installed="$WINEPREFIX/drive_c/Program Files/V.O.R.N"
    pictures=$work/pictures/installed
    say "installing"
    run_setup "$setup"
    look_at_installation HKLM "$stage" "$version"
    say "starting the trainer for the first time"
    start wine "$installed/vorn.exe"
    carry_full_screen
    click "$editor" 1000 30   # EXIT
    answer_yes "$editor"
    await_end
    own=$(echo "$WINEPREFIX"/drive_c/users/*/AppData/Local/vorn/ranges)
    diff -rq -x .copied -x '*@2x*' "$installed/ranges" "$own" || fail "the user's copy differs from what was installed"
    say "destroying a target, saving"
    magenta_icons "$own"
    fire_and_save "$own" wine "$installed/vorn.exe"
    say "installing again over the installation"
    install_over "$setup" "$stage" "$version"
    say "installing another version over it, and this version over that"
    make_other_version
    install_over "$other/setup.exe" "$other/V.O.R.N" 9.9
    install_over "$setup" "$stage" "$version"
    say "uninstalling"
    touch "$installed/ranges/of_the_user.arf"
    uninstall /AllUsers
    [ "$(cd "$installed" && find . -type f)" = ./ranges/of_the_user.arf ] ||
        fail "the uninstaller left: $(ls -R "$installed")"
}

none_registered() {   # HKLM or HKCU
    local key
    for key in "${keys[@]}"; do
        registered "$1\\$key" && fail "$1\\$key is registered"
    done
    return 0
}

uninstall() {   # /AllUsers or /CurrentUser
    run_setup "$installed/uninstall.exe" "$1"
    none_registered HKLM
    none_registered HKCU
    [ -z "$(find "$WINEPREFIX/drive_c" -name 'V.O.R.N..lnk')" ] || fail "the entry in the start menu is still there"
    look_at_saved "$own"
}

check_for_one_user() {
    say "installing for one user"
    run_setup "$setup" /CurrentUser
    installed=$(echo "$WINEPREFIX"/drive_c/users/*/AppData/Local/Programs/V.O.R.N)
    look_at_installation HKCU "$stage" "$version"
    none_registered HKLM
    uninstall /CurrentUser
    [ ! -e "$installed" ] || fail "the uninstaller left: $(ls -R "$installed")"
}

check_unpacked() {
    local folder="$WINEPREFIX/drive_c/Übung für Schützen/пушка"
    pictures=$work/pictures/unpacked
    say "unpacking into a path with spaces, umlauts and Cyrillic letters"
    mkdir -p "$folder"
    (cd "$folder" && cmake -E tar xf "$zip")
    magenta_icons "$folder/V.O.R.N/ranges"
    fire_and_save "$folder/V.O.R.N/ranges" wine "$folder/V.O.R.N/vorn.exe"
    compare_starts "$folder/V.O.R.N"
}

setup=$work/vorn-$version-setup.exe zip=$work/vorn-$version-windows.zip
stage=$work/stage/V.O.R.N other=$work/other
install_missing "${build_packages[@]}" "${run_packages[@]}" "${test_packages[@]}" "${check_packages[@]}"
rm -rf "$work/pictures" "$other"
mkdir -p "$work"/pictures/{installed,unpacked} "$XDG_RUNTIME_DIR" && chmod 700 "$XDG_RUNTIME_DIR"
open_display
export FONTCONFIG_FILE=$work/no_fonts.conf
fresh_windows
[ "${1:-}" = program ] || run_core_tests
[ "${1:-}" = core ] && { say "the core's tests pass under Wine"; exit; }
[ -e "$setup" ] || fail "$setup isn't there: run tools/build_windows.sh first"
[ "$(stat -c %s "$setup")" -lt 90000000 ] || fail "the installer is larger than 90 MB"
check_installed
check_for_one_user
check_unpacked
say "the trainer for Windows passes: $(basename "$setup"), $(du -h "$setup" | cut -f1)"
