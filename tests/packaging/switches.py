#!/usr/bin/env python3
"""What names the switches of a program names the same ones: its --help, its manual page, its completion,
the page that lists them, and the desktop entry, which uses some. The manual page calls what a switch takes
as the help does, and the completion offers what there is of it.

  switches.py <root> <folder of the programs> <folder of the texts>
"""

import os
import re
import subprocess
import sys
import tempfile

# In a table or a line of usage, in a manual page or in a sentence.
SWITCH = re.compile(r"(?<![\w/-])--?[a-z][a-z-]*\b")
# With what it takes: "--port N", "--folder <dir>".
TAKING = re.compile(rf"({SWITCH.pattern})(?: <?(\w+)>?)?")

# What lies where a completion is asked for, and what it offers of that for each kind of argument.
FOLDERS, FILES = ["two words", "twofold"], ["two.txt"]
OFFERED = {"dir": FOLDERS, "FILE": FOLDERS + FILES, "N": [], "MS": []}


def read(*path):
    with open(os.path.join(*path), encoding="utf-8") as file:
        return file.read()


def of_help(program):
    """The left column of the help: (switch, what it takes or "")."""
    quiet = dict(os.environ, ASAN_OPTIONS="detect_leaks=0")
    said = subprocess.run([program, "--help"], check=True, capture_output=True, text=True, env=quiet)
    usage = f"Usage: {os.path.basename(program)} ["
    if not said.stdout.startswith(usage):
        yield f"--help begins with {said.stdout.splitlines()[0]!r} and not with {usage!r}"
    for line in said.stdout.splitlines():
        if line.startswith("  -"):
            yield from TAKING.findall(re.split(r" {2,}", line.strip())[0])


def of_page(text):
    """The tags of the chapter OPTIONS: (switch, what it takes or "")."""
    chapter = text.split(".SH OPTIONS\n")[1].split("\n.SH ")[0]
    for tag in re.findall(r"^\.TP\n(.*)$", chapter, re.MULTILINE):
        yield from TAKING.findall(re.sub(r"\\f.", "", tag).replace("\\-", "-"))


def of_completion(path, name, folder, *words):
    """What bash offers in a folder behind the program's name and these words, the last of which is being
    entered, and whether it is to treat that as files: quote blanks, and set a stroke behind a folder."""
    entered = " ".join(f"'{word}'" for word in (name, *words))
    script = (f"source '{os.path.abspath(path)}'; compopt() {{ printf 'compopt %s\n' \"$*\"; }}; "
              f"COMP_WORDS=({entered}); COMP_CWORD={len(words)}; "
              f"_{name.replace('-', '_')}; printf '%s\n' \"${{COMPREPLY[@]}}\"")
    said = subprocess.run(["bash", "-ec", script], check=True, capture_output=True, text=True, cwd=folder)
    lines = [line for line in said.stdout.splitlines() if line]
    return [line for line in lines if not line.startswith("compopt")], "compopt -o filenames" in lines


def check_completion(path, name, switches):
    """Behind each switch, with a blank or with "=", what it takes; and else the switches."""
    with tempfile.TemporaryDirectory() as folder:
        for each in FOLDERS:
            os.mkdir(os.path.join(folder, each))
        for each in FILES:
            open(os.path.join(folder, each), "w").close()
        for switch, argument in switches:
            if argument and argument not in OFFERED:
                yield f"{name}: what is offered for {switch} {argument}?"
                continue
            expected = sorted(OFFERED[argument] if argument else dict(switches))
            ways = [((switch, ""), expected)]
            if argument:
                ways += [((switch, "tw"), expected), ((switch, "=", "tw"), expected),
                         ((switch, "="), expected), ((switch, "x"), [])]
            for words, offered in ways:
                found, as_files = of_completion(path, name, folder, *words)
                if sorted(found) != offered or as_files != (argument in ("dir", "FILE")):
                    yield (f"{name}: behind {' '.join(words)!r} the completion offers "
                           f"{found} as {'files' if as_files else 'words'}")


def listed(root, name):
    """What the project's pages say: long names only."""
    if name == "halvane":
        usage = re.search(r"^ +build/release/bin/halvane .*(?:\n +\[.*)*", read(root, "README.md"), re.MULTILINE)
        return SWITCH.findall(usage.group())
    chapter = read(root, "docs/practice.md").split("\n## Switches\n")[1].split("\n## ")[0]
    rows = re.findall(r"^\| (`-.*?) \|", chapter, re.MULTILINE)
    return [switch for row in rows for switch in SWITCH.findall(row)]


def check(root, programs, texts):
    known = {}
    for name in ("halvane", "halvane-practice"):
        switches = list(of_help(os.path.join(programs, name)))
        known[name] = said = {switch for switch, _ in switches}
        long = {switch for switch in said if switch.startswith("--")}
        completion = os.path.join(texts, "completions", name)
        page = read(texts, "man", f"{name}.1")
        shown = list(of_page(page))
        for where, found, expected in (
            ("manual page", (switch for switch, _ in shown), said),
            ("completion", of_completion(completion, name, root, "")[0], said),
            ("list in the docs", listed(root, name), long),
        ):
            found = set(found)
            for switch in sorted(expected - found):
                yield f"{name}: the {where} lacks {switch}"
            for switch in sorted(found - expected):
                yield f"{name}: the {where} has {switch}, which --help does not"
        for switch, argument in sorted(set(shown) - set(switches)):
            yield f"{name}: the manual page has {switch} take {argument!r}, and --help does not"
        yield from check_completion(completion, name, switches)
    everything = set().union(*known.values())
    for name in known:
        page = read(texts, "man", f"{name}.1").replace("\\-", "-")
        for switch in sorted(set(SWITCH.findall(re.sub(r"\\f.", " ", page))) - everything):
            yield f"{name}: the manual page speaks of {switch}"
    actions = {"NewSearch": ("New Search", "halvane --new-search"),
               "Practice": ("Practice", "halvane --practice")}
    entry = read(root, "packaging/example.halvane.Halvane.desktop")
    for command in re.findall(r"^Exec=(\S+)(.*)$", entry, re.MULTILINE):
        for switch in set(SWITCH.findall(command[1])) - known.get(command[0], set()):
            yield f"the desktop entry starts {command[0]} with {switch}"
    listed_actions = re.findall(r"^Actions=(.*)$", entry, re.MULTILINE)
    if listed_actions != [";".join(actions) + ";"]:
        yield f"the desktop entry lists the actions {listed_actions}"
    for action, (caption, command) in actions.items():
        if f"[Desktop Action {action}]\nName={caption}\nExec={command}\n" not in entry:
            yield f"the desktop entry lacks the action {caption}"


if __name__ == "__main__":
    offences = list(check(*sys.argv[1:4]))
    print("\n".join(offences))
    sys.exit(1 if offences else 0)
