#!/usr/bin/env python3
"""The small rules of the house.

- A .cpp or .h file of more than 600 lines gives its reason: `// Long by design: <reason>`.
- No class has more than 60 member functions in its header: one that has more is several.
- Files and their names explain themselves, and do not point to papers that nobody has beside them.
- No test is skipped, expected to fail, or cannot fail; no work is left behind as a note.
"""

import re

from common import CODE, code_only, files, line_of, main, read

LONGEST = 600
LONG_BY_DESIGN = re.compile(r"^// Long by design: \S", re.MULTILINE)

MOST_FUNCTIONS = 60
CLASS = re.compile(r"(?<!enum )\b(?:class|struct)\s+(\w+)(?:\s+final)?\s*(?::(?!:)[^;{}()]*)?\{")
# What may stand before a declaration, or hold parentheses without being a function's.
NO_DECLARATION = re.compile(
    r"\b(?:(?:public|protected|private)(?:\s+Q_SLOTS)?|Q_SIGNALS)\s*:(?!:)"
    r"|\bQ_(?:OBJECT|GADGET)\b|\bQ_\w+\s*\([^()]*\)"
    r"|\b(?:alignas|decltype|explicit|noexcept)\s*\([^()]*\)"
)
# A name and the parentheses behind it: not those behind the "=" of a value, and not those of a
# pointer to a function.
FUNCTION = re.compile(r"(?!(?:using|typedef|friend|static_assert)\b)[\w~\[][^=(]*\((?![\w:]*\*)")

# The paper these words speak of is not in the tree, so a reader could not follow them.
ELSEWHERE = re.compile(r"(?i:\bspec(?:ification)?s?\b)|\bPart \d+(?:\.\d+)?")

# XXX-XX-1234 is a masked number and no note.
UNFINISHED = re.compile(
    r"\b(?:QSKIP|QEXPECT_FAIL|TODO|FIXME)\b|(?<![\w-])XXX(?![\w-])|\bQVERIFY2?\s*\(\s*true\b"
)


def without_braces(code):
    """The code with everything in braces, and the braces, as one semicolon each."""
    kept, depth = [], 0
    for sign in code:
        if sign == "{":
            depth += 1
        elif sign == "}":
            depth -= 1
            if depth == 0:
                kept.append(";")
        elif depth == 0:
            kept.append(sign)
    return "".join(kept)


def body(code, start):
    """What stands between the brace that opens before `start` and the one that closes it."""
    depth = 1
    for end in range(start, len(code)):
        depth += {"{": 1, "}": -1}.get(code[end], 0)
        if depth == 0:
            return code[start:end]
    return code[start:]


def functions(class_body):
    """How many member functions are declared in the body of a class: those of classes within it are
    theirs, and a constructor, an operator or a signal is a function like any other."""
    code = without_braces(re.sub(r"^[ \t]*#.*", "", class_body, flags=re.MULTILINE))
    code = re.sub(r"\boperator\s*(?:\(\s*\)|[^\w\s(]+)", "operator_", code)
    count = 1
    while count:
        code, count = re.subn(r"<[^<>;]*>", "", code)
    return sum(
        1 for declaration in NO_DECLARATION.sub("", code).split(";")
        if FUNCTION.match(declaration.strip())
    )


def check_classes(path, text):
    code = code_only(text)
    for found in CLASS.finditer(code):
        count = functions(body(code, found.end()))
        if count > MOST_FUNCTIONS:
            message = f"{found.group(1)} has {count} member functions: make classes of its subjects"
            yield path, line_of(code, found.start()), message


def check(root):
    for path in files(root):
        if ELSEWHERE.search(path):
            yield path, 1, "the file's name points to a paper that is not in the tree"
        text = read(root, path)
        if text is None:
            continue
        for found in ELSEWHERE.finditer(text):
            message = f'"{found.group()}" points to a paper that is not here: give the reason'
            yield path, line_of(text, found.start()), message
        # This folder has to name what it forbids, and documents may talk about it.
        if not path.startswith("tests/lint/") and not path.endswith(".md"):
            for found in UNFINISHED.finditer(text):
                message = f'"{found.group()}" hides work that is left to do'
                yield path, line_of(text, found.start()), message
        if path.endswith(CODE):
            lines = text.count("\n")
            if lines > LONGEST and not LONG_BY_DESIGN.search(text):
                message = f"{lines} lines: split it, or write `// Long by design: <reason>`"
                yield path, lines, message
        if path.endswith(".h"):
            yield from check_classes(path, text)


if __name__ == "__main__":
    main(check)
