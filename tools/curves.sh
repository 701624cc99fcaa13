#!/usr/bin/env bash
# Runs all benchmarks and redraws docs/speed: the pictures and the tables of figures. Takes some six minutes; nothing
# else should run meanwhile. With --quick every benchmark runs once, to see that all is well.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."

tools/install_packages.sh packages.txt packages_screenshot.txt
repetitions=5
starts=31
points=(1340 4500 13400)
folder=docs/speed
if [ "${1:-}" = --quick ]; then
    repetitions=1
    starts=1
    points=(300)
    folder=build/release/bench/quick
fi
cmake --preset release >/dev/null
cmake --build build/release --target engine_bench draw_curves program_bench
# In random order, so that what the machine does meanwhile meets all of them alike.
build/release/bench/engine_bench --benchmark_repetitions=$repetitions --benchmark_enable_random_interleaving=true \
    --benchmark_out=build/release/bench/results.json --benchmark_out_format=json
build/release/bench/draw_curves build/release/bench/results.json "$folder"
# 13,400 points have a hundred thousand layers.
bench=build/release/bench/program
QT_QPA_PLATFORM=xcb xvfb-run -a -s '-screen 0 1440x900x24' sh -c 'tools/start_window_manager.sh && exec "$@"' - "$bench/program_bench" "$bench/bare_window" "$bench/watched_program" \
    build/release/toy_program build/release/program "$folder" $starts "${points[@]}"
echo "See $folder"
