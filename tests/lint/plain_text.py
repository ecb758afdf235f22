#!/usr/bin/env python3
"""What a court sends is shown as plain text, and Qt is used in one way.

- A QLabel, in code or in a .ui file, is set to show plain text: left alone, it takes text that
  looks like HTML for HTML.
- A message box is opened through controls/MsgBox, which does the same for boxes.
- Connects are by member pointer; Q_SIGNALS, Q_SLOTS and Q_EMIT stand for the keywords.
"""

import os
import re
from collections import Counter
from xml.etree import ElementTree

from common import CODE, code_only, files, line_of, main, read

PRODUCT = ("src", "practice")
MSG_BOX = ("src/controls/MsgBox.h", "src/controls/MsgBox.cpp")

PLAIN = re.compile(r"([\w.>\[\]-]*?)(?:->|\.)setTextFormat\(\s*Qt::(?:TextFormat::)?PlainText\s*\)")
ANY_PLAIN = re.compile(r"setTextFormat\(\s*Qt::(?:TextFormat::)?PlainText\s*\)")
OTHER_FORMAT = re.compile(r"\bQt::(?:TextFormat::)?(?:RichText|AutoText|MarkdownText)\b")

NEW_LABEL = re.compile(
    r"(?:(?P<name>[\w.>\[\]-]+)\s*[={(]\s*)?(?:\bnew\s+QLabel\b|\bstd::make_unique<QLabel>)"
)
LABEL_VALUE = re.compile(r"\bQLabel\s+(?P<name>\w+)\s*[;({=\[]")
LABEL_SUBCLASS = re.compile(r"\bclass\s+(?P<name>\w+)[^;{]*:\s*public\s+QLabel\b")

KEYWORDS = (
    (re.compile(r"\b(?:SIGNAL|SLOT)\s*\("), "connects are by member pointer"),
    (re.compile(r"\bsignals\s*:(?!:)"), "write Q_SIGNALS"),
    (re.compile(r"\bslots\s*:(?!:)"), "write Q_SLOTS"),
    (re.compile(r"\bemit\s+\w"), "write Q_EMIT"),
    (re.compile(r"\b(?:Q_FOREACH|foreach)\s*\("), "write a range-based for"),
)


def twin(root, path):
    """The code of the header that belongs to a source, or the other way round."""
    stem, end = os.path.splitext(path)
    return code_only(read(root, stem + (".h" if end == ".cpp" else ".cpp")) or "")


def bare_name(name):
    """`this->lblState[i]` and `lblState` are one label, or one row of them."""
    return re.sub(r"\[[^\]]*\]|^this->", "", name or "without a name")


def check_labels(root, path, code):
    plain = Counter(bare_name(name) for name in PLAIN.findall(code + twin(root, path)))
    made = Counter()
    for pattern in (NEW_LABEL, LABEL_VALUE):
        for found in pattern.finditer(code):
            name = bare_name(found.group("name"))
            made[name] += 1
            # Two labels of one name, in two functions, need the call twice.
            if made[name] > plain[name]:
                message = f"label {name} is made without setTextFormat(Qt::PlainText)"
                yield path, line_of(code, found.start()), message
    for found in LABEL_SUBCLASS.finditer(code):
        if not ANY_PLAIN.search(code + twin(root, path)):
            message = f"{found.group('name')} is a QLabel without setTextFormat(Qt::PlainText)"
            yield path, line_of(code, found.start()), message
    for found in OTHER_FORMAT.finditer(code):
        yield path, line_of(code, found.start()), f"{found.group()}: only plain text is shown"


def check_boxes(root, path, code):
    found = re.search(r"\bQMessageBox\b", code)
    if not found:
        return
    if path not in MSG_BOX:
        yield path, line_of(code, found.start()), "message boxes are opened through controls/MsgBox"
    elif path.endswith(".cpp") and not ANY_PLAIN.search(code):
        yield path, line_of(code, found.start()), "the box is not set to show plain text"


def check_ui(root, path):
    text = read(root, path) or ""
    try:
        tree = ElementTree.fromstring(text)
    except ElementTree.ParseError as error:
        yield path, error.position[0], "is no XML"
        return
    for widget in tree.iter("widget"):
        if widget.get("class") != "QLabel":
            continue
        formats = [
            (prop.findtext("enum") or "").split("::")[-1]
            for prop in widget.findall("property") if prop.get("name") == "textFormat"
        ]
        if formats != ["PlainText"]:
            line = line_of(text, text.find(f'name="{widget.get("name")}"'))
            yield path, line, f"label {widget.get('name')} has no textFormat Qt::PlainText"


def check(root):
    for path in files(root, *PRODUCT, "tests", "bench", "fuzz", ends=CODE):
        code = code_only(read(root, path) or "")
        for pattern, message in KEYWORDS:
            for found in pattern.finditer(code):
                yield path, line_of(code, found.start()), f"{found.group().strip()}: {message}"
        if path.split("/")[0] in PRODUCT:
            yield from check_labels(root, path, code)
            yield from check_boxes(root, path, code)
    for path in files(root, *PRODUCT, ends=(".ui",)):
        yield from check_ui(root, path)


if __name__ == "__main__":
    main(check)
