#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""A playlist, its records and the settings in the real window, with the real tool."""

import json
import pathlib
import unittest
import urllib.parse

from accessibility import focused
from case import Case, probe
from person import wait_until
from scenarios import TITLES

PLAYLIST = "https://www.youtube.com/playlist?list="
CHOSEN = ["Test video steady", TITLES["caulking"]]


class PlaylistHistorySettings(Case):
    def check_downloads(self):
        wait_until(lambda: len(self.person.history()) == 2, "the records")
        second, first = self.person.history()
        self.assertEqual([first["title"], second["title"]], CHOSEN)
        for record in (first, second):
            self.assertEqual(probe(pathlib.Path(record["savedPath"]))["height"], 360)
        self.assertEqual(len(self.person.calls()), 3)
        wait_until(lambda: self.person.services("Notify"), "the notification")
        self.assertEqual(self.person.services("Notify")[0][4], "2 files downloaded successfully")

    def check_reveal(self):
        wait_until(lambda: self.person.services("ShowItems"), "the file manager")
        shown = self.person.services("ShowItems")[0][0]
        self.assertEqual([urllib.parse.unquote(url) for url in shown],
                         ["file://" + self.person.history()[0]["savedPath"]])

    def check_refetch(self):
        record = self.person.history()[0]
        wait_until(lambda: len(self.person.calls()) == 4, "the fetch")
        self.assertEqual(self.person.calls()[3][0][-1], record["url"])
        self.person.see("Download")
        self.assertEqual(self.person.text_of("Paste a YouTube URL..."), record["url"])

    def check_settings(self):
        person = self.person
        person.see("Saved!")
        person.see("Save")
        person.desktop.keys("ctrl+q")
        self.assertEqual(person.program.wait(timeout=30), 0)
        stored = json.loads((person.desktop.home / ".config/quillon/preferences.json").read_text())
        self.assertEqual(stored["quillon.downloadDir"], "~/Films")
        self.assertEqual(stored["quillon.speedLimit"], "1M")

        person.start_program()
        person.see("Re-fetch", row=CHOSEN[1])
        person.click("Settings")
        self.assertEqual(person.see("Speed").get_description(), "1 MB/s")
        self.assertEqual(person.text_of("Save Folder"), "~/Films")

    def test_by_mouse(self):
        person = self.person
        person.click("Paste a YouTube URL...")
        person.desktop.type(PLAYLIST + "PL5")
        person.click("Fetch Info")
        person.see("5 of 5 selected")
        person.click("None")
        person.see("0 of 5 selected")
        for title in CHOSEN:
            person.click(title)
        person.see("2 of 5 selected")
        person.click("360p")
        person.click("Download 2 Videos")
        person.see("1 / 2")
        person.see("2 / 2", 120)
        person.see("Complete", 120)
        self.check_downloads()
        person.click("Hide")
        person.click("Show in Finder", row=CHOSEN[1])
        self.check_reveal()
        person.click("Multi")
        person.click("Re-fetch", row=CHOSEN[1])
        self.check_refetch()
        person.click("Settings")
        person.click("Save Folder")
        person.desktop.type("~/Films")
        person.click("Speed")
        person.click("1 MB/s")
        person.click("Save")
        self.check_settings()

    def test_by_keyboard_alone(self):
        person = self.person
        keys = person.desktop.keys
        person.desktop.type(PLAYLIST + "PL5")
        keys("Return")
        person.see("5 of 5 selected")
        person.tab_to("None")
        keys("space")
        person.see("0 of 5 selected")
        person.tab_to(CHOSEN[0])
        keys("space", "Right", "Right")
        wait_until(lambda: focused() == CHOSEN[1], "the third card")
        keys("space")
        person.see("2 of 5 selected")
        person.tab_to("360p")
        keys("space")
        person.tab_to("Download 2 Videos")
        keys("space")
        person.see("1 / 2")
        person.see("2 / 2", 120)
        person.see("Complete", 120)
        self.check_downloads()
        person.tab_to(CHOSEN[1])
        keys("Tab", "Return")
        self.check_reveal()
        keys("Tab", "Return")
        self.check_refetch()
        person.tab_to("Settings", "shift+Tab")
        keys("Return")
        person.tab_to("Save Folder")
        person.desktop.type("~/Films")
        person.tab_to("Speed")
        keys("space", "Down", "Down", "Down", "Down", "Return")
        person.tab_to("Save")
        keys("Return")
        self.check_settings()


class AValueInNoTable(Case):
    preferences = {"quillon.speedLimit": "3M", "quillon.historyLimit": 7}

    def test_shows_no_selection_and_is_used(self):
        person = self.person
        person.click("Settings")
        self.assertEqual(person.see("Speed").get_description(), "")
        self.assertEqual(person.see("History").get_description(), "")
        person.desktop.keys("Escape")
        person.click("Paste a YouTube URL...")
        self.download("progressive", "Test video progressive", "Complete")
        self.assertIn("3M", person.calls()[-1][0])


class AnUndecodableHistory(Case):
    document = json.dumps([{"id": "no identifier"}])
    preferences = {"quillon.history.v2": {"utf8": document}}

    def test_reads_as_none_until_the_next_record(self):
        person = self.person
        person.see("No downloads yet")
        self.assertEqual(person.history(), json.loads(self.document))
        self.download("progressive", "Test video progressive", "Complete")
        wait_until(lambda: person.history()[0].get("title") == "Test video progressive", "the record")
        self.assertEqual(len(person.history()), 1)


if __name__ == "__main__":
    unittest.main(verbosity=2)
