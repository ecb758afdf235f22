#!/usr/bin/env python3
"""What the pages of the project name is there.

- A link leads to a file of the project, and its "#..." to a heading of that page.
- A path in back quotes is a file or a folder: from the root, from the page's own folder, or from src/
  or tests/. It may leave out the ending of a source.
- A name in back quotes, on a page about the code, is a word of the code. A class that has become
  another one leaves a page behind that sends its reader to nowhere.
- A path in a block of code that begins with a folder of the project is there, too, unless its line says
  that it is "new".
- A table has a head, and each row has as many cells. Two tables that a merge has made one are neither.
"""

import os
import posixpath
import re

from common import NOT_CODE, files, line_of, main, read

FENCE = re.compile(r"^( *)(```|~~~).*?^\1\2[^\n]*$", re.MULTILINE | re.DOTALL)
LINK = re.compile(r"\]\(([^()\s]+)\)")
SPAN = re.compile(r"(?<!`)`([^`\n]+)`(?!`)")
HEADING = re.compile(r"^#+ +(.*?) *$", re.MULTILINE)

PATH = re.compile(r"\.?[\w@.-]+(?:/[\w@.-]+)*/?")
SOURCE = re.compile(r"[\w@-]+\.(?:cpp|h|ui|py|md|txt|cmake|in|qrc)")
# Neither a part of a longer path, as of one in a build's folder, nor a pattern.
FENCED = re.compile(
    r"(?<![\w./<*-])(?:src|practice|tests|bench|fuzz|data|docs|packaging|cmake|tools)/[\w./-]*\w(?![\w<]|/?\*)")
# As written in code: with a scope before it, or of more than one word, so that neither a plain word
# nor a word on the wire is one.
NAME = re.compile(r"(?:(?:\w+::)+~?\w+|[A-Za-z]+_\w+|[A-Za-z]*[a-z][A-Z]\w*)(?:\(\))?")

# Where a page's paths may begin, and what they may leave out.
BEGINNINGS = ("", "src/", "tests/")
ENDINGS = ("", ".h", ".cpp", ".ui", ".py")
# Pages whose readers are no programmers, or that tell of former days: their back quotes hold what is
# entered, sent or printed.
NOT_OF_CODE = ("docs/user-guide.md", "docs/practice.md", "docs/protocol.md", "CHANGELOG.md")
# What a build or an installation makes, and addresses.
MADE = ("build/", "share/", "http:", "https:")
OF_A_RUN = ("AppInfo.txt",)
# A page may name what the code does not use, and say why.
OF_QT = re.compile(r"Q[A-Z]\w+")
CODE = (".cpp", ".h", ".ui", ".py", ".cmake", "CMakeLists.txt", ".json", ".in", ".ini")


def without_fences(text):
    """The page without its blocks of code; lines keep their numbers."""
    return FENCE.sub(lambda found: "\n" * found.group().count("\n"), text)


def anchors(text):
    """What may stand behind the "#" of a link to this page."""
    return {
        re.sub(r"[^\w -]", "", heading.lower()).replace(" ", "-")
        for heading in HEADING.findall(without_fences(text))
    }


def without_remarks(path, text):
    """C++ without its comments: they may speak of what is gone. Other files as they are."""
    if not path.endswith((".cpp", ".h")):
        return text
    return NOT_CODE.sub(
        lambda found: " " if found.group().startswith(("//", "/*")) else found.group(), text)


class Project:
    """What there is to be named."""

    def __init__(self, root):
        self.root = root
        self.paths = set(files(root))
        self.folders = {""}
        for path in self.paths:
            while path := posixpath.dirname(path):
                self.folders.add(path)
        self.base_names = {posixpath.basename(path) for path in self.paths}
        self.words = set()
        for path in self.paths:
            if path.endswith(CODE) or "." not in posixpath.basename(path):
                code = without_remarks(path, read(root, path) or "")
                self.words.update(re.findall(r"\w+", code))
            self.words.update(re.findall(r"\w+", posixpath.basename(path)))

    def has(self, path):
        """Whether there is a file or a folder at this path from the root."""
        path = posixpath.normpath(path)
        return path in self.paths or path.rstrip("/") in self.folders | {"."}

    def knows_path(self, page, path):
        """Whether a page's path leads to something."""
        begin = (*BEGINNINGS, posixpath.dirname(page) + "/")
        return any(self.has(start + path + end) for start in begin for end in ENDINGS)


def check_link(project, page, target):
    """What is wrong with a link, or None."""
    if re.match(r"\w+:", target):
        return None
    path, _, anchor = target.partition("#")
    led = posixpath.normpath(posixpath.join(posixpath.dirname(page), path)) if path else page
    if led not in project.paths and led not in project.folders | {"."}:
        return f'the link to "{target}" leads nowhere'
    if anchor and anchor not in anchors(read(project.root, led) or ""):
        return f'{led} has no heading for "#{anchor}"'
    return None


def check_word(project, page, word, alone):
    """What is wrong with a word that stands in back quotes, `alone` or in a command; or None."""
    of_code = page not in NOT_OF_CODE
    if word.startswith(MADE):
        return None
    if "/" in word and PATH.fullmatch(word):
        first = word.split("/")[0]
        ours = of_code or first != ".." and any(project.has(start + first) for start in BEGINNINGS)
        return f'there is no "{word}"' if ours and not project.knows_path(page, word) else None
    if not of_code:
        return None
    if SOURCE.fullmatch(word):
        known = word in project.base_names or word in OF_A_RUN
        return None if known else f'there is no file "{word}"'
    if NAME.fullmatch(word) and (alone or word.startswith("tst_")) and not OF_QT.match(word):
        for part in re.findall(r"\w+", word):
            if part not in project.words:
                return f'nothing in the code is called "{part}"'
    return None


def check_span(project, page, span):
    """What is wrong with what stands in back quotes, or None."""
    words = span.split()
    wrong = [check_word(project, page, word, len(words) == 1) for word in words]
    return next((message for message in wrong if message), None)


def check_fences(project, page, text):
    """(line, message) of paths in blocks of code that lead to nothing."""
    for block in FENCE.finditer(text):
        first = line_of(text, block.start())
        for number, row in enumerate(block.group().split("\n"), first):
            for path in [] if re.search(r"\bnew\b", row) else FENCED.findall(row):
                if not project.knows_path(page, path):
                    yield number, f'there is no "{path}"'


def cells(row):
    """How many cells a row of a table has."""
    return len(re.findall(r"(?<!\\)\|", row)) - 1


def check_tables(text):
    """(line, message) of what is no table although it looks like one."""
    width, head = 0, None
    for number, row in enumerate(text.split("\n"), 1):
        if not row.startswith("|"):
            width, head = 0, None
        elif re.fullmatch(r"[|: -]+", row):
            if head is None or cells(head) != cells(row):
                yield number, "a table without its head"
            width = cells(row)
        elif width and cells(row) != width:
            yield number, f"a row of {cells(row)} cells in a table of {width}"
        else:
            head = row


def check(root):
    project = Project(root)
    for page in sorted(path for path in project.paths if path.endswith(".md")):
        whole = read(root, page) or ""
        text = without_fences(whole)
        for line, message in check_fences(project, page, whole):
            yield page, line, message
        for line, message in check_tables(text):
            yield page, line, message
        for pattern, rule in ((LINK, check_link), (SPAN, check_span)):
            for found in pattern.finditer(text):
                if message := rule(project, page, found.group(1)):
                    yield page, line_of(text, found.start()), message


if __name__ == "__main__":
    main(check)
