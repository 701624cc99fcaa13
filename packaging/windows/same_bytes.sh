#!/usr/bin/env bash
# Lets the Linux build (preset release) and the Windows build write the same things and compares them byte for byte:
# every project that the tests generate, every sample written again and taken through JSON, what tlxtool tells of
# them, the columns of two sites as DXF and SVG, and the two libraries of patterns and presets.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/../.."
export LC_ALL=ru_RU.UTF-8

cmake --preset release >/dev/null
cmake --build --preset release --target write_projects tlxtool library_files
cmake --preset windows >/dev/null
cmake --build --preset windows --target write_projects tlxtool library_files
work=build/windows/same_bytes
rm -rf $work

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
        $drawer draw $sample column --all --language uk --sheet A3 --landscape --out $name.uk.svg >/dev/null
    done
}
write_all linux build/release ''
write_all windows build/windows .exe $PWD/cmake/windows/run_in_wine.sh

files=$(find $work/linux -type f | wc -l)
[ "$files" -gt 400 ] || { echo "Only $files files were written: nothing was compared." >&2; exit 1; }
drawings=$(find $work/linux/drawings -name '*.dxf' -o -name '*.svg' | wc -l)
[ "$drawings" -gt 60 ] || { echo "Only $drawings drawings were made." >&2; exit 1; }
diff -r $work/linux $work/windows
echo "$files files, $(find $work/linux -name '*.TLX' | wc -l) projects among them, are the same on both systems."
