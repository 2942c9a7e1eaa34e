#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Prints the releases of the changelog as software centres want them."""

import pathlib
import re
import sys
from xml.sax.saxutils import escape

UNRELEASED = re.compile(r"## \d+\.\d+\.\d+ – unreleased$")
HEADING = re.compile(r"## (\d+\.\d+\.\d+) – (\d{4}-\d{2}-\d{2})$")


def releases(changelog: str) -> list[tuple[str, str, list[str]]]:
    """Version, date and what is new, newest first."""
    found: list[tuple[str, str, list[str]]] = []
    is_released = True
    for line in changelog.splitlines():
        if line.startswith("## "):
            is_released = not UNRELEASED.match(line)
        if not is_released:
            continue
        if line.startswith("## "):
            heading = HEADING.match(line)
            if not heading:
                sys.exit(f"CHANGELOG.md: “{line}” is not “## VERSION – DATE”")
            found.append((heading[1], heading[2], []))
        elif found and line.startswith("- "):
            found[-1][2].append(line[2:])
        elif found and line.startswith("  "):
            found[-1][2][-1] += " " + line.strip()
    if not found:
        sys.exit("CHANGELOG.md names no release")
    return found


def as_xml(found: list[tuple[str, str, list[str]]]) -> str:
    lines = ["  <releases>"]
    for version, date, news in found:
        lines += [f'    <release version="{version}" date="{date}">', "      <description>",
                  "        <ul>", *(f"          <li>{escape(each)}</li>" for each in news),
                  "        </ul>", "      </description>", "    </release>"]
    return "\n".join([*lines, "  </releases>"])


if __name__ == "__main__":
    print(as_xml(releases(pathlib.Path(sys.argv[1]).read_text(encoding="utf-8"))))
