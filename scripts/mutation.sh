#!/usr/bin/env bash
# Asks the tests whether they notice small changes to the library, chosen by a seed: tools/mutate.py tells how. It takes
# about half an hour; --count 150 --seed 1 --only json/ are its options.
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

need_build_packages
need_test_packages
install_missing_packages

exec python3 tools/mutate.py "$@"
