#!/usr/bin/env bash
# Starts the program of build/windows/Tellurix under Wine on a virtual display as a user does: from a folder with
# blanks and Cyrillic in its path, a sample project on the command line. Takes a picture of it, saves by Ctrl+S,
# holds the saved file against the sample byte for byte, and closes the window. Every sample in turn.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/../.."
export LC_ALL=C.UTF-8

work=$PWD/build/windows/smoke
folder="$work/Программа для проверки"
rm -rf "$work"
mkdir -p "$work"
cp -r build/windows/Tellurix "$folder"
# The projects to be saved must not be there yet.
rm -r "$folder"/Проекты/*
cp -r samples "$folder/"

fail() {
    import -window root "$work/failed.png" || true
    echo "FAILED: $*; $work/failed.png" >&2
    exit 1
}

# The font of Windows' own windows, which Debian's Wine has but does not find.
export WINEPREFIX=$PWD/build/wine
cmake/windows/run_in_wine.sh wineboot --init 2>/dev/null
cp /usr/share/wine/fonts/tahoma*.ttf "$WINEPREFIX/drive_c/windows/Fonts/"

numbers=$(mktemp)
Xvfb -displayfd 3 -screen 0 1440x900x24 3>"$numbers" 2>/dev/null &
server=$!
trap 'kill $server 2>/dev/null; rm -f "$numbers"' EXIT
for _ in $(seq 100); do [ -s "$numbers" ] && break; sleep 0.1; done
export DISPLAY=":$(cat "$numbers")"
tools/start_window_manager.sh

# wait_for SECONDS COMMAND...
wait_for() {
    local end=$((SECONDS + $1))
    shift
    until "$@"; do [ $SECONDS -lt $end ] || return 1; sleep 0.2; done
}
ended() { ! kill -0 "$program" 2>/dev/null; }
window_shown() { ended || xdotool search --onlyvisible --name '^Tellurix 2019 - .*\[' >/dev/null 2>&1; }
question_shown() { xdotool search --onlyvisible --name '^Проект$' >/dev/null 2>&1; }
# Nothing moves on the screen any more, and it is a picture of something.
at_rest() {
    import -window root "$picture"
    local now
    now=$(convert "$picture" -format '%# %k' info:)
    [ "$now" = "$before" ] && [ "${now#* }" -gt 100 ] && return
    before=$now
    return 1
}

save_and_compare() {
    local sample=$1 name
    name=$(basename "$sample" .TLX)
    picture=$work/$name.png before=
    # No path to libraries but the program's own folder.
    (cd "$folder" && WINEPATH= exec "$OLDPWD/cmake/windows/run_in_wine.sh" tellurix.exe "Z:${folder//\//\\}\\samples\\$name.TLX") &
    program=$!
    wait_for 120 window_shown || fail "$name: no window"
    ended && fail "$name: the program ended by itself"
    wait_for 60 at_rest || fail "$name: the picture does not come to rest"

    xdotool search --onlyvisible --name '^Tellurix 2019 - ' windowactivate --sync key ctrl+s
    local saved="$folder/Проекты/$name/$name.TLX"
    wait_for 30 test -e "$saved" || fail "$name: nothing was saved"
    before= && wait_for 30 at_rest || fail "$name: the picture does not come to rest"
    cmp "$saved" "$sample" || fail "$name: saved otherwise than it was"

    # Closed as by a click on its corner: of Alt+F4 the window manager keeps the end, and Alt stays down for Wine.
    wmctrl -c 'Tellurix 2019 - '
    wait_for 30 question_shown || fail "$name: no question at closing"
    # Whether to save the open project: No stands left of Cancel, which has the focus.
    xdotool search --onlyvisible --name '^Проект$' windowactivate --sync
    sleep 0.5
    xdotool key Left key space
    wait_for 30 ended || fail "$name: the program does not end"
    wait "$program" || fail "$name: exit status $?"
    [ "$(ls "$(dirname "$saved")")" = "$name.TLX" ] || fail "$name: left behind $(ls "$(dirname "$saved")")"
    echo "$name: $(stat -c %s "$saved") bytes as they were; $picture"
}

for sample in samples/*.TLX; do
    save_and_compare "$sample"
done
