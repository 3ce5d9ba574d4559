#!/usr/bin/env bash
# bench_generated.sh [OPTION ...] SCHEMA ...: what the classes of schemas cost: makes them by zvxml-gen with these
# options, compiles them with -O2, and prints the seconds of compiler time, the sizes of the header, of the code and of
# its constant rows, and the number of classes. Without arguments it takes examples/data/cap-1.2.xsd. Ends with the
# table of generated classes beside classes written by hand.
caller=$PWD
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

need_build_packages
need_header benchmark/benchmark.h libbenchmark-dev
need_program size binutils
install_missing_packages

configure release -DZVXMLLIB_BUILD_BENCHMARKS=ON -DZVXMLLIB_BUILD_TESTS=OFF >/dev/null
cmake --build --preset release --target zvxml-gen bench_generated_ratios
out=$(mktemp -d)
trap 'rm -rf "$out"' EXIT
if [ $# = 0 ]; then
    set -- "$root/examples/data/cap-1.2.xsd"
fi
(cd "$caller" && "$root/build/release/tools/zvxml-gen/zvxml-gen" --out "$out" --name classes "$@")
TIMEFORMAT='%U seconds of compiler time at -O2'
for source in "$out"/classes-*.cpp; do
    time g++ -std=c++17 -O2 -I"$root" -c "$source" -o "${source%.cpp}.o"
done
size -A "$out"/classes-*.o | awk '
    $1 ~ /^\.text|^\.init/ { code += $2 }
    $1 ~ /rodata|data\.rel\.ro/ { rows += $2 }
    END { printf "%.0f KB of machine code, %.0f KB of constant rows\n", code / 1000, rows / 1000 }'
echo "$(grep -c '^class ' "$out/classes.h") classes, $(wc -l <"$out/classes.h") lines of header"
build/release/benchmarks/bench_generated_ratios
