#!/usr/bin/env bash
# Takes the guide's pictures anew: help/pictures/*.png, in few colours, so that they stay small. The program stands in
# a folder of its own, whose name shows in some of them. The pictures are in the repository, since a build takes them
# as they are.
set -euo pipefail
here=$(dirname "$(readlink -f "$0")")/..
cd "$here"
export LC_ALL=C.UTF-8
tools/install_packages.sh packages.txt packages_screenshot.txt

cmake --preset release >/dev/null
cmake --build --preset release --target program screenshots help_pictures >/dev/null
place=/tmp/Tellurix
mkdir $place
trap 'rm -rf $place' EXIT
cmake --install build/release --component program --prefix $place >/dev/null
cp build/release/tools/screenshots/screenshots build/release/tools/help_pictures/help_pictures $place
touch -d '2019-06-03 12:00' $place/Проекты/*/*.TLX

export QT_QPA_PLATFORM=offscreen TZ=UTC
mkdir $place/pictures
$place/screenshots $place/Проекты/ZARECHNAYA/ZARECHNAYA.TLX $place/pictures >/dev/null
$place/help_pictures $place/pictures

mkdir -p help/pictures
rm -f help/pictures/*.png
for picture in $place/pictures/*.png; do
    # Of some screens there is a picture of every tab; the guide shows what it speaks of.
    grep -q "pictures/$(basename "$picture")" help/*.md || continue
    pngquant --strip --speed 1 --nofs 64 --output "help/pictures/$(basename "$picture")" "$picture"
done
du -sh help/pictures
