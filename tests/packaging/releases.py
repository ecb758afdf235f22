#!/usr/bin/env python3
"""The metainfo and Debian's changelog tell of the releases of CHANGELOG.md, the newest of which is the
project's version; the program, its entry and its metainfo go by one name; and the metainfo's pictures are there.

  releases.py <root> <version of the project> <folder of the texts>
"""

import os
import re
import struct
import subprocess
import sys
import xml.etree.ElementTree as ElementTree

ID = "example.halvane.Halvane"


def read(*path):
    with open(os.path.join(*path), encoding="utf-8") as file:
        return file.read()


def size_of(path):
    """Width and height of a PNG file, None when there is none."""
    try:
        with open(path, "rb") as file:
            head = file.read(24)
    except FileNotFoundError:
        return None
    return struct.unpack(">II", head[16:24])


def check_releases(root, version, metainfo):
    changes = re.findall(r"^## (\d\S*) \((\S+)\)$", read(root, "CHANGELOG.md"), re.MULTILINE)
    if not changes or changes[0][0] != version:
        yield f"the project is {version}, and the newest release of CHANGELOG.md is {changes[:1]}"
    if sorted(changes, key=lambda change: change[1], reverse=True) != changes:
        yield "the releases of CHANGELOG.md do not stand in the order of their days"
    releases = [(release.get("version"), release.get("date")) for release in metainfo.iter("release")]
    if releases != changes:
        yield f"the metainfo has the releases {releases}, CHANGELOG.md {changes}"
    texts = [len(release.findall("description/ul/li")) for release in metainfo.iter("release")]
    if 0 in texts:
        yield "a release of the metainfo says nothing"
    said = subprocess.run([sys.executable, os.path.join(root, "packaging/make_texts.py"), "deb-changelog"],
                          check=True, capture_output=True, text=True).stdout
    packaged = re.findall(r"^halvane \((\d[^+)]*)[^)]*\) ", said, re.MULTILINE)
    if list(dict.fromkeys(packaged)) != [change[0] for change in changes]:
        yield f"Debian's changelog has the versions {packaged}"


def check_names(root, metainfo):
    entry = read(root, f"packaging/{ID}.desktop")
    for where, found in (
        ("metainfo", metainfo.findtext("id")),
        ("metainfo's launchable", metainfo.findtext("launchable").removesuffix(".desktop")),
        ("entry's icon", re.search(r"^Icon=(.*)$", entry, re.MULTILINE).group(1)),
        ("program", re.search(r'setDesktopFileName\(u"(.*?)"', read(root, "src/main.cpp")).group(1)),
    ):
        if found != ID:
            yield f"the {where} has the name {found}"
    described = re.search(r"^Comment=(.*)$", entry, re.MULTILINE).group(1)
    if metainfo.findtext("summary") != described:
        yield "the metainfo's summary and the entry's comment differ"


def check_pictures(root, metainfo):
    for image in metainfo.iter("image"):
        name = image.text.rsplit("/", 1)[1]
        said = (int(image.get("width")), int(image.get("height")))
        if size_of(os.path.join(root, "docs/images", name)) != said:
            yield f"docs/images/{name} is not there, or not of the size {said}"


def check(root, version, texts):
    metainfo = ElementTree.parse(os.path.join(texts, f"{ID}.metainfo.xml")).getroot()
    yield from check_releases(root, version, metainfo)
    yield from check_names(root, metainfo)
    yield from check_pictures(root, metainfo)


if __name__ == "__main__":
    offences = list(check(*sys.argv[1:4]))
    print("\n".join(offences))
    sys.exit(1 if offences else 0)
