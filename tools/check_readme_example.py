#!/usr/bin/env python3
"""Checks that the README's code is that of a program in examples/, which is built and run as a test."""
import re
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent


def main():
    readme = (ROOT / "README.md").read_text(encoding="utf-8")
    program = (ROOT / "examples" / "untyped" / "main.cpp").read_text(encoding="utf-8")
    code = re.search(r"```cpp\n(.*?)```", readme, re.DOTALL).group(1)
    if not program.endswith(code):
        print("The first code block of README.md is not the end of examples/untyped/main.cpp.")
        return 1
    output = re.search(r"```xml\n(.*?)```", readme, re.DOTALL).group(1)
    expected = (ROOT / "examples" / "untyped" / "output.xml").read_text(encoding="utf-8")
    if output != expected:
        print("The output in README.md is not that of examples/untyped/output.xml.")
        return 1
    print("The README shows what is built.")
    return 0


if __name__ == "__main__":
    sys.exit(main())
