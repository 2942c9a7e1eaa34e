#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""A tool that the site no longer answers gives way to a new one, in the real window."""

import datetime
import os
import pathlib
import re
import subprocess
import tempfile
import unittest

from accessibility import application, find, focused
from person import WATCH, Person, version_of, wait_until
from releases import Releases

NEW = datetime.datetime.now(datetime.timezone.utc).strftime("%Y.%m.%d")
REFUSAL = ("Failed to fetch info: ERROR: [youtube] boat_______: "
           "YouTube is no longer supported in this application or device.")
TITLE = "Building a wooden boat, day 4: planking the hull"
URL = WATCH + "boat_______"


class Tool(unittest.TestCase):
    maxDiff = None

    def setUp(self):
        folder = pathlib.Path(tempfile.mkdtemp(prefix="quillon-releases-"))
        self.addCleanup(subprocess.run, ["rm", "-rf", str(folder)])
        self.releases = Releases(folder, NEW, rate=1_500_000)
        self.addCleanup(self.releases.close)
        self.person = Person(command=[os.environ["QUILLON_WITH_RELEASES"], self.releases.url,
                                      str(self.releases.signer.key)])
        self.addCleanup(self.person.close)
        (self.person.desktop.home / ".config/quillon-site-is-strict").touch()
        self.old = version_of("/usr/bin/yt-dlp")
        self.complaint = f"YouTube no longer answers yt-dlp {self.old}."
        self.installed = self.person.desktop.home / ".local/bin/yt-dlp"

    def tearDown(self):
        self.assertEqual(self.person.complaints(), "")

    def check_new_tool(self):
        self.assertEqual(list(self.installed.parent.iterdir()), [self.installed])
        self.assertEqual(version_of(str(self.installed)), NEW)

    def see_percent(self):
        def matches(node, _states):
            return re.fullmatch(r"Downloading yt-dlp… [1-9]\d?%", node.get_name())

        wait_until(lambda: find(application(), matches), "percent")

    def test_by_mouse(self):
        person = self.person
        person.see(self.complaint)
        person.desktop.type(URL)
        person.desktop.keys("Return")
        person.see(REFUSAL)
        person.click("Update yt-dlp")
        self.see_percent()
        person.see(f"yt-dlp {NEW} is ready.")
        self.check_new_tool()
        person.click("Try again")
        person.see(TITLE)
        self.assertIsNone(person.look_for(f"yt-dlp {NEW} is ready."))
        person.click("Settings")
        person.see(f"yt-dlp {NEW}, current")
        self.assertEqual(person.see(f"yt-dlp {NEW}, current").get_description(), str(self.installed))

    def test_by_keyboard_alone_and_by_ear(self):
        person = self.person
        person.see(self.complaint)
        person.desktop.keys("ctrl+q")
        self.assertEqual(person.program.wait(timeout=30), 0)
        alerts = person.listen_for_alerts()
        person.start_program()
        person.see(self.complaint)
        person.desktop.type(URL)
        person.desktop.keys("Return")
        person.see(REFUSAL)
        person.desktop.keys("F6")
        wait_until(lambda: focused() == "Update yt-dlp", "the notice")
        person.desktop.keys("Escape")
        wait_until(lambda: focused() == "Paste a YouTube URL...", "the field")
        person.desktop.keys("F6")
        wait_until(lambda: focused() == "Update yt-dlp", "the notice")
        person.desktop.keys("Return")
        wait_until(lambda: focused() == "Cancel", "the next button")
        self.see_percent()
        wait_until(lambda: focused() == "Try again", "the new tool")
        self.check_new_tool()
        person.desktop.keys("space")
        person.see(TITLE)
        wait_until(lambda: focused() == "Paste a YouTube URL...", "the field")
        wait_until(lambda: alerts() == [self.complaint, REFUSAL, "Updating yt-dlp", f"yt-dlp {NEW} is ready."],
                   f"the alerts; heard {alerts()}")

    def test_cancelled_and_closed_in_the_middle(self):
        person = self.person
        self.releases.rate = 100_000
        person.click("Update yt-dlp")
        self.see_percent()
        person.click("Cancel")
        person.see(self.complaint)
        self.assertEqual(list(self.installed.parent.iterdir()), [])
        person.click("Update yt-dlp")
        self.see_percent()
        person.desktop.keys("ctrl+q")
        self.assertEqual(person.program.wait(timeout=30), 0)
        self.assertEqual(list(self.installed.parent.iterdir()), [])

    def test_not_now_holds_after_a_restart(self):
        person = self.person
        person.click("Not now")
        wait_until(lambda: not person.look_for(self.complaint), "the notice to go")
        person.desktop.keys("ctrl+q")
        self.assertEqual(person.program.wait(timeout=30), 0)
        person.start_program()
        person.click("Settings")
        person.see(f"yt-dlp {self.old}, too old for YouTube")
        self.assertIsNone(person.look_for(self.complaint))

    def test_from_the_settings(self):
        person = self.person
        person.click("Not now")
        person.click("Settings")
        person.see(f"yt-dlp {self.old}, too old for YouTube")
        person.click("Update yt-dlp")
        person.see(f"yt-dlp {NEW} is ready.")
        person.click("Close")
        person.see(f"yt-dlp {NEW}, current")
        self.check_new_tool()


if __name__ == "__main__":
    unittest.main(verbosity=2)
