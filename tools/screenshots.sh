#!/usr/bin/env bash
# A picture of every mode, for people to look at: tools/screenshots.sh [PROJECT [FOLDER [WIDTHxHEIGHT [STYLE]]]];
# a dash for PROJECT shows the start without projects. Works on copies in a folder of its own, since the program
# writes beside itself. The register of projects shows the samples. A denser display: QT_SCALE_FACTOR=2 before it.
set -euo pipefail
here=$(dirname "$(readlink -f "$0")")/..
project=${1:-$here/samples/PORTADOWN.TLX}
[ "$project" = - ] || project=$(readlink -f "$project")
pictures=$(readlink -m "${2:-$here/build/screenshots}")

cd "$here"
cmake --preset release >/dev/null
cmake --build --preset release --target program screenshots >/dev/null
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cp -r build/release/program/. "$work"
rm -f "$work"/*.ini
cp build/release/tools/screenshots/screenshots "$work"
[ "$project" = - ] && rm -r "$work/Проекты"
for sample in samples/*.TLX; do
    [ "$project" = - ] && break
    name=$(basename "$sample" .TLX)
    mkdir -p "$work/Проекты/$name"
    cp "$sample" "$work/Проекты/$name"
done
QT_QPA_PLATFORM=offscreen "$work/screenshots" "$project" "$pictures" "${@:3}"
