#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""The desktop's real portal with its GTK windows, in place of the stand-in."""

import json
import pathlib
import tempfile
import unittest

import accessibility
from accessibility import Atspi
from case import Case
from person import wait_until

TITLE = "Choose Download Folder"


class WithThePortal(Case):
    missing_services = ("org.freedesktop.portal.Desktop",)

    def setUp(self):
        super().setUp()
        # The portal's windows come from where the desktop is said to be.
        self.person.desktop.run("dbus-update-activation-environment", "XDG_CURRENT_DESKTOP=GNOME")


class TheDesktopsFolderChooser(WithThePortal):
    def open(self):
        person = self.person
        person.desktop.keys("ctrl+comma")
        person.see("Save Folder")
        person.tab_to("Save Folder", "shift+Tab")
        person.desktop.keys("Tab", "space")
        self.window = wait_until(lambda: person.desktop.window(TITLE), "the chooser")
        # Keys are lost on it before it is drawn, and go elsewhere before it is active.
        wait_until(lambda: accessibility.find(Atspi.get_desktop(0),
                                              lambda node, _states: node.get_name() == "Select Folder"),
                   "its button")
        person.desktop.run("xdotool", "windowactivate", "--sync", self.window)

    def type_path(self, text: str):
        def matches(node, _states):
            return node.get_role() == Atspi.Role.TEXT \
                and Atspi.Text.get_text(node, 0, -1).endswith(text)

        self.person.desktop.type(text)
        wait_until(lambda: accessibility.find(Atspi.get_desktop(0), matches), f"“{text}” in the chooser")

    def close_is_seen(self):
        wait_until(lambda: not self.person.desktop.window(TITLE), "the chooser to go")

    def test_lies_over_the_window_and_says_what_it_is_for(self):
        self.open()
        over = self.person.desktop.run("xprop", "-id", self.window, "WM_TRANSIENT_FOR")
        self.assertIn(hex(int(self.person.window)), over)

    def test_a_typed_path_is_taken(self):
        folder = tempfile.mkdtemp(prefix="some videos ", dir=self.person.folder)
        self.open()
        self.type_path("/")  # opens the field that the rest goes to
        self.type_path(folder.removeprefix("/") + "/")
        self.person.desktop.keys("Return")
        self.close_is_seen()
        wait_until(lambda: self.person.text_of("Save Folder") == folder, "the folder's path")

    def test_cancelling_keeps_the_text(self):
        self.person.desktop.keys("ctrl+comma")
        self.person.see("Save Folder")
        self.person.tab_to("Save Folder", "shift+Tab")
        self.person.desktop.type("~/Films")
        self.person.desktop.keys("ctrl+comma")
        self.open()
        self.person.desktop.keys("Escape")
        self.close_is_seen()
        self.assertEqual(self.person.text_of("Save Folder"), "~/Films")

    def test_closes_with_the_window(self):
        self.open()
        self.person.program.terminate()
        self.close_is_seen()


class WithoutAFileManager(WithThePortal):
    missing_services = ("org.freedesktop.portal.Desktop", "org.freedesktop.FileManager1")
    preferences = {}

    def setUp(self):
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="quillon-shown-"))
        self.addCleanup(self.folder.rmdir)
        self.file = self.folder / "Boat.mp4"
        self.file.write_text("x")
        self.addCleanup(self.file.unlink)
        record = {"id": "6F1D8CC2-4C0C-4F0B-8B1B-0D5F2C0A8A11", "title": "Boat", "thumbnailURL": "",
                  "url": "https://www.youtube.com/watch?v=boat", "format": "mp4", "quality": "720p",
                  "savedPath": str(self.file), "date": 0}
        self.preferences = {"quillon.history.v2": {"utf8": json.dumps([record])}}
        super().setUp()

    def test_the_portal_shows_the_folder_of_a_file(self):
        person = self.person
        opened = self.register_for_folders()
        person.click("Show in Finder", row="Boat")
        wait_until(opened.exists, "the folder to be opened")
        self.assertEqual(pathlib.Path(opened.read_text().strip()), self.folder)

    def register_for_folders(self) -> pathlib.Path:
        """A program that notes what folder it is to open."""
        home = self.person.desktop.home
        opened = home / "opened"
        script = home / "folders"
        script.write_text(f"#!/bin/sh\nprintf '%s\\n' \"$1\" >'{opened}.new'\nmv '{opened}.new' '{opened}'\n")
        script.chmod(0o755)
        applications = home / ".local/share/applications"
        applications.mkdir(parents=True)
        (applications / "folders.desktop").write_text(
            f"[Desktop Entry]\nType=Application\nName=Folders\nExec={script} %f\n"
            "MimeType=inode/directory;\n")
        (applications / "mimeapps.list").write_text(
            "[Default Applications]\ninode/directory=folders.desktop\n")
        return opened


if __name__ == "__main__":
    unittest.main()
