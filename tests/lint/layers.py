#!/usr/bin/env python3
"""Folders are layers, and arrows point one way.

A folder of src/ includes from itself and from the folders before it, never from a later one nor
from one of its own rank; only main.cpp may include everything. What needs no window (the logic
libraries, and all of core and link) does not reach a header of Qt Widgets, not even through
another header.
"""

import os
import re

from common import CODE, files, line_of, main, read

# From the bottom up; folders of one rank do not know each other.
RANKS = (
    ("core",),
    ("courts",),
    ("records",),
    ("controls", "link"),
    ("tables",),
    ("jobs",),
    ("session",),
    ("reports",),
    ("documents",),
    ("casedetails",),
    ("namesearch",),
    ("searchentry", "prefs", "history"),
    ("app",),
)
RANK = {folder: rank for rank, folders in enumerate(RANKS) for folder in folders}
ALL_LOGIC = ("core", "link")

INCLUDE = re.compile(r'^[ \t]*#[ \t]*include[ \t]*[<"]([^>"\n]+)[>"]', re.MULTILINE)

# halvane_library(jobs logic SOURCES a.cpp b.h LIBS ...), add_library(halvane_jobs_logic ...) and
# target_sources(halvane_jobs_logic ...)
LOGIC_LIBRARY = re.compile(
    r"halvane_library\s*\(\s*\w+\s+logic\b(?P<short>[^)]*)\)"
    r"|(?:add_library|target_sources)\s*\(\s*halvane_\w+_logic\b(?P<long>[^)]*)\)"
)

NAMES_FILE = os.path.join(os.path.dirname(__file__), "widgets_headers.txt")
with open(NAMES_FILE, encoding="utf-8") as names:
    WIDGETS_HEADERS = set(names.read().split())


def includes(root, path):
    """(line, included name) of every include in a file."""
    text = read(root, path) or ""
    return [(line_of(text, found.start(1)), found.group(1)) for found in INCLUDE.finditer(text)]


def check_arrows(root, path):
    parts = path.split("/")[1:]
    folder = parts[0]
    if len(parts) == 1:
        if folder != "main.cpp":
            yield path, 1, "lies beside the folders: only main.cpp does"
        return
    if folder not in RANK:
        yield path, 1, f"src/{folder} has no place in the order of tests/lint/layers.py"
        return
    for line, name in includes(root, path):
        target = name.split("/")[0]
        if ".." in name.split("/"):
            yield path, line, f"{name}: name the folder, as in core/Clock.h"
        elif target != folder and target in RANK and RANK[target] >= RANK[folder]:
            yield path, line, f"{name}: {folder} may not include from {target}"


def logic_sources(root):
    for folder in ALL_LOGIC:
        yield from (path for path in files(root, "src", ends=CODE)
                    if path.startswith(f"src/{folder}/"))
    for path in files(root, "src", ends=("CMakeLists.txt",)):
        text = re.sub(r"#.*", "", read(root, path) or "")
        for found in LOGIC_LIBRARY.finditer(text):
            arguments = (found.group("short") or found.group("long")).split()
            for argument in arguments:
                if argument.endswith(CODE):
                    yield path.replace("CMakeLists.txt", argument)


def is_widgets_header(name):
    return name in WIDGETS_HEADERS or name.split("/")[0] == "QtWidgets"


def way_to_widgets(root, path, seen):
    """The names on the way from a file to the first header of Qt Widgets, or nothing."""
    if path in seen:
        return []
    seen.add(path)
    for _, name in includes(root, path):
        if is_widgets_header(name):
            return [name]
        way = way_to_widgets(root, f"src/{name}", seen)
        if way:
            return [name, *way]
    return []


def check(root):
    for path in files(root, "src", ends=CODE):
        yield from check_arrows(root, path)
    for path in logic_sources(root):
        way = way_to_widgets(root, path, set())
        if way:
            yield path, 1, f"needs no window, but includes {' -> '.join(way)}"


if __name__ == "__main__":
    main(check)
