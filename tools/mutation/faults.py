"""Faults that can be planted in C++ text, found without a compiler."""

import re
from typing import Iterator, NamedTuple

# What is no code: comments, texts and characters, includes and the like.
NOT_CODE = re.compile(
    r'//[^\n]*|/\*.*?\*/|R"(\w*)\(.*?\)\1"|"(?:\\.|[^"\\\n])*"|\'(?:\\.|[^\'\\\n])+\'|^[ \t]*#[^\n]*',
    re.DOTALL | re.MULTILINE)

# Operators stand between blanks in this house; angle brackets of templates do not.
SWAPS = {
    "<": "<=", "<=": "<", ">": ">=", ">=": ">", "==": "!=", "!=": "==",
    "&&": "||", "||": "&&", "+": "-", "-": "+", "*": "/", "/": "*", "+=": "-=", "-=": "+=",
}
OPERATOR = re.compile(r"(?<=\s)(?:<=|>=|==|!=|&&|\|\||\+=|-=|[<>+\-*/])(?=\s)")
NEGATION = re.compile(r"!(?=[A-Za-z(])")
TRUTH = re.compile(r"\b(?:true|false)\b")
NUMBER = re.compile(r"(?<![\w.'])\d+(?![\w.'])")
CONDITION = re.compile(r"\bif (?=\((?!const |auto ))")
# A call or an assignment alone on its line.
STATEMENT = re.compile(r"^ +(?!qC|return\b|const\b|auto\b|using\b|else\b)[\w.:>\-\[\]]+(?:\(.*\)| [+\-]?= .*);$", re.MULTILINE)
LEAVING = re.compile(r"^ +(?:continue|break);$", re.MULTILINE)
ARGUMENTS = re.compile(r"\b\w+\((\w+), (\w+)\)")


class Fault(NamedTuple):
    """Of a file's text, what stands from `begin` to `end`, and what stands there instead."""

    begin: int
    end: int
    instead: str


def masked(text: str) -> str:
    """The same length, with blanks where no code is; ends of lines stay."""
    return NOT_CODE.sub(lambda found: re.sub(r"[^\n]", " ", found.group()), text)


def body_begins(code: str) -> int:
    """Behind the includes and what only declares."""
    found = re.search(r"^\{", code, re.MULTILINE)
    return found.start() if found else len(code)


def closing(code: str, at: int) -> int:
    """Behind the parenthesis that closes the one at `at`."""
    depth = 0
    for place in range(at, len(code)):
        depth += {"(": 1, ")": -1}.get(code[place], 0)
        if depth == 0:
            return place + 1
    return len(code)


def faults_in(text: str) -> Iterator[Fault]:
    code = masked(text)
    begin = body_begins(code)
    for found in OPERATOR.finditer(code, begin):
        yield Fault(found.start(), found.end(), SWAPS[found.group()])
    for found in NEGATION.finditer(code, begin):
        yield Fault(found.start(), found.end(), "")
    for found in TRUTH.finditer(code, begin):
        yield Fault(found.start(), found.end(), "false" if found.group() == "true" else "true")
    for found in NUMBER.finditer(code, begin):
        yield Fault(found.start(), found.end(), str(int(found.group()) + 1))
    for found in CONDITION.finditer(code, begin):
        end = closing(code, found.end())
        if ";" not in code[found.end() : end]:
            yield Fault(found.end(), end, f"(!{text[found.end():end]})")
    for found in STATEMENT.finditer(code, begin):
        yield Fault(found.start(), found.end(), ";")
    for found in LEAVING.finditer(code, begin):
        yield Fault(found.start(), found.end(), ";")
    for found in ARGUMENTS.finditer(code, begin):
        if found.group(1) != found.group(2):
            yield Fault(found.start(1), found.end(2), f"{found.group(2)}, {found.group(1)}")


def planted(text: str, fault: Fault) -> str:
    return text[: fault.begin] + fault.instead + text[fault.end :]


def line_of(text: str, fault: Fault) -> int:
    return text.count("\n", 0, fault.begin) + 1


def told(text: str, fault: Fault) -> str:
    """Both lines, as people and the list of equivalents name a fault."""
    after = planted(text, fault)
    line = line_of(text, fault)
    return f"{text.splitlines()[line - 1].strip()}  =>  {after.splitlines()[line - 1].strip()}"
