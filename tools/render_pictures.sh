#!/bin/sh
# Renders the pictures of the program from their drawings. Run it after a change in src/app/resources/svg and
# commit what it makes: the build itself needs no renderer.
#   sudo apt-get install librsvg2-bin icoutils fonts-dejavu-core
set -eu
cd "$(dirname "$0")/../src/app/resources"

mkdir -p images
for drawing in svg/*.svg; do
    name=$(basename "$drawing" .svg)
    case $name in
    logo | static) rsvg-convert "$drawing" -o "images/$name.png" ;;
    tellurix) ;;
    # Tool bars show 24 points; twice that stays sharp on a dense display.
    *) rsvg-convert -w 48 -h 48 "$drawing" -o "images/$name.png" ;;
    esac
done

folder=$(mktemp -d)
trap 'rm -r "$folder"' EXIT
for size in 16 24 32 48 64 256; do
    rsvg-convert -w $size -h $size svg/tellurix.svg -o "$folder/$(printf %03d $size).png"
done
icotool -c -o images/tellurix.ico "$folder"/0*.png --raw="$folder/256.png"
