#!/usr/bin/env python3
"""What version a package gets: of a release, of what came after it, of what no commit has, and of sources
without a history. Each stands for an upgrade to the one before it.

  versions.py <root>
"""

import os
import shutil
import subprocess
import sys
import tempfile

RELEASED = "# Changes\n\n## 9.0.0 (2026-11-21)\n\n- The first version.\n"
UNRELEASED = RELEASED.replace("## 9", "## Unreleased\n\n- More.\n\n## 9")
# 2026-11-22 01:48:20 and a minute later.
COMMITTED, LATER = 1795312100, 1795312160
NOBODY = ["-c", "user.name=n", "-c", "user.email=n@n.example", "-c", "commit.gpgsign=false"]


class Tree:
    """Sources that are no more than their changes and what makes texts of them."""

    def __init__(self, root, folder):
        self.folder = folder
        os.makedirs(os.path.join(folder, "packaging"))
        shutil.copy(os.path.join(root, "packaging/make_texts.py"), os.path.join(folder, "packaging"))

    def write(self, text, name="CHANGELOG.md"):
        with open(os.path.join(self.folder, name), "w", encoding="utf-8") as file:
            file.write(text)

    def git(self, *arguments, seconds=COMMITTED, folder=None):
        date = f"{seconds} +0000"
        environment = dict(os.environ, GIT_AUTHOR_DATE=date, GIT_COMMITTER_DATE=date,
                           GIT_CONFIG_GLOBAL=os.devnull, GIT_CONFIG_SYSTEM=os.devnull)
        subprocess.run(["git", *NOBODY, *arguments], cwd=folder or self.folder, check=True,
                       env=environment, stdout=subprocess.DEVNULL)

    def commit(self, seconds=COMMITTED):
        self.git("add", "--all")
        self.git("commit", "--quiet", "--message", "More", seconds=seconds)

    def made(self, what, seconds=""):
        return subprocess.run([sys.executable, os.path.join(self.folder, "packaging/make_texts.py"), what],
                              env=dict(os.environ, SOURCE_DATE_EPOCH=seconds, PYTHONDONTWRITEBYTECODE="1"),
                              capture_output=True, text=True)

    def version(self, seconds=""):
        """The version, which the changelog must begin with."""
        version = self.made("deb-version", seconds).stdout.strip()
        first = self.made("deb-changelog", seconds).stdout.split("\n")[0]
        return version if first.startswith(f"halvane ({version}) ") else f"{version}, but {first}"


def versions(root, scratch):
    """(what the sources are, their version, what it must be), from the oldest to the newest."""
    tree = Tree(root, os.path.join(scratch, "project", "halvane"))
    tree.write(RELEASED)
    yield "a release out of an archive", tree.version(), "9.0.0"
    tree.write(UNRELEASED)
    yield "an archive", tree.version(), "9.0.0+0.nohistory"
    around = os.path.dirname(tree.folder)
    tree.git("init", "--quiet", folder=around)
    tree.git("add", "--all", folder=around)
    tree.git("commit", "--quiet", "--message", "Another project", folder=around)
    yield "an archive inside another project", tree.version(), "9.0.0+0.nohistory"
    yield "an archive of a known commit", tree.version(str(COMMITTED)), "9.0.0+20261122.0148"
    tree.git("init", "--quiet")
    yield "a history without a commit", tree.version(), "9.0.0+0.nohistory"
    tree.write(RELEASED)
    tree.commit()
    yield "a release", tree.version(), "9.0.0"
    tree.write("new\n", "new.txt")
    yield "a release with a new file", tree.version(), "9.0.0+20261122.0148.dirty"
    tree.write(UNRELEASED)
    tree.commit()
    yield "a commit", tree.version(), "9.0.0+20261122.0148"
    tree.write("changed\n", "new.txt")
    yield "changes on top of a commit", tree.version(), "9.0.0+20261122.0148.dirty"
    tree.commit(LATER)
    yield "the next commit", tree.version(), "9.0.0+20261122.0149"
    tree.write(UNRELEASED.replace("Unreleased", "9.0.1 (2026-11-23)"))
    tree.commit(LATER)
    yield "the next release", tree.version(), "9.0.1"


def check(root):
    with tempfile.TemporaryDirectory() as scratch:
        found = list(versions(root, scratch))
        for what, version, expected in found:
            if version != expected:
                yield f"{what} has the version {version} and not {expected}"
        said = Tree(root, os.path.join(scratch, "archive"))
        said.write(UNRELEASED)
        refused = said.made("deb-version", "yesterday")
        if refused.returncode == 0 or 'SOURCE_DATE_EPOCH is "yesterday"' not in refused.stderr:
            yield f"a moment that is none is answered with {refused.stderr!r}"
    ordered = ("9.0.0", "9.0.0+0.nohistory", "9.0.0+20261122.0148", "9.0.0+20261122.0148.dirty",
               "9.0.0+20261122.0149", "9.0.1")
    if missing := set(ordered) ^ {expected for _, _, expected in found}:
        yield f"nothing is said of the order of {missing}"
    for older, newer in zip(ordered, ordered[1:]):
        if subprocess.run(["dpkg", "--compare-versions", older, "lt", newer]).returncode != 0:
            yield f"{newer} is no upgrade to {older}"


if __name__ == "__main__":
    offences = list(check(sys.argv[1]))
    print("\n".join(offences))
    sys.exit(1 if offences else 0)
