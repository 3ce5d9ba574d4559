#!/usr/bin/env python3
"""Checks that the code in the documentation is that of programs in examples/, which are built and run as tests.

README.md: the first block of C++ ends examples/untyped/main.cpp, the first block of XML is what it prints.
Elsewhere a block that begins with ```cpp FILE quotes that file of examples/; a line "// ..." stands for what is
left out. White space is not compared.
"""
import re
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
QUOTING = ["README.md", "docs/generated-code.md", "docs/schema-compiler.md"]


def without_space(text):
    return re.sub(r"\s+", "", text)


def check_readme():
    readme = (ROOT / "README.md").read_text(encoding="utf-8")
    program = (ROOT / "examples" / "untyped" / "main.cpp").read_text(encoding="utf-8")
    code = re.search(r"```cpp\n(.*?)```", readme, re.DOTALL).group(1)
    if not program.endswith(code):
        yield "The first code block of README.md is not the end of examples/untyped/main.cpp."
    output = re.search(r"```xml\n(.*?)```", readme, re.DOTALL).group(1)
    expected = (ROOT / "examples" / "untyped" / "output.xml").read_text(encoding="utf-8")
    if output != expected:
        yield "The output in README.md is not that of examples/untyped/output.xml."


def check_quotations(page):
    blocks = re.findall(r"^```cpp ?(.*?)\n(.*?)^```", (ROOT / page).read_text(encoding="utf-8"), re.DOTALL | re.MULTILINE)
    if not blocks:
        yield f"{page} quotes nothing."
    for name, code in blocks:
        if not name and page == "README.md":
            continue  # the one that check_readme looks at
        if not name or not (ROOT / "examples" / name).is_file():
            yield f"{page}: a block of C++ names no file of examples/: '{name}'"
            continue
        source = without_space((ROOT / "examples" / name).read_text(encoding="utf-8"))
        position = 0
        for piece in re.split(r"^\s*// \.\.\.$", code, flags=re.MULTILINE):
            position = source.find(without_space(piece), position)
            if position < 0:
                yield f"{page}: this is not in examples/{name}, or not in this order:\n{piece}"
                break
            position += len(without_space(piece))


def main():
    failures = list(check_readme())
    for page in QUOTING:
        failures += check_quotations(page)
    for failure in failures:
        print(failure)
    if not failures:
        print("The documentation shows what is built.")
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
