#!/usr/bin/env python3
"""What is installed is all there, wherever it is put, and the program finds its data files beside
itself, also when the whole tree was moved since.

  installed.py <root> <build> <cmake>
"""

import os
import subprocess
import sys
import tempfile
import time

ID = "example.halvane.Halvane"
SIZES = (16, 22, 24, 32, 48, 64, 128, 256, 512)
START_SECONDS = 60


def expected(root):
    """The paths from the prefix."""
    return sorted(
        [f"bin/{name}" for name in ("halvane", "halvane-practice")]
        + [f"share/halvane/{name}" for name in os.listdir(os.path.join(root, "data"))]
        + [f"share/icons/hicolor/{size}x{size}/apps/{ID}.png" for size in SIZES]
        + [f"share/bash-completion/completions/{name}" for name in ("halvane", "halvane-practice")]
        + [f"share/man/man1/{name}.1" for name in ("halvane", "halvane-practice")]
        + [f"share/doc/halvane/{name}" for name in ("copyright", "practice.md", "user-guide.md")]
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


def check(root, build, cmake):
    with tempfile.TemporaryDirectory() as scratch:
        first, moved, staged = (os.path.join(scratch, name) for name in ("first", "moved", "staged"))
        install(cmake, build, first)
        if found(first) != expected(root):
            yield f"installed too much or too little: {set(found(first)) ^ set(expected(root))}"
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
