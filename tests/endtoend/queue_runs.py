#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Two runs of the queue in the real window, with the real tool."""

import pathlib
import shutil
import unittest

from case import Case, probe
from main_job import state_of
from person import WATCH, wait_until
from scenarios import TITLES, public_id

FIELD = "Paste a URL to add to queue..."
PLAYLIST = "https://www.youtube.com/playlist?list=PL3"
LISTED = ["boat", "nocturne", "bridges"]
ADDED = ["missing", "steady", "progressive", "progressive"]
DONE = LISTED + ["steady", "progressive", "progressive"]


def title_of(video: str) -> str:
    return TITLES.get(video, f"Test video {video}")


def name_of(video: str) -> str:
    """A title as the tool spells it in the name of a file."""
    return title_of(video).replace(":", "：")


def url_of(video: str) -> str:
    return WATCH + (public_id(video) if video in LISTED else video)


class QueueRuns(Case):
    def setUp(self):
        super().setUp()
        self.person.desktop.run("xdotool", "windowsize", "--sync", self.person.window, "960", "860")

    def check_pause(self, press_pause, press_resume):
        person = self.person
        person.see_row(title_of("steady"), r"\d+%")
        press_pause()
        person.see_row(title_of("steady"), "Paused")
        tool = next(process for process in person.tools()
                    if b"yt-dlp" in pathlib.Path(f"/proc/{process}/cmdline").read_bytes())
        wait_until(lambda: state_of(tool) == "T", "the tool to stop")
        press_resume()
        wait_until(lambda: tool not in person.tools() or state_of(tool) != "T", "the tool to go on")

    def check_run(self, number: int, done: list[str], count: int, kind: tuple[str, str]):
        """What is left when all is done, newest record first."""
        person = self.person
        wait_until(lambda: len(person.services("Notify")) == number, "the notification", 240)
        notification = person.services("Notify")[number - 1]
        self.assertEqual((notification[3], notification[4]),
                         ("Download Complete", f"{count} files downloaded successfully"))
        titles = [title_of(video) for video in reversed(done)]
        # The notification is faster than the disk, and an earlier run has left records, too.
        wait_until(lambda: [record["title"] for record in person.history()][:len(done)] == titles,
                   "the records")
        records = person.history()[:len(done)]
        self.assertEqual([record["url"] for record in records],
                         [url_of(video) for video in reversed(done)])
        self.assertEqual({(record["format"], record["quality"]) for record in records}, {kind})
        return records

    def check_videos(self):
        records = self.check_run(1, DONE, 7, ("mp4", "720p"))
        for record, video in zip(records, reversed(DONE)):
            path = self.downloads / f"{name_of(video)}.mp4"
            self.assertEqual(record["savedPath"], str(path))
            height = 360 if video == "progressive" else 720
            self.assertEqual(probe(path), {"video": "h264", "audio": "aac", "height": height})
        runs = [call for call, _environment in self.person.calls() if "-o" in call]
        self.assertEqual([call[-1] for call in runs],
                         [url_of(video) for video in LISTED + ADDED])
        for call in runs:
            self.assertIn("bestvideo[height<=720]+bestaudio/best[height<=720]", call)
        self.assertEqual(list(self.downloads.glob("*.part")), [])

    def check_audio(self):
        """The second run takes all that is there, and the new entry."""
        self.check_run(2, DONE + ["nolength"], 8, ("mp3", "Best"))
        for video in set(DONE) | {"nolength"}:
            self.assertEqual(probe(self.downloads / f"{name_of(video)}.mp3"),
                             {"audio": "mp3", "height": 0})
        runs = [call for call, _environment in self.person.calls() if "-x" in call]
        self.assertEqual([call[-1] for call in runs],
                         [url_of(video) for video in LISTED + ADDED + ["nolength"]])

    def test_by_mouse(self):
        person = self.person
        person.click("Multi")
        person.see("Queue is empty")
        person.click(FIELD)
        person.desktop.type(PLAYLIST)
        person.click("Add to Queue")
        person.see("Queue, 3")
        for video in ADDED:
            person.click(FIELD)
            person.desktop.type(WATCH + video)
            person.click("Add to Queue")
        person.click("720p")
        person.click("Download 7 Videos")
        self.check_pause(lambda: person.click("Pause queue"), lambda: person.click("Resume queue"))
        self.check_videos()
        self.assertIsNone(person.look_for("Nothing to download"))
        person.see("Nothing to download", enabled=False)

        person.click(FIELD)
        person.desktop.type(WATCH + "nolength")
        person.click("Add to Queue")
        person.click("MP3 (Audio only)")
        person.click("Download 1 Video")
        self.check_audio()

    def test_by_keyboard_alone(self):
        person = self.person
        keys = person.desktop.keys
        keys("ctrl+m")
        person.see(FIELD)
        person.tab_to(FIELD)
        person.desktop.type(PLAYLIST)
        keys("Return")
        person.see("Queue, 3")
        for video in ADDED:
            person.desktop.type(WATCH + video)
            keys("Return")
        person.see("Download 7 Videos")
        person.tab_to("720p")
        keys("space")
        person.tab_to("Download 7 Videos")
        keys("space")
        # The keyboard is at the pause button from here on.
        self.check_pause(lambda: keys("space"), lambda: keys("space"))
        self.check_videos()
        person.tab_to(FIELD, "shift+Tab")
        person.desktop.type(WATCH + "nolength")
        keys("Return")
        person.see("Download 1 Video")
        person.tab_to("MP3 (Audio only)")
        keys("space")
        person.tab_to("Download 1 Video")
        keys("space")
        self.check_audio()
        person.tab_to(title_of("boat"))
        keys("Return")
        wait_until(lambda: person.services("ShowFolders") or person.services("ShowItems"), "the file manager")
        keys("Down", "Delete")
        person.see("Queue, 7")


class QueueTrouble(Case):
    fills_disk = WATCH + "fragmented"

    def start(self, *videos: str):
        self.person.desktop.keys("ctrl+m")
        self.person.see(FIELD)
        for video in videos:
            self.person.desktop.type(WATCH + video)
            self.person.desktop.keys("Return")
        label = f"Download {len(videos)} Video{'s' if len(videos) > 1 else ''}"
        self.person.see(label)
        self.person.click(label)

    def parts(self) -> list[pathlib.Path]:
        return list(self.downloads.glob("*.part"))

    def test_the_next_run_resumes_after_closing(self):
        person = self.person
        self.start("steady", "progressive")
        person.see_row(title_of("steady"), r"[1-9]\d?%")
        wait_until(self.parts, "the half-made file")
        person.desktop.keys("ctrl+q")
        self.assertEqual(person.program.wait(timeout=30), 0)
        self.assertEqual(person.tools(), [])
        self.assertEqual(list(self.downloads.glob("*.mp4")), [])
        self.assertEqual(person.history(), [])
        self.assertEqual([call[-1] for call, _ in person.calls() if "-o" in call], [WATCH + "steady"])
        begun = self.parts()[0].stat().st_size

        person.start_program()
        self.start("steady")
        wait_until(lambda: any(part.stat().st_size >= begun for part in self.parts()),
                   "the download to go on where it was")
        person.see_row(title_of("steady"), "Done")
        self.assertEqual(probe(self.downloads / "Test video steady.mp4")["height"], 1080)

    def test_a_full_disk_fails_its_entry_alone(self):
        self.start("fragmented", "progressive")
        self.person.see_row(title_of("progressive"), "Done")
        row = self.person.see_row(title_of("fragmented"), "Failed")
        self.assertIn("too large", row.get_name())
        self.assertEqual([path.name for path in self.downloads.glob("*.mp4")],
                         ["Test video progressive.mp4"])
        self.assertEqual(len(self.person.history()), 1)

    def test_a_deleted_folder_fails_only_its_entry(self):
        person = self.person
        self.start("steady", "progressive")
        person.see_row(title_of("steady"), r"[1-9]\d?%")
        wait_until(self.parts, "the half-made file")
        shutil.rmtree(self.downloads)
        row = person.see_row(title_of("steady"), "Failed")
        self.assertIn("No such file", row.get_name())
        person.see_row(title_of("progressive"), "Done")
        self.assertEqual([path.name for path in self.downloads.glob("*.mp4")],
                         ["Test video progressive.mp4"])
        self.assertEqual(len(person.history()), 1)


if __name__ == "__main__":
    unittest.main(verbosity=2)
