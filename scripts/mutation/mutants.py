"""Finds every mechanical one-line damage ("mutant") that a C++ source can take.

Works on text that clang-format has laid out: a binary operator has a blank on either side, and
braces enclose every branch. A mutant need not compile.
"""

import re
import subprocess
from dataclasses import dataclass, replace


@dataclass(frozen=True)
class Mutant:
    file: str
    line: int  # of the first line of `before`, from 1
    before: str  # whole lines, without the last line feed
    after: str
    nth: int = 0  # counts the equal mutants of a file, so that lines may move

    def key(self):
        return self.file, flat(self.before), flat(self.after), self.nth

    def applied(self, text):
        lines = text.split("\n")
        lines[self.line - 1 : self.line + self.before.count("\n")] = [self.after]
        return "\n".join(lines)

    def __str__(self):
        return f"{self.file}:{self.line}: - {flat(self.before)}  + {flat(self.after)}"


def flat(text):
    return " ".join(text.split())


# What holds no code of its own. Numbers are matched so that ' in them opens no literal.
_HIDDEN = re.compile(
    r"""(?P<blank>//[^\n]*|/\*.*?\*/|^[ \t]*\#(?:\\\n|[^\n])*|\bstatic_assert\(.*?\);|\[\[.*?\]\])
      | (?P<literal>R"(?P<mark>[^(\s]*)\(.*?\)(?P=mark)"|"(?:\\.|[^"\\\n])*"|'(?:\\.|[^'\\\n])*')
      | \b\d[\w']*""",
    re.S | re.M | re.X,
)


def _hide(text):
    """Blanks comments, directives, attributes and static assertions, and fills literals with _."""

    def cover(match):
        found = match[0]
        if match["blank"]:
            return re.sub(r"[^\n]", " ", found)
        if match["literal"]:
            return found[0] + re.sub(r"[^\n]", "_", found[1:-1]) + found[-1]
        return found

    return _HIDDEN.sub(cover, text)


def _lines_of_host(text):
    """Returns the numbers of the lines that the host's preprocessor keeps."""
    if not re.search(r"^\s*#\s*if", text, re.M):
        return range(1, text.count("\n") + 2)
    alone = re.sub(r"^\s*#\s*include.*", "", text, flags=re.M)
    command = ["g++", "-E", "-std=c++20", "-include", "cstddef", "-x", "c++", "-"]
    output = subprocess.run(command, input=alone, capture_output=True, text=True, check=True).stdout
    kept, name, number = set(), "", 0
    for row in output.splitlines():
        if marker := re.match(r'# (\d+) "(.*?)"', row):
            number, name = int(marker[1]), marker[2]
            continue
        if name == "<stdin>" and row.strip():
            kept.add(number)
        number += 1
    return kept


# Each function below takes a line as it is and as `_hide` leaves it, and yields damaged lines.


def _put(line, match, text):
    return line[: match.start()] + text + line[match.end() :]


_EXCHANGED = {
    "<": "<=", "<=": "<", ">": ">=", ">=": ">", "==": "!=", "!=": "==",
    "+": "-", "-": "+", "*": "/", "/": "*", "%": "/", "+=": "-=", "-=": "+=", "*=": "/=",
    "/=": "*=", "<<": ">>", ">>": "<<", "<<=": ">>=", ">>=": "<<=",
    "&": "|", "|": "&", "^": "|", "&=": "|=", "|=": "&=", "^=": "|=", "&&": "||", "||": "&&",
}  # fmt: skip
_WORDS = {
    "true": "false", "false": "true", "++": "--", "--": "++",
    "stdout": "stderr", "stderr": "stdout", "cout": "cerr", "cerr": "cout",
}  # fmt: skip


def _exchange(line, code):
    for match in re.finditer(r"(?<= )[-+*/%<>=!&|^]+(?= |$)", code):
        if match[0] in _EXCHANGED:
            yield _put(line, match, _EXCHANGED[match[0]])
    for match in re.finditer(r"\b(?:true|false|stdout|stderr|cout|cerr)\b|\+\+|--", code):
        yield _put(line, match, _WORDS[match[0]])


def _shift_constant(line, code):
    for match in re.finditer(r"\b\d(?:[eEpP][-+]|[\w.'])*", code):
        if whole := re.fullmatch(r"(0[xX][\da-fA-F']+|0|[1-9][\d']*)([uUlL]*)", match[0]):
            value = int(whole[1].replace("'", ""), 0)
            for other in sorted({value + 1, max(value - 1, 0)} - {value}):
                digits = hex(other) if whole[1].startswith(("0x", "0X")) else str(other)
                yield _put(line, match, digits + whole[2])


def _is_balanced(code):
    return all(code.count(a) == code.count(b) for a, b in ("()", "[]", "{}"))


def _negate(line, code):
    for match in re.finditer(r"!(?=[\w(:*])", code):
        yield _put(line, match, "")
    for match in re.finditer(r"(?<=\bif \().*(?=\) \{$)|(?<=\bwhile \().*(?=\) \{$)", code):
        if _is_balanced(match[0]) and ";" not in match[0]:
            yield _put(line, match, f"!({line[match.start() : match.end()]})")
    for match in re.finditer(r"(?:(?<=return )|(?<= = )|(?<=[(,] )|(?<=\())[^?,;{]+(?= \? )", code):
        if _is_balanced(match[0]) and " = " not in match[0]:
            yield _put(line, match, f"!({line[match.start() : match.end()]})")


def _exchange_result(line, code):
    for match in re.finditer(r"(?<=\breturn )[^;]+(?=;)", code):
        if match[0] in ("true", "false", "nullptr", "{}") or not _is_balanced(match[0]):
            continue
        if not re.fullmatch(r"[\d.]+", match[0]):
            yield _put(line, match, f"!({line[match.start() : match.end()]})")
            yield _put(line, match, "{}")


_DECLARATION = re.compile(r"[A-Z~]\w*\(\)|return\b|using\b|typedef\b|.*= (?:default|delete);$")
_STATEMENT = re.compile(r"\S+ [-+*/%&|^<>]*= .*;$|(?:\+\+|--)\S+;$|\S+(?:\+\+|--|\(\));$")


def _drop_statement(line, code):
    if not _is_balanced(code):
        return
    shape, count = code.strip(), 1
    while count:  # f(a, g(b))[i + 1] becomes f()()
        shape, count = re.subn(r"\((?=.)[^()]+\)|\[[^\[\]]*\]", "()", shape)
    if _STATEMENT.match(shape) and not _DECLARATION.match(shape):
        yield re.sub(r"\S.*", ";", line)


def _exchange_entries(line, code):
    """Within a line of a table: adjacent strings or numbers."""
    for match in re.finditer(r'(?=(?<![\w.])("_*"|\d[\w.]*)(, +)("_*"|\d[\w.]*))', code):
        left, right = (line[slice(*match.span(group))] for group in (1, 3))
        if left != right and (left[0] == '"') == (right[0] == '"'):
            yield line[: match.start(1)] + right + match[2] + left + line[match.end(3) :]


_DAMAGES = (_exchange, _shift_constant, _negate, _exchange_result, _drop_statement)


def _lines_of_tables(code):
    inside = 0
    for number, line in enumerate(code, 1):
        opens = inside == 0 and re.search(r"\bconst.*(?:\barray<.*\w|\w\[\w*\])(?: = )?\{", line)
        if opens or inside:
            yield number
            inside += line.count("{") - line.count("}")


def _damaged(lines, code, numbers):
    """Yields the number of a line, what is there and what comes in its place."""
    tables = set(_lines_of_tables(code))
    for number in sorted(numbers):
        line, shown = lines[number - 1], code[number - 1]
        for damage in _DAMAGES + ((_exchange_entries,) if number in tables else ()):
            for after in damage(line, shown):
                yield number, line, after
        if number in tables and number + 1 in tables:
            rows = code[number - 1 : number + 1]
            if all(re.fullmatch(r" +[{\"].*,", row) and _is_balanced(row) for row in rows):
                below = lines[number]
                yield number, f"{line}\n{below}", f"{below}\n{line}"


def mutants_of(file, text):
    """Returns the mutants of a source, those of each line together."""
    lines, code = text.split("\n"), _hide(text).split("\n")
    code = [line.rstrip() for line in code]
    found, seen = [], {}
    for number, before, after in dict.fromkeys(_damaged(lines, code, _lines_of_host(text))):
        if flat(before) != flat(after):
            mutant = Mutant(file, number, before, after)
            nth = seen[mutant.key()] = seen.get(mutant.key(), -1) + 1
            found.append(replace(mutant, nth=nth))
    return found
