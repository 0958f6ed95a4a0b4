# shellcheck shell=bash
# Functions that install what a build needs, build, and run the fuzzers. Other scripts go to the root of the tree and
# source this file.

say() { printf 'vorn: %s\n' "$*" >&2; }

# Debian packages. Those of Qt and SDL depend on the libraries that the program needs at run time. The
# screens are laid out for the fonts of fonts-liberation2.
build_packages=(g++ cmake make qt6-base-dev qt6-svg-dev libsdl2-dev)
run_packages=(fonts-liberation2)
test_packages=(libgtest-dev)

say_needs() {
    say "$1"
    say "The build needs: a C++20 compiler, CMake 3.22 or later, make, Qt 6 (Core, Gui, Widgets, PrintSupport, Svg"
    say "and, for the tests, Test), SDL2, the Liberation fonts, and for the tests GoogleTest."
    say "On Debian 12 these are: ${build_packages[*]} ${run_packages[*]} ${test_packages[*]}"
    say "Continuing with what is installed."
}

installed() { [ "$(dpkg-query -W -f='${db:Status-Status}' "$1" 2>/dev/null)" = installed ]; }

as_root() {
    if [ "$(id -u)" -eq 0 ]; then "$@"; else sudo "$@"; fi
}

# Installs those of the named packages that are missing. A failure doesn't end the script: the system may have the
# libraries from another source.
install_missing() {
    if ! command -v apt-get >/dev/null || ! command -v dpkg-query >/dev/null; then
        say_needs "This system has no apt, so nothing is installed."
        return 0
    fi
    local package missing=()
    for package in "$@"; do installed "$package" || missing+=("$package"); done
    [ ${#missing[@]} -eq 0 ] && return 0
    if [ "$(id -u)" -ne 0 ] && ! command -v sudo >/dev/null; then
        say_needs "Missing: ${missing[*]}. Installing them needs root or sudo."
        return 0
    fi
    say "installing ${missing[*]}"
    { as_root apt-get update -q &&
        as_root env DEBIAN_FRONTEND=noninteractive apt-get install -q -y --no-install-recommends "${missing[@]}"; } ||
        say_needs "apt could not install ${missing[*]}."
}

# Configures and builds one preset.
build() {
    local tool
    for tool in cmake make; do
        command -v "$tool" >/dev/null || { say "$tool is missing: the build can't continue."; return 1; }
    done
    cmake --preset "$1" && cmake --build --preset "$1" -j "$(getconf _NPROCESSORS_ONLN)"
}

# The fuzzers need clang and its fuzzer library, which is a separate package on Debian with clang's version in its name.
# Without them the fuzzers are skipped.
install_fuzzer_compiler() {
    install_missing clang
    command -v clang++ >/dev/null || { say "no clang++: the fuzzers are skipped."; return 1; }
    install_missing "libclang-rt-$(clang++ -dumpversion | cut -d. -f1)-dev"
    ls "$(clang++ -print-resource-dir)"/lib/*/libclang_rt.fuzzer*.a >/dev/null 2>&1 ||
        { say "clang++ has no fuzzer library: the fuzzers are skipped."; return 1; }
}

# Builds the fuzzers and runs each 5,000 times.
run_fuzzers() {
    cmake --preset fuzz && cmake --build --preset fuzz -j "$(getconf _NPROCESSORS_ONLN)" --target fuzzers &&
        ctest --preset fuzz
}
