#!/usr/bin/env bash
# Runs a program of the Windows build: run_in_wine.sh PROGRAM [ARGUMENT...]. A Russian locale gives code page 1251
# and Cyrillic file names. The libraries of compiler and toolkit are found where the build has them.
set -euo pipefail
build=$(dirname "$(readlink -f "$0")")/../../build
compiler=x86_64-w64-mingw32-g++-posix

libraries=
for library in libstdc++-6.dll libwinpthread-1.dll; do
    libraries+=";Z:$(dirname "$(readlink -f "$($compiler -print-file-name=$library)")")"
done
export LC_ALL=${TELLURIX_WINE_LOCALE:-ru_RU.UTF-8} WINEDEBUG=${WINEDEBUG:--all} WINEARCH=win64
export WINEPREFIX=${WINEPREFIX:-$(readlink -f "$build")/wine}
export WINEPATH="${WINEPATH-Z:$(readlink -f "$build")/qt5-mingw/bin$libraries}"
# Neither .NET nor a browser is needed, and no menu entries are made on this machine.
export WINEDLLOVERRIDES="mscoree=;mshtml=;winemenubuilder.exe=${WINEDLLOVERRIDES:+;$WINEDLLOVERRIDES}"
# By itself the server goes with the last program, and a program that comes at that moment loses it.
mkdir -p "$WINEPREFIX"
/usr/lib/wine/wineserver64 -p10 2>/dev/null || true
exec /usr/lib/wine/wine64 "$@"
