#!/usr/bin/env bash
# fuzz.sh TARGET [SECONDS [OPTION ...]]: builds the fuzzer TARGET with clang and runs it, 60 seconds by default, and
# tells the number of executions at the end. Further options are libFuzzer's, such as -runs=1000000 and -max_len=64.
#
# Documents    xml, plain, json, plain_json, fastinfoset; inflate: compressed data; formats: one against the other
# Values       integers, reals, binary (with boolean), dates (with duration): texts; values: printed and read;
#              facets: a value and bounds; patterns
# Strict       strict_writing: calls and objects, written and read elsewhere; strict_reading: documents, written again
#
# A run begins with fuzz/seeds/TARGET and with what earlier ones have kept in build/fuzz/corpus_TARGET. Inputs that
# show a fault stay in build/fuzz/found.
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

need_build_packages
need_clang
need_header nlohmann/json.hpp nlohmann-json3-dev
install_missing_packages

target=${1:?usage: fuzz.sh TARGET [SECONDS [OPTION ...]]}
seconds=${2:-60}
options=("${@:3}")

configure fuzz >/dev/null
cmake --build --preset fuzz --target "fuzz_$target"
corpus=build/fuzz/corpus_$target
mkdir -p "$corpus"
build/fuzz/fuzz/"fuzz_$target" -max_total_time="$seconds" -timeout=20 -print_final_stats=1 \
    -artifact_prefix="build/fuzz/found/$target-" -dict="fuzz/$target.dict" "${options[@]}" \
    "$corpus" "fuzz/seeds/$target" 2>&1 | tee "build/fuzz/log_$target"
grep -a number_of_executed_units "build/fuzz/log_$target"
