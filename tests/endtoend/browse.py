#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Searching, watching and taking in the real window, with the real tool."""

import pathlib
import re
import subprocess
import unittest

from accessibility import focused
from case import Case, probe
from person import wait_until
from scenarios import TITLES

FIELD = "Search YouTube..."
FIRST, SECOND, THIRD, FOURTH = (TITLES[video] for video in ("boat", "caulking", "nocturne", "bridges"))


class Browse(Case):
    def setUp(self):
        super().setUp()
        self.person.desktop.resize(self.person.window, 960, 860)

    def picture(self) -> str:
        """What is seen at the left of the player, where no spinner is: it changes while
        it plays."""
        return self.person.desktop.run("import", "-window", self.person.window, "-crop",
                                       "250x200+200+215", "-depth", "8", "-format", "%# %k", "info:-")

    def search(self, query: str):
        self.person.click("Browse")
        self.person.click(FIELD)
        self.person.desktop.type(query)
        self.person.desktop.keys("Return")

    def play_first(self):
        self.search("boats")
        self.person.see("13 results")
        self.person.tab_to(FIRST)
        self.person.desktop.keys("Return")
        self.person.see("1 / 13")
        self.check_plays()

    def rewind(self):
        """So that it does not end before the test has done with it."""
        self.control("Seek", "int64 -600000000")

    def check_plays(self):
        """There is a picture of many colours, and it changes."""
        wait_until(lambda: not self.person.look_for("Loading stream…"), "the stream")
        wait_until(lambda: int(self.picture().split()[1]) > 4, "the picture")
        first = self.picture()
        wait_until(lambda: self.picture() != first, "the picture to move")
        wait_until(lambda: not self.tools_called_with(b"--get-url"), "every resolution to end")

    def media_control(self, *call: str) -> str:
        """What the desktop's media control is answered."""
        return self.person.desktop.run(
            "gdbus", "call", "--session", "--dest", "org.mpris.MediaPlayer2.quillon",
            "--object-path", "/org/mpris/MediaPlayer2", "--method", *call)

    def control(self, method: str, *arguments: str):
        self.media_control(f"org.mpris.MediaPlayer2.Player.{method}", *arguments)

    def told(self, name: str) -> str:
        return self.media_control("org.freedesktop.DBus.Properties.Get",
                                  "org.mpris.MediaPlayer2.Player", name)

    def position(self) -> int:
        """Microseconds."""
        return int(re.search(r"<(?:int64 )?(\d+)>", self.told("Position"))[1])

    def is_awake(self) -> bool:
        """Whether the screen is kept from sleeping."""
        return len(self.person.services("Inhibit")) > len(self.person.services("UnInhibit"))

    def tools_called_with(self, option: bytes) -> list[int]:
        def command(tool: int) -> bytes:
            try:
                return pathlib.Path(f"/proc/{tool}/cmdline").read_bytes()
            except OSError:
                return b""  # it has just ended

        return [tool for tool in self.person.tools() if option in command(tool)]

    def check_downloads(self):
        person = self.person
        wait_until(lambda: len(person.history()) == 2, "the records", 120)
        kinds = {(record["title"], record["format"], record["quality"]) for record in person.history()}
        self.assertEqual(kinds, {(THIRD, "mp3", "Best"), (FOURTH, "mp4", "Best")})
        self.assertEqual(probe(self.downloads / f"{THIRD}.mp3"), {"audio": "mp3", "height": 0})
        self.assertEqual(probe(self.downloads / f"{FOURTH}.mp4")["height"], 1080)
        wait_until(lambda: len(person.services("Notify")) == 2, "the notifications")

    def check_calls(self, query: str):
        search = self.person.calls()[0][0]
        self.assertEqual(search[-1], f"ytsearch25:{query}")
        for call, _environment in self.person.calls():
            self.assertNotIn("--cookies-from-browser", call)
        wait_until(lambda: not self.person.tools(), "the tools to end")

    def test_by_mouse(self):
        person = self.person
        person.click("Browse")
        person.see("Type a query above and press Search")
        person.click(FIELD)
        person.desktop.type("wooden boats")
        person.click("Search")
        person.see("13 results")
        person.hover(FIRST)
        person.click("Play", row=FIRST)
        person.see("1 / 13")
        self.check_plays()
        person.see("2 / 13", 30)  # by itself
        self.check_plays()
        self.control("Pause")  # else it might be over before the click
        person.click("Next")
        person.see("3 / 13")
        person.click("Previous")  # while the other one resolves
        person.see("2 / 13")
        self.check_plays()
        self.control("Pause")
        person.click("Position")  # its middle
        wait_until(lambda: 2.5e6 < self.position() < 3.5e6, "the middle")
        person.click("Resume")
        self.check_plays()
        person.click("MP4", row=FOURTH)
        person.click("MP3", row=THIRD)
        wait_until(lambda: len(self.tools_called_with(b"--newline")) == 2, "both to run at once")
        self.check_plays()
        self.check_downloads()
        while not person.look_for("13 / 13"):
            person.click("Next")
        person.see("Play again", 30)
        person.see("13 / 13")
        person.click("Close player")
        wait_until(lambda: not person.look_for("Close player"), "the player to go")
        self.check_calls("wooden boats")

    def test_by_keyboard_alone(self):
        person = self.person
        keys = person.desktop.keys
        person.tab_to("Single", "shift+Tab")
        keys("Left")
        person.see(FIELD)
        person.tab_to(FIELD)
        person.desktop.type("--boats \"x\"")
        keys("Return")
        person.see("13 results")
        person.tab_to(FIRST)
        keys("Return")
        person.see("1 / 13")
        self.check_plays()
        # Another one while this one resolves.
        keys("Down", "Return", "Down", "Return")
        person.see("3 / 13")
        self.check_plays()
        self.control("Pause")  # else it might be over before the key
        person.tab_to("Next", "shift+Tab")
        keys("Return")
        person.see("4 / 13")
        person.tab_to("Previous", "shift+Tab")
        keys("Return")
        person.see("3 / 13")
        self.check_plays()
        person.tab_to("Video", "shift+Tab")
        keys("space")
        person.see("Resume")
        still = self.picture()
        keys("j", "Right")
        wait_until(lambda: self.position() == 5e6, "five seconds")
        keys("space")
        person.see("Pause")
        wait_until(lambda: self.picture() != still, "the picture to move")
        person.tab_to(THIRD)
        keys("Tab", "Tab")
        wait_until(lambda: focused() == "MP3", "the row's MP3")
        keys("Return")
        person.tab_to(THIRD, "shift+Tab")
        keys("Down")
        wait_until(lambda: focused() == FOURTH, "the next row")
        keys("Tab")
        wait_until(lambda: focused() == "MP4", "the next row's MP4")
        keys("Return")
        self.check_downloads()
        person.tab_to("Close player", "shift+Tab")
        keys("Return")
        wait_until(lambda: not person.look_for("Close player"), "the player to go")
        self.check_calls("--boats \"x\"")

    def player_window(self) -> str | None:
        """A window of the player's own: its title begins with that of a video."""
        found = subprocess.run(["xdotool", "search", "--onlyvisible", "--name",
                                "wooden boat|Nocturne|bridges|She said"], stdout=subprocess.PIPE,
                               env=self.person.desktop.environment, text=True).stdout.split()
        return found[-1] if found else None

    def state_of(self, window: str) -> str:
        return self.person.desktop.run("xprop", "-id", window, "_NET_WM_STATE")

    def test_full_screen_and_picture_in_picture_and_back(self):
        person = self.person
        self.play_first()
        person.tab_to("Video", "shift+Tab")
        person.desktop.keys("f")
        window = wait_until(self.player_window, "the player's window")
        wait_until(lambda: "FULLSCREEN" in self.state_of(window), "the whole screen")
        person.desktop.keys("Escape")
        wait_until(lambda: not self.player_window(), "the player to be back")
        self.check_plays()
        self.control("Pause")  # so that the controls stay
        person.click("Full screen")
        window = wait_until(self.player_window, "the player's window")
        wait_until(lambda: "FULLSCREEN" in self.state_of(window), "the whole screen")
        person.desktop.run("xdotool", "mousemove", "600", "400", "click", "--repeat", "2",
                           "--delay", "60", "1")
        wait_until(lambda: not self.player_window(), "the player to be back")
        person.click("Position")  # its middle
        wait_until(lambda: 2.5e6 < self.position() < 3.5e6, "the middle")
        place = self.position()
        person.tab_to("Picture in picture")
        person.desktop.keys("Return")
        window = wait_until(self.player_window, "the small window")
        person.desktop.keys("Escape")
        wait_until(lambda: not self.player_window(), "the player to be back")
        # A seek first tells where it was sent, and then the picture that it found.
        self.assertAlmostEqual(self.position(), place, delta=2e5)
        self.control("Play")
        self.check_plays()
        person.click("Picture in picture")
        window = wait_until(self.player_window, "the small window")
        wait_until(lambda: "ABOVE" in self.state_of(window), "the window to stay above")
        person.desktop.run("xdotool", "windowsize", "--sync", window, "480", "290")
        person.desktop.run("xdotool", "windowmove", "--sync", window, "40", "50")
        geometry = person.desktop.run("xdotool", "getwindowgeometry", window)
        self.assertIn("480x290", geometry)
        person.desktop.run("xdotool", "windowminimize", "--sync", person.window)
        self.assertEqual(self.player_window(), window)  # it stays where the film is
        person.desktop.run("xdotool", "windowactivate", "--sync", person.window)
        person.desktop.run("xdotool", "windowactivate", "--sync", window)
        # Closed by its frame, while it plays.
        person.desktop.keys("alt+F4")
        wait_until(lambda: not self.player_window(), "the player to be back")
        self.check_plays()

    def test_closing_the_window_ends_a_playing_program(self):
        person = self.person
        self.play_first()
        self.control("Pause")  # so that the controls stay
        person.click("Picture in picture")
        wait_until(self.player_window, "the small window")
        person.desktop.run("xdotool", "windowactivate", "--sync", person.window)
        person.desktop.keys("alt+F4")
        self.assertEqual(person.program.wait(timeout=30), 0)
        self.assertEqual(person.tools(), [])

    def test_the_last_result_stays_and_leaving_stops(self):
        person = self.person
        self.search("boats")
        person.see("13 results")
        person.tab_to(FIRST)
        person.desktop.keys("End", "Return")
        person.see("13 / 13")
        self.check_plays()
        person.see("Play again", 30)
        wait_until(lambda: self.picture() == self.picture(), "the last picture to be drawn")
        last = self.picture()
        self.assertGreater(int(last.split()[1]), 4)  # the last picture stays
        wait_until(lambda: not self.is_awake(), "the screen to sleep as it likes")
        self.assertEqual(self.picture(), last)
        person.see("13 / 13")
        self.assertEqual(len([call for call, _ in person.calls() if "--get-url" in call]), 1)
        person.click("Single")
        wait_until(lambda: not person.look_for("Close player"), "the player to go")
        wait_until(lambda: not person.tools(), "the tools to end")

    def test_resuming_at_the_end_plays_the_next(self):
        self.play_first()
        self.person.tab_to("Video", "shift+Tab")
        self.person.desktop.keys("space")
        wait_until(lambda: "Paused" in self.told("PlaybackStatus"), "the pause")
        self.person.desktop.keys("Right", "Right")
        wait_until(lambda: self.position() >= 5.9e6, "the end")
        self.person.desktop.keys("space")
        self.person.see("2 / 13")
        self.check_plays()

    def test_the_desktops_media_control_and_the_media_keys(self):
        person = self.person
        self.assertFalse(self.is_awake())
        self.play_first()
        wait_until(self.is_awake, "the screen to stay awake")
        self.assertIn(FIRST, self.told("Metadata"))
        self.assertIn("Harbour Workshop", self.told("Metadata"))
        self.assertIn("thumbnail.png", self.told("Metadata"))
        self.control("Pause")
        person.see("Resume")
        wait_until(lambda: not self.is_awake(), "the screen to sleep as it likes")
        self.assertIn("Paused", self.told("PlaybackStatus"))
        self.rewind()
        wait_until(lambda: self.position() == 0, "the beginning")
        first = self.picture()
        self.control("PlayPause")
        wait_until(lambda: self.picture() != first, "the picture to move")
        self.control("Next")
        person.see("2 / 13")
        self.control("Previous")
        person.see("1 / 13")
        person.desktop.keys("XF86AudioNext")
        person.see("2 / 13")
        person.desktop.keys("XF86AudioPrev")
        person.see("1 / 13")
        self.check_plays()
        person.desktop.keys("XF86AudioPlay")
        wait_until(lambda: "Paused" in self.told("PlaybackStatus"), "the pause")
        person.maximize()
        self.media_control("org.mpris.MediaPlayer2.Raise")
        wait_until(person.is_in_front, "the window to come forward")
        self.assertTrue(person.is_maximized())
        self.control("Stop")
        wait_until(lambda: not person.look_for("Close player"), "the player to go")
        self.assertNotIn("org.mpris", person.desktop.run(
            "gdbus", "call", "--session", "--dest", "org.freedesktop.DBus", "--object-path", "/",
            "--method", "org.freedesktop.DBus.ListNames"))

    def test_a_missing_stream_shows_an_error(self):
        person = self.person
        self.search("missing streams")
        person.see("2 results")
        person.tab_to("Test video missing")
        person.desktop.keys("Return")
        person.see("The stream cannot be played: http: HTTP error 404 Not Found")
        person.see("1 / 2")


if __name__ == "__main__":
    unittest.main(verbosity=2)
