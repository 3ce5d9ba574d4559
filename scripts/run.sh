#!/usr/bin/env bash
# Installs what is needed, builds the optimised library, goes from a schema to a running program, and shows the tool on
# real documents.
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

need_build_packages
install_missing_packages

configure release -DZVXMLLIB_BUILD_BENCHMARKS=OFF -DZVXMLLIB_BUILD_TESTS=OFF >/dev/null
cmake --build --preset release

zvxml=$root/build/release/tools/zvxml/zvxml
document=examples/data/ubl-invoice.xml
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

# show COMMAND ...: prints the command, then runs it.
show() {
    echo
    echo "\$ $*" | sed "s#$root/build/release/tools/[a-z-]*/##; s#$scratch/##g"
    "$@"
}

# From a schema to a running program: the classes, a project around them, and what it does with a document.
show "$root/build/release/tools/zvxml-gen/zvxml-gen" new "$scratch/alerts" \
    --namespace urn:oasis:names:tc:emergency:cap:1.2=cap --sample examples/data/cap-tsunami.xml examples/data/cap-1.2.xsd
cmake --install build/release --prefix "$scratch/installed" >/dev/null
show cmake -G Ninja -S "$scratch/alerts" -B "$scratch/alerts/build" -DCMAKE_PREFIX_PATH="$scratch/installed" | sed -n '1,2p;$p'
show cmake --build "$scratch/alerts/build" | sed -n '1,2p;$p'
show "$scratch/alerts/build/alerts" "$scratch/alerts/cap-tsunami.xml" "$scratch/copy.xml" | sed -n 1,16p
echo "  ..."
show "$zvxml" validate --schema examples/data/cap-1.2.xsd examples/data/cap-tsunami.xml examples/data/cap-australia.xml

show "$zvxml" inspect "$document"
show "$zvxml" format --indent 2 "$document" "$scratch/invoice.xml"
echo "The first lines of it:"
sed -n '1,12p' "$scratch/invoice.xml"
show "$zvxml" convert "$scratch/invoice.xml" "$scratch/invoice.xml.gz"
show "$zvxml" convert --indent 2 --declaration "$scratch/invoice.xml.gz" "$scratch/again.xml"
show cmp "$scratch/invoice.xml" "$scratch/again.xml"
echo "The document that went through gzip is the same, byte for byte."
show "$zvxml" convert --keep-going --indent 2 "$document" "$scratch/invoice.json"
echo "The first lines of it:"
sed -n '1,12p' "$scratch/invoice.json"
show "$zvxml" same "$document" "$scratch/invoice.json"
echo "Both hold the same elements, attributes and texts."

alert=$root/build/release/examples/example_cap_alert
echo
echo "\$ example_cap_alert examples/data/cap-australia.xml    # the same in typed objects"
"$alert" examples/data/cap-australia.xml
