#!/usr/bin/env bash
# Builds the trainer for Windows, on Debian 12: its libraries from Debian's sources, the trainer, an installer, and a
# ZIP file of the program's folder. Installs what it needs.
#
#   tools/build_windows.sh
#
# The first run takes 20 to 30 minutes on two cores, and three gigabytes in build/windows; later runs build only what
# has changed. The environment variable JOBS says how many compilers run at a time.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
source tools/functions.sh

windows_packages=(cmake ninja-build g++ g++-mingw-w64-x86-64-posix qt6-base-dev qt6-base-dev-tools dpkg-dev patch xz-utils nsis)
# Debian's source packages, and the checksums of the original sources in them.
declare -A sources=(
    [qt6-base]=4f14b89a9463a540fd84a6718b8519a2297119b454ef547721015a9e9019ae9e
    [qtsvg-opensource-src]=9c2fba3e7fd06ee629b159804703466469679e3153f5c313c6e42a59ee66d562
    [libsdl2]=b3f2c822151804125d08db94c65852f711c2e5df2145a59da120748dc32eb9c3)

root=$PWD
mkdir -p build/windows
work=$(realpath build/windows)
export WINDOWS_PREFIX=$work/prefix
jobs=${JOBS:-$(getconf _NPROCESSORS_ONLN)}
version=$(sed -n 's/^project(vorn VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)

# `once NAME KEY COMMAND...` runs the command unless it last succeeded with the same key.
once() {
    local stamp=$work/stamps/$1 key=$2
    shift 2
    [ "$(cat "$stamp" 2>/dev/null)" = "$key" ] && return 0
    "$@"
    mkdir -p "$work/stamps"
    echo "$key" >"$stamp"
}

# `library_once NAME KEY` runs build_NAME in the same way. The build folder NAME is removed if it was made with another
# key, since CMake keeps the compiler and the flags of the first configuration. An interrupted build is continued.
library_once() {
    once "clean-$1" "$2" rm -rf "${work:?}/$1"
    once "$1" "$2" "build_$1"
}

# Runs apt with its own list of sources, so that the list of the machine stays unchanged.
apt_source() {
    apt-get -q -o Dir::Etc::sourcelist=/dev/null -o Dir::Etc::sourceparts="$work/apt/parts" \
        -o Dir::State::lists="$work/apt/lists" -o APT::Sandbox::User=root "$@"
}

fetch_sources() {
    say "fetching the sources of Qt and SDL2"
    rm -rf "$work/sources"
    mkdir -p "$work/apt/lists/partial" "$work/apt/parts" "$work/sources"
    for file in /etc/apt/sources.list.d/*.sources; do
        [ ! -e "$file" ] || { sed 's/^Types:.*/Types: deb-src/' "$file" && echo; }
    done >"$work/apt/parts/machine.sources"
    grep -hs '^deb ' /etc/apt/sources.list /etc/apt/sources.list.d/*.list | sed 's/^deb /deb-src /' >"$work/apt/parts/machine.list" || true
    apt_source update
    (cd "$work/sources" && apt_source source --download-only "${!sources[@]}")
}

# Verifies the original sources of a package by their checksum, and unpacks them with Debian's changes. apt has verified
# the changes by the signature of the archive.
unpack() {
    local name=$1 original dsc
    original=$(echo "$work/sources/${name}_"*.orig.tar.*z) dsc=$(echo "$work/sources/${name}_"*.dsc)
    echo "${sources[$name]}  $original" | sha256sum --check --quiet ||
        { say "$original has the wrong checksum"; exit 1; }
    say "unpacking $name"
    rm -rf "${work:?}/src/$name"
    mkdir -p "$work/src"
    dpkg-source --no-check -x "$dsc" "$work/src/$name" >/dev/null
}

cross_cmake() {   # SOURCE BUILD OPTIONS...
    local source=$1 build=$2
    shift 2
    cmake -G Ninja -S "$source" -B "$work/$build" -DCMAKE_TOOLCHAIN_FILE="$root/packaging/windows/toolchain.cmake" \
        -DCMAKE_INSTALL_PREFIX="$WINDOWS_PREFIX" "$@" >"$work/$build.configure.log" ||
        { tail -30 "$work/$build.configure.log"; return 1; }
}

# Libraries of Windows for printing, file dialogs, 3D graphics, networks, file permissions and user profiles. To load
# them would take a third of the start-up time under Wine. So Qt is linked with import libraries that load each of them
# at the first call.
late_libraries=(authz comdlg32 d3d11 d3d9 dxgi mpr netapi32 userenv winspool ws2_32)

# Makes an import library that loads its DLL at the first call.
make_late_library() {   # IMPORT_LIBRARY NEW_IMPORT_LIBRARY
    local dll definition=$2.def
    dll=$(x86_64-w64-mingw32-dlltool --identify "$1")
    (echo "LIBRARY $dll" && echo "EXPORTS" && x86_64-w64-mingw32-nm "$1" | sed -n 's/.* T //p' | sort -u) >"$definition"
    x86_64-w64-mingw32-dlltool --input-def "$definition" --output-delaylib "$2"
}

make_late_libraries() {
    local name
    rm -rf "$work/late"
    mkdir -p "$work/late"
    for name in "${late_libraries[@]}"; do
        make_late_library "/usr/x86_64-w64-mingw32/lib/lib$name.a" "$work/late/lib$name.a"
    done
}

# Debian's source has no wintab.h, so there is no support for tablets. PrintSupport needs Direct2D, which stays enabled.
# The libraries bundled with Qt are used instead of the system's.
qt_options=(-DCMAKE_BUILD_TYPE=MinSizeRel -DQT_BUILD_EXAMPLES=OFF -DQT_BUILD_TESTS=OFF -DINPUT_opengl=no
    "-DCMAKE_SHARED_LINKER_FLAGS=-L'$work/late'" "-DCMAKE_MODULE_LINKER_FLAGS=-L'$work/late'")
for feature in tabletevent sql network testlib dbus concurrent xml opengl vulkan zstd icu pkg_config glib system_zlib \
    system_png system_jpeg system_freetype system_harfbuzz system_pcre2 system_doubleconversion; do
    qt_options+=("-DFEATURE_$feature=OFF")
done

build_qt() {
    say "building Qt: 15 to 20 minutes on two cores"
    cross_cmake "$work/src/qt6-base" qt "${qt_options[@]}"
    ninja -C "$work/qt" -j "$jobs"
    ninja -C "$work/qt" install >/dev/null
}

build_svg() {
    say "building Qt SVG"
    unpack qtsvg-opensource-src
    sed -i 's/QStringRef/QStringView/g' "$work"/src/qtsvg-opensource-src/src/svg/qsvghandler{.cpp,_p.h}
    patch -d "$work/src/qtsvg-opensource-src" -p1 --quiet <packaging/windows/svg/qt6.patch
    cross_cmake packaging/windows/svg svg -DCMAKE_BUILD_TYPE=MinSizeRel -DSOURCE="$work/src/qtsvg-opensource-src/src/svg"
    ninja -C "$work/svg" -j "$jobs" install >/dev/null
}

sdl_options=(-DCMAKE_BUILD_TYPE=MinSizeRel -DSDL_STATIC=OFF -DSDL_TEST=OFF)

build_sdl() {
    say "building SDL2"
    cross_cmake "$work/src/libsdl2" sdl "${sdl_options[@]}"
    ninja -C "$work/sdl" -j "$jobs" install >/dev/null
    # Sound and joystick start after the first window.
    make_late_library "$work/sdl/libSDL2.dll.a" "$WINDOWS_PREFIX/lib/libSDL2.dll.a"
}

# Copies the libraries, Qt's plug-ins and the compiler's runtime libraries beside the program, and strips them and the
# program. Their sections are aligned to pages, so that Wine maps the files into memory instead of reading them. The
# time stamp in their headers is kept, so that the same libraries give the same files.
add_libraries() {
    local out=$1 gcc file
    gcc=$(dirname "$(x86_64-w64-mingw32-gcc-posix -print-file-name=libstdc++-6.dll)")
    mkdir -p "$out"/{platforms,styles,imageformats}
    cp "$WINDOWS_PREFIX"/bin/{Qt6Core,Qt6Gui,Qt6Widgets,Qt6PrintSupport,Qt6Svg,SDL2}.dll "$out"
    cp "$WINDOWS_PREFIX/plugins/platforms/qwindows.dll" "$out/platforms"
    cp "$WINDOWS_PREFIX"/plugins/styles/*.dll "$out/styles"
    cp "$WINDOWS_PREFIX"/plugins/imageformats/{qgif,qico,qjpeg}.dll "$out/imageformats"
    cp "$gcc"/{libstdc++-6,libgcc_s_seh-1}.dll /usr/x86_64-w64-mingw32/lib/libwinpthread-1.dll "$out"
    for file in "$out"/*.{exe,dll} "$out"/*/*.dll; do
        x86_64-w64-mingw32-objcopy --strip-all --preserve-dates --file-alignment 4096 "$file"
    done
}

# Checks the libraries that the files in the folder load at their start. Each must be in the folder or part of Windows,
# and none may be one of those to be loaded at the first call. A library is taken as part of Windows if mingw-w64 has an
# import library for it, or if it is an API set (api-ms-win-*).
check_libraries() {
    local out=$1 name names absent=0
    names=$(x86_64-w64-mingw32-objdump -p "$out"/*.{exe,dll} "$out"/*/*.dll | sed -n 's/.*DLL Name: //p' | sort -u)
    for name in $names; do
        local import=${name,,}
        import=${import%.*}
        [[ " ${late_libraries[*]} sdl2 " != *" $import "* ]] || { say "$name is loaded at the start, not at its first call"; absent=1; }
        [[ $import == api-ms-win-* ]] || [ -e "$out/$name" ] || [ -e "/usr/x86_64-w64-mingw32/lib/lib$import.a" ] ||
            { say "$name is needed and isn't there"; absent=1; }
    done
    return $absent
}

add_licences() {
    local out=$1/licences list
    mkdir -p "$out"
    list=$(for dsc in "$work"/sources/*.dsc; do basename "$dsc" .dsc | sed 's/_/, version /; s/^/  /'; done
        dpkg-query -W -f='  ${source:Package}, version ${source:Version}\n' gcc-mingw-w64-base mingw-w64-common
        dpkg-query -W -f='  ${Built-Using}\n' gcc-mingw-w64-base | sed 's/ (= \(.*\))/, version \1/')
    sed -e '/@SOURCES@/{r /dev/stdin' -e 'd}' packaging/windows/SOURCES.txt <<<"$list" >"$out/SOURCES.txt"
    cp /usr/share/common-licenses/LGPL-3 "$out/LGPL-3.0.txt"
    cp /usr/share/common-licenses/GPL-3 "$out/GPL-3.0.txt"
    cp "$work/src/qt6-base/debian/copyright" "$out/Qt.txt"
    cp "$work/src/qtsvg-opensource-src/debian/copyright" "$out/QtSvg.txt"
    cp packaging/windows/svg/qt6.patch "$out/QtSvg-changes.patch"
    cp packaging/windows/svg/CMakeLists.txt "$out/QtSvg-CMakeLists.txt"
    cp tools/build_windows.sh packaging/windows/toolchain.cmake "$out"
    cp "$work/src/libsdl2/LICENSE.txt" "$out/SDL2.txt"
    cp /usr/share/doc/gcc-mingw-w64-base/copyright "$out/gcc.txt"
    cp /usr/share/doc/mingw-w64-common/copyright "$out/mingw-w64.txt"
}

build_trainer() {
    local file stage=$work/stage/V.O.R.N
    say "building the trainer"
    rm -rf "$work/stage"   # if this build fails, check_windows.sh must not accept the packages of an earlier one
    cross_cmake . vorn -DCMAKE_BUILD_TYPE=Release -DVORN_TESTS=OFF
    ninja -C "$work/vorn" -j "$jobs" vorn
    cmake --install "$work/vorn" --prefix "$stage" >/dev/null
    add_libraries "$stage"
    check_libraries "$stage"
    add_licences "$stage"
    for file in "$stage"/licences/*.txt; do sed -i 's/\r*$/\r/' "$file"; done   # lines end as in Windows
}

setup=$work/vorn-$version-setup.exe zip=$work/vorn-$version-windows.zip

make_packages() {
    say "making the installer and the ZIP file"
    rm -f "$work"/vorn-*-{setup.exe,windows.zip}
    packaging/windows/make_setup.sh "$version" "$work/stage/V.O.R.N" "$setup"
    (cd "$work/stage" && cmake -E tar cf "$zip" --format=zip V.O.R.N)
}

install_missing "${windows_packages[@]}"
once fetch "${sources[*]}" fetch_sources
for name in qt6-base libsdl2; do once "unpack-$name" "${sources[$name]}" unpack "$name"; done
toolchain=$(sha256sum <packaging/windows/toolchain.cmake)
late_key="${late_libraries[*]} $(declare -f make_late_library make_late_libraries)"
qt_key="$late_key ${sources[qt6-base]} ${qt_options[*]} $toolchain"
once late "$late_key" make_late_libraries
library_once qt "$qt_key"
library_once svg "$qt_key ${sources[qtsvg-opensource-src]} $(cat packaging/windows/svg/* | sha256sum)"
library_once sdl "${sources[libsdl2]} ${sdl_options[*]} $toolchain $(declare -f make_late_library)"
build_trainer
contents=$(find "$work/stage" -type f -print0 | sort -z | xargs -0 sha256sum | sha256sum)
[ -e "$setup" ] && [ -e "$zip" ] || rm -f "$work/stamps/packages"
once packages "$version $contents $(cat packaging/windows/{make_setup.sh,setup.nsi} | sha256sum)" make_packages
say "the trainer for Windows: $(du -h "$setup" "$zip" | awk '{ printf "%s%s (%s)", s, $2, $1; s = " and " }')"
