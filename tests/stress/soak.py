#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Uses one window for half an hour, and shows what it takes meanwhile:

    tests/stress/soak.py                500 operations in 1800 seconds
    tests/stress/soak.py 60 120         fewer of both

Every kind of operation comes in turn: fetches and downloads that succeed and fail, a
queue, a search, playback, the history. Memory, threads and descriptors are given as the
medians of the first, third and last quarter; what goes on growing fails.
"""

import argparse
import os
import pathlib
import statistics
import sys
import time

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path[:0] = [str(ROOT / "tests/endtoend"), str(ROOT / "demo")]
os.environ.setdefault("QUILLON_PROGRAM", str(ROOT / "build/release/src/quillon"))
os.environ.setdefault("QUILLON_MEDIA", str(ROOT / "build/site-media"))

from person import PROGRAM, WATCH, Person, version_of, wait_until  # noqa: E402

TOOL = "/usr/bin/yt-dlp"
MEGABYTE = 1024 * 1024


class Soak:
    def __init__(self):
        self.person = Person({"quillon.toolNotNow": f"{TOOL} {version_of(TOOL)}"},
                             command=[str(PROGRAM)])
        self.mode = "Single"
        self.number = 0

    # Operations, each of which leaves the program at rest

    def enter(self, mode: str):
        if self.mode != mode:
            self.person.click(mode)
            self.mode = mode
        self.person.see({"Single": "Paste a YouTube URL...", "Browse": "Search YouTube...",
                         "Multi": "Paste a URL to add to queue..."}[mode])

    def fill_field(self, text: str):
        self.person.desktop.keys("Escape", "ctrl+a")
        self.person.desktop.type(text)
        self.person.desktop.keys("Return")

    def name(self) -> str:
        self.number += 1
        return f"soak{self.number}"

    def fetch(self) -> str:
        self.enter("Single")
        self.person.click("Paste a YouTube URL...")
        name = self.name()
        self.fill_field(WATCH + name)
        self.person.see(f"Test video {name}")
        return name

    def fetch_that_fails(self):
        self.enter("Single")
        self.person.click("Paste a YouTube URL...")
        self.fill_field(WATCH + "private")
        wait_until(lambda: self.person.look_for("Fetch Info"), "the failure")

    def download(self):
        self.fetch()
        self.person.desktop.keys("ctrl+d")
        self.person.see("Complete", 120)

    def download_of_sound(self):
        self.fetch()
        self.person.click("MP3 (Audio only)")
        self.person.desktop.keys("ctrl+d")
        self.person.see("Complete", 120)
        self.person.click("MP4 (Video)")

    def download_that_fails(self):
        self.enter("Single")
        self.person.click("Paste a YouTube URL...")
        self.fill_field(WATCH + "missing")
        self.person.see("Test video missing")
        self.person.desktop.keys("ctrl+d")
        self.person.see("Failed", 120)

    def queue(self):
        self.enter("Multi")
        self.person.click("Paste a URL to add to queue...")
        for _ in range(2):
            self.fill_field(WATCH + self.name())
        self.person.see("Download 2 Videos")
        self.person.click("Download 2 Videos")
        self.person.see("Nothing to download", 120, enabled=False)
        self.person.click("Clear done")
        self.person.see("Queue is empty")

    def search(self):
        self.enter("Browse")
        self.person.click("Search YouTube...")
        self.fill_field("boats")
        wait_until(lambda: self.person.look_for("MP4", row="Building a wooden boat, day 4"),
                   "the results")

    def play(self):
        self.search()
        self.person.tab_to("Building a wooden boat, day 4: planking the hull")
        self.person.desktop.keys("Return")
        self.person.see("1 / 13")
        wait_until(lambda: not self.person.look_for("Loading stream…"), "the stream")
        time.sleep(1)  # some pictures
        self.person.click("Close player")
        wait_until(lambda: not self.person.look_for("Close player"), "the player to go")

    def history(self):
        self.enter("Single")
        self.person.click("Re-fetch")
        self.person.see("Fetch Info")

    # What it takes

    def sample(self) -> tuple[int, int, int]:
        process = pathlib.Path(f"/proc/{self.person.program.pid}")
        status = dict(line.split(":", 1) for line in (process / "smaps_rollup").read_text()
                      .splitlines()[1:])
        return (int(status["Pss"].split()[0]) * 1024, len(list((process / "task").iterdir())),
                len(list((process / "fd").iterdir())))


def main() -> int:
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("operations", type=int, nargs="?", default=500)
    parser.add_argument("seconds", type=int, nargs="?", default=1800)
    options = parser.parse_args()
    if options.operations < 60:
        parser.error("fewer than 60 operations tell nothing")
    soak = Soak()
    kinds = [soak.fetch, soak.fetch_that_fails, soak.download, soak.download_of_sound,
             soak.download_that_fails, soak.queue, soak.search, soak.play, soak.history]
    samples = []
    start = time.monotonic()
    try:
        for number in range(options.operations):
            kind = kinds[number % len(kinds)]
            try:
                kind()
            except Exception as error:
                print(f"FAILED: operation {number + 1}, {kind.__name__}: {error}", flush=True)
                return 1
            if kind == soak.history:  # always in the same place of the round
                samples.append(soak.sample())
                memory, threads, descriptors = samples[-1]
                print(f"operation {number + 1}: {memory / MEGABYTE:.1f} MB, {threads} threads, "
                      f"{descriptors} descriptors", flush=True)
            ahead = start + (number + 1) * options.seconds / options.operations - time.monotonic()
            time.sleep(max(0, ahead))
        complaints = soak.person.complaints()
    finally:
        soak.person.close()
    return report(samples, options.operations, time.monotonic() - start, complaints)


def report(samples: list, operations: int, seconds: float, complaints: str) -> int:
    quarter = max(1, len(samples) // 4)
    parts = {"first": samples[:quarter], "third": samples[2 * quarter:3 * quarter],
             "last": samples[3 * quarter:]}
    medians = {name: [statistics.median(column) for column in zip(*part)]
               for name, part in parts.items()}
    print(f"{operations} operations in {seconds:.0f} s")
    for name, (memory, threads, descriptors) in medians.items():
        print(f"{name:6} {memory / MEGABYTE:7.1f} MB  {threads:4.0f} threads  "
              f"{descriptors:4.0f} descriptors")
    if complaints:
        print(complaints)
    grows = any(last > third * 1.05 for third, last in zip(medians["third"], medians["last"]))
    if grows:
        print("FAILED: it goes on growing")
    return 1 if grows or complaints else 0


if __name__ == "__main__":
    sys.exit(main())
