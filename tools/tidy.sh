#!/usr/bin/env bash
# clang-tidy over the sources of what is shipped: tools/tidy.sh BUILD_FOLDER, which holds compile_commands.json; with
# "all" behind it also over tests, benchmarks and fuzzers, which take as long again.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."
sources=('src/*.cpp' 'modes/*.cpp' 'tools/tlxtool/*.cpp' 'tools/make_libraries/*.cpp')
[ "${2:-}" != all ] || sources+=('tools/*.cpp' 'tests/*.cpp' 'bench/*.cpp' 'fuzz/*.cpp')
git ls-files "${sources[@]}" | grep -v -e windows -e tests/sdk/module/ \
    | xargs -P "$(nproc)" -n 4 clang-tidy -p "$1" --quiet 2>/dev/null
