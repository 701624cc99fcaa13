#!/usr/bin/env bash
# All pictures of the program side by side, for people to look at: tools/contact_sheet.sh [FOLDER]. The icons
# in every size on the grounds of a window and of a chosen row, the soils as tiles laid side by side.
#   sudo apt-get install imagemagick
set -euo pipefail
here=$(dirname "$(readlink -f "$0")")/..
sheets=$(readlink -m "${1:-$here/build/contact_sheets}")
mkdir -p "$sheets"
cd "$here/src/app/resources/images"
folder=$(mktemp -d)
trap 'rm -r "$folder"' EXIT

for ground in efefef 308cc6; do
    for picture in 24/*.png; do
        name=$(basename "$picture")
        convert -background "#$ground" -gravity center {16,24,32,.,96}/"$name" -bordercolor "#$ground" -border 4 \
            +append -gravity south -splice 0x16 -pointsize 11 -annotate 0 "${name%.png}" "$folder/$name"
    done
    montage "$folder"/*.png -tile 5x -geometry +2+2 -background "#$ground" "$sheets/icons_$ground.png"
    rm "$folder"/*.png
done

for picture in ground_*.png; do
    name=${picture#ground_}
    convert "$picture" -background '#f6efe2' -flatten "$folder/tile.png"
    convert -size 168x120 "tile:$folder/tile.png" -gravity south -background white -splice 0x16 -pointsize 12 \
        -annotate 0 "${name%.png}" "$folder/of_$name"
done
montage "$folder"/of_*.png -tile 8x -geometry +4+4 "$sheets/soils.png"
icotool -x -o "$folder" tellurix.ico
montage "$folder"/tellurix*.png -geometry +8+8 -background '#efefef' "$sheets/program.png"
ls "$sheets"
