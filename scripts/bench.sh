#!/usr/bin/env bash
# Builds the optimised library and runs the benchmarks; ends with the tables of ratios. Arguments go to
# Google Benchmark, for instance --benchmark_filter=Read.
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

need_build_packages
need_header benchmark/benchmark.h libbenchmark-dev
need_header nlohmann/json.hpp nlohmann-json3-dev
install_missing_packages

configure release -DZVXMLLIB_BUILD_BENCHMARKS=ON -DZVXMLLIB_BUILD_TESTS=OFF
cmake --build --preset release

build/release/benchmarks/bench_zvxmllib "$@"
build/release/benchmarks/bench_callback_memory
build/release/benchmarks/bench_large_file
build/release/benchmarks/bench_growth
build/release/benchmarks/bench_ratios
build/release/benchmarks/bench_typed_ratios
build/release/benchmarks/bench_json_writing
build/release/benchmarks/bench_fi_reading
build/release/benchmarks/bench_values
build/release/benchmarks/bench_patterns
build/release/benchmarks/bench_fi_writing
build/release/benchmarks/bench_json_reading
if command -v xmllint >/dev/null && [ -x /usr/bin/time ]; then
    scripts/bench_tool.sh
fi
