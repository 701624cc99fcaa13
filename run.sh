#!/usr/bin/env bash
# Builds Tellurix and starts it: ./run.sh [FILE]. On a bare Debian 12 nothing has to be done before. Without a file
# it opens the example project; without a display it runs on a virtual one and leaves a screenshot.
set -euo pipefail
here=$(dirname "$(readlink -f "$0")")
file=$(readlink -m "${1:-$here/build/release/program/Проекты/ZARECHNAYA/ZARECHNAYA.TLX}")

lists=("$here/packages.txt")
[ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ] || lists+=("$here/packages_screenshot.txt")
"$here/tools/install_packages.sh" "${lists[@]}"
(
    cd "$here"
    cmake --preset release >/dev/null
    cmake --build --preset release --target program
)
program=$here/build/release/program/tellurix
[ -z "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ] || exec "$program" "$file"

picture=$here/build/screenshot.png
"$here/tools/on_virtual_display.sh" "$picture" "$program" "$file"
echo "No display here; what the program shows: $picture"
