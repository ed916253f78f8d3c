# SPDX-License-Identifier: GPL-3.0-or-later
"""Finds the single-line faults that can be put into a C++ source."""

import re
from dataclasses import dataclass

NOT_CODE = re.compile(r"^\s*(#|static_assert|using |template|friend |case |default:|(public|private|protected):)")
DECLARED = re.compile(r"\b(namespace|struct|class|enum|union)\b")
CONSTANT = re.compile(r"^(inline )?(constexpr|const)\b.* = .*\d")

COMPARISONS = {"==": "!=", "!=": "==", "<": "<=", "<=": "<", ">": ">=", ">=": ">"}
SWAPPED_WORDS = {"true": "false", "false": "true", "min": "max", "max": "min", "front": "back", "back": "front",
                 "begin": "end", "end": "begin"}
STATEMENT = re.compile(r"^\s*([\w:.\->\[\]*]+\(.*\)|[\w:.\->\[\]*()]+ [-+|&]?= .*|\+\+\w+|return|break|continue);$")
ENDS_STATEMENT = re.compile(r"(^|[;{}:)])$")
# Removing it changes how fast the program is, and nothing else.
ONLY_SPEED = re.compile(r"\b(reserve|shrink_to_fit)\(")


@dataclass(frozen=True)
class Fault:
    file: str
    line: int  # counted from 1
    kind: str
    before: str
    after: str


def masked(text):
    """The text with comments and the insides of literals blanked, at the same offsets."""
    def blank(match):
        found = match.group(0)
        if found[0] in "\"'":
            return found[0] + re.sub(r"[^\n]", " ", found[1:-1]) + found[-1]
        return re.sub(r"[^\n]", " ", found)

    token = r"//[^\n]*|/\*.*?\*/|R\"\((?:.*?)\)\"|\"(?:\\.|[^\"\\\n])*\"|(?<![0-9a-fA-F])'(?:\\.|[^'\\\n])*'"
    return re.sub(token, blank, text, flags=re.DOTALL)


def code_lines(text):
    """The numbers (from 0) of the lines that begin inside the body of a function."""
    inside = []
    result = set()
    head = ""
    for number, line in enumerate(text.split("\n")):
        if inside and inside[-1]:
            result.add(number)
        if line.startswith("#"):
            continue
        for character in line:
            if character == "{":
                is_body = "(" in head and not DECLARED.search(head) and not re.search(r"[^=!<>]=[^=]", head)
                inside.append((inside and inside[-1]) or is_body)
                head = ""
            elif character == "}":
                if inside:
                    inside.pop()
                head = ""
            elif character == ";":
                head = ""
            else:
                head += character
        head += " "
    return result


def _replacements(code, before):
    """Each (kind, start, end, new text) for one masked line."""
    for match in re.finditer(r"(?<= )(==|!=|<=|>=|<|>)(?= )", code):
        yield "comparison", match.start(), match.end(), COMPARISONS[match.group()]
    for match in re.finditer(r"(?<=[ )])(&&|\|\|)( |$)", code):
        yield "and/or", match.start(1), match.end(1), "||" if match.group(1) == "&&" else "&&"
    for match in re.finditer(r"(?<=[^\"] )[+-](?= [^\"])", code):  # a text has no minus
        yield "arithmetic", match.start(), match.end(), "-" if match.group() == "+" else "+"
    for match in re.finditer(r"\+\+|--|\+=|-=", code):
        yield "arithmetic", match.start(), match.end(), {"++": "--", "--": "++", "+=": "-=", "-=": "+="}[match.group()]
    for match in re.finditer(r"(?<![\w.'])(\d+)(?![\w.'])", code):
        for change in (1, -1) if match.group() != "0" else (1,):
            yield "constant", match.start(), match.end(), str(int(match.group()) + change)
    for match in re.finditer(r"\.size\(\)", code):
        for change in ("+", "-"):
            yield "off by one", match.end(), match.end(), f" {change} 1"
    for match in re.finditer(r"\b(true|false|min|max|front|back|begin|end)\b", code):
        yield "opposite word", match.start(), match.end(), SWAPPED_WORDS[match.group()]
    for match in re.finditer(r"(?<=[ (])!(?=[\w(])", code):
        yield "negation", match.start(), match.end(), ""
    for match in re.finditer(r"\b(?:if|while) \((?:[^;]*; )?(.*)\) \{$", code):
        yield "negation", match.start(1), match.end(1), f"!({before[match.start(1):match.end(1)]})"
    for match in re.finditer(r"\breturn ([^;{}]+) \? ", code):
        yield "negation", match.start(1), match.end(1), f"!({before[match.start(1):match.end(1)]})"
    argument = r"([\w.:*&]+(?:\(\))?)"
    for match in re.finditer(r"(?<=\w\()" + argument + ", " + argument + r"(?=[,)])", code):
        first, second = (before[match.start(group):match.end(group)] for group in (1, 2))
        if first != second:
            yield "swapped arguments", match.start(), match.end(), f"{second}, {first}"


def faults_of(file, text):
    """All faults of a source, by line: {line: [Fault, ...]}."""
    code = masked(text)
    inside = code_lines(code)
    lines = text.split("\n")
    masked_lines = code.split("\n")
    found = {}
    for number, (before, line) in enumerate(zip(lines, masked_lines)):
        if NOT_CODE.match(line) or not (number in inside or CONSTANT.match(line)):
            continue
        candidates = [
            Fault(file, number + 1, kind, before, before[:start] + new + before[end:])
            for kind, start, end, new in _replacements(line, before)
        ]
        previous = next((each.rstrip() for each in reversed(masked_lines[:number]) if each.strip()), "")
        if (number in inside and STATEMENT.match(line.rstrip()) and ENDS_STATEMENT.search(previous)
                and not ONLY_SPEED.search(line)):
            indent = before[:len(before) - len(before.lstrip())]
            candidates.append(Fault(file, number + 1, "removed statement", before, indent + ";"))
        if candidates:
            found[number + 1] = candidates
    return found
