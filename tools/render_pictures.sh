#!/bin/sh
# Renders the pictures of the program from their drawings. Run it after a change in src/app/resources/svg or
# data/hatches.json and commit what it makes: the build itself needs no renderer.
#   sudo apt-get install librsvg2-bin icoutils fonts-dejavu-core pngquant
set -eu
here=$(cd "$(dirname "$0")/.." && pwd)
cd "$here/src/app/resources"
folder=$(mktemp -d)
trap 'rm -r "$folder"' EXIT

# A line as thin as two thirds of a pixel would be grey.
echo 'svg { stroke-width: 1.4 }' >"$folder/small.css"
mkdir -p images/16 images/24 images/32 images/96
for drawing in svg/*.svg; do
    name=$(basename "$drawing" .svg)
    case $name in
    logo | static)
        rsvg-convert "$drawing" -o "$folder/$name.png"
        # 256 colours are enough for both, and the first window waits for the one.
        pngquant --strip --force -o "images/$name.png" 256 "$folder/$name.png"
        ;;
    tellurix) ;;
    *)
        # Tool bars show 24 points and menus 16; the others are for dense displays.
        rsvg-convert -w 16 -h 16 -s "$folder/small.css" "$drawing" -o "images/16/$name.png"
        rsvg-convert -w 48 -h 48 "$drawing" -o "images/$name.png"
        for size in 24 32 96; do
            rsvg-convert -w $size -h $size "$drawing" -o "images/$size/$name.png"
        done
        ;;
    esac
done

for size in 16 24 32 48 64 256; do
    rsvg-convert -w $size -h $size svg/tellurix.svg -o "$folder/$(printf %03d $size).png"
done
icotool -c -o images/tellurix.ico "$folder"/0*.png --raw="$folder/256.png"

cmake -S "$here" --preset release >/dev/null
cmake --build "$here/build/release" --target ground_pictures
QT_QPA_PLATFORM=offscreen "$here/build/release/tools/ground_pictures/ground_pictures" "$here/data/hatches.json" images
