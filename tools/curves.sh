#!/usr/bin/env bash
# Runs all benchmarks of the engine and redraws docs/speed: the pictures and the tables of figures. Takes some five
# minutes; nothing else should run meanwhile. With --quick every benchmark runs once, to see that all is well.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."

repetitions=5
folder=docs/speed
if [ "${1:-}" = --quick ]; then
    repetitions=1
    folder=build/release/bench/quick
fi
cmake --preset release >/dev/null
cmake --build build/release --target engine_bench draw_curves
# In random order, so that what the machine does meanwhile meets all of them alike.
build/release/bench/engine_bench --benchmark_repetitions=$repetitions --benchmark_enable_random_interleaving=true \
    --benchmark_out=build/release/bench/results.json --benchmark_out_format=json
build/release/bench/draw_curves build/release/bench/results.json "$folder"
echo "See $folder"
