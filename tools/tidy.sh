#!/usr/bin/env bash
# clang-tidy: tools/tidy.sh BUILD_FOLDER [all], the folder holding compile_commands.json. Looks at the sources of what is
# shipped that have changed since the commit in .ci/linted, at which all of them were clean; with "all" at every
# source, tests, benchmarks and fuzzers too. Whoever has seen all that is shipped clean writes that commit there.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."
shipped=('src/*.cpp' 'modes/*.cpp' 'tools/tlxtool/*.cpp' 'tools/make_libraries/*.cpp')
linted=$(cat .ci/linted)
if [ "${2:-}" = all ]; then
    git ls-files "${shipped[@]}" 'tools/*.cpp' 'tests/*.cpp' 'bench/*.cpp' 'fuzz/*.cpp'
elif git merge-base --is-ancestor "$linted" HEAD 2>/dev/null; then
    git diff --name-only --diff-filter=d "$linted" -- "${shipped[@]}"
else
    git ls-files "${shipped[@]}"
fi | sort -u | sed -e '/windows/d' -e '\#^tests/sdk/module/#d' \
    | xargs -r -P "$(nproc)" -n 4 clang-tidy -p "$1" --quiet 2>/dev/null
