#!/usr/bin/env bash
# Builds and runs the consumer by the README's command for programs without CMake.
# Usage: pkg_config.sh PKG_CONFIG COMPILER PREFIX CONSUMER FOLDER README
set -euo pipefail
pkg_config=$1 compiler=$2 prefix=$3 consumer=$4 folder=$5 readme=$6

pc=$(find "$prefix" -name zvxmllib.pc)
export PKG_CONFIG_PATH=${pc%/*}
"$pkg_config" --exists --print-errors 'zvxmllib >= 16.1'
mkdir -p "$folder"
cp "$consumer" "$folder/program.cpp"
cd "$folder"
command=$(grep '^    c++ .*program.cpp' "$readme")
c++() { "$compiler" "$@"; }
pkg-config() { "$pkg_config" "$@"; }
eval "$command"
./a.out
