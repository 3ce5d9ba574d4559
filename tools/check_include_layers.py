#!/usr/bin/env python3
"""Checks the includes of the library against its floors.

Each folder of the library is a floor. A header or source includes headers of its own floor or a lower one, and no
two folders include each other. docs/include-graph.md lists, for each header, the headers of the project that it
includes. This check fails on an include that goes up, on a cycle, on a header that includes what is not listed or
no longer includes what is, on a system's or third party's header in the wrong place, and on a public header that
needs an internal one. With --update it writes the list anew.
"""
import re
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
LIBRARY = ROOT / "zvxmllib"
DOCUMENT = ROOT / "docs" / "include-graph.md"
EDGES = re.compile(r"(```edges\n)(.*?)(```)", re.DOTALL)
INCLUDE = re.compile(r'^\s*#\s*include\s*[<"]([^>"]+)[>"]', re.MULTILINE)

# From the ground up; the folders of one line know nothing of each other.
FLOORS = (
    ("platform",), ("foundation",),
    ("values",), ("values/text",), ("values/numbers", "values/binary"), ("values/dates",), ("values/variant",),
    ("values/facets",),
    ("context",), ("streams",), ("document",), ("writers",), ("binding",), ("xml",), ("collections",), ("driver",),
    ("json", "fastinfoset"),
    ("grammar",), ("generated",),
    (".",),
)
FLOOR_OF = {folder: floor for floor, folders in enumerate(FLOORS) for folder in folders}
# Of the static library beside the shared one, whose headers are public of their own.
SUPPORT = ("grammar", "generated")
# Third-party headers and how many sources may include each.
THIRD_PARTY = ("expat.h", "zlib.h", "pcre.h")
SYSTEM = re.compile(
    r"^(sys/.*|arpa/.*|netinet/.*|unistd\.h|fcntl\.h|iconv\.h|langinfo\.h|locale\.h|xlocale\.h|pthread\.h|dlfcn\.h"
    r"|signal\.h|poll\.h|malloc\.h|termios\.h|aio\.h|time\.h|windows\.h|features\.h|endian\.h)$")


def folder_of(name):
    return str(Path(name).parent)


def floor_of(name):
    return FLOOR_OF[folder_of(name)]


def goes_up(name, target):
    """Whether a file of the library may not include the header `target` for where it lies."""
    if floor_of(target) == floor_of(name):
        return folder_of(target) != folder_of(name)
    return floor_of(target) > floor_of(name)


def includes_of(path):
    return INCLUDE.findall(path.read_text(encoding="utf-8"))


def project_includes(path):
    return [name[len("zvxmllib/"):] for name in includes_of(path) if name.startswith("zvxmllib/")]


def public_headers():
    """As the CMakeLists.txt of each directory lists them."""
    headers = set()
    for cmake in LIBRARY.rglob("CMakeLists.txt"):
        for block in re.findall(r"zvxmllib_sources\((.*?)\)", cmake.read_text(encoding="utf-8"), re.DOTALL):
            listed = re.search(r"PUBLIC_HEADERS(.*?)(?:PRIVATE_HEADERS|SOURCES|$)", block, re.DOTALL)
            for name in (listed.group(1).split() if listed else []):
                path = cmake.parent / name
                if path.exists():
                    headers.add(str(path.relative_to(LIBRARY)))
    return headers


def find_cycle(graph):
    done, trail = set(), []

    def visit(name):
        if name in trail:
            return trail[trail.index(name):] + [name]
        if name in done:
            return None
        trail.append(name)
        for target in graph.get(name, []):
            cycle = visit(target)
            if cycle:
                return cycle
        trail.pop()
        done.add(name)
        return None

    for name in graph:
        cycle = visit(name)
        if cycle:
            return cycle
    return None


def reachable(graph, start):
    seen, pending = set(), [start]
    while pending:
        name = pending.pop()
        if name not in seen:
            seen.add(name)
            pending.extend(graph.get(name, []))
    return seen


def check_headers(graph, faults):
    for name, targets in graph.items():
        for target in targets:
            if target not in graph:
                faults.append(f"{name}: includes {target}, which is not there")
            elif goes_up(name, target):
                faults.append(f"{name}: includes {target}, which lies higher")
    cycle = find_cycle(graph)
    if cycle:
        faults.append("cycle: " + " -> ".join(cycle))


def check_list(graph, faults):
    listed = {}
    for line in EDGES.search(DOCUMENT.read_text(encoding="utf-8")).group(2).splitlines():
        name, _, targets = line.partition(":")
        listed[name] = sorted(targets.split())
    for name in sorted(set(graph) | set(listed)):
        if name not in listed:
            faults.append(f"{name}: not listed in docs/include-graph.md")
        elif name not in graph:
            faults.append(f"{name}: listed in docs/include-graph.md, but not there")
        elif sorted(graph[name]) != listed[name]:
            faults.append(f"{name}: docs/include-graph.md lists other includes than it has")


def check_sources(faults):
    for path in sorted(LIBRARY.rglob("*.cpp")):
        name = str(path.relative_to(LIBRARY))
        for target in project_includes(path):
            if goes_up(name, target):
                faults.append(f"{name}: includes {target}, which lies higher")


def check_foreign_headers(faults):
    users = {header: [] for header in THIRD_PARTY}
    for path in sorted(list(LIBRARY.rglob("*.h")) + list(LIBRARY.rglob("*.cpp"))):
        name = str(path.relative_to(LIBRARY))
        for header in includes_of(path):
            if SYSTEM.match(header) and not name.startswith("platform/"):
                faults.append(f"{name}: includes <{header}>, which belongs to platform/")
            if header in users:
                users[header].append(name)
    for header, names in users.items():
        if len(names) > 1 or any(name.endswith(".h") for name in names):
            faults.append(f"<{header}>: to be included by one source, not by {', '.join(names)}")


def check_public_headers(graph, faults):
    public = public_headers()
    for name in sorted(public):
        for target in graph[name]:
            if target not in public:
                faults.append(f"{name}: is public, but includes {target}, which is not")
    for name in sorted(public - reachable(graph, "ZvXmlLib.h")):
        faults.append(f"{name}: is public, but ZvXmlLib.h does not give it")
    for path in sorted((ROOT / "tools" / "zvxml").glob("*.*")):
        if path.name in ("main.cpp", "Inspect.cpp", "Messages.cpp", "Vocabulary.cpp", "CMakeLists.txt"):
            continue
        for target in project_includes(path):
            if target not in public and folder_of(target) not in SUPPORT:
                faults.append(f"{path.relative_to(ROOT)}: includes {target}, which is not public")


def update(graph):
    def order(name):
        return (floor_of(name), name)

    lines = "".join(f"{name}:{''.join(' ' + t for t in sorted(graph[name], key=order))}\n"
                    for name in sorted(graph, key=order))
    text = DOCUMENT.read_text(encoding="utf-8")
    DOCUMENT.write_text(EDGES.sub(lambda m: m.group(1) + lines + m.group(3), text), encoding="utf-8")


def main():
    graph = {str(p.relative_to(LIBRARY)): project_includes(p) for p in sorted(LIBRARY.rglob("*.h"))}
    if sys.argv[1:] == ["--update"]:
        update(graph)
    faults = []
    check_headers(graph, faults)
    check_list(graph, faults)
    check_sources(faults)
    check_foreign_headers(faults)
    check_public_headers(graph, faults)
    for fault in faults:
        print(fault)
    print(f"{len(graph)} headers, {len(faults)} faults")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
