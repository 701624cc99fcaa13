#!/usr/bin/env bash
# Lets each fuzzer look for faults for a while: tools/fuzz.sh BUILD_FOLDER SECONDS [TARGET...]. The build folder is
# one of the preset fuzz (or of another with TELLURIX_FUZZ=ON) with the target "fuzzers" built. Prints a line a
# target; exit status 1 where one found something, whose input and log are named in its line, or was stopped.
#
# New inputs of value are left in BUILD_FOLDER/fuzzing/TARGET and serve the next run.
set -euo pipefail
if [ $# -lt 2 ]; then
    sed -n 2,6p "$0" >&2
    exit 2
fi
root=$(dirname "$(dirname "$(readlink -f "$0")")")
build=$(readlink -f "$1")
seconds=$2
shift 2

# Longest input of each target in bytes: what its records need, since short inputs run faster.
declare -A longest=([project]=16384 [hatch_library]=512 [preset_library]=512 [build_json]=16384 [ground]=512 [sounding_file]=4096)
targets=("$@")
[ ${#targets[@]} -gt 0 ] || targets=(project hatch_library preset_library build_json ground sounding_file)

# Short stacks and a small quarantine: allocations are what these programs spend their time on.
export ASAN_OPTIONS=malloc_context_size=2:quarantine_size_mb=16${ASAN_OPTIONS:+:$ASAN_OPTIONS}
export UBSAN_OPTIONS=halt_on_error=1:print_stacktrace=1
# One target until the time is over; its line in the report.
look() {
    local target=$1 status=0 executions perSecond coverage result=clean
    local work=$build/fuzzing/$target log=$build/fuzzing/$target.log
    mkdir -p "$work"
    local folders=("$work" "$root/fuzz/corpus/$target")
    [ -d "$root/fuzz/regressions/$target" ] && folders+=("$root/fuzz/regressions/$target")
    # The schedule that libFuzzer takes by default spends five times as long on its statistics as on the runs.
    "$build/fuzz/${target}_fuzzer" -entropic=0 -max_total_time="$seconds" -timeout=10 -rss_limit_mb=2048 \
        -max_len="${longest[$target]}" -print_final_stats=1 -artifact_prefix="$build/fuzzing/$target-" \
        "${folders[@]}" >"$log" 2>&1 || status=$?
    executions=$(awk '/stat::number_of_executed_units/ { print $2 }' "$log")
    perSecond=$(awk '/stat::average_exec_per_sec/ { print $2 }' "$log")
    coverage=$(awk '{ for (i = 1; i < NF; ++i) if ($i == "cov:") last = $(i + 1) } END { print last + 0 }' "$log")
    if [ "$status" -eq 72 ]; then
        result="INTERRUPTED before its time was over"
    elif [ "$status" -ne 0 ]; then
        result="FOUND $(awk '/Test unit written to/ { print $NF }' "$log" | tail -n 1) (status $status, $log)"
    fi
    printf '%-14s %9s executions %7s/s  coverage %6s  %s\n' \
        "$target" "${executions:-0}" "${perSecond:-0}" "$coverage" "$result"
    return $status
}

found=0
running=0
for target in "${targets[@]}"; do
    # As many at a time as there are processors.
    [ $running -lt "$(nproc)" ] || { wait -n || found=1; running=$((running - 1)); }
    look "$target" &
    running=$((running + 1))
done
for ((; running > 0; --running)); do wait -n || found=1; done
exit $found
