#!/usr/bin/env python3
"""What names the switches of a program names the same ones: its --help, its manual page, its completion,
the page that lists them, and the desktop entry, which uses some.

  switches.py <root> <folder of the programs> <folder of the texts>
"""

import os
import re
import subprocess
import sys

# In a table or a line of usage, in a manual page or in a sentence.
SWITCH = re.compile(r"(?<![\w/-])--?[a-z][a-z-]*\b")


def read(*path):
    with open(os.path.join(*path), encoding="utf-8") as file:
        return file.read()


def of_help(program):
    """The left column of the help."""
    quiet = dict(os.environ, ASAN_OPTIONS="detect_leaks=0")
    said = subprocess.run([program, "--help"], check=True, capture_output=True, text=True, env=quiet)
    usage = f"Usage: {os.path.basename(program)} ["
    if not said.stdout.startswith(usage):
        yield f"--help begins with {said.stdout.splitlines()[0]!r} and not with {usage!r}"
    for line in said.stdout.splitlines():
        if line.startswith("  -"):
            yield from SWITCH.findall(re.split(r" {2,}", line.strip())[0])


def of_page(text):
    """The tags of the chapter OPTIONS."""
    chapter = text.split(".SH OPTIONS\n")[1].split("\n.SH ")[0]
    for tag in re.findall(r"^\.TP\n(.*)$", chapter, re.MULTILINE):
        yield from SWITCH.findall(re.sub(r"\\f.", " ", tag).replace("\\-", "-"))


def of_completion(path, name):
    """What bash offers behind the program's name."""
    script = (f"source '{path}'; COMP_WORDS=({name} ''); COMP_CWORD=1; "
              f"_{name.replace('-', '_')}; printf '%s\\n' \"${{COMPREPLY[@]}}\"")
    said = subprocess.run(["bash", "-c", script], check=True, capture_output=True, text=True)
    return said.stdout.split()


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
        known[name] = said = set(of_help(os.path.join(programs, name)))
        long = {switch for switch in said if switch.startswith("--")}
        page = read(texts, "man", f"{name}.1")
        for where, found, expected in (
            ("manual page", of_page(page), said),
            ("completion", of_completion(os.path.join(texts, "completions", name), name), said),
            ("list in the docs", listed(root, name), long),
        ):
            found = set(found)
            for switch in sorted(expected - found):
                yield f"{name}: the {where} lacks {switch}"
            for switch in sorted(found - expected):
                yield f"{name}: the {where} has {switch}, which --help does not"
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
