#!/usr/bin/env bash
# Builds and runs the consumer by what pkg-config says of the installed library.
# Usage: pkg_config.sh PKG_CONFIG COMPILER PREFIX SOURCE PROGRAM
set -euo pipefail
pkg_config=$1 compiler=$2 prefix=$3 source=$4 program=$5

pc=$(find "$prefix" -name zvxmllib.pc)
export PKG_CONFIG_PATH=${pc%/*}
"$pkg_config" --exists --print-errors 'zvxmllib >= 16.1'
read -r -a flags <<<"$("$pkg_config" --cflags --libs zvxmllib)"
"$compiler" -std=c++17 "$source" "${flags[@]}" "-Wl,-rpath,$("$pkg_config" --variable=libdir zvxmllib)" -o "$program"
"$program"
