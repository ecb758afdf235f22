#!/usr/bin/env python3
"""What stands in one table.

- What stops a court is a column of courts/CourtTable.h.
- The settings of options.ini are rows of core/Settings.cpp: nobody else names a key of the file.
- A request line is composed in link/RequestLine: nobody else writes the broken bar.
"""

import re

from common import CODE, files, line_of, main, read, without_remarks

STOP = re.compile(r"STOP(?:~|\u00A6|\\u00A6|\\xA6)|(?:~|\u00A6|\\u00A6|\\xA6)STOP", re.IGNORECASE)
BAR = re.compile(r"\u00A6|\\u00A6", re.IGNORECASE)
KEY = re.compile(
    r'\b(?:GetOptionStr|SaveOptionStr|HoldForThisRun|HeldForThisRun)\s*\([^;]*?"'
    r'|"options\.ini"',
    re.IGNORECASE,
)

# The box that users type into has to know what it must not take.
RULES = (
    (STOP, ("src/courts/CourtTable.h",), "what stops a court stands in courts/CourtTable.h"),
    (KEY, ("src/core/",), "settings are read and written through core/Settings.h"),
    (
        BAR,
        ("src/courts/CourtTable.h", "src/link/RequestLine.h", "src/controls/SearchTextBox.cpp"),
        "request lines are composed by link/RequestLine",
    ),
)


def check(root):
    for path in files(root, "src", ends=CODE):
        code = without_remarks(read(root, path) or "")
        for pattern, allowed, message in RULES:
            if path.startswith(allowed):
                continue
            for found in pattern.finditer(code):
                yield path, line_of(code, found.start()), message


if __name__ == "__main__":
    main(check)
