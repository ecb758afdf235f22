#!/usr/bin/env python3
"""A word that hides who says what.

"The told width", "the row is as told": who told it, and where? The reader cannot ask. So the word
stands only where somebody is told something: behind a form of "to be" ("the user is told"), or
right before the user ("told the user"). Anywhere else, and in every name, the plain word takes its
place: expected, usual, reported, said.
"""

import re

from common import files, line_of, main, read

# On its own, in a name (toldOf, IsTold), and behind "un".
WORD = re.compile(
    r"(?<![A-Za-z])(?:[Uu]n)?[Tt]old(?![a-z])|(?<=[a-z0-9])(?:Told|Untold)(?![a-z])|\bTOLD\b"
)

# What may stand between two words of prose: blanks, or a line's end and the marks of the next line.
GAP = r"(?:\s|//[/!]?<?|[#*>])+"
BEFORE = re.compile(
    rf"\b(?:is|are|was|were|be|been|being)(?:{GAP}(?:not|never|only|also))?{GAP}$", re.IGNORECASE
)
BEHIND = re.compile(rf"{GAP}the{GAP}user\b")
AROUND = 80


def is_prose(text, found):
    """Whether this says that somebody is told something."""
    end = found.end()
    if found.group() != "told" or re.match(r"\w", text[end:end + 1]):
        return False
    return bool(BEFORE.search(text[max(0, found.start() - AROUND):found.start()])
                or BEHIND.match(text[end:end + AROUND]))


def check(root):
    for path in files(root):
        # This folder has to name what it forbids.
        if path.startswith("tests/lint/"):
            continue
        if WORD.search(re.sub(r"[^A-Za-z0-9]", " ", path)):
            yield path, 1, "the file's name does not say what is in it"
        for found in WORD.finditer(text := read(root, path) or ""):
            if not is_prose(text, found):
                message = f'"{found.group()}" does not say by whom: name what is meant'
                yield path, line_of(text, found.start()), message


if __name__ == "__main__":
    main(check)
