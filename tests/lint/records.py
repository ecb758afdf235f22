#!/usr/bin/env python3
"""What is so is decided by the records and the jobs; a window only shows it.

- Nobody reads a label back.
- The windows of jobs read back no caption, no cell of a grid, and no look of a control. What a user
  typed or ticked is taken where the control reports it.
"""

import re

from common import CODE, code_only, files, line_of, main, read

JOBS = ("src/jobs/", "src/casedetails/", "src/namesearch/", "src/documents/")
# A screen reader is given what is on the screen.
SPEAKS = ("src/jobs/JobVoice.cpp",)
# The user's own choice, in the control that reports it.
CHOOSES = ("src/casedetails/OnDemandPanel.cpp",)
# The tour looks at the windows as a user does.
LOOKS = ("src/app/Tour.cpp", "src/app/TourReports.cpp", "src/app/WindowFinder.cpp")

RULES = (
    (re.compile(r"\b(?:lbl\w*|[Ll]abel\w*)(?:->|\.)text\(\)"), ("src/",), SPEAKS + LOOKS,
     "a label is not read back"),
    (re.compile(r"(?:->|\.)(?:text|currentText)\(\)"), JOBS, SPEAKS, "a text is not read back"),
    (re.compile(r"\bwindowTitle\(\)"), JOBS, SPEAKS, "a caption is not read back"),
    (re.compile(r"\b(?:[Gg]rid\w*)(?:->|\.)(?:Cell|Cells|Rows)\("), JOBS, (),
     "a cell is not read back"),
    (re.compile(r"(?:->|\.)(?:isChecked|isEnabled|isVisible|isHidden)\(\)"), JOBS, CHOOSES,
     "a look is not read back"),
)


def check(root):
    for path in files(root, "src", ends=CODE):
        code = code_only(read(root, path) or "")
        for pattern, folders, allowed, message in RULES:
            if not path.startswith(folders) or path in allowed:
                continue
            for found in pattern.finditer(code):
                yield path, line_of(code, found.start()), f"{found.group().strip()}: {message}"


if __name__ == "__main__":
    main(check)
