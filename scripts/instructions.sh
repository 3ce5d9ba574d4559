#!/usr/bin/env bash
# Counts the instructions of reading an 11 KB document into typed objects and of writing it: XML, JSON and
# Fast Infoset, both ways. Compares them with those on record (g++ 12, release) and fails if one has grown
# by more than a twentieth. With --record it writes the new counts down.
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

need_build_packages
need_header benchmark/benchmark.h libbenchmark-dev
need_program valgrind valgrind
install_missing_packages

configure release -DZVXMLLIB_BUILD_BENCHMARKS=ON -DZVXMLLIB_BUILD_TESTS=OFF >/dev/null
cmake --build --preset release --target bench_typed_ratios bench_json_writing bench_json_reading \
    bench_fi_writing bench_fi_reading

record=benchmarks/typed/instructions.txt

# count PROGRAM WHAT: instructions of one repetition.
count() {
    local total=()
    for times in 20 120; do
        total+=("$(valgrind --tool=callgrind --callgrind-out-file=/dev/null \
            "build/release/benchmarks/$1" "$2" "$times" 2>&1 |
            sed -n 's/.*refs: *//p' | tr -d ,)")
    done
    echo $(((total[1] - total[0]) / 100))
}

status=0
counts=""
for row in "read bench_typed_ratios read" "write bench_typed_ratios write" \
    "read-members bench_typed_ratios read-members" "write-members bench_typed_ratios write-members" \
    "json bench_json_writing write" \
    "json-read bench_json_reading read" "fi-write bench_fi_writing write" "fi-read bench_fi_reading read"; do
    read -r what program argument <<<"$row"
    now=$(count "$program" "$argument")
    before=$(sed -n "s/^$what //p" "$record" 2>/dev/null || true)
    echo "$what: $now instructions (on record: ${before:-none})"
    counts+="$what $now"$'\n'
    if [ -n "$before" ] && [ "$now" -gt $((before + before / 20)) ]; then
        status=1
    fi
done
if [ "${1:-}" = --record ]; then
    printf '%s' "$counts" >"$record"
    status=0
fi
exit "$status"
