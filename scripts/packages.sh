# SPDX-License-Identifier: GPL-3.0-or-later
# Sourced by the other scripts: installs Debian packages that are missing, or says which.

# Recommended packages are left out: they would bring a whole desktop.
build_packages="g++ cmake ninja-build qt6-base-dev libgl1-mesa-dev libsdl2-dev libcli11-dev libsndfile1-dev libsoxr-dev libmpg123-dev"
run_packages="qt6-translations-l10n fonts-dejavu-core"
# The tool of the level editor is a Windows program: the tests build a stand-in for it and run it under Wine.
tool_packages="wine g++-mingw-w64-x86-64-posix"
test_packages="libgtest-dev nlohmann-json3-dev strace util-linux fonts-dejavu-core $tool_packages"
benchmark_packages="libbenchmark-dev sox"
fuzz_packages="clang libclang-rt-14-dev"
lint_packages="clang-format clang-tidy python3"
windows_packages="g++-mingw-w64-x86-64-posix qt6-base-dev-tools qt6-translations-l10n dpkg-dev googletest libxml2-utils icoutils zip unzip"
wine_packages="wine wine64 fonts-wine fonts-dejavu-core openbox xclip xxd"
display_packages="xvfb xauth xdotool imagemagick"

need_packages() {
    local missing=() package
    for package in "$@"; do
        dpkg-query -W -f '${Status}' "$package" 2>/dev/null | grep -q 'install ok installed' ||
            missing+=("$package")
    done
    [ ${#missing[@]} -gt 0 ] || return 0
    local root=()
    if [ "$(id -u)" -ne 0 ]; then
        if ! command -v sudo >/dev/null; then
            echo "Please install these packages first: ${missing[*]}" >&2
            exit 1
        fi
        root=(sudo)
    fi
    echo "Installing ${missing[*]}" >&2
    "${root[@]}" apt-get update -qq >&2
    "${root[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get install -qq -y --no-install-recommends "${missing[@]}" >/dev/null
}

# What was compiled before is not compiled again, in other build folders and clones neither.
if command -v ccache >/dev/null; then
    export CMAKE_CXX_COMPILER_LAUNCHER=ccache CCACHE_BASEDIR=$PWD CCACHE_NOHASHDIR=1
    export CCACHE_SLOPPINESS=pch_defines,time_macros # for precompiled headers, as its manual says
fi

# Configures a preset once; CMake itself notices later changes, but not those of CMakePresets.json.
configure() {
    local preset=$1
    [ -f "build/$preset/build.ninja" ] || cmake --preset "$preset"
}
