#!/usr/bin/env bash
# Builds the optimised library and runs the benchmarks; ends with the tables of ratios. Arguments go to
# Google Benchmark, for instance --benchmark_filter=Read.
#
# bench.sh peers [--quick|--picture]: the comparison with a program written by hand and with other libraries alone, which takes
# some ten minutes; --quick takes one and leaves the large document out; --picture draws docs/performance.svg.
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

need_build_packages
need_header benchmark/benchmark.h libbenchmark-dev
need_header nlohmann/json.hpp nlohmann-json3-dev
need_header pugixml.hpp libpugixml-dev
need_header libxml2/libxml/tree.h libxml2-dev
need_header rapidjson/document.h rapidjson-dev
need_program soapcpp2 gsoap
need_header stdsoap2.h libgsoap-dev
install_missing_packages

configure release -DZVXMLLIB_BUILD_BENCHMARKS=ON -DZVXMLLIB_BUILD_TESTS=OFF -DZVXMLLIB_BENCH_PEERS=ON

if [ "${1:-}" = peers ]; then
    cmake --build --preset release --target bench_peers
    if [ "${2:-}" = --picture ]; then
        build/release/benchmarks/peers/bench_peers --quick --json >build/release/peers.json
        python3 benchmarks/peers/picture.py <build/release/peers.json >docs/performance.svg
    else
        build/release/benchmarks/peers/bench_peers "${@:2}"
    fi
    exit
fi
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
build/release/benchmarks/peers/bench_peers
if command -v xmllint >/dev/null && [ -x /usr/bin/time ]; then
    scripts/bench_tool.sh
fi
