#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Builds the Qt that goes into Tavrel.exe, once, and prints the folder where it is. It comes from the source package of
# the Qt that this machine has, since the tools of the one make the code for the other.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
. "$here/sources.sh"
unset TAVREL_QT # it is about to be made

package=$(dpkg-query -W -f '${Version}' qt6-base-dev)
recipe=$(recipe_of "$package" "$here/qt-configuration.cmake" "$here/toolchain.cmake")
qt=$cache/qt-${package%%+*}-mingw-$recipe
lock_cache

if [ ! -f "$qt/complete" ]; then
    work=$cache/work-$recipe
    rm -rf "$work" "$qt"
    mkdir -p "$work"
    cd "$work"
    {
        get_sources "qt6-base=$package"
        source=$(echo qt6-base-*/)
        source=$work/${source%/}

        # Neither a path of this machine nor the time of the build gets into the libraries.
        export SOURCE_DATE_EPOCH=0
        map="-ffile-prefix-map=$source=qt -ffile-prefix-map=$work/build=qt-build"
        cmake -G Ninja -S "$source" -B build -C "$here/qt-configuration.cmake" \
            -D "CMAKE_TOOLCHAIN_FILE=$here/toolchain.cmake" \
            -D "CMAKE_C_FLAGS=$map" -D "CMAKE_CXX_FLAGS=$map"
        cmake --build build
        cmake --install build --prefix "$qt"
        cp "$source/debian/copyright" "$qt/copyright"
        echo "$package" >"$qt/package"
    } >&2
    cd "$here"
    rm -rf "$work"
    touch "$qt/complete"
fi
echo "$qt"
