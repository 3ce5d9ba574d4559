#!/usr/bin/env bash
# fuzz.sh TARGET [SECONDS]: builds the fuzzer TARGET (xml, json, fastinfoset, dates, inflate, patterns) with clang and runs it,
# 60 seconds by default. Found inputs stay in build/fuzz/found.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
target=${1:?usage: fuzz.sh TARGET [SECONDS]}
seconds=${2:-60}

cmake --preset fuzz >/dev/null
cmake --build --preset fuzz --target "fuzz_$target"
seeds=examples/data
if [ "$target" = fastinfoset ]; then
    seeds=tests/data/fastinfoset
elif [ "$target" = json ]; then
    seeds=fuzz/seeds/json
fi
options=()
if [ -f "fuzz/$target.dict" ]; then
    options=("-dict=fuzz/$target.dict")
fi
mkdir -p "build/fuzz/found" "build/fuzz/corpus_$target"
"build/fuzz/fuzz/fuzz_$target" -max_total_time="$seconds" -max_len=20000 -artifact_prefix=build/fuzz/found/ \
    "${options[@]}" "build/fuzz/corpus_$target" "$seeds"
