#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Looks for what no compiler tells: unsafe waits, arrows that point the wrong
way, colours outside the theme, and files that have grown too long."""

import pathlib
import re
import sys

SOURCE = pathlib.Path("src")
AROUND = [pathlib.Path(name) for name in ("tests", "benchmarks", "demo", "scripts")]

# What each folder may include from. A QML folder may use everything but main/.
ALLOWED = {
    "models": {"models"},
    "service": {"service", "models"},
    "tool": {"tool", "service"},
    "platform": {"platform"},
    "player": {"player", "platform", "service"},
    "decisions": {"decisions", "service", "models"},
    "workflows": {"workflows", "decisions", "service", "models", "app"},
    "app": {"app", "workflows", "decisions", "service", "tool", "platform", "models"},
    "presentation": {"presentation", "app", "platform", "service", "models"},
    "shared": {"shared"},
}
LIMITS = {".cpp": 350, ".h": 350, ".qml": 250, ".py": 350}

# The three safe ways to wait; compilers have miscompiled others.
SAFE_WAIT = re.compile(r"^\s*((const )?(auto|[A-Z]\w*(::\w+)*) \w+ = )?(co_await|co_return co_await) "
                       r"[\w.:>-]+(\((\w+(, )?)*\))?;$")


STRAY_COLOUR = re.compile(r'"#[0-9a-fA-F]{3,8}"|Qt\.rgba\(|color: "(?!transparent)\w+"', re.IGNORECASE)


def folder_of(path: pathlib.Path) -> str:
    return path.parent.name


def headers() -> dict[str, str]:
    return {path.name: folder_of(path) for path in SOURCE.rglob("*.h")}


def wrong_arrows(path: pathlib.Path, lines: list[str], home: dict[str, str]):
    folder = folder_of(path)
    allowed = set(ALLOWED.get(folder, home.values()))
    for number, line in enumerate(lines, 1):
        if (found := re.match(r'#include "(\w+\.h)"', line)) and found[1] in home \
                and home[found[1]] not in allowed:
            yield number, f"{folder}/ must not include from {home[found[1]]}/"
        if path.suffix == ".qml" and folder == "shared" and re.match(r"import Quillon(\.Presentation)?$", line):
            yield number, "shared controls must not know the application"


def unsafe_waits(lines: list[str]):
    for number, line in enumerate(lines, 1):
        code = line.split("//")[0]
        if "co_await" in code and not SAFE_WAIT.match(code.rstrip()):
            yield number, "an await that compilers may get wrong; hoist its parts into variables"


def stray_colours(path: pathlib.Path, lines: list[str]):
    for number, line in enumerate(lines, 1):
        if path.name != "Theme.qml" and STRAY_COLOUR.search(line):
            yield number, "a colour that is not the theme's"


def problems(path: pathlib.Path, home: dict[str, str]):
    lines = path.read_text().splitlines()
    if SOURCE in path.parents:
        yield from wrong_arrows(path, lines, home)
        if path.suffix in (".cpp", ".h"):
            yield from unsafe_waits(lines)
        if path.suffix == ".qml":
            yield from stray_colours(path, lines)
    if len(lines) > LIMITS.get(path.suffix, 10**6):
        yield len(lines), f"more than {LIMITS[path.suffix]} lines"
    if "SPDX-License-Identifier" not in "\n".join(lines[:2]):
        yield 1, "no licence line"


def main() -> int:
    home = headers()
    found = [(path, *problem)
             for folder in (SOURCE, *AROUND)
             for path in sorted(folder.rglob("*"))
             if path.suffix in LIMITS
             for problem in problems(path, home)]
    for path, number, what in found:
        print(f"{path}:{number}: {what}")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
