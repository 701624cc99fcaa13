#!/usr/bin/env bash
# Runs a program on a virtual display with a small window manager, and takes a picture of the whole screen once
# the picture has come to rest: on_virtual_display.sh PICTURE PROGRAM [ARGUMENT...]
set -euo pipefail
picture=$1
shift

# The server picks a free number itself and tells it.
numbers=$(mktemp)
Xvfb -displayfd 3 -screen 0 1440x900x24 3>"$numbers" 2>/dev/null &
server=$!
trap 'kill $server 2>/dev/null; rm -f "$numbers" "$picture.before.png"' EXIT
for _ in $(seq 100); do [ -s "$numbers" ] && break; sleep 0.1; done
export DISPLAY=":$(cat "$numbers")" QT_QPA_PLATFORM=xcb
"$(dirname "$(readlink -f "$0")")/start_window_manager.sh"

"$@" &
program=$!
before=
still=0
for _ in $(seq 30); do
    sleep 1
    kill -0 $program 2>/dev/null || { echo "The program ended by itself." >&2; exit 1; }
    import -window root "$picture"
    now=$(convert "$picture" -format %# info:)
    colours=$(convert "$picture" -format %k info:)
    # A busy machine lets a second pass between two steps of the start.
    if [ "$now" = "$before" ] && [ "$colours" -gt 100 ]; then still=$((still + 1)); else still=0; fi
    [ $still -lt 2 ] || break
    before=$now
done
kill $program 2>/dev/null || true
