#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""The bar at the lower edge of the real window, with the real tool."""

import unittest

from accessibility import focused
from case import Case
from person import WATCH, wait_until

FIRST = "Bulk video 1"


class ActionBar(Case):
    def fetch_playlist(self):
        self.person.desktop.type("https://www.youtube.com/playlist?list=PL5000")
        self.person.desktop.keys("Return")
        self.person.see("Download 5000 Videos")

    def check_record(self):
        wait_until(lambda: [record["title"] for record in self.person.history()] == [FIRST],
                   "the record")

    def test_by_mouse(self):
        person = self.person
        self.fetch_playlist()
        person.click("None")
        person.see("0 of 5000 selected")
        person.click(FIRST)
        person.click("Download 1 Video")
        person.see("Stop download")
        self.check_record()
        person.see("Complete")
        person.click("MP4 · Best")
        person.see("MP3 (Audio only)")

    def test_by_keyboard_alone(self):
        person = self.person
        self.fetch_playlist()
        person.tab_to("None")
        person.desktop.keys("space")
        person.see("0 of 5000 selected")
        person.tab_to(FIRST)
        person.desktop.keys("space")
        person.see("Download 1 Video")
        person.desktop.keys("F6")
        wait_until(lambda: focused() == "Download 1 Video", "the bar")
        person.desktop.keys("Return")
        self.check_record()
        wait_until(lambda: focused() == "Download 1 Video", "the focus to come back")

    def test_a_run_is_seen_and_stopped_from_browse(self):
        person = self.person
        person.desktop.type(WATCH + "steady")
        person.desktop.keys("Return")
        person.see("Download")
        person.desktop.keys("ctrl+d", "ctrl+3")
        person.see("Show download")
        person.click("Stop download")
        wait_until(lambda: not person.tools(), "the tool to end")
        person.desktop.keys("ctrl+1")
        person.see("Stopped.")
        self.assertEqual(person.history(), [])


if __name__ == "__main__":
    unittest.main()
