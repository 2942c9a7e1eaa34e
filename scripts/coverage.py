#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Builds with coverage, runs all tests but the long ones, and prints by folder how much of
the lines and branches of src they have run. Needs gcovr (a package of Debian)."""

import collections
import json
import pathlib
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parents[1]
BUILD = ROOT / "build/coverage"


def run(*command: str, must_succeed: bool = True) -> bytes:
    return subprocess.run(command, cwd=ROOT, check=must_succeed, stdout=subprocess.PIPE).stdout


def main() -> int:
    run("cmake", "--preset", "coverage")
    run("cmake", "--build", "--preset", "coverage")
    for counts in BUILD.rglob("*.gcda"):
        counts.unlink()
    tests = subprocess.run(["ctest", "--test-dir", str(BUILD), "-j2"], cwd=ROOT, check=False,
                           stdout=subprocess.DEVNULL)
    if tests.returncode:
        print("Some tests have failed; what follows is of the others.", file=sys.stderr)
    report = json.loads(run("gcovr", "--root", str(ROOT), "--filter", "src/", "--json", "-",
                            "--exclude-throw-branches", "--exclude-unreachable-branches",
                            "--gcov-ignore-parse-errors", str(BUILD)))
    folders = collections.defaultdict(lambda: [0, 0, 0, 0])
    for file in report["files"]:
        path = pathlib.PurePath(file["file"])
        for place in {str(path.parent), "src (all)"}:
            totals = folders[place]
            for line in file["lines"]:
                if line.get("gcovr/noncode"):
                    continue
                totals[0] += line["count"] > 0
                totals[1] += 1
                totals[2] += sum(branch["count"] > 0 for branch in line["branches"])
                totals[3] += len(line["branches"])
    print(f"{'folder':24} {'lines':>7} {'branches':>9}")
    for folder, (lines, all_lines, branches, all_branches) in sorted(folders.items()):
        share = f"{100 * branches / all_branches:8.1f}%" if all_branches else "       –"
        print(f"{folder:24} {100 * lines / max(1, all_lines):6.1f}% {share}")
    return 0


if __name__ == "__main__":
    sys.exit(main())
