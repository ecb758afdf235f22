#!/usr/bin/env python3
"""What there is one road for.

- An exchange with the server begins and is read in link/Exchange: only there is it sure to begin
  with nothing left of the one before.
- A dialog is run by controls/ModalDialog, and a file is asked for by controls/SaveDialog: only
  there does it hold the turn, so that no job begins under it.
"""

import re

from common import CODE, code_only, files, line_of, main, read

RULES = (
    (
        re.compile(r"\b(?:SendReq|ReadResponse|SendWithTimeout|TrySend)\s*\("),
        ("src/link/",),
        "exchanges go through link/Exchange",
    ),
    (
        re.compile(r"(?:->|\.|::)exec\s*\("),
        # What the history executes is a statement.
        ("src/controls/ModalDialog.cpp", "src/session/frmLogin.cpp", "src/main.cpp",
         "src/history/HistoryDatabase.cpp"),
        "dialogs are run by controls/ModalDialog",
    ),
    (
        re.compile(r"\bQEventLoop\s+\w+\s*[;{(]"),
        ("src/session/frmLogin.cpp",),
        "waiting goes through core/EventLoop",
    ),
    (
        re.compile(r"\b(?:QFileDialog|QInputDialog|QColorDialog|QFontDialog)\b"),
        ("src/controls/SaveDialog.cpp",),
        "files are asked for by controls/SaveDialog",
    ),
)


def check(root):
    for path in files(root, "src", ends=CODE):
        code = code_only(read(root, path) or "")
        for pattern, allowed, message in RULES:
            if path.startswith(allowed):
                continue
            for found in pattern.finditer(code):
                yield path, line_of(code, found.start()), f"{found.group().strip()}: {message}"


if __name__ == "__main__":
    main(check)
