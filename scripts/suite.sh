#!/usr/bin/env bash
# suite.sh FOLDER [COUNT [MUTANTS]]: compiles the classes of COUNT schemas (300) of a suite and tries them on its documents, and
# on MUTANTS changes (0) of each, beside the same schemas as data. FOLDER holds the table cases.tsv, with the columns
# schemas, instance and features, and the files that it names in files/ or files.tar.xz. Any folder of this form will
# do; the W3C XML Schema test suite has been brought into it.
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

need_build_packages
need_test_packages
need_program xz xz-utils
install_missing_packages

folder=$(realpath "${1:?usage: suite.sh FOLDER [COUNT [MUTANTS]]}")
configure dev >/dev/null
cmake --build --preset dev --target compiled_cases
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
files=$folder/files
if [ ! -d "$files" ]; then
    files=$work/files
    mkdir "$files"
    tar -xJf "$folder/files.tar.xz" -C "$files"
fi
python3 tests/compiled/compile_cases.py --config build/dev/tests/compiled/Debug.json --work "$work/build" \
    --table "$folder/cases.tsv" --files "$files" --count "${2:-300}" --mutants "${3:-0}"
