#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Ends the program at random moments of its work, and looks at what is left:

    tests/stress/crash.py 300           so many rounds
    tests/stress/crash.py 300 --seed 7  the same moments again

The real window and the real tool download from the local video site. The program is
killed, terminated or closed. After each end every record that was shown is in the file,
no process is left, and no file under a final name is cut off. What was begun is then
resumed, in every third round to its end.
"""

import argparse
import collections
import json
import os
import pathlib
import random
import re
import signal
import subprocess
import sys
import time

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path[:0] = [str(ROOT / "tests/endtoend"), str(ROOT / "demo")]
os.environ.setdefault("QUILLON_PROGRAM", str(ROOT / "build/release/src/quillon"))
os.environ.setdefault("QUILLON_MEDIA", str(ROOT / "build/site-media"))

from accessibility import application, find  # noqa: E402
from media import SECONDS  # noqa: E402
from person import PROGRAM, WATCH, Person, version_of, wait_until  # noqa: E402

TOOL = "/usr/bin/yt-dlp"
# What the tool still works on carries one of these; all else has its final name.
UNFINISHED = re.compile(r"\.(part|ytdl|temp\.\w+|f[\w-]+\.\w+|part-Frag\d+.*|webm|m4a)$")
ROW = re.compile(r"(?P<title>.*), [^,]*, (?P<format>MP[34]) · ")


class Failure(AssertionError):
    """What a round must not leave."""


def duration_of(path: pathlib.Path) -> float:
    """In seconds, of what can be decoded without an error."""
    decoded = subprocess.run(["ffmpeg", "-v", "error", "-i", str(path), "-f", "null", "-"],
                             check=False, stdout=subprocess.DEVNULL, stderr=subprocess.PIPE)
    if decoded.returncode or decoded.stderr:
        raise Failure(f"{path.name} is damaged: {decoded.stderr.decode()[:300]}")
    return float(subprocess.run(
        ["ffprobe", "-v", "error", "-show_entries", "format=duration", "-of", "csv=p=0", str(path)],
        check=True, stdout=subprocess.PIPE).stdout)


class Rounds:
    def __init__(self, seed: int):
        self.random = random.Random(seed)
        self.counts = collections.Counter()
        self.person = Person({"quillon.historyLimit": 100000,
                              "quillon.toolNotNow": f"{TOOL} {version_of(TOOL)}"},
                             command=[str(PROGRAM)])
        self.downloads = self.person.desktop.home / "Downloads"

    def close(self):
        self.person.close()

    # Work

    def fill_field(self, text: str):
        self.person.desktop.keys("ctrl+a")
        self.person.desktop.type(text)
        self.person.desktop.keys("Return")

    def single(self, names: list[str], is_audio: bool):
        self.fill_field(WATCH + names[0])
        self.person.see(f"Test video {names[0]}")
        if is_audio:
            self.person.click("MP3 (Audio only)")
        self.person.desktop.keys("ctrl+d")

    def queue(self, names: list[str], is_audio: bool):
        self.person.desktop.keys("ctrl+m")
        self.person.see("Paste a URL to add to queue...")
        for name in names:
            self.fill_field(WATCH + name)
        self.person.see(f"Download {len(names)} Videos")
        if is_audio:
            self.person.click("MP3 (Audio only)")
        self.person.click(f"Download {len(names)} Videos")

    def browse(self, names: list[str], is_audio: bool):
        self.person.click("Browse")
        self.person.click("Search YouTube...")
        self.fill_field(names[0])
        self.person.click("MP3" if is_audio else "MP4", row=f"Test video {names[0]}")

    # One round

    def run(self, number: int):
        work = self.random.choice([self.single, self.queue, self.browse])
        is_audio = self.random.random() < 0.4
        names = [f"paced{number}{letter}" for letter in "abc"][:3 if work == self.queue else 1]
        end = self.random.choice(["killed", "killed", "killed", "terminated", "closed"])
        moment = self.random.uniform(0, 9)
        what = f"{work.__name__} {'mp3' if is_audio else 'mp4'}, {end} after {moment:.1f} s"
        try:
            work(names, is_audio)
            shown = self.watch(moment, work != self.browse)
            self.end(end)
            self.check(shown)
            begun = self.begun()
            self.person.start_program()
            if number % 3 == 0:
                self.resume(work, names, is_audio, begun)
        except Exception as error:
            raise Failure(f"round {number}, {what}: {error}") from error
        self.counts[end] += 1
        self.counts[work.__name__] += 1
        print(f"round {number}: {what}", flush=True)

    def watch(self, seconds: float, sees_history: bool) -> set:
        """The records that have been shown until then."""
        deadline = time.monotonic() + seconds
        shown = set()
        while time.monotonic() < deadline:
            if sees_history:
                shown |= self.records_shown()
            else:
                time.sleep(0.1)
        return shown

    def records_shown(self) -> set:
        found = set()

        def collect(node, _states):
            row = ROW.match(node.get_name()) if node.get_role_name() == "list item" else None
            if row:
                found.add((row["title"], row["format"].lower()))
            return False

        if window := application():
            find(window, collect)
        return found

    def end(self, how: str):
        program = self.person.program
        if how == "closed":
            self.person.desktop.keys("ctrl+q")
        else:
            program.send_signal(signal.SIGKILL if how == "killed" else signal.SIGTERM)
        status = program.wait(timeout=15)
        if status != (-signal.SIGKILL if how == "killed" else 0):
            raise Failure(f"it ended with {status}")
        wait_until(lambda: not self.person.tools(), "the tool to end", 5)

    def check(self, shown: set):
        recorded = {(record["title"], record["format"]) for record in self.records()}
        if not shown <= recorded:
            raise Failure(f"records were lost: {shown - recorded}")
        self.counts["records shown"] = max(self.counts["records shown"], len(recorded))
        for path in self.finished():
            if abs(duration_of(path) - SECONDS) > 1:
                raise Failure(f"{path.name} is cut off")
            self.counts["files looked at"] += 1

    def records(self) -> list:
        file = self.person.desktop.home / ".config/quillon/preferences.json"
        values = json.loads(file.read_text())
        blob = values.get("quillon.history.v2", {})
        if "compressed" in blob:
            import base64
            import zlib
            return json.loads(zlib.decompress(base64.b64decode(blob["compressed"])[4:]))
        return json.loads(blob.get("utf8", "[]"))

    def finished(self) -> list[pathlib.Path]:
        return [path for path in self.downloads.glob("*") if not UNFINISHED.search(path.name)]

    def begun(self) -> dict:
        return {path: path.stat().st_size for path in self.downloads.glob("*.part")}

    def resume(self, work, names: list[str], is_audio: bool, begun: dict):
        before = len(self.records())
        work(names, is_audio)

        def is_done() -> bool:
            for path, size in begun.items():
                try:
                    now = path.stat().st_size
                except FileNotFoundError:
                    continue  # finished
                if now < size:
                    raise Failure(f"{path.name} began anew")
            return len(self.records()) == before + len(names)

        wait_until(is_done, "the resumed download", 120)
        for name in names:
            path = self.downloads / f"Test video {name}.{'mp3' if is_audio else 'mp4'}"
            if abs(duration_of(path) - SECONDS) > 1:
                raise Failure(f"{path.name} is cut off after it was resumed")
        self.counts["resumed to the end"] += 1
        self.counts["parts resumed"] += len(begun)
        for path in self.downloads.glob("*"):
            path.unlink()
        self.person.desktop.keys("ctrl+q")
        self.person.program.wait(timeout=15)
        self.person.start_program()


def main() -> int:
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("rounds", type=int)
    parser.add_argument("--seed", type=int, default=random.randrange(1_000_000))
    options = parser.parse_args()
    print(f"seed {options.seed}", flush=True)
    rounds = Rounds(options.seed)
    try:
        for number in range(1, options.rounds + 1):
            rounds.run(number)
        complaints = rounds.person.complaints()
        if complaints:
            raise Failure(complaints)
    except Failure as failure:
        print(f"FAILED (seed {options.seed}): {failure}", flush=True)
        return 1
    finally:
        rounds.close()
    print(", ".join(f"{count} {what}" for what, count in sorted(rounds.counts.items())))
    return 0


if __name__ == "__main__":
    sys.exit(main())
