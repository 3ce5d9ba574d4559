#!/usr/bin/env bash
# Times the tool beside xmllint on a document of 70 MB, in processes of their own, one after the other, five times each;
# prints the medians of user and system time in seconds, the peak of memory in MB, and the ratios to `xmllint --format`.
# bench_tool.sh [ZVXML [MEGABYTES]]
set -euo pipefail
zvxml=$(realpath "${1:-build/release/tools/zvxml/zvxml}")
megabytes=${2:-70}
for program in xmllint /usr/bin/time; do
    command -v "$program" >/dev/null || { echo "bench_tool.sh needs $program (libxml2-utils, time)" >&2; exit 1; }
done
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
cd "$scratch"

awk -v most="$((megabytes * 1000000))" 'BEGIN {
    srand(1)
    count = split("alpha beta gamma delta epsilon zeta eta theta iota kappa", words, " ")
    size = 0
    print "<orders xmlns=\"urn:example:orders\">"
    for (number = 1; size < most; ++number) {
        text = "  <order id=\"" number "\" status=\"" words[1 + number % count] "\">\n    <customer>" \
            words[1 + int(rand() * count)] " &amp; Sons</customer>\n"
        for (item = 0; item <= number % 4; ++item)
            text = text "    <item sku=\"" words[1 + int(rand() * count)] "-" int(rand() * 1000) "\"><name>" \
                words[1 + int(rand() * count)] " " words[1 + int(rand() * count)] "</name><quantity>" item + 1 \
                "</quantity><price>" int(rand() * 100000) / 100 "</price></item>\n"
        text = text "  </order>\n"
        size += length(text)
        printf "%s", text
    }
    print "</orders>"
}' >in.xml
"$zvxml" convert in.xml in.json
"$zvxml" convert in.xml in.fi

reference=
# measure TITLE COMMAND...
measure() {
    local title=$1 times seconds memory
    shift
    times=$(for _ in 1 2 3 4 5; do /usr/bin/time -f '%U %S %M' "$@" 2>&1 >/dev/null | awk '{ print $1 + $2, $3 }'; done |
        sort -n | sed -n 3p)
    seconds=${times% *}
    memory=${times#* }
    reference=${reference:-$seconds}
    awk -v t="$title" -v s="$seconds" -v m="$memory" -v r="$reference" \
        'BEGIN { printf "%-36s %7.2f s %8.1f MB %7.2f\n", t, s, m / 1024, s / r }'
}
echo "A document of $(($(stat -c %s in.xml) / 1000000)) MB"
measure "xmllint --format in.xml" xmllint --format in.xml -o out.xml
measure "zvxml format in.xml" "$zvxml" format in.xml out.xml
measure "zvxml convert in.xml out.xml" "$zvxml" convert in.xml out.xml
measure "zvxml convert in.xml out.json" "$zvxml" convert in.xml out.json
measure "zvxml convert in.xml out.fi" "$zvxml" convert in.xml out.fi
measure "zvxml convert in.json out.xml" "$zvxml" convert in.json out.xml
measure "zvxml convert in.fi out.xml" "$zvxml" convert in.fi out.xml
measure "zvxml convert in.fi out.json" "$zvxml" convert in.fi out.json
measure "zvxml convert in.json out.fi" "$zvxml" convert in.json out.fi
measure "zvxml same in.xml in.fi" "$zvxml" same in.xml in.fi
