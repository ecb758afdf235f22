"""What the lint scripts share: the files of the project, and C++ without comments and texts."""

import os
import re
import subprocess
import sys

CODE = (".cpp", ".h")
NOT_OURS = {".git", ".cache", "build", "__pycache__"}


def tracked(root):
    """What git tracks, and what it would take in; None without git."""
    if not os.path.exists(os.path.join(root, ".git")):
        return None
    command = ["git", "-C", root, "ls-files", "-z", "--cached", "--others", "--exclude-standard"]
    try:
        listed = subprocess.run(command, capture_output=True, check=True)
    except (OSError, subprocess.CalledProcessError):
        return None
    return os.fsdecode(listed.stdout).split("\0")


def files(root, *folders, ends=()):
    """The files of the project as paths from the root, sorted: git's, or, without git, whatever
    lies there. `folders` (at the root) and `ends` narrow them down."""
    found = tracked(root)
    if found is None:
        found = []
        for folder, subfolders, names in os.walk(root):
            subfolders[:] = [name for name in subfolders if name not in NOT_OURS]
            found += [os.path.relpath(os.path.join(folder, name), root) for name in names]
    return sorted(
        path for path in set(found)
        if (not ends or path.endswith(ends))
        and (not folders or path.split("/")[0] in folders)
        and os.path.isfile(os.path.join(root, path))
    )


def read(root, path):
    """The text of a file, or None when it is binary or not there."""
    try:
        with open(os.path.join(root, path), "rb") as file:
            content = file.read()
    except FileNotFoundError:
        return None
    return None if b"\0" in content else content.decode("utf-8", "replace")


# One alternative for everything in which code has another meaning or none.
NOT_CODE = re.compile(
    r"""
      //[^\n]*
    | /\*.*?\*/
    | R"(?P<mark>[^()\\\s]*)\(.*?\)(?P=mark)"
    | "(?:\\.|[^"\\\n])*"
    | (?<![0-9A-Fa-f])'(?:\\.|[^'\\\n])+'
    """,
    re.DOTALL | re.VERBOSE,
)


def code_only(text):
    """C++ with comments gone and texts emptied; lines keep their numbers."""

    def blank(match):
        found = match.group()
        quotes = '""' if found[0] in 'R"' else "''" if found[0] == "'" else " "
        return quotes + "\n" * found.count("\n")

    return NOT_CODE.sub(blank, text)


def without_remarks(text):
    """C++ without its comments; texts stay, and lines keep their numbers."""

    def blank(match):
        found = match.group()
        return "\n" * found.count("\n") if found.startswith(("//", "/*")) else found

    return NOT_CODE.sub(blank, text)


def line_of(text, position):
    return text.count("\n", 0, position) + 1


def main(check):
    """Runs `check(root)`, which yields (path, line, message), and tells the outcome as the exit
    code. The root is the script's one argument."""
    if len(sys.argv) != 2 or not os.path.isdir(sys.argv[1]):
        sys.exit(f"Usage: {os.path.basename(sys.argv[0])} <root of the project>")
    offences = sorted(set(check(sys.argv[1])))
    for path, line, message in offences:
        print(f"{path}:{line}: {message}")
    sys.exit(1 if offences else 0)
