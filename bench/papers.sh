#!/usr/bin/env bash
# Papers: time of the processor and highest memory of each, in a process of its own, beside openpyxl and the targets.
#   bench/papers.sh [BUILD FOLDER]
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."
build=${1:-build/release}
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
# The fonts stand beside the program that uses them.
cp "$build/bench/paper_bench" "$folder/"
ln -s "$(readlink -f "$build/program/fonts")" "$folder/fonts"
paper=$folder/paper_bench
hatches=$build/program/hatch/gl/hatch.dat
run() { printf '%s   | %s\n' "$("$paper" "$1" "$hatches" "$folder/paper" 2>/dev/null)" "$2"; }
run xlsx '100,000 rows x 12: 3 s, 200 MB'
/usr/bin/python3 bench/openpyxl_peer.py "$folder/peer.xlsx"
run docx '2,000 rows: 1 s'
run pdf '2,000 rows: 2 s'
run columns.pdf '500 columns: 5 s, 300 MB'
run columns.dxf '500 columns: 3 s'
run graphs.pdf '100 soundings of 1,500 rows: 5 s'
run column '30 layers, laid out and painted: 5 ms'
