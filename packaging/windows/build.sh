#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Builds build/Tavrel-VERSION-win64.zip on Debian 12. The same commit gives the same zip, byte for byte.
set -euo pipefail
cd "$(dirname "$0")/../.."
. scripts/packages.sh

need_packages $build_packages $windows_packages
TAVREL_QT=$(packaging/windows/qt.sh)
TAVREL_QT_PACKAGE=$(cat "$TAVREL_QT/package")
TAVREL_SOUND=$(packaging/windows/sound.sh)
export TAVREL_QT TAVREL_QT_PACKAGE TAVREL_SOUND

# The time of everything that keeps one: the commit's.
SOURCE_DATE_EPOCH=${SOURCE_DATE_EPOCH:-$(git log -1 --format=%ct)}
export SOURCE_DATE_EPOCH TZ=UTC

cmake --fresh --preset windows # an older build may have found another Qt
# Resources keep the times of their files; one for every commit, as builds of several share them.
SOURCE_DATE_EPOCH=0 cmake --build build/windows

version=$(sed -n 's/^CMAKE_PROJECT_VERSION:STATIC=//p' build/windows/CMakeCache.txt)
name=Tavrel-$version-win64
stage=build/windows/stage
rm -rf "$stage" build/Tavrel-*-win64.zip
cmake --install build/windows --prefix "$stage/Tavrel" >/dev/null

licences=$stage/Tavrel/Licences
mkdir "$licences"
add_licence() { sed 's/\r*$/\r/' "$1" >"$licences/$2.txt"; }
add_licence "$TAVREL_QT/copyright" Qt
add_licence /usr/share/doc/qt6-translations-l10n/copyright "Qt translations"
for library in "$TAVREL_SOUND"/copyright/*.txt; do
    add_licence "$library" "$(basename "$library" .txt)"
done
add_licence /usr/share/doc/libcli11-dev/copyright CLI11
add_licence /usr/share/doc/gcc-mingw-w64-base/copyright GCC
add_licence /usr/share/doc/mingw-w64-common/copyright mingw-w64

for program in "$stage"/Tavrel/*.exe; do
    packaging/windows/check.sh "$program"
done

find "$stage" -type d -exec chmod 755 {} +
find "$stage" -type f -exec chmod 644 {} +
find "$stage" -exec touch -d "@$SOURCE_DATE_EPOCH" {} +
(cd "$stage" && find Tavrel -type f | LC_ALL=C sort | zip -q -9 -X -D "../../$name.zip" -@)
echo "build/$name.zip: $(stat -c %s "build/$name.zip") bytes, SHA-256 $(sha256sum <"build/$name.zip" | cut -c 1-64)"
