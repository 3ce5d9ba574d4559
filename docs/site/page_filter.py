#!/usr/bin/env python3
"""Shows a page of the documentation to Doxygen: names for pages and headings, links by these names, plain blocks.

Titles get the name of the page, headings that of the page and their text, as links on the web name them. A link to
another page, to a heading or to a file that is no page is made accordingly; an item of a list that is only a link, in a
page of NAVIGATION, puts the other page below this one.
"""
import re
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent.parent
NAVIGATION = {"guide", "details", "project"}
HIGHLIGHTED = {"cpp", "xml"}


def page_name(path):
    """guide_05_json for docs/guide/05-json.md; the pages of docs/ by their own names."""
    parts = path.resolve().relative_to(ROOT).with_suffix("").parts
    parts = [part for part in parts if part not in ("docs", "site")]
    if parts[-1] == "README":
        parts = parts[:-1] or ["mainpage"]
    return re.sub(r"\W", "_", "_".join(parts)).lower()


def slug_of(heading):
    return re.sub(r"\s", "_", re.sub(r"[^\w\s-]", "", heading).strip().lower()).replace("-", "_")


def link(match, path):
    text, target = match.groups()
    if re.match(r"\w+:", target):
        return match.group(0)
    file, _, heading = target.partition("#")
    other = (path.parent / file).resolve() if file else path
    if other.is_dir():
        other = other / "README.md"
    if other.suffix == ".svg":
        return match.group(0)
    if other.suffix != ".md":
        return text
    name = page_name(other)
    if heading:
        name += "_" + heading.replace("-", "_")
    if text.endswith(".md"):  # its title, as the name of a file means nothing here
        text = other.read_text(encoding="utf-8").splitlines()[0].lstrip("# ")
    return f'\\ref {"index" if name == "mainpage" else name} "{text.replace("`", "")}"'


def lone_quote(match):
    """Doxygen loses the end of code with a single quotation mark in it."""
    return "<code>" + match.group(1).replace("&", "&amp;").replace("<", "&lt;").replace('"', "&quot;") + "</code>"


class Page:
    def __init__(self, path):
        self.path = path
        self.name = page_name(path)
        self.seen = set()

    def heading(self, marks, text):
        if marks == "#":
            return f"# {text} {{#{self.name}}}"
        slug, count = slug_of(text), 0
        while f"{slug}{'_%d' % count if count else ''}" in self.seen:
            count += 1
        slug += f"_{count}" if count else ""
        self.seen.add(slug)
        return f"{marks} {text} {{#{self.name}_{slug}}}"

    def line(self, line):
        heading = re.match(r"(#+) (.*)", line)
        if heading:
            return self.heading(*heading.groups())
        if not line.startswith("    "):
            line = re.sub(r'`([^`"]*"[^`"]*)`', lone_quote, line)
            line = re.sub(r"(?<!!)\[([^\]]+)\]\(([^)\s]+)\)", lambda match: link(match, self.path), line)
        if self.name in NAVIGATION:
            line = re.sub(r"^(- |\d+\. )\\ref", r"\1\\subpage", line)
        return line

    def run(self, text):
        inside = False
        for line in text.splitlines():
            if line.startswith("```"):
                inside = not inside
                language = line[3:].split(" ")[0]
                yield "```" + (f"{{.{language if language in HIGHLIGHTED else 'unparsed'}}}" if inside else "")
            else:
                yield line if inside else self.line(line)


def main():
    path = Path(sys.argv[1]).resolve()
    print("\n".join(Page(path).run(path.read_text(encoding="utf-8"))))


if __name__ == "__main__":
    main()
