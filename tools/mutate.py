#!/usr/bin/env python3
"""Makes small changes to the library's sources, one at a time, and asks the tests of their folders whether they
notice: flipped conditions, numbers one off, statements left out. What no test notices is printed.

The choice depends on the seed and the changed line alone, so that two states of the sources are asked about the
same changes, as far as their lines are the same. The sources are copied; the checkout stays as it is.
"""
import argparse
import hashlib
import os
import pathlib
import re
import resource
import shutil
import subprocess
import sys
import time

# The test programs that answer for each folder of the library, the likeliest first.
SUITES = {
    "foundation": "foundation",
    "platform": "foundation streams driver",
    "values": "values numbers dates patterns patterns_pcre2 own_records strict",
    "context": "binding xml strict",
    "streams": "streams xml json_writer strict",
    "document": "document strict",
    "writers": "xml json_writer strict",
    "binding": "binding xml driver strict",
    "xml": "xml collections strict",
    "collections": "collections typed_collections",
    "driver": "driver driver_values strict",
    "json": "json_reader json_writer strict",
    "fastinfoset": "fi_reader fi_writer fi_round_trip strict",
    "grammar": "schema grammar generated",
    "generated": "generated schema",
}
TIMEOUT = 120  # seconds for one test program: a change may make it run for ever
MEMORY = 8 << 30  # bytes

# A pattern in a line of code, and what stands there instead.
REPLACEMENTS = [
    (r" == ", " != "), (r" != ", " == "),
    (r" < ", " <= "), (r" <= ", " < "), (r" > ", " >= "), (r" >= ", " > "),
    (r" && ", " || "), (r" \|\| ", " && "),
    (r"\bif \((?!!)([^;{}]*)\)( \{)?$", r"if (!(\1))\2"), (r"\bif \(!([\w.:>()-]+)\)", r"if (\1)"),
    (r"\btrue\b", "false"), (r"\bfalse\b", "true"),
    (r" \+ 1\b", " + 2"), (r" - 1\b", " - 0"), (r"(?<=[=(] )0(?=[;,])", "1"),
    (r"\+\+(?=\w)", "--"), (r" \+= ", " -= "),
]
# A statement on a line of its own that is neither a declaration nor a jump.
STATEMENT = re.compile(r"^ +(?!return\b|throw\b|delete\b|break\b|continue\b|case\b|else\b|if\b|for\b|while\b|using\b|static)"
                       r"((\+\+|--)[\w.>-]+|[\w.:>\[\]()*-]+ [-+|&]?= .*|[\w.:>\[\]*-]+\(.*\));$")


def sites(root):
    """Every change that could be made: the file, the number of its line, the line, and the line instead."""
    for path in sorted((root / "zvxmllib").rglob("*.cpp")):
        seen = {}
        for number, line in enumerate(path.read_text().splitlines()):
            code = line.split("//")[0].rstrip()
            if not line.startswith("    ") or '"' in code or "ASSERT" in code or "Trace" in code:
                continue
            changed = {code.replace(m.group(0), m.expand(new), 1) if code.count(m.group(0)) == 1 else
                       code[:m.start()] + m.expand(new) + code[m.end():]
                       for old, new in REPLACEMENTS for m in re.finditer(old, code)}
            if STATEMENT.match(code) and not code.endswith("});"):
                changed.add(re.match(" *", code).group(0) + ";")
            seen[line] = seen.get(line, -1) + 1
            for new in sorted(changed - {code}):
                yield path.relative_to(root), number, line, new, seen[line]


def chosen(root, seed):
    def rank(site):
        path, _, line, new, occurrence = site
        return hashlib.sha256(f"{seed}|{path}|{line.strip()}|{new.strip()}|{occurrence}".encode()).digest()
    return sorted(sites(root), key=rank)


class Laboratory:
    """A copy of the sources, built without optimization."""

    def __init__(self, root, place):
        self.source, self.build = place / "source", place / "build"
        shutil.rmtree(self.source, ignore_errors=True)
        files = subprocess.check_output(["git", "ls-files"], cwd=root, text=True).split()
        for name in files:
            target = self.source / name
            target.parent.mkdir(parents=True, exist_ok=True)
            shutil.copy(root / name, target)  # newer than any object: the last change may be in one
        linker = ["-DCMAKE_EXE_LINKER_FLAGS=-fuse-ld=lld"] if shutil.which("ld.lld") else []
        subprocess.run(["cmake", "-G", "Ninja", "-S", self.source, "-B", self.build, "-DCMAKE_BUILD_TYPE=Debug",
                        "-DCMAKE_CXX_FLAGS_DEBUG=-O0", "-DZVXMLLIB_TEST_PACKAGE=OFF", *linker],
                       check=True, stdout=subprocess.DEVNULL)
        self.all = sorted({suite for suites in SUITES.values() for suite in suites.split()})
        if not self.make(self.all):
            sys.exit("The sources do not build.")
        for suite in self.all:
            if self.notices(suite):
                sys.exit(f"test_{suite} fails without any change.")

    def make(self, suites):
        return subprocess.run(["ninja", "-C", self.build, *(f"test_{suite}" for suite in suites)],
                              stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL).returncode == 0

    def notices(self, suite):
        program = next((self.build / "tests").glob(f"*/test_{suite}"))
        try:
            done = subprocess.run([program, "--gtest_brief=1"], cwd=program.parent, timeout=TIMEOUT,
                                  stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                                  preexec_fn=lambda: resource.setrlimit(resource.RLIMIT_AS, (MEMORY, MEMORY)))
            return done.returncode != 0
        except subprocess.TimeoutExpired:
            return True

    def ask(self, site):
        """The suite that notices the change, "" if none does, None if it does not compile."""
        path, number, _, new, _ = site
        file = self.source / path
        text = file.read_text()
        lines = text.splitlines(keepends=True)
        lines[number] = new + "\n"
        file.write_text("".join(lines))
        try:
            own = SUITES[path.parts[1]].split()
            if not self.make(own[:1]):
                return None
            others = [suite for suite in self.all if suite not in own]
            for suite in own + others:
                if self.make([suite]) and self.notices(suite):
                    return suite
            return ""
        finally:
            file.write_text(text)


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--count", type=int, default=150, help="changes that compile")
    parser.add_argument("--seed", default="1")
    parser.add_argument("--root", type=pathlib.Path, default=pathlib.Path(__file__).resolve().parent.parent)
    parser.add_argument("--only", default="", help="changes in paths that contain this")
    arguments = parser.parse_args()
    os.environ["CCACHE_DISABLE"] = "1"
    laboratory = Laboratory(arguments.root, arguments.root / "build" / "mutation")
    asked = caught = own = 0
    for site in (s for s in chosen(laboratory.source, arguments.seed) if arguments.only in str(s[0])):
        start = time.monotonic()
        suite = laboratory.ask(site)
        if suite is None:
            continue
        path, number, line, new, _ = site
        asked += 1
        caught += suite != ""
        own += suite in SUITES[path.parts[1]].split()
        print(f"{suite or 'SURVIVES'}: {path}:{number + 1} {line.strip()}  ->  {new.strip()}"
              f"  ({time.monotonic() - start:.0f} s)", flush=True)
        if asked == arguments.count:
            break
    print(f"{caught} of {asked} changes noticed: {100 * caught / max(asked, 1):.1f} %; "
          f"{own} of them by the tests of their folder.")


if __name__ == "__main__":
    main()
