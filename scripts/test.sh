#!/usr/bin/env bash
# Installs what is needed, then builds and tests everything: with g++, with clang, and under the address,
# undefined-behaviour and thread sanitizers; and runs each fuzzer for some seconds. Other presets can be named as
# arguments.
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

need_build_packages
need_program clang++ clang
need_test_packages
install_missing_packages

presets=("$@")
if [ ${#presets[@]} -eq 0 ]; then
    presets=(dev clang asan tsan fuzz)
fi

for preset in "${presets[@]}"; do
    echo "=== $preset"
    configure "$preset"
    cmake --build --preset "$preset"
    runner=()
    if [ "$preset" = tsan ] && setarch "$(uname -m)" -R true 2>/dev/null; then
        # The thread sanitizer needs its own addresses, which random placement may take.
        runner=(setarch "$(uname -m)" -R)
    fi
    "${runner[@]}" ctest --preset "$preset" -j "$CMAKE_BUILD_PARALLEL_LEVEL"
done
