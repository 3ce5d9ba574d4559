#!/usr/bin/env python3
"""Draws the figures of "bench_peers --json" (standard input) as SVG (standard output)."""
import json
import sys

COLOURS = {"zvxmllib": "#2f7ed8", "by hand": "#8a8a8a"}
OTHER = "#c9a24b"
WIDTH, LEFT, BAR, GAP = 720, 190, 13, 4


def colour(name):
    return next((value for key, value in COLOURS.items() if name.startswith(key)), OTHER)


def panel(rows, column, title, top, size):
    parts = ['<text class="t" x="0" y="%d">%s</text>' % (top + 14, title)]
    most = max(row[size][column] for row in rows)
    scale = (WIDTH - LEFT - 60) / most
    y, form = top + 24, None
    for row in rows:
        if row["form"] != form:
            form = row["form"]
            y += 16
            parts.append('<text class="f" x="0" y="%d">%s</text>' % (y - 3, form))
        value = row[size][column]
        parts.append('<text x="%d" y="%d" text-anchor="end">%s</text>' % (LEFT - 8, y + BAR - 3, row["name"]))
        parts.append('<rect x="%d" y="%d" width="%.1f" height="%d" fill="%s"/>'
                     % (LEFT, y, max(1, value * scale), BAR, colour(row["name"])))
        parts.append('<text x="%.1f" y="%d">%.2f</text>' % (LEFT + value * scale + 5, y + BAR - 3, value))
        y += BAR + GAP
    line = LEFT + scale
    parts.append('<line x1="%.1f" x2="%.1f" y1="%d" y2="%d" stroke="currentColor" stroke-dasharray="3 3" opacity="0.5"/>'
                 % (line, line, top + 24, y))
    return parts, y + 16


def main():
    rows = json.load(sys.stdin)
    size = "1 MB"
    reading, middle = panel(rows, 0, "Reading 1 MB of orders into objects (time; a program written by hand for XML is 1)", 0, size)
    writing, bottom = panel(rows, 1, "Writing them", middle, size)
    print('<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 %d %d" role="img" aria-label="Times of zvxmllib and other '
          'libraries">' % (WIDTH, bottom))
    # Readable on light and dark pages.
    print("<style>svg{color:#333}text{font:12px sans-serif;fill:currentColor}.t{font-weight:bold;font-size:13px}"
          ".f{font-style:italic}@media(prefers-color-scheme:dark){svg{color:#ddd}}</style>")
    print("\n".join(reading + writing))
    print("</svg>")


main()
