#!/usr/bin/env bash
# Builds everything and runs every test; with --all also what only the build server should wait for: the second
# compiler with its sanitizers and fuzzers, clang-tidy, the program for Windows and one run of the benchmarks. On a
# bare Debian 12 nothing has to be done before.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")"

all=no
[ "${1:-}" = --all ] && all=yes

lists=(packages.txt)
[ $all = yes ] && lists+=(packages_ci.txt packages_screenshot.txt packages_windows.txt)
tools/install_packages.sh "${lists[@]}"

passed=0
failed=0
times=()
failures=()
# took NAME SINCE: says how long a part took since then, at once and in the list at the end.
took() {
    times+=("$1 $((SECONDS - $2)) s")
    echo "-- ${times[-1]}, $SECONDS s in all"
}
# run NAME COMMAND...: one step, counted.
step() {
    local name=$1 start=$SECONDS
    shift
    echo "== $name"
    if "$@"; then
        passed=$((passed + 1))
    else
        failed=$((failed + 1))
        failures+=("$name")
        echo "FAILED: $name"
    fi
    took "$name" $start
}
# The tests of a preset that failed, with the end of what each of them said: a log of thousands of lines hides it.
tell_failures() {
    local log=build/$1/Testing/Temporary name
    [ -e "$log/LastTestsFailed.log" ] || return 0
    while IFS=: read -r _ name; do
        failures+=("$1: $name
$(sed -n "/ Testing: $name\$/,/^Test time = /p" "$log/LastTest.log" | tail -40)")
    done <"$log/LastTestsFailed.log"
}
# One preset: configured, built, its tests run. The tests are counted one by one from their own report.
preset() {
    echo "== $1"
    local report=build/$1/tests.xml start=$SECONDS
    if ! { cmake --preset "$1" >/dev/null && cmake --build --preset "$1"; }; then
        failed=$((failed + 1))
        failures+=("$1: build")
        return
    fi
    took "$1: build" $start
    start=$SECONDS
    rm -f "$report" "build/$1/Testing/Temporary/LastTestsFailed.log"
    ctest --preset "$1" --output-junit tests.xml || true
    took "$1: tests" $start
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
    tell_failures "$1"
}

preset release
if [ $all = yes ]; then
    preset asan
    step fuzzers tools/fuzz.sh build/asan 30
    step clang-tidy tools/tidy.sh build/asan
    step "documents opened by others" tests/document/open_outside.sh build/release/tests/document/write_documents \
        build/release/program/tlxtool
    step "package for Linux" packaging/linux/smoke.sh
    preset windows
    step "same bytes on both systems" packaging/windows/same_bytes.sh
    step "folder for Windows" packaging/windows/make_folder.sh
    step "program for Windows" packaging/windows/smoke.sh
    # Without the largest sizes, which take minutes.
    step benchmark build/release/bench/engine_bench --benchmark_filter='-/(7700|23000|100000|1000000)/' \
        --benchmark_repetitions=1
    bench=build/release/bench/program
    step "benchmark of the program" env QT_QPA_PLATFORM=offscreen $bench/program_bench $bench/bare_window \
        $bench/watched_program build/release/toy_program build/release/program build/release/bench/quick 1 300
fi

echo
printf '%s\n' "${times[@]}"
[ ${#failures[@]} = 0 ] || printf 'FAILED: %s\n' "${failures[@]}"
echo "$passed passed, $failed failed"
[ "$failed" = 0 ]
