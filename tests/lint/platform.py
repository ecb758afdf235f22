#!/usr/bin/env python3
"""Only core/Platform knows the operating system.

The program and the practice court are portable Qt and C++. A header of a system, a call to one, a
signal, a folder that only one has, or the question which system this is: all of these are behind the
functions of core/Platform.h.
"""

import re

from common import CODE, files, line_of, main, read, without_remarks

ALLOWED = "src/core/Platform"

# A header of C has "c" before its name here, so what ends with ".h" is a system's, unless it is ours,
# which has a folder or is made by uic.
HEADER = re.compile(
    r"^[ \t]*#[ \t]*include[ \t]*"
    r'(?:<(?:[A-Za-z_0-9/]+\.h|csignal)>'
    r'|"(?:[a-z_0-9]+|(?i:windows|shellapi|winsock2)|(?:sys|linux|netinet|arpa)/\w+)\.h")',
    re.MULTILINE,
)
# QSysInfo names the system to a reader, on every system; what branches on it does not.
SYSTEM = re.compile(
    r"\bQ_OS_\w+|\b__(?:linux|unix|APPLE|GLIBC)__\b|\b_WIN(?:32|64)\b|\b(?:_MSC_VER|__unix|__MINGW32__)\b"
    r"|\bQOperatingSystemVersion\b|\b(?:kernelType|productType|platformName)\s*\(\s*\)\s*[!=]="
)
# Procedures of ours begin with a large letter, and nothing of ours stands outside all names.
CALL = re.compile(
    r"(?<![\w>)\]])::[a-z_]\w*\s*\("
    r"|(?<![\w.:>~])(?:getp?pid|getuid|geteuid|fork|execvp?|waitpid|sigaction|pipe2?|fsync|mmap"
    r"|kill|umask|chmod|isatty|dlopen|popen)\s*\("
    r"|\bstd::(?:system|signal|raise)\s*\("
)
SIGNAL = re.compile(r"\bSIG(?:TERM|INT|HUP|KILL|PIPE|CHLD|USR1|USR2|ALRM|QUIT)\b")
PLACE = re.compile(r'"(?:/(?:proc|tmp|dev|etc|usr|run|var|home|opt|sys)\b|[A-Za-z]:\\\\|xdg-)|"(?:WAYLAND_)?DISPLAY"')

RULES = (
    (HEADER, "a header of one system"),
    (SYSTEM, "asks which system this is"),
    (CALL, "a call to the system"),
    (SIGNAL, "a signal of one system"),
    (PLACE, "what only one system has"),
)


def check(root):
    for path in files(root, "src", "practice", ends=CODE):
        if path.startswith(ALLOWED):
            continue
        code = without_remarks(read(root, path) or "")
        for pattern, what in RULES:
            for found in pattern.finditer(code):
                line = line_of(code, found.start())
                yield path, line, f"{what}: only core/Platform knows the operating system"


if __name__ == "__main__":
    main(check)
