#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Tells Debian's tools what packages.txt says of Quillon's own package.

Without arguments it prints the substitutions for debian/control; with --check it compares
what cannot be substituted there: what the build needs, and the versions.
"""

import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parents[1]
HELPERS = {"debhelper-compat (= 13)"}  # of the packaging itself
# Where a package has been split off, the older release has it in the other one.
SPLIT = {"qt6-svg-plugins": "qt6-svg-plugins | libqt6svg6 (<< 6.5)"}


def packages(group: str) -> list[str]:
    lines = (ROOT / "packages.txt").read_text().splitlines()
    words = [line.split() for line in lines if line and not line.startswith("#")]
    return [SPLIT.get(name, name) for kind, name in words if kind.rstrip("?") == group]


def complaints():
    control = (ROOT / "debian/control").read_text()
    field = re.search(r"^Build-Depends:((?:.*\n)(?: .*\n)*)", control, re.M)
    needed = {each.strip() for each in field[1].split(",") if each.strip()}
    for name in sorted(needed ^ (set(packages("build")) | HELPERS)):
        yield f"“{name}” is either in Build-Depends or in packages.txt, not in both"
    version = re.search(r"VERSION ([\d.]+)", (ROOT / "CMakeLists.txt").read_text().split("project(")[1])[1]
    if not (ROOT / "debian/changelog").read_text().startswith(f"quillon ({version}) "):
        yield f"debian/changelog does not begin with {version}"
    if f"## {version} – " not in (ROOT / "CHANGELOG.md").read_text():
        yield f"CHANGELOG.md has no {version}"


if __name__ == "__main__":
    if sys.argv[1:] == ["--check"]:
        found = list(complaints())
        print("\n".join(found), end="\n" if found else "")
        sys.exit(1 if found else 0)
    for variable, group in (("Depends", "run"), ("Recommends", "nice")):
        print(f"-Vquillon:{variable}='{', '.join(packages(group))}'")
