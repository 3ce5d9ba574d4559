#!/usr/bin/env bash
# Checks what the shared library exports against the list of classes and functions of the interface.
#
# Usage: check_exported_symbols.sh [--update] LIBRARY
# The list names classes and free functions, not single symbols, which differ between compilers.
set -euo pipefail
export LC_ALL=C

list=$(cd "$(dirname "$0")/.." && pwd)/tests/layout/exported_names.txt
update=no
if [ "$1" = --update ]; then
    update=yes
    shift
fi
library=$1

# "vtable for A::B", "A::B::f(int) const", "typeinfo name for A::B" -> A::B
# Weak symbols of the standard library's templates are not ours; their visibility is its own.
exported=$(nm -D -C --defined-only "$library" |
    awk '{ kind = $2; $1 = ""; $2 = ""; sub(/^ +/, ""); print kind " " $0 }' |
    grep -v -E '^[WVu] decltype |^[WVu] (typeinfo name for |typeinfo for |vtable for |guard variable for )?[^(]*\bstd::|^[WVu] [^(]*__gnu_cxx::' |
    sed -E 's/^[A-Za-z] //
            s/^(vtable|VTT|typeinfo name|typeinfo|guard variable|construction vtable) for //
            s/^(non-virtual thunk to|virtual thunk to) //
            s/^std::[^(]* (ZvXmlLib16)/\1/
            s/\[abi:[a-z0-9]+\]//g
            s/\(.*$//
            s/<.*$//' |
    awk -F '::' '{
        # A class begins with C, I or a capital after its namespaces; what follows it is a member.
        name = $1
        if ($1 ~ /^ZvXmlLib16/) {
            name = $1 "::" $2
            if ($2 == "detail" || $2 == "platform") name = name "::" $3
        }
        print name
    }' | sort -u)

if [ "$update" = yes ]; then
    printf '%s\n' "$exported" >"$list"
    exit 0
fi
if ! difference=$(diff <(printf '%s\n' "$exported") "$list"); then
    echo "The exports of $library differ from $list (< is exported, > is listed):"
    echo "$difference"
    exit 1
fi
echo "$(printf '%s\n' "$exported" | wc -l) classes and functions are exported, as listed."
