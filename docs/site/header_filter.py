#!/usr/bin/env python3
"""Shows a public header to Doxygen: the comments of this house become comments of its own.

- The comment at the head of the file is that of the file.
- A comment above a declaration is that of the declaration, and of those that follow without an empty line.
- A comment behind a declaration, or on the lines below that are indented further, is that of the declaration.
- What stands in a namespace `detail` is hidden, unless the file says otherwise (SHOWN).
- Destructors, copies and default constructors without a comment say what they are.
Lines keep their numbers.
"""
import re
import sys

# Templates whose operations are those of public classes.
SHOWN = {"ValueCollection.h", "DatetimeBaseCol.h"}

# The hidden classes between an entry of a table and the base of all entries.
HIDDEN_BASE = re.compile(r"public detail::(All|Choice|Mandatory|Sequence|Untyped|Object|Abstract)\w+(<.*>)? \{$")

SPECIAL = [
    (re.compile(r"^(?:virtual )?~\w+\(\)"), "Ends the object."),
    (re.compile(r"^(?:explicit )?(\w+)\(\1 const& ?\w*\)"), "A copy."),
    (re.compile(r"^(?:explicit )?(\w+)\(\1&& ?\w*\)"), "Takes over what the other holds."),
    (re.compile(r"^(\w+)& operator=\(\1 const& ?\w*\)"), "Becomes a copy."),
    (re.compile(r"^(\w+)& operator=\(\1&& ?\w*\)"), "Takes over what the other holds."),
    (re.compile(r"^C\w+\(\)(?: noexcept)?(?: = default| : \w|;| \{)"), "An object in its initial state."),
]
COMMENT = re.compile(r"^(\s*)//(?:$| (.*))")


def indent_of(line):
    return len(line) - len(line.lstrip(" "))


def escaped(text):
    """Text for a comment of Doxygen: marks of HTML and commands are letters, but in `code`."""
    parts = re.split(r"(`[^`]*`)", text)
    return "".join(p if p.startswith("`") else re.sub(r"([<>\\@#%])", r"\\\1", p) for p in parts)


def ends_declaration(text):
    code = re.sub(r"//.*", "", text).rstrip()
    balanced = code.count("{") == code.count("}") and code.count("(") == code.count(")")
    return balanced and code.endswith((";", "}", ","))


class Filter:
    def __init__(self, lines, shown):
        self.lines = lines
        self.shown = shown
        self.out = []
        self.comment = []  # the lines of the comment above
        self.told = ""     # what the declarations of this run share
        self.pending = ""  # a declaration that has not ended
        self.base = 0      # its indentation
        self.hidden = False

    def run(self):
        self.skip_head()
        while len(self.out) < len(self.lines):
            self.line(self.lines[len(self.out)])
        return self.out

    def skip_head(self):
        head = []
        for line in self.lines:
            if not line.startswith("//"):
                break
            head.append(escaped(line[2:].strip()))
        if head:  # in place of the line "#pragma once", too
            self.out = ["/** \\file", *head[:-1], head[-1] + " */"]

    def line(self, line):
        stripped = line.strip()
        match = COMMENT.match(line)
        if self.pending:
            self.inside(line)
        elif match:
            if not self.comment:
                self.told = ""
            self.comment.append(escaped(match.group(2) or ""))
            self.out.append("")
        elif stripped == "using CXmlObjectBase::GetBase;":  # no news
            self.out.append("")
        elif re.match(r"using (\w+)::\1;$", stripped):
            self.out.append(line.replace("using", "/** As in the base class. */ using"))
        elif not stripped or stripped.startswith("#") or re.match(r"[A-Z_]+\(.*\)$", stripped):
            if stripped.startswith("#define") and self.comment:
                above = len(self.out) - 1 - self.out[::-1].index("")  # an "#if" may stand between
                self.out[above] = "/** " + " ".join(self.comment) + " */"
            if not stripped.startswith("#if"):
                self.comment = []
            self.told = ""
            if "CODEC" in stripped and not stripped.startswith("#"):
                line = "/** \\cond */ " + line + " /** \\endcond */"
            self.out.append(line)
            while line.startswith("#") and line.endswith("\\"):
                line = self.lines[len(self.out)]
                self.out.append(line)
        elif re.match(r"(public|protected|private):$", stripped) or stripped.startswith("friend "):
            self.comment = []
            self.told = "" if stripped.endswith(":") else self.told
            self.out.append(line)
        elif re.match(r"(inline )?namespace .*\{$|}", stripped):
            self.namespace(line, stripped)
        else:
            self.declaration(line, stripped)

    def namespace(self, line, stripped):
        if re.match(r"namespace (\w+::)*detail \{$", stripped) and not self.shown:
            line += " /** \\cond */"
            self.hidden = True
        elif self.hidden and line.startswith("}") and not stripped.startswith("};"):
            line = "/** \\endcond */ " + line
            self.hidden = False
        self.comment, self.told = [], ""
        self.out.append(line)

    def declaration(self, line, stripped):
        if self.comment:
            told = self.told = " ".join(self.comment)
            self.comment = []
        else:
            told = next((text for pattern, text in SPECIAL if pattern.match(stripped)), self.told)
        self.base = indent_of(line)
        text = HIDDEN_BASE.sub("public CElementInfo {", self.trailing(line))
        if told and not re.match(r"(class|struct|enum)\b[^{]*;$|extern template|using \w+::", stripped):
            text = " " * self.base + "/** " + told + " */ " + text.lstrip()
        self.out.append(text)
        opens_scope = re.match(r"(template <.*> )?(class|struct|enum|union)\b.*\{$", stripped)
        if opens_scope:
            self.told = ""
        elif not ends_declaration(line):
            self.pending = re.sub(r"//.*", "", line)

    def inside(self, line):
        """A further line of a declaration: the rest of its arguments, or of its body."""
        stripped = line.strip()
        if indent_of(line) < self.base and stripped.startswith("}"):  # behind the last enumerator
            self.pending = ""
            self.namespace(line, stripped)
            return
        head = re.sub(r"//.*", "", self.pending).strip()
        if indent_of(line) == self.base and re.match(r"(class|struct|enum|union)\b.*\{$", stripped):
            self.pending = ""  # behind template <...>
            self.told = ""
            self.out.append(line)
            return
        in_body = head.count("{") > head.count("}")
        if in_body and COMMENT.match(line):
            self.out.append("")
        else:
            self.out.append(line if in_body else self.trailing(line))
        self.pending += "\n" + re.sub(r"//.*", "", line)
        if ends_declaration(self.pending) and indent_of(line) >= self.base:
            self.pending = ""

    def trailing(self, line):
        code, mark, comment = line.partition(" // ")
        following = self.lines[len(self.out) + 1:]
        while mark and following and COMMENT.match(following[0]) and indent_of(following[0]) > self.base + 4:
            comment += " " + COMMENT.match(following[0]).group(2)
            self.lines[self.lines.index(following[0], len(self.out))] = ""
            following = following[1:]
        return f"{code} /**< {escaped(comment)} */" if mark else line


def main():
    path = sys.argv[1]
    with open(path, encoding="utf-8") as file:
        lines = file.read().splitlines()
    print("\n".join(Filter(lines, path.rsplit("/", 1)[-1] in SHOWN).run()))


if __name__ == "__main__":
    main()
