#!/usr/bin/env bash
# Builds Tellurix and starts it: ./run.sh [FILE...]. On a bare Debian 12 nothing has to be done before.
# Until the windows stand it shows what is in the given projects, or in the shipped samples.
set -euo pipefail
here=$(dirname "$(readlink -f "$0")")

"$here/tools/install_packages.sh" "$here/packages.txt"
(
    cd "$here"
    cmake --preset release >/dev/null
    cmake --build --preset release --target tlxtool
)
if [ $# = 0 ]; then
    cd "$here"
    set -- samples/*.TLX
fi
exec "$here/build/release/tools/tlxtool/tlxtool" info "$@"
