#!/usr/bin/env python3
"""Prints what gcovr found, in its JSON form, as a table of directories and a list of lines that were not reached."""
import json
import sys
from collections import defaultdict
from pathlib import Path


def ranges(numbers):
    """[1, 2, 3, 7] as "1-3, 7"."""
    spans = []
    for number in sorted(numbers):
        if spans and spans[-1][1] == number - 1:
            spans[-1][1] = number
        else:
            spans.append([number, number])
    return ", ".join(f"{first}-{last}" if first != last else f"{first}" for first, last in spans)


def main():
    counts = defaultdict(lambda: [0, 0, 0, 0])  # lines reached, lines, branches taken, branches
    missed = {}
    for file in json.loads(Path(sys.argv[1]).read_text())["files"]:
        lines = [line for line in file["lines"] if not line["gcovr/noncode"]]
        branches = [branch for line in lines for branch in line["branches"]]
        found = (sum(line["count"] > 0 for line in lines), len(lines),
                 sum(branch["count"] > 0 for branch in branches), len(branches))
        for name in (str(Path(file["file"]).parent), "all"):
            counts[name] = [total + more for total, more in zip(counts[name], found)]
        not_reached = [line["line_number"] for line in lines if line["count"] == 0]
        if not_reached:
            missed[file["file"]] = not_reached

    print("| Directory | Lines | reached | Branches | taken |\n|---|---:|---:|---:|---:|")
    for name, (reached, lines, taken, branches) in sorted(counts.items(), key=lambda entry: (entry[0] == "all", entry)):
        print(f"| {name} | {lines} | {100 * reached / max(lines, 1):.1f} % "
              f"| {branches} | {100 * taken / max(branches, 1):.1f} % |")
    print("\nLines that no test reaches:")
    for file, numbers in sorted(missed.items()):
        print(f"{file}: {ranges(numbers)}")


main()
