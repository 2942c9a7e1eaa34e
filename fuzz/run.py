#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Builds the fuzzers with clang and runs each for so many seconds, one after the other or
those that are named:

    fuzz/run.py 600
    fuzz/run.py 60 history preferences

Begins with recorded output of the real tool and with what earlier runs have found worth
keeping (build/fuzz/corpus). An input that breaks something is kept in build/fuzz/found.
"""

import argparse
import json
import os
import pathlib
import re
import shutil
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parents[1]
BUILD = ROOT / "build/fuzz"
RECORDED = ROOT / "tests/data/yt-dlp-2026.08.19"
RECORD = {"id": "6B29FC40-CA47-1067-B31D-00DD010662DA", "title": "Title", "thumbnailURL": "",
          "url": "https://example.org/", "format": "mp4", "quality": "Best",
          "savedPath": "/a.mp4", "date": 700000000.5}
PICTURE_SECONDS = 5  # one second, with sanitizers


def pictures() -> list[bytes]:
    """One of each kind that is read, and a progressive one."""
    kinds = (["jpg:-"], ["-interlace", "Plane", "jpg:-"], ["png:-"], ["webp:-"])
    return [subprocess.run(["convert", "-size", "64x36", "plasma:", *kind], check=True,
                           stdout=subprocess.PIPE).stdout for kind in kinds]


def seeds() -> dict[str, list[bytes]]:
    recorded = lambda *names: [(RECORDED / name).read_bytes() for name in names]
    outputs = recorded("video.txt", "audio.txt", "again.txt", "audio-again.txt", "fragments.txt",
                       "unknown-length.txt")
    document = json.dumps([RECORD, {**RECORD, "savedPath": "/b"}])
    settings = {"quillon.downloadDir": "~/Films", "quillon.historyLimit": 50,
                "quillon.speedLimit": "5M", "quillon.notifications": True,
                "quillon.history.v2": {"utf8": document}}
    return {"video": recorded("video.json"), "playlist": recorded("playlist.jsonl"),
            "search": recorded("search.jsonl"), "stream": recorded("stream.txt"),
            "progress": [b"\x03\x05\x20\x01" + output for output in outputs],
            "history": [document.encode()], "preferences": [json.dumps(settings).encode()],
            "thumbnail": pictures(), "media_control": [bytes(range(200))]}


def build() -> None:
    for command in (["cmake", "--preset", "fuzz"], ["cmake", "--build", "--preset", "fuzz"]):
        made = subprocess.run(command, cwd=ROOT, check=False, stdout=subprocess.PIPE,
                              stderr=subprocess.STDOUT)
        if made.returncode != 0:
            sys.exit(made.stdout.decode(errors="replace")[-4000:])


def run(name: str, inputs: list[bytes], seconds: int) -> bool:
    corpus = BUILD / "corpus" / name
    corpus.mkdir(parents=True, exist_ok=True)
    for number, content in enumerate(inputs):
        (corpus / f"seed{number}").write_bytes(content)
    found = BUILD / "found"
    found.mkdir(exist_ok=True)
    patience = PICTURE_SECONDS if name == "thumbnail" else 10
    environment = os.environ | {"QT_QPA_PLATFORM": "offscreen", "QT_LOGGING_RULES": "*=false",
                                "ASAN_OPTIONS": "detect_leaks=0:allocator_may_return_null=1"}
    process = subprocess.run(
        [BUILD / f"fuzz/fuzz-{name}", f"-max_total_time={seconds}", f"-timeout={patience}",
         "-rss_limit_mb=2048", "-max_len=65536", "-print_final_stats=1",
         f"-artifact_prefix={found}/{name}-", corpus],
        env=environment, stdout=subprocess.DEVNULL, stderr=subprocess.PIPE, check=False)
    report = process.stderr.decode(errors="replace")
    executed = re.search(r"number_of_executed_units: (\d+)", report)
    covered = re.findall(r"cov: (\d+)", report)
    print(f"{name:14} {executed[1] if executed else '?':>10} inputs, "
          f"{covered[-1] if covered else '?':>6} edges, "
          f"{'nothing found' if process.returncode == 0 else 'FOUND SOMETHING'}", flush=True)
    if process.returncode != 0:
        print("\n".join(report.splitlines()[-60:]))
    return process.returncode == 0


def main() -> int:
    everything = seeds()
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("seconds", type=int)
    parser.add_argument("names", nargs="*")
    options = parser.parse_args()
    if not shutil.which("clang++"):
        print("clang is not there", file=sys.stderr)
        return 2
    build()
    names = options.names or list(everything)
    results = [run(name, everything[name], options.seconds) for name in names]
    return 0 if all(results) else 1


if __name__ == "__main__":
    sys.exit(main())
