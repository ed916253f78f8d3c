#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Builds the sound libraries that go into the programs, once, and prints the folder where they are. They come from the
# source packages of Debian's versions.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
. "$here/sources.sh"
unset TAVREL_SOUND # it is about to be made

# The later ones need the earlier ones. libsndfile has Ogg only with all of its codecs.
libraries=(libogg flac libvorbis opus libsndfile libsoxr mpg123)
package_of() {
    case $1 in
    libogg) echo libogg-dev ;;
    flac) echo libflac-dev ;;
    libvorbis) echo libvorbis-dev ;;
    opus) echo libopus-dev ;;
    libsndfile) echo libsndfile1-dev ;;
    libsoxr) echo libsoxr-dev ;;
    mpg123) echo libmpg123-dev ;;
    esac
}
# Static, without programs, tests, documents, and without what other formats need.
options_of() {
    case $1 in
    libogg) echo -DINSTALL_DOCS=OFF ;;
    flac) echo -DBUILD_CXXLIBS=OFF -DBUILD_PROGRAMS=OFF -DBUILD_EXAMPLES=OFF -DBUILD_DOCS=OFF \
        -DINSTALL_MANPAGES=OFF -DWITH_STACK_PROTECTOR=OFF ;;
    libsndfile) echo -DENABLE_MPEG=OFF -DBUILD_PROGRAMS=OFF -DBUILD_EXAMPLES=OFF -DBUILD_REGTEST=OFF \
        -DENABLE_CPACK=OFF -DINSTALL_MANPAGES=OFF \
        -DCMAKE_DISABLE_FIND_PACKAGE_Speex=ON -DCMAKE_DISABLE_FIND_PACKAGE_SQLite3=ON ;;
    opus) echo -DOPUS_STACK_PROTECTOR=OFF -DOPUS_FORTIFY_SOURCE=OFF ;;
    libsoxr) echo -DWITH_OPENMP=OFF -DWITH_LSR_BINDINGS=OFF -DBUILD_EXAMPLES=OFF -DBUILD_TESTS=OFF ;;
    mpg123) echo -DBUILD_PROGRAMS=OFF -DBUILD_LIBOUT123=OFF ;;
    esac
}

versions=
for library in "${libraries[@]}"; do
    versions+="$library=$(dpkg-query -W -f '${source:Version}' "$(package_of "$library")") "
done
recipe=$(recipe_of "$versions" "$here/sound.sh" "$here/toolchain.cmake")
sound=$cache/sound-mingw-$recipe
lock_cache

if [ ! -f "$sound/complete" ]; then
    work=$cache/work-$recipe
    rm -rf "$work" "$sound"
    mkdir -p "$work" "$sound/copyright"
    cd "$work"
    {
        # shellcheck disable=SC2086 # one word for each package
        get_sources $versions
        export SOURCE_DATE_EPOCH=0 TAVREL_SOUND=$sound
        for library in "${libraries[@]}"; do
            source=$(echo "$library"-*/)
            source=$work/${source%/}
            cp "$source/debian/copyright" "$sound/copyright/$library.txt"
            case $library in
            mpg123) source=$source/ports/cmake ;;
            opus) touch "$source/opus_buildtype.cmake" ;; # its release lacks this one, which only sets a default
            esac
            # Neither a path of this machine nor the time of the build gets into the libraries.
            flags="-ffile-prefix-map=$work=sound -ffile-prefix-map=$sound=sound -DFLAC__NO_DLL"
            # shellcheck disable=SC2046 # one word for each option
            cmake -G Ninja -S "$source" -B "build-$library" -D CMAKE_BUILD_TYPE=Release \
                -D "CMAKE_TOOLCHAIN_FILE=$here/toolchain.cmake" -D "CMAKE_INSTALL_PREFIX=$sound" \
                -D "CMAKE_C_FLAGS=$flags" -D "CMAKE_CXX_FLAGS=$flags" \
                -D BUILD_SHARED_LIBS=OFF -D BUILD_TESTING=OFF $(options_of "$library")
            cmake --build "build-$library"
            cmake --install "build-$library"
        done
        # shellcheck disable=SC2086
        printf '%s\n' $versions >"$sound/packages"
    } >&2
    cd "$here"
    rm -rf "$work"
    touch "$sound/complete"
fi
echo "$sound"
