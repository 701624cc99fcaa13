#!/usr/bin/env bash
# Lets the Linux build (preset release) and the Windows build write the same things and compares them byte for byte:
# every project that the tests generate, every sample written again and taken through JSON, what tlxtool tells of
# them, the columns of two sites as DXF and SVG and opened up as PDF, and the two libraries of patterns and presets.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/../.."
export LC_ALL=ru_RU.UTF-8

cmake --preset release >/dev/null
cmake --build --preset release --target write_projects tlxtool tlxdraw library_files
cmake --preset windows >/dev/null
cmake --build --preset windows --target write_projects tlxtool tlxdraw library_files
work=build/windows/same_bytes
rm -rf $work

# open_pdf PDF: opens it up, in the order of its pages, since the toolkit writes fonts in any order and marks them by
# it. The time of making goes. Pages and words stand beside it, so that a difference is told in words.
open_pdf() {
    qpdf --qdf --no-original-object-ids --static-id "$1" "$1.opened"
    perl -pi -e 's{/CreationDate \(D:[^)]*\)}{/CreationDate ()}; s{/FontName /[A-Z]{6}\+}{/FontName /}' "$1.opened"
    pdfinfo -f 1 -l 9999 "$1" | grep -E '^(Title|Creator|Pages|Page .*size|PDF version):' >"$1.pages"
    pdffonts "$1" | awk '{ NF -= 2; print }' >"$1.fonts" # without the numbers of objects
    pdftotext -bbox "$1" - | grep -v CreationDate >"$1.words"
    rm "$1"
}

# write_all FOLDER BUILD SUFFIX [LAUNCHER]: paths are given alike, since reports name them.
write_all() {
    local folder=$work/$1 build=$PWD/$2 suffix=$3 launcher=${4:-} format
    local tool="$launcher $build/tools/tlxtool/tlxtool$suffix"
    mkdir -p $folder/generated $folder/samples $folder/program
    $launcher $build/tests/same_bytes/write_projects$suffix $folder/generated
    for data in hatch/gl/hatch.dat igkPreset/igkPreset.dat; do
        cp $build/program/$data $folder/program/
    done
    local sample name
    for sample in samples/*.TLX; do
        name=$folder/samples/$(basename $sample .TLX)
        $tool resave $sample $name.TLX >/dev/null
        cmp $sample $name.TLX
        $tool dump $sample >$name.json
        $tool build $name.json $name.built.TLX >/dev/null
        $tool export $sample --csv $name.csv >/dev/null
        $tool diff $sample samples/ALLTEXT.TLX >$name.diff || [ $? = 1 ]
    done
    $tool info samples/*.TLX >$folder/info.txt
    $tool check samples/*.TLX >$folder/check.txt || [ $? = 1 ]
    # Named from within, since the folders differ and the reports must not.
    (cd $folder/generated && $tool check *.TLX) >$folder/check_generated.txt || [ $? = 1 ]
    # That beside the hatches.
    local drawer="$launcher $build/program/tlxtool$suffix"
    mkdir $folder/drawings
    $tool build samples/sources/zarechnaya.json $folder/drawings/ZARECHNAYA.TLX >/dev/null
    for sample in $folder/drawings/ZARECHNAYA.TLX samples/LURGAN.TLX; do
        name=$folder/drawings/$(basename $sample .TLX)
        for format in dxf svg; do
            $drawer draw $sample column --all --out $name.$format >>$folder/drawings/sheets.txt
        done
        $drawer draw $sample column --all --out $name.pdf >>$folder/drawings/sheets.txt
        open_pdf $name.pdf
        $drawer draw $sample column --all --language uk --sheet A3 --landscape --out $name.uk.svg >/dev/null
    done
}
write_all linux build/release ''
write_all windows build/windows .exe $PWD/cmake/windows/run_in_wine.sh

files=$(find $work/linux -type f | wc -l)
[ "$files" -gt 400 ] || { echo "Only $files files were written: nothing was compared." >&2; exit 1; }
drawings=$(find $work/linux/drawings -name '*.dxf' -o -name '*.svg' | wc -l)
[ "$drawings" -gt 60 ] || { echo "Only $drawings drawings were made." >&2; exit 1; }
for told in $work/linux/drawings/*.pdf.words; do
    words=$(grep -c '<word ' "$told") || true
    [ "$words" -gt 1000 ] || { echo "Only $words words in $told." >&2; exit 1; }
    awk 'NR > 2 { ++fonts; bad += $(NF-2) != "yes" } END { exit bad || !fonts }' "${told%.words}.fonts" \
        || { echo "${told%.words}: fonts are missing." >&2; cat "${told%.words}.fonts"; exit 1; }
done
diff -r $work/linux $work/windows
echo "$files files, $(find $work/linux -name '*.TLX' | wc -l) projects among them, are the same on both systems."
