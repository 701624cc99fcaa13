#!/usr/bin/env bash
# Builds everything and runs every test; with --all also what only the build server should wait for: the second
# compiler, clang-tidy and one run of the benchmarks. On a bare Debian 12 nothing has to be done before.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")"

all=no
[ "${1:-}" = --all ] && all=yes

lists=(packages.txt)
[ $all = yes ] && lists+=(packages_ci.txt)
tools/install_packages.sh "${lists[@]}"

passed=0
failed=0
# run NAME COMMAND...: one step, counted.
step() {
    local name=$1
    shift
    echo "== $name"
    if "$@"; then passed=$((passed + 1)); else failed=$((failed + 1)); echo "FAILED: $name"; fi
}
# One preset: configured, built, its tests run. The tests are counted one by one from their own report.
preset() {
    echo "== $1"
    local report=build/$1/tests.xml
    cmake --preset "$1" >/dev/null && cmake --build --preset "$1" || { failed=$((failed + 1)); return; }
    rm -f "$report"
    ctest --preset "$1" --output-junit tests.xml || true
    if [ -e "$report" ]; then
        local tests bad
        tests=$(grep -c '<testcase ' "$report")
        bad=$(grep -c 'status="fail"' "$report" || true)
        passed=$((passed + tests - bad))
        failed=$((failed + bad))
        [ "$tests" -gt 0 ] || failed=$((failed + 1))
    else
        failed=$((failed + 1))
    fi
}

preset release
preset asan
if [ $all = yes ]; then
    preset clang
    step clang-tidy tools/tidy.sh build/clang
    step benchmark build/release/bench/engine_bench --benchmark_min_time=0.01
fi

echo
echo "$passed passed, $failed failed"
[ "$failed" = 0 ]
