#!/usr/bin/env bash
# Installs what is needed and makes the site of guide, pages and reference in build/site; index.html is its first page.
# Fails on any warning, such as a public name without a comment or a link that leads nowhere.
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

need_build_packages
need_program doxygen doxygen
need_program python3 python3
install_missing_packages

configure release -DZVXMLLIB_BUILD_BENCHMARKS=OFF -DZVXMLLIB_BUILD_TESTS=OFF >/dev/null
rm -rf build/site
mkdir -p build/site
doxygen build/release/docs/Doxyfile
echo "The site is in $root/build/site/index.html"
