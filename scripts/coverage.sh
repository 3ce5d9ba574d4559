#!/usr/bin/env bash
# Installs what is needed, builds everything with counters, runs all tests, and prints which lines and branches
# of the library they reach: a table of its directories, then the lines that no test reaches. A branch that is
# taken only when an exception passes (the compiler adds one to every call) does not count as a branch.
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

need_build_packages
need_test_packages
need_program gcovr gcovr
install_missing_packages

configure coverage >/dev/null
cmake --build --preset coverage
# Counters add up over runs.
find build/coverage -name '*.gcda' -delete
status=0
ctest --preset coverage -j "$CMAKE_BUILD_PARALLEL_LEVEL" || status=$? # what was reached is told all the same

gcovr --root . --object-directory build/coverage --filter 'zvxmllib/' -j "$CMAKE_BUILD_PARALLEL_LEVEL" \
    --exclude-throw-branches --exclude-unreachable-branches --json build/coverage/coverage.json build/coverage
python3 tools/coverage_table.py build/coverage/coverage.json
exit "$status"
