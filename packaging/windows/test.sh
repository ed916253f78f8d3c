#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Tests the zip of build.sh under Wine: first the tests as Windows programs, then Tavrel itself, from its first start to
# a changed sounds.txt, with the keys that a user would press. Screenshots: build/windows/test/*.png.
set -euo pipefail
cd "$(dirname "$0")/../.."
. scripts/packages.sh

need_packages $windows_packages $wine_packages $display_packages
if [ -z "${TAVREL_TEST_DISPLAY:-}" ]; then
    export TAVREL_TEST_DISPLAY=1
    exec xvfb-run -a -s '-screen 0 1280x800x24 -noreset' packaging/windows/test.sh "$@"
fi

source=$PWD
work=$PWD/build/windows/test
place="$work/Éditeur de niveaux"
zip=$(ls build/Tavrel-*-win64.zip)
program=$place/Tavrel
creator="$place/démo/trle/sound/LevelSFX Creator"

export LC_ALL=C.UTF-8 WINEPREFIX=$work/wine WINEDEBUG=-all
export ALSA_CONFIG_PATH=/usr/share/alsa/alsa.conf:$work/asound.conf
export WINEDLLOVERRIDES="mscoree,mshtml=,winemenubuilder.exe=" # asks for no downloads, leaves no menu entries

step() { printf '%s %s\n' "$(date +%T)" "$*"; }
fail() {
    echo "FAILED: $*" >&2
    import -window root "$work/failed.png" || true
    echo "Picture of the screen: $work/failed.png" >&2
    exit 1
}
openbox >/dev/null 2>&1 &
window_manager=$!
trap 'wineserver -k || true; kill $window_manager' EXIT

windows_path() { winepath -w "$1"; }

# Waits until a command succeeds, and gives up with a message.
within() {
    local message=$1 deadline=$((SECONDS + 30))
    shift
    until "$@"; do
        [ "$SECONDS" -lt "$deadline" ] || fail "$message"
        sleep 0.1
    done
}
# Waits for a window by its title and gives it the keys.
await() {
    within "there is no window '$1'" has_keys "$1"
    sleep 0.5 # it has yet to lay out and paint itself
}
has_keys() {
    window=$(xdotool search --onlyvisible --name "$1" 2>/dev/null | tail -1)
    [ -n "$window" ] && timeout 5 xdotool windowactivate --sync "$window" 2>/dev/null
}
gone() { within "the window '$1' did not close" no_window "$1"; }
no_window() { ! xdotool search --onlyvisible --name "$1" >/dev/null 2>&1; }
ended() { within "Tavrel did not end" no_tavrel; }
no_tavrel() { [[ $(ps -eo args) != *"$windows_program\\Tavrel.exe"* ]]; } # its name to Linux, too
keys() { xdotool key --delay 60 "$@"; }
text() { xdotool type --delay 40 "$1"; }
# For accents, which no key of the test's keyboard has: Wine misses some that xdotool makes while it types.
paste() {
    printf %s "$1" | xclip -selection clipboard
    keys ctrl+v
    sleep 1
}
picture() { import -window root "$work/$1.png"; }
# As a double-click does: with no console and no standard streams of a terminal.
start_tavrel() { (cd "$program" && wine start Tavrel.exe </dev/null >/dev/null 2>&1); }
same() { cmp "$1" "$2" || fail "$3"; }

step "Windows in $WINEPREFIX"
rm -rf "$work"
mkdir -p "$place"
# What sounds is written to a file.
cat >"$work/asound.conf" <<END
pcm.!default { type file slave.pcm "null" file "$work/heard.raw" format raw }
END
wineboot -i >/dev/null 2>&1
# The fonts of Windows are not to be had here. These are wider: what fits with them fits with those.
name=$(printf %s 'DejaVu Sans' | iconv -t UTF-16LE | xxd -p | tr -d '\n')
printf -v zeros '%0128d' 0
wine reg add 'HKCU\Control Panel\Desktop\WindowMetrics' /v MessageFont /t REG_BINARY /f \
    /d "f4ffffff000000000000000000000000900100000000000000000022${name}${zeros:${#name}}" >/dev/null
wine reg add 'HKCU\Software\Wine\Fonts\Replacements' /v Consolas /d 'DejaVu Sans Mono' /f >/dev/null
wineserver -w

step "The tests as Windows programs"
mkdir "$WINEPREFIX/drive_c/Données temporaires"
for variable in TEMP TMP; do
    wine reg add 'HKCU\Environment' /v "$variable" /d 'C:\Données temporaires' /f >/dev/null
done
run_tests() { # PROGRAM FILTER PLATFORM
    # Wine gives QT_QPA_PLATFORM to Windows programs under this name alone.
    if ! WINEQT_QPA_PLATFORM=$3 wine "build/windows/bin/$1.exe" --gtest_filter="$2" >"$work/$1.txt" 2>&1; then
        grep -a -B 20 '^\[  FAILED' "$work/$1.txt" >&2 || tail -20 "$work/$1.txt" >&2
        fail "$1.exe"
    fi
    grep -a '^\[  PASSED  \] [1-9]' "$work/$1.txt" || fail "$1.exe ran no test"
}
run_tests tavrel_core_tests '*' windows
run_tests tavrel_window_tests -Screens.* windows
run_tests tavrel_window_tests Screens.* offscreen:configfile=tests/windows/screens.json

step "Unpacking $zip"
unzip -q "$zip" -d "$place"
windows_program=$(windows_path "$program")
wine build/windows/bin/make_demo.exe "$(windows_path "$source/data")" "$(windows_path "$place/démo")"
touch "$place/démo/trle/ngle.exe"
cp "$creator/Sounds.txt" "$work/before.txt"

step "First start: the companion unpacks the working files"
start_tavrel
await 'Tavrel_Files\.exe$'
picture companion
keys Return
gone 'Tavrel_Files\.exe$'
for file in data/Tavrel.to* data/SFX_*; do
    same "$file" "$program/$(basename "$file")" "the companion did not unpack $file"
done
[ ! -e "$program/Tavrel.par" ] || fail "settings before the level editor is known"

step "Second start: in French, with the level editor in the file dialog"
start_tavrel
await '^Tavrel$'
picture language
keys Down Return
await "^Choisir l'éditeur de niveaux$"
picture file-dialog
keys Escape
await '^Programme annulé$'
keys Return
ended
[ ! -e "$program/Tavrel.par" ] || fail "settings without a level editor"

start_tavrel
await '^Tavrel$'
keys Down Return
await "^Choisir l'éditeur de niveaux$"
paste "$(windows_path "$place/démo/trle/winroomedit.exe")"
keys Return
await '^Tavrel - '
picture main-window-fr
folder=$(windows_path "$place/démo/trle/" | iconv -f UTF-8 -t CP1252)
printf '"Z:\\"\r\n"%s"\r\n' "$folder" | cmp - "$program/Tavrel.par" || fail "the settings of the first start"

step "Playing a sample"
keys ctrl+f Tab Tab Tab Tab space
tail -c +45 "$place/démo/trle/sound/Samples/foot01.wav" >"$work/sample.raw"
size=$(stat -c %s "$work/sample.raw")
heard() { head -c "$size" "$work/heard.raw" 2>/dev/null | cmp -s - "$work/sample.raw"; }
within "the sample was not played" heard

step "Editing: the volume of LARA_NO"
keys ctrl+f
text LARA_NO
keys Return Tab Tab Tab Tab Tab Tab Tab Tab Tab
text 77
keys ctrl+Return
picture edited
keys ctrl+s
await '^Modification$' # the comments that are not written back
keys Return
sleep 1
await '^Modification$' # the question, under the same title
picture apply
keys o
gone '^Modification$'
await '^Tavrel - '
grep -v '^;' "$work/before.txt" | grep -a : | sed '3s/VOL[0-9]*/VOL77/' >"$work/expected.txt"
same "$work/expected.txt" "$creator/Sounds.txt" "Sounds.txt after the apply"
same "$work/before.txt" "$creator/Orig_Sounds.txt" "the copy of Sounds.txt"

step "Notepad"
keys alt+o
await 'Sounds\.txt - Notepad$'
picture notepad
keys alt+F4
await '^Bloc note$'
keys n
await '^Tavrel - '
keys ctrl+q
ended
sed -n 5p "$program/Tavrel.par" | grep -q '^"F"' || fail "the language in the settings"

step "Generating, with the stand-in for the level editor's tool"
cp "$place/démo/program/Tavrel.paw" "$program/"
sed -i '3s/""/"oa"/; 4s/""/"oasis"/' "$program/Tavrel.par" # the WAD that the user worked on
wads=$place/démo/trle/graphics/wads
rm "$wads/oasis.sam"
start_tavrel
await '^Tavrel - oasis$'
generate_button=(170 91)
xdotool mousemove --window "$window" "${generate_button[@]}" click 1
await '^Générer SFX$'
keys Return
await 'cmd\.exe$'
picture generation
keys Return # the batch file waits for a key
gone 'cmd\.exe$'
generated() { [ -s "$wads/oasis.sam" ] && [ -s "$wads/oasis.sfx" ] && [ ! -e "$creator/CreateSFX.bat" ]; }
within "nothing was generated" generated
(cd "$creator" && wine pcwadsfx.exe oasis oa >/dev/null)
mv "$creator"/oasis.s?? "$work/"
for ending in sam sfx; do
    same "$work/oasis.$ending" "$wads/oasis.$ending" "oasis.$ending"
done
await '^Tavrel - oasis$'
picture generated
keys ctrl+q
ended

step "The same folder from a script"
wine "$program/tavrel-cli.exe" list --modified >"$work/list.txt"
[ "$(grep -ac . "$work/list.txt")" = 1 ] && grep -aq LARA_NO "$work/list.txt" || fail "what tavrel-cli lists as modified"
rm "$wads"/oasis.s??
wine "$program/tavrel-cli.exe" --yes generate oasis >"$work/generate.txt" 2>&1 || fail "tavrel-cli generate"
for ending in sam sfx; do
    same "$work/oasis.$ending" "$wads/oasis.$ending" "oasis.$ending of tavrel-cli"
done
[ -s "$program/CreateSFX.log" ] && [ ! -e "$creator/CreateSFX.bat" ] || fail "what tavrel-cli leaves of a generation"

step "Another first start, in English, with ngle.exe"
rm "$program/Tavrel.par"
start_tavrel
await '^Tavrel$'
keys Return
await '^Select Level editor$'
paste "$(windows_path "$place/démo/trle/ngle.exe")"
keys Return
await '^Tavrel - '
picture main-window-en
keys ctrl+q
ended
sed -n 2p "$program/Tavrel.par" | cmp - <(printf '"%s"\r\n' "$folder") || fail "the folder of ngle.exe"
step "The system ends the session, and what was not applied comes back"
start_tavrel
await '^Tavrel - '
keys ctrl+f
text LARA_NO
keys Return Tab Tab Tab Tab Tab Tab Tab Tab Tab
text 55
keys Return
wine wineboot --end-session >/dev/null 2>&1 &
ended
[ -n "$(ls "$program"/Recovery/running-*.rec)" ] || fail "nothing was kept of the session"
start_tavrel
await '^Recovery$'
picture recovery
keys Return
gone '^Recovery$'
await '^Tavrel - '
keys ctrl+s
await '^Modification$'
keys y
gone '^Modification$'
sed -i '3s/VOL[0-9]*/VOL55/' "$work/expected.txt"
within "the recovered change was not applied" cmp -s "$work/expected.txt" "$creator/Sounds.txt"
keys ctrl+q
ended
step "Done"
