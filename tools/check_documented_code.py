#!/usr/bin/env python3
"""Checks that what the documentation shows is what is built and run.

A block that begins with ```LANGUAGE FILE quotes that file of examples/: a program, a schema, a document, or the
output that a test compares. A line "..." or "// ..." stands for what is left out. White space is not compared in
code; in ```text it is, unless "spaces" stands behind the name. README.md also shows the whole of
examples/untyped: the first block of C++ without a name, and what it prints.

check_documented_code.py DIRECTORY... also runs the commands of each ```console block, a line that begins with "$ ",
in a copy of examples/guide, with the programs of these directories, and compares what they print. Blocks of a page
share the copy.
"""
import os
import re
import shutil
import subprocess
import sys
import tempfile
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
EXAMPLES = ROOT / "examples"
GUIDE = sorted((ROOT / "docs" / "guide").glob("[0-9]*.md"))
QUOTING = [ROOT / "README.md", ROOT / "docs" / "generated-code.md", ROOT / "docs" / "schema-compiler.md", *GUIDE]


def blocks(page):
    """(language, the rest of the line, content) of each block."""
    text = page.read_text(encoding="utf-8")
    return re.findall(r"^```(\w+) ?([^\n]*)\n(.*?)^```", text, re.DOTALL | re.MULTILINE)


def find_pieces(shown, source, exact):
    """The first piece of `shown` that does not stand in `source`, in this order; None if all do."""
    plain = (lambda text: text) if exact else (lambda text: re.sub(r"\s+", "", text))
    source = plain("\n" + source)
    position = 0
    for piece in re.split(r"^\s*(?://\s)?\.\.\.\n", shown, flags=re.MULTILINE):
        wanted = plain(("\n" if exact else "") + piece)
        position = source.find(wanted, position)
        if position < 0:
            return piece
        position += len(wanted) - exact  # its line feed may begin the next piece
    return None


def check_readme():
    readme = blocks(ROOT / "README.md")
    code = next(content for language, name, content in readme if language == "cpp" and not name)
    if not (EXAMPLES / "untyped" / "main.cpp").read_text(encoding="utf-8").endswith(code):
        yield "The first unnamed block of C++ in README.md is not the end of examples/untyped/main.cpp."
    output = next(content for language, name, content in readme if language == "xml" and not name)
    if output != (EXAMPLES / "untyped" / "output.xml").read_text(encoding="utf-8"):
        yield "The output in README.md is not that of examples/untyped/output.xml."


def check_quotations(page):
    quoted = 0
    for language, rest, content in blocks(page):
        name = rest.split(" ")[0]
        if not name:
            if language == "cpp" and page.name != "README.md" or page in GUIDE and language != "console":
                yield f"{page.name}: a block of {language} names no file of examples/"
            continue
        if not (EXAMPLES / name).is_file():
            yield f"{page.name}: there is no file '{name}' in examples/"
            continue
        quoted += 1
        source = (EXAMPLES / name).read_text(encoding="utf-8")
        missing = find_pieces(content, source, language == "text" and not rest.endswith(" spaces"))
        if missing is not None:
            yield f"{page.name}: this is not in examples/{name}, or not in this order:\n{missing}"
    if not quoted:
        yield f"{page.name} quotes nothing."


def check_commands(page, directories):
    commands = [content for language, _, content in blocks(page) if language == "console"]
    if not commands:
        return
    environment = dict(os.environ, NO_COLOR="1", LC_ALL="C")
    environment["PATH"] = os.pathsep.join([*directories, environment["PATH"]])
    with tempfile.TemporaryDirectory() as scratch:
        folder = Path(scratch) / "guide"
        shutil.copytree(EXAMPLES / "guide", folder)
        for command, shown in re.findall(r"^\$ (.*)\n((?:(?!\$ ).*\n)*)", "".join(commands), re.MULTILINE):
            run = subprocess.run(["sh", "-c", command], cwd=folder, env=environment, text=True, errors="replace",
                                 check=False, stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
            printed = run.stdout + ("" if run.stdout.endswith("\n") or not run.stdout else "\n")
            if run.returncode > 1 or find_pieces(shown, printed, True) is not None or bool(shown) != bool(printed):
                yield f"{page.name}: '{command}' ended with {run.returncode} and printed:\n{printed}instead of:\n{shown}"


def main():
    directories = [str(Path(name).resolve()) for name in sys.argv[1:]]
    failures = [] if directories else list(check_readme())
    for page in QUOTING:
        failures += check_commands(page, directories) if directories else check_quotations(page)
    for failure in failures:
        print(failure)
    if not failures:
        print("The documentation shows what is built.")
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
