#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Builds the Qt that goes into Tavrel.exe, once, and prints the folder where it is. It comes from the source package of
# the Qt that this machine has, since the tools of the one make the code for the other.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
unset TAVREL_QT # it is about to be made

package=$(dpkg-query -W -f '${Version}' qt6-base-dev)
compiler=$(dpkg-query -W -f '${Version}' g++-mingw-w64-x86-64-posix)
recipe=$({ echo "$package $compiler"; cat "$here/qt-configuration.cmake" "$here/toolchain.cmake"; } | sha256sum | head -c 12)
cache=${TAVREL_QT_CACHE:-${XDG_CACHE_HOME:-$HOME/.cache}/tavrel}
qt=$cache/qt-${package%%+*}-mingw-$recipe

# Two builds at once would be in each other's way: the later one waits and finds it done.
mkdir -p "$cache"
exec 9>"$cache/lock"
flock 9

if [ ! -f "$qt/complete" ]; then
    work=$cache/work-$recipe
    rm -rf "$work" "$qt"
    mkdir -p "$work/lists/partial" "$work/cache/archives/partial"
    cd "$work"
    {
        # From where the machine has its packages; its own list of sources stays as it is.
        signed=/usr/share/keyrings/debian-archive-keyring.gpg
        apt-get indextargets --format "deb-src [signed-by=$signed] \$(REPO_URI) \$(CODENAME) \$(COMPONENT)" \
            'Created-By: Packages' 'Origin: Debian' | sort -u >sources.list
        if [ ! -s sources.list ]; then
            echo "apt knows no packages. Run first: apt-get update"
            exit 1
        fi
        apt=(apt-get -q -o "Dir::Etc::sourcelist=$work/sources.list" -o Dir::Etc::sourceparts=-
            -o "Dir::State::lists=$work/lists" -o "Dir::Cache=$work/cache" -o APT::Sandbox::User=)
        "${apt[@]}" update
        "${apt[@]}" source "qt6-base=$package"
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
