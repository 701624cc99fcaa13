#!/usr/bin/env bash
# clang-tidy over all of our own sources: tools/tidy.sh BUILD_FOLDER, which holds compile_commands.json.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."
git ls-files 'src/*.cpp' 'modes/*.cpp' 'tools/*.cpp' 'tests/*.cpp' 'bench/*.cpp' 'fuzz/*.cpp' | grep -v -e windows -e tests/sdk/module/ \
    | xargs -P "$(nproc)" -n 4 clang-tidy -p "$1" --quiet 2>/dev/null
