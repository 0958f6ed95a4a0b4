# shellcheck shell=bash
# Shared by run.sh and test.sh, which source it in the root of the tree: fetches what a build needs and builds.

say() { printf 'vorn: %s\n' "$*" >&2; }

# Debian's names. qt6-base-dev brings the Qt libraries that the program runs on, libsdl2-dev that of SDL2; a bare
# machine has no font at all, and the screens are laid out for this one.
build_packages=(g++ cmake make qt6-base-dev qt6-svg-dev libsdl2-dev)
run_packages=(fonts-liberation2)
test_packages=(libgtest-dev)

say_needs() {
    say "$1"
    say "The build needs: a C++20 compiler, CMake 3.22 or later, make, Qt 6 (Core, Gui, Widgets, PrintSupport, Svg"
    say "and, for the tests, Test), SDL2, the Liberation fonts, and for the tests GoogleTest."
    say "On Debian 12 these are: ${build_packages[*]} ${run_packages[*]} ${test_packages[*]}"
    say "Going on with what is here."
}

installed() { [ "$(dpkg-query -W -f='${db:Status-Status}' "$1" 2>/dev/null)" = installed ]; }

as_root() {
    if [ "$(id -u)" -eq 0 ]; then "$@"; else sudo "$@"; fi
}

# Installs those of the named packages that are missing. Never ends the script: a machine set up in another way
# builds without.
install_missing() {
    if ! command -v apt-get >/dev/null || ! command -v dpkg-query >/dev/null; then
        say_needs "There is no apt on this machine, so nothing is installed here."
        return 0
    fi
    local package missing=()
    for package in "$@"; do installed "$package" || missing+=("$package"); done
    [ ${#missing[@]} -eq 0 ] && return 0
    if [ "$(id -u)" -ne 0 ] && ! command -v sudo >/dev/null; then
        say_needs "Missing: ${missing[*]}. Installing them takes root or sudo, and there is neither."
        return 0
    fi
    say "installing ${missing[*]}"
    { as_root apt-get update -q &&
        as_root env DEBIAN_FRONTEND=noninteractive apt-get install -q -y --no-install-recommends "${missing[@]}"; } ||
        say_needs "apt could not install ${missing[*]}."
}

# Configures and builds one preset; what has not changed is not built again.
build() {
    local tool
    for tool in cmake make; do
        command -v "$tool" >/dev/null || { say "$tool is not found: the build can't go on."; return 1; }
    done
    cmake --preset "$1" && cmake --build --preset "$1" -j "$(getconf _NPROCESSORS_ONLN)"
}

# Builds the fuzzers and lets each run for some seconds. They take clang and the library that its fuzzers link with, on
# Debian a package apart that has clang's version in its name; a machine that has neither and can't get them goes without.
run_fuzzers() {
    install_missing clang
    command -v clang++ >/dev/null || { say "there is no clang++: the fuzzers are left out."; return 0; }
    install_missing "libclang-rt-$(clang++ -dumpversion | cut -d. -f1)-dev"
    ls "$(clang++ -print-resource-dir)"/lib/*/libclang_rt.fuzzer*.a >/dev/null 2>&1 ||
        { say "clang++ has no library for fuzzers: they are left out."; return 0; }
    cmake --preset fuzz && cmake --build --preset fuzz -j "$(getconf _NPROCESSORS_ONLN)" --target fuzzers &&
        ctest --preset fuzz
}
