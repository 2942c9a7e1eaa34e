#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""The main job, watching, settings and a second start under a Wayland compositor."""

import pathlib
import subprocess
import unittest

import browse
import sessions
import starts
from case import Case, next_line, probe
from person import PROGRAM, WATCH, wait_until
from sway_desktop import SwayDesktop
from wayland_desktop import WaylandDesktop

TITLE = "Building a wooden boat, day 4: planking the hull"


class UnderWayland(Case):
    desktop_class = WaylandDesktop

    def test_it_is_wayland(self):
        maps = open(f"/proc/{self.person.program.pid}/maps", encoding="utf-8").read()
        self.assertIn("libqwayland", maps)
        self.assertNotIn("libqxcb", maps)

    def test_the_main_job_is_done(self):
        self.download("boat", TITLE, "Complete")
        wait_until(self.person.history, "the record")
        self.assertEqual(probe(self.person.history()[0]["savedPath"])["height"], 1080)

    def test_a_setting_is_chosen_from_its_menu(self):
        person = self.person
        person.click("Settings")
        person.click("Speed")
        person.click("1 MB/s")
        person.click("Save")
        person.see("Saved!")
        person.click("Paste a YouTube URL...")
        self.download("progressive", "Test video progressive", "Complete")
        self.assertIn("1M", person.calls()[-1][0])


class WatchingUnderWayland(browse.Browse):
    desktop_class = WaylandDesktop

    def header(self) -> str:
        """What is seen where the window has its name."""
        return self.person.desktop.run("import", "-window", self.person.window, "-crop",
                                       "300x50+20+80", "-depth", "8", "-format", "%#", "info:-")

    def test_full_screen_and_back(self):
        self.play_first()
        before = self.header()
        self.person.tab_to("Video", "shift+Tab")
        self.person.desktop.keys("f")
        wait_until(lambda: self.header() != before, "the film on the whole screen")
        self.person.see("Playing in full screen")
        self.person.desktop.keys("Escape")
        wait_until(lambda: self.header() == before, "the window to be back")
        self.check_plays()

    def test_picture_in_picture_says_that_it_may_be_covered(self):
        self.play_first()
        self.control("Pause")  # so that the controls stay
        self.person.click("Picture in picture, which other windows may cover here")
        self.person.see("Playing in picture in picture")


class StartedAgainUnderWayland(starts.StartedAgain):
    desktop_class = WaylandDesktop

    def test_hands_one_address_over(self):
        super().test_hands_one_address_over()


class AmongOtherWindows(Case):
    desktop_class = SwayDesktop

    def setUp(self):
        super().setUp()
        desktop = self.person.desktop
        self.neighbour = desktop.start(
            "/usr/bin/python3", str(pathlib.Path(__file__).with_name("neighbour.py")), WATCH + "boat",
            str(PROGRAM), WATCH + "nocturne", stdout=subprocess.PIPE, stderr=None, bufsize=0)
        wait_until(lambda: desktop.window("Neighbour"), "the other program's window")

    def mouse(self, *events):
        self.person.desktop.run("xdotool", *map(str, events))

    def neighbour_says(self, step: str):
        self.assertEqual(next_line(self.neighbour), step)

    def place_of(self, title: str) -> tuple[int, int]:
        place = self.person.desktop.windows()[title]["rect"]
        return place["x"] + place["width"] // 2, place["y"] + place["height"] // 2

    def has_focus(self) -> bool:
        return self.person.desktop.windows()["Quillon"]["focused"]

    def test_an_address_dropped_from_one_reaches_the_field(self):
        x, y = self.place_of("Neighbour")
        self.mouse("mousemove", x, y)
        self.neighbour_says("entered")
        self.mouse("mousedown", 1)
        self.neighbour_says("pressed")
        self.mouse("mousemove", x + 10, y, "mousemove", x + 30, y)
        self.neighbour_says("begun")
        self.mouse("mousemove", *self.place_of("Quillon"))
        self.neighbour_says("wanted")
        self.mouse("mouseup", 1)
        wait_until(lambda: self.person.text_of("Paste a YouTube URL...") == WATCH + "boat", "the drop")

    def test_started_from_one_it_comes_forward(self):
        self.person.desktop.focus("Neighbour")
        wait_until(lambda: not self.has_focus(), "the other window to have the focus")
        self.mouse("mousemove", *self.place_of("Neighbour"), "click", 1)
        self.person.see("Nocturne in E-flat major, live recording")
        wait_until(self.has_focus, "the focus")


class LostCompositor(sessions.LostDisplay):
    desktop_class = WaylandDesktop

    def test_leaves_no_tool_and_no_lock(self):
        super().test_leaves_no_tool_and_no_lock()


if __name__ == "__main__":
    unittest.main()
