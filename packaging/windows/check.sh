#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Checks what can be seen of a Windows program from outside: it imports libraries of Windows 10 alone, its manifest says
# what it should, it has an icon and the right version.
set -euo pipefail
program=$1
here=$(cd "$(dirname "$0")" && pwd)
name=$(basename "$program")
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

fail() {
    echo "$name: $*" >&2
    exit 1
}

imports=$(x86_64-w64-mingw32-objdump -p "$program" | sed -n 's/^\s*DLL Name: //p' | tr '[:upper:]' '[:lower:]' | sort -u)
[ -n "$imports" ] || fail "no imports found"
foreign=$(grep -vxFf <(grep -v '^#' "$here/system-libraries.txt") <<<"$imports" || true)
[ -z "$foreign" ] || fail "needs libraries that are not of Windows 10:" $foreign

wrestool -x --raw -t 24 "$program" >"$work/manifest.xml"
value() { xmllint --xpath "string(//*[local-name()='$1']${2:-})" "$work/manifest.xml"; }
expect() { [ "$2" = "$3" ] || fail "manifest: $1 is '$2' and not '$3'"; }
expect dpiAwareness "$(value dpiAwareness)" PerMonitorV2
expect longPathAware "$(value longPathAware)" true
expect requestedExecutionLevel "$(value requestedExecutionLevel /@level)" asInvoker
expect uiAccess "$(value requestedExecutionLevel /@uiAccess)" false
expect common-controls "$(value dependentAssembly "//*[@name='Microsoft.Windows.Common-Controls']/@version")" 6.0.0.0
expect activeCodePage "$(xmllint --xpath "count(//*[local-name()='activeCodePage'])" "$work/manifest.xml")" 0

wrestool -l -t 14 "$program" | grep -q . || fail "has no icon"
version=$(wrestool -x --raw -t 16 "$program" | iconv -f UTF-16LE -t UTF-8 -c | tr -d '\0')
expected=$(sed -n 's/^project(Tavrel VERSION \([0-9.]*\).*/\1/p' "$here/../../CMakeLists.txt")
grep -aq "ProductVersion$expected" <<<"$version" || fail "version information does not say $expected"
echo "$name: $(stat -c %s "$program") bytes, imports" $imports
