#!/usr/bin/env python3
"""What is installed is all there, wherever it is put: no page leads to what is not, and an icon has the
size that its folder says. The program finds its data files beside itself, also when the whole tree was
moved since.

  installed.py <root> <build> <cmake>
"""

import os
import re
import struct
import subprocess
import sys
import tempfile
import time

ID = "example.halvane.Halvane"
SIZES = (16, 22, 24, 32, 48, 64, 128, 256, 512)
PAGES = ("practice.md", "protocol.md", "user-guide.md")
START_SECONDS = 60


def links(page):
    """Where a page leads to, but for places of its own and of the net."""
    with open(page, encoding="utf-8") as file:
        found = re.findall(r"\]\(([^()\s]+)\)", file.read())
    return [link.split("#")[0] for link in found if not re.match(r"#|\w+:", link)]


def expected(root):
    """The paths from the prefix."""
    pictures = {link for page in PAGES for link in links(os.path.join(root, "docs", page))
                if link.startswith("images/")}
    return sorted(
        [f"bin/{name}" for name in ("halvane", "halvane-practice")]
        + [f"share/halvane/{name}" for name in os.listdir(os.path.join(root, "data"))]
        + [f"share/icons/hicolor/{size}x{size}/apps/{ID}.png" for size in SIZES]
        + [f"share/bash-completion/completions/{name}" for name in ("halvane", "halvane-practice")]
        + [f"share/man/man1/{name}.1" for name in ("halvane", "halvane-practice")]
        + [f"share/doc/halvane/{name}" for name in ("copyright", *PAGES, *pictures)]
        + [f"share/icons/hicolor/scalable/apps/{ID}.svg", f"share/metainfo/{ID}.metainfo.xml",
           f"share/applications/{ID}.desktop"])


def found(folder):
    return sorted(os.path.relpath(os.path.join(path, name), folder)
                  for path, _, names in os.walk(folder) for name in names)


def install(cmake, build, prefix, destination=None):
    environment = dict(os.environ, DESTDIR=destination) if destination else dict(os.environ)
    subprocess.run([cmake, "--install", build, "--prefix", prefix], check=True,
                   stdout=subprocess.DEVNULL, env=environment)


def starts(program, data, folder):
    """Whether the program, on a new application folder, fills it with the data files."""
    names = set(os.listdir(data))
    process = subprocess.Popen([program, "--folder", folder], stdout=subprocess.DEVNULL,
                               env=dict(os.environ, QT_QPA_PLATFORM="offscreen"))
    deadline = time.monotonic() + START_SECONDS
    try:
        while time.monotonic() < deadline and process.poll() is None:
            if names <= set(os.listdir(folder)):
                return True
            time.sleep(0.02)
        return False
    finally:
        process.kill()
        process.wait()


def check_pages(folder):
    """Every page that lies there, whichever they are."""
    pages = [name for name in os.listdir(folder) if name.endswith(".md")]
    for page in pages:
        for link in links(os.path.join(folder, page)):
            if not os.path.isfile(os.path.join(folder, link)):
                yield f"{page} leads to {link}, which is not installed"


def check_icons(folder):
    for path in found(folder):
        if size := re.match(r"(\d+)x(\d+)/", path):
            with open(os.path.join(folder, path), "rb") as file:
                head = file.read(24)
            if not head.startswith(b"\x89PNG") or struct.unpack(">II", head[16:]) != tuple(map(int, size.groups())):
                yield f"{path} is no picture of its size"


def check(root, build, cmake):
    with tempfile.TemporaryDirectory() as scratch:
        first, moved, staged = (os.path.join(scratch, name) for name in ("first", "moved", "staged"))
        install(cmake, build, first)
        if found(first) != expected(root):
            yield f"installed too much or too little: {set(found(first)) ^ set(expected(root))}"
        yield from check_pages(os.path.join(first, "share/doc/halvane"))
        yield from check_icons(os.path.join(first, "share/icons/hicolor"))
        os.rename(first, moved)
        folder = os.path.join(scratch, "folder")
        os.mkdir(folder)
        if not starts(f"{moved}/bin/halvane", os.path.join(root, "data"), folder):
            yield f"the moved program does not find its data files: {os.listdir(folder)}"
        install(cmake, build, "/opt/halvane", staged)
        if found(f"{staged}/opt/halvane") != expected(root):
            yield "DESTDIR is not where everything goes"


if __name__ == "__main__":
    offences = list(check(*sys.argv[1:4]))
    print("\n".join(offences))
    sys.exit(1 if offences else 0)
