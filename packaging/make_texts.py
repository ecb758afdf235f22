#!/usr/bin/env python3
"""Makes the texts that a package carries out of those that the project has already: what a program
says of its switches, and CHANGELOG.md.

  make_texts.py man <template> <program>         a manual page
  make_texts.py completion <program>             the completion of bash for a program
  make_texts.py metainfo <template> <host>       what a software centre shows
  make_texts.py deb-changelog                    debian/changelog
  make_texts.py deb-version                      the version of the package

The text goes to standard output.
"""

import html
import os
import re
import shutil
import subprocess
import sys
from datetime import datetime, timezone

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
MAINTAINER = "Halvane maintainers <maintainers@halvane.example>"

# "  -v, --version    Print ...", and the lines that carry on what an option does.
OPTION = re.compile(r"^  (-\S.*?)(?:  +(\S.*))?$")
MORE = re.compile(r"^ {8,}(\S.*)$")
NAMED = re.compile(r"(-{1,2}[\w-]+)(?: (\S+))?")

HEADING = re.compile(r"^## (?:(?P<version>\d+\.\d+\.\d+) \((?P<date>\d{4}-\d\d-\d\d)\)|Unreleased)$")


class Option:
    """One line of a program's help: [(name, argument or "")] and what it does."""

    def __init__(self, names, text):
        self.names = [(found.group(1), (found.group(2) or "").strip("<>"))
                      for found in map(NAMED.match, names.split(", "))]
        self.text = text


def help_of(program):
    """What the program prints for --help. Its leaks are no matter of this one."""
    quiet = dict(os.environ, ASAN_OPTIONS="detect_leaks=0")
    return subprocess.run([program, "--help"], check=True, capture_output=True, text=True,
                          env=quiet).stdout


def options_of(program):
    options = []
    for line in help_of(program).splitlines():
        if found := OPTION.match(line):
            options.append(Option(found.group(1).strip(), found.group(2) or ""))
        elif options and (found := MORE.match(line)):
            options[-1].text = f"{options[-1].text} {found.group(1)}".strip()
    if not options:
        sys.exit(f"{program} --help names no option")
    return options


class Release:
    """A chapter of CHANGELOG.md. What is not released yet has no version and no date."""

    def __init__(self, version, date):
        self.version, self.date, self.items = version, date, []


def releases():
    """All of CHANGELOG.md, the newest first."""
    with open(os.path.join(ROOT, "CHANGELOG.md"), encoding="utf-8") as file:
        lines = file.read().splitlines()
    found = []
    for line in lines[1:]:
        if line.startswith("#"):
            heading = HEADING.match(line) or sys.exit(f"CHANGELOG.md: what is \"{line}\"?")
            found.append(Release(heading["version"], heading["date"]))
        elif line.startswith("- "):
            found[-1].items.append(line[2:])
        elif line.startswith("  ") and found[-1].items:
            found[-1].items[-1] += " " + line.strip()
    for release in found:
        release.items = [re.sub(r"[*`]", "", item) for item in release.items]
    return found


def newest():
    return next(release for release in releases() if release.version)


def of_git(*arguments):
    """What git says of these sources; None when it knows nothing of them. Those out of an archive have
    no history, also when they lie inside another project that has one, and a machine that builds them
    may have no git."""
    if not os.path.exists(os.path.join(ROOT, ".git")) or not shutil.which("git"):
        return None
    git = ["git", "--no-optional-locks", "-c", "safe.directory=*", "-C", ROOT, *arguments]
    said = subprocess.run(git, capture_output=True, text=True)
    return said.stdout.strip() if said.returncode == 0 else None


def built_from():
    """The moment of the sources: that of the last commit; None when that is not known."""
    stamp = os.environ.get("SOURCE_DATE_EPOCH") or of_git("log", "-1", "--format=%ct")
    if not stamp:
        return None
    if not re.fullmatch(r"[0-9]{1,11}", stamp):
        sys.exit(f"SOURCE_DATE_EPOCH is \"{stamp}\", which is no number of seconds since 1970")
    return datetime.fromtimestamp(int(stamp), timezone.utc)


def deb_version():
    """That of the newest release. What has changes on top of it is newer than the release and older
    than the next one, and says of which commit it is: 9.0.0+20261122.0148; with changes that no commit
    has, 9.0.0+20261122.0148.dirty. Where the commit is not known it is older than any that is:
    9.0.0+0.nohistory."""
    release = newest().version
    dirty = bool(of_git("status", "--porcelain"))
    if not dirty and (releases()[0].version or not releases()[0].items):
        return release
    when = built_from()
    return f"{release}+{when:%Y%m%d.%H%M}{'.dirty' * dirty}" if when else f"{release}+0.nohistory"


def roff(text):
    return text.replace("\\", "\\e").replace("-", "\\-")


def man_options(program):
    lines = []
    for option in options_of(program):
        names = [f"\\fB{roff(name)}\\fR" + (f" \\fI{roff(argument)}\\fR" if argument else "")
                 for name, argument in option.names]
        text = option.text[:1].upper() + option.text[1:]
        text = re.sub(r"<(\w+)>", r"\\fI\1\\fR", roff(text.rstrip(".")) + ".")
        lines += [".TP", ", ".join(names), text]
    return "\n".join(lines)


def man(template, program):
    with open(template, encoding="utf-8") as file:
        text = file.read()
    return (text.replace("@OPTIONS@", man_options(program))
                .replace("@VERSION@", newest().version).replace("@DATE@", newest().date))


COMPLETION = """\
# Completion of bash for {name}. Made from its --help.
_{function}()
{{
    local current=${{COMP_WORDS[COMP_CWORD]}} before=${{COMP_WORDS[COMP_CWORD - 1]}}
    # --switch=value comes as three words.
    if [[ $current == '=' ]]; then
        current=
    elif [[ $before == '=' ]]; then
        before=${{COMP_WORDS[COMP_CWORD - 2]}}
    fi
    COMPREPLY=()
    case $before in
{cases}    esac
    mapfile -t COMPREPLY < <(compgen -W '{names}' -- "$current")
}}
complete -F _{function} {name}
"""
FILES = "compopt -o filenames; mapfile -t COMPREPLY < <(compgen -{kind} -- \"$current\"); return"


def completion(program):
    name = os.path.basename(program)
    options = options_of(program)
    takes = {}
    for option in options:
        for switch, argument in option.names:
            action = {"dir": FILES.format(kind="d"), "FILE": FILES.format(kind="f")}
            if argument:
                takes.setdefault(action.get(argument, "return"), []).append(switch)
    cases = "".join(f"    {'|'.join(names)}) {action} ;;\n" for action, names in takes.items())
    names = " ".join(switch for option in options for switch, _ in option.names)
    return COMPLETION.format(name=name, function=name.replace("-", "_"), cases=cases, names=names)


def metainfo_release(release):
    items = "\n".join(f"          <li>{html.escape(item, quote=False)}</li>" for item in release.items)
    return (f'    <release version="{release.version}" date="{release.date}">\n'
            f"      <description>\n        <ul>\n{items}\n        </ul>\n      </description>\n"
            "    </release>")


def metainfo(template, host):
    with open(template, encoding="utf-8") as file:
        text = file.read()
    dated = "\n".join(metainfo_release(release) for release in releases() if release.version)
    return (text.replace("@RELEASES@", dated).replace("@IMAGES@", f"https://{host}/images")
                .replace("@HOST@", host))


def deb_entry(version, when, items):
    lines = "\n".join(f"  * {item}" for item in items)
    return (f"halvane ({version}) stable; urgency=medium\n\n{lines}\n\n"
            f" -- {MAINTAINER}  {when:%a, %d %b %Y %H:%M:%S} +0000\n")


def wrapped(item):
    """Lines of at most 78 columns, as Debian reads them."""
    lines = [""]
    for word in item.split():
        if lines[-1] and len(lines[-1]) + len(word) >= 74:
            lines.append("")
        lines[-1] = f"{lines[-1]} {word}".strip()
    return "\n    ".join(lines)


def deb_changelog():
    """Its first entry is the package's version, of which Debian's tools take it."""
    version = deb_version()
    now = built_from() or datetime.fromisoformat(newest().date)
    items = releases()[0].items if not releases()[0].version else []
    entries = []
    if version != newest().version:
        entries.append(deb_entry(version, now, map(wrapped, items or ["Changes that no commit has."])))
    for release in releases():
        if release.version:
            when = datetime.fromisoformat(release.date)
            entries.append(deb_entry(release.version, when, map(wrapped, release.items)))
    return "\n".join(entries)


COMMANDS = {"man": man, "completion": completion, "metainfo": metainfo,
            "deb-changelog": deb_changelog, "deb-version": deb_version}

if __name__ == "__main__":
    if len(sys.argv) < 2 or sys.argv[1] not in COMMANDS:
        sys.exit(__doc__)
    print(COMMANDS[sys.argv[1]](*sys.argv[2:]).rstrip("\n"))
