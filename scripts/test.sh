#!/usr/bin/env bash
# Installs what is needed, then builds and tests everything: with g++, with clang, and under the address,
# undefined-behaviour and thread sanitizers; and runs each fuzzer for some seconds. Other presets can be named as
# arguments. The preset tsan runs the tests that have threads, tsan-all runs all of them.
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

need_build_packages
need_clang
need_test_packages
install_missing_packages

presets=("$@")
if [ ${#presets[@]} -eq 0 ]; then
    presets=(dev clang asan tsan fuzz)
fi

# The tests that start threads, or that another thread works for. The thread sanitizer has nothing to see in the others.
threaded=(binding document file_faults foundation json_reader patterns streams strict threads xml)

for preset in "${presets[@]}"; do
    echo "=== $preset"
    build=()
    tests=()
    runner=()
    if [ "$preset" = tsan ]; then
        build=(--target "${threaded[@]/#/test_}")
        tests=(-R "^($(IFS='|' && echo "${threaded[*]}"))\$")
    elif [ "$preset" = tsan-all ]; then
        preset=tsan
    fi
    configure "$preset" -DZVXMLLIB_UNITY_TESTS=ON # nobody changes one of them and builds again
    cmake --build --preset "$preset" "${build[@]}"
    if [ "$preset" = tsan ] && setarch "$(uname -m)" -R true 2>/dev/null; then
        # The thread sanitizer needs its own addresses, which random placement may take.
        runner=(setarch "$(uname -m)" -R)
    fi
    "${runner[@]}" ctest --preset "$preset" -j "$CMAKE_BUILD_PARALLEL_LEVEL" "${tests[@]}"
done
