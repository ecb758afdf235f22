#!/usr/bin/env python3
"""The small rules of the house.

- A .cpp or .h file of more than 600 lines gives its reason: `// Long by design: <reason>`.
- Files and their names explain themselves, and do not point to papers that nobody has beside them.
- No test is skipped, expected to fail, or cannot fail; no work is left behind as a note.
"""

import re

from common import CODE, files, line_of, main, read

LONGEST = 600
LONG_BY_DESIGN = re.compile(r"^// Long by design: \S", re.MULTILINE)

# The paper these words speak of is not in the tree, so a reader could not follow them.
ELSEWHERE = re.compile(r"(?i:\bspec(?:ification)?s?\b)|\bPart \d+(?:\.\d+)?")

# XXX-XX-1234 is a masked number and no note.
UNFINISHED = re.compile(
    r"\b(?:QSKIP|QEXPECT_FAIL|TODO|FIXME)\b|(?<![\w-])XXX(?![\w-])|\bQVERIFY2?\s*\(\s*true\b"
)


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


if __name__ == "__main__":
    main(check)
