#!/usr/bin/env python3
"""Compiles the classes of schemas and tries them on documents, beside the schemas as data.

Usage: compile_cases.py --config FILE --work DIR [--table TSV --files DIR [--count N]] [--small FILE]
                        [--case SCHEMA[;SCHEMA...] DOCUMENT...] [--location FROM=FILE] [--mutants N]

FILE is made by the build and says how to compile. The table has a case a line, by columns with names:
schemas (; between two), instance, features (names, ; or , between two); of its schemas N are chosen so that each feature
comes as often as possible. The small cases stand in one file, whose head says how. The program that is made says what differs; its status is that of this one.
"""
import argparse
import collections
import concurrent.futures
import json
import os
import re
import subprocess
import sys

PER_SOURCE = 25


def chosen(table, count):
    """Schemas with their documents: a round through the features at a time, the rarest first."""
    lines = open(table, encoding="utf-8").read().split("\n")
    names = lines[0].split("\t")
    documents, features = collections.OrderedDict(), {}
    for line in filter(None, lines[1:]):
        case = dict(zip(names, line.split("\t")))
        if case.get("locations", "-") != "-":
            continue
        documents.setdefault(case["schemas"], []).append(case["instance"])
        features.setdefault(case["schemas"], set()).update(re.split("[;, ]+", case["features"]))
    queues = collections.defaultdict(list)
    for schemas in documents:
        for feature in features[schemas]:
            queues[feature].append(schemas)
    result = collections.OrderedDict()
    order = sorted(queues, key=lambda feature: (len(queues[feature]), feature))
    while len(result) < count and any(queues.values()):
        for feature in order:
            while queues[feature] and queues[feature][0] in result:
                queues[feature].pop(0)
            if queues[feature] and len(result) < count:
                schemas = queues[feature].pop(0)
                result[schemas] = documents[schemas]
    return result


def small(path, work):
    """Schemas and documents of one file, written as files of their own."""
    space = 'xmlns="urn:t" %s'
    schema = '<xs:schema xmlns:xs="http://www.w3.org/2001/XMLSchema" targetNamespace="urn:t" elementFormDefault="qualified" %s>'
    result = collections.OrderedDict()
    for text in re.split("^== ", open(path, encoding="utf-8").read(), flags=re.M)[1:]:
        name, rest = text.split("\n", 1)
        parts = re.split("^-- ", rest, flags=re.M)
        parts[0] = schema % (space % "") + parts[0] + "</xs:schema>"
        instance = space % 'xmlns:xsi="http://www.w3.org/2001/XMLSchema-instance"'
        files = [os.path.join(work, name + (".xsd" if i == 0 else "-%d.xml" % i)) for i in range(len(parts))]
        for i, file in enumerate(files):
            with open(file, "w", encoding="utf-8") as out:
                out.write(parts[i] if i == 0 else re.sub("^<r", "<r " + instance, parts[i].rstrip("\n")))
        result[files[0]] = files[1:]
    return result


def namespaces(files, seen):
    """The target namespaces of the schemas and of what lies beside them under a stated place."""
    found = set()
    for name in files:
        name = os.path.normpath(name)
        if name in seen or not os.path.exists(name):
            continue
        seen.add(name)
        text = open(name, "rb").read().decode("latin-1").replace("\0", "")
        found.update(re.findall(r"""targetNamespace\s*=\s*["']([^"']*)""", text))
        found.update(re.findall(r"""\bnamespace\s*=\s*["']([^"'# ]+)["']""", text))
        places = re.findall(r"""schemaLocation\s*=\s*["']([^"']*)""", text)
        found |= namespaces([os.path.join(os.path.dirname(name), place) for place in places], seen)
    return found


def generate(config, work, number, schemas):
    """The namespace of the function that gives the bound schema, or None if the schema is refused."""
    stem = "s%03d" % number
    files = schemas.split(";")
    command = [config["generator"], "--out", work, "--name", stem]
    for i, uri in enumerate(sorted(namespaces(files, set()) | {"http://www.w3.org/XML/1998/namespace"})):
        command += ["--namespace", "%s=%s_%d" % (uri.strip(), stem, i)]
    for location in config["locations"]:
        command += ["--location", location]
    made = subprocess.run(command + ["--"] + files, capture_output=True, text=True)
    if made.returncode != 0:
        print("%s: %s" % (schemas, made.stderr.strip().split("\n")[0]))
        return None
    header = open(os.path.join(work, stem + ".h"), encoding="utf-8").read()
    home = header[: header.index(stem + "Schema();")]
    return re.findall(r"^namespace (\S+) {", home, re.M)[-1]


def write_sources(config, work, cases):
    sources, table = [], []
    for number, schemas in enumerate(cases):
        home = generate(config, work, len(table), schemas)
        if home is None:
            continue
        stem = "s%03d" % len(table)
        if len(table) % PER_SOURCE == 0:
            sources.append([])
        sources[-1].append(stem)
        table.append((stem, home, schemas))
    names = []
    for i, stems in enumerate(sources):
        names.append("cases%d.cpp" % i)
        with open(os.path.join(work, names[-1]), "w", encoding="utf-8") as out:
            out.writelines('#include "%s-1.cpp"\n' % stem for stem in stems)
    names.append("table.cpp")
    with open(os.path.join(work, names[-1]), "w", encoding="utf-8") as out:
        out.write('#include "CompiledCases.h"\n')
        for stem, home, _ in table:
            out.write("namespace %s { ::ZvXmlLib16::generated::BoundSchema const& %sSchema(); }\n" % (home, stem))
        out.write("namespace compiled {\nCase const kCases[] = {\n")
        for stem, home, schemas in table:
            out.write("    {&::%s::%sSchema, %s},\n" % (home, stem, json.dumps(schemas)))
        out.write("};\nstd::size_t const kCaseCount = %d;\nchar const* const kLocations[] = {" % len(table))
        out.writelines(json.dumps(location) + ", " for location in config["locations"])
        out.write("nullptr};\n} // namespace compiled\n")
    return names, [schemas for _, _, schemas in table]


def build(config, work, names):
    def compiled(name):
        target = os.path.join(work, name[:-4] + ".o")
        command = config["compiler"] + ["-I", work, "-c", os.path.join(work, name), "-o", target]
        subprocess.run(command, check=True)
        return target

    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        objects = list(pool.map(compiled, names))
    program = os.path.join(work, "compiled_cases")
    subprocess.run(config["compiler"] + objects + config["libraries"] + ["-o", program], check=True)
    return program


def main():
    arguments = argparse.ArgumentParser(usage=__doc__)
    for name in ("--config", "--work"):
        arguments.add_argument(name, required=True, type=os.path.abspath)
    arguments.add_argument("--table", type=os.path.abspath)
    arguments.add_argument("--files", default=".")
    arguments.add_argument("--count", type=int, default=300)
    arguments.add_argument("--small", type=os.path.abspath)
    arguments.add_argument("--case", action="append", nargs="+", default=[])
    arguments.add_argument("--location", action="append", default=[])
    arguments.add_argument("--mutants", default="0")
    options = arguments.parse_args()
    config = json.load(open(options.config, encoding="utf-8"))
    config["locations"] = options.location
    os.makedirs(options.work, exist_ok=True)
    os.chdir(options.files)
    cases = collections.OrderedDict((case[0], case[1:]) for case in options.case)
    if options.small:
        cases.update(small(options.small, options.work))
    if options.table:
        cases.update(chosen(options.table, options.count))
    names, accepted = write_sources(config, options.work, cases)
    if not accepted:
        sys.exit("no schema can be compiled")
    documents = os.path.join(options.work, "documents.txt")
    with open(documents, "w", encoding="utf-8") as out:
        for number, schemas in enumerate(accepted):
            out.writelines("%d\t%s\n" % (number, name) for name in dict.fromkeys(cases[schemas]))
    program = build(config, options.work, names)
    sys.exit(subprocess.run([program, documents, options.mutants]).returncode)


main()
