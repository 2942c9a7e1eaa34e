# SPDX-License-Identifier: GPL-3.0-or-later
"""What the tests in the real window have in common."""

import json
import pathlib
import select
import subprocess
import unittest

from person import WATCH, Desktop, Person, wait_until


def probe(path: pathlib.Path) -> dict:
    """The codec of each kind of stream, and the height of the picture."""
    output = subprocess.run(["ffprobe", "-v", "error", "-of", "json", "-show_streams", str(path)],
                            check=True, stdout=subprocess.PIPE).stdout
    streams = json.loads(output)["streams"]
    found = {stream["codec_type"]: stream["codec_name"] for stream in streams}
    return found | {"height": max(stream.get("height", 0) for stream in streams)}


def next_line(process: subprocess.Popen) -> str:
    """What an unbuffered helper says next."""
    if not select.select([process.stdout], [], [], 60)[0]:
        raise TimeoutError("waited 60 s in vain for a line")
    return process.stdout.readline().decode().rstrip("\n")


class Case(unittest.TestCase):
    """One person each, and nothing to complain of at the end."""

    maxDiff = None
    preferences: dict | None = None
    fills_disk = ""
    missing_services: tuple[str, ...] = ()
    desktop_class = Desktop

    def setUp(self):
        self.person = Person(self.preferences, self.fills_disk,
                             missing_services=self.missing_services,
                             desktop_class=self.desktop_class)
        self.addCleanup(self.person.close)
        self.downloads = self.person.desktop.home / "Downloads"

    def tearDown(self):
        self.assertEqual(self.person.complaints(), "")

    def download(self, video: str, title: str, end: str):
        person = self.person
        person.desktop.keys("ctrl+a")
        person.desktop.type(WATCH + video)
        person.desktop.keys("Return")
        person.see(title)
        person.desktop.keys("ctrl+d")
        person.see(end, 120)

    def start_slow_download(self):
        """Until the tool has written its first bytes."""
        person = self.person
        person.desktop.type(WATCH + "slow")
        person.desktop.keys("Return")
        person.see("Test video slow")
        person.desktop.keys("ctrl+d")
        wait_until(person.tools, "the tool")
        wait_until(lambda: list(self.downloads.glob("*.part")), "what it writes")
