#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""The main job in the real window, with the real tool and the local video site."""

import os
import pathlib
import signal
import unittest

from accessibility import Atspi
from case import Case, probe
from person import WATCH, wait_until
from scenarios import TITLES

LEADING = ["--extractor-args", "youtube:player_client=tv_embedded"]
TITLE = "Test video steady"


def state_of(process: int) -> str:
    return pathlib.Path(f"/proc/{process}/stat").read_text().rpartition(")")[2].split()[0]


class MainJob(Case):
    def check_pause(self, press_pause, press_resume):
        self.person.see_progress()
        press_pause()
        self.person.see("Paused")
        tool = next(process for process in self.person.tools()
                    if b"yt-dlp" in pathlib.Path(f"/proc/{process}/cmdline").read_bytes())
        wait_until(lambda: state_of(tool) == "T", "the tool to stop")
        press_resume()
        wait_until(lambda: not self.person.look_for("Paused"), "the chip to go on")
        wait_until(lambda: tool not in self.person.tools() or state_of(tool) != "T", "the tool to go on")

    def is_chosen(self, name: str) -> bool:
        control = self.person.see(name)
        control.clear_cache()
        return control.get_state_set().contains(Atspi.StateType.CHECKED)

    def test_a_screen_reader_hears_what_is_chosen(self):
        person = self.person
        self.assertTrue(self.is_chosen("Single"))
        person.desktop.type(WATCH + "steady")
        person.desktop.keys("Return")
        self.assertTrue(self.is_chosen("MP4 (Video)") and self.is_chosen("Best"))
        person.click("720p")
        person.click("720p")  # once more: it stays
        wait_until(lambda: self.is_chosen("720p") and not self.is_chosen("Best"), "720p")

    def check_video(self):
        wait_until(lambda: len(self.person.history()) == 1, "the record")
        record = self.person.history()[0]
        path = self.downloads / f"{TITLE}.mp4"
        self.assertEqual(list(record), ["id", "title", "thumbnailURL", "url", "format", "quality",
                                        "savedPath", "date"])
        self.assertEqual(record["id"], record["id"].upper())
        self.assertEqual((record["title"], record["url"], record["format"], record["quality"],
                          record["savedPath"]),
                         (TITLE, WATCH + "steady", "mp4", "720p", str(path)))
        self.assertEqual(probe(path), {"video": "h264", "audio": "aac", "height": 720})
        wait_until(lambda: self.person.services("Notify"), "the notification")
        notification = self.person.services("Notify")[0]
        self.assertEqual(notification[3], "Download Complete")
        self.assertEqual(notification[4], f"&quot;{TITLE}&quot; downloaded successfully")
        maps = pathlib.Path(f"/proc/{self.person.program.pid}/maps")
        wait_until(lambda: "libcanberra.so" in maps.read_text(), "the sound")
        wait_until(lambda: self.person.services("ShowItems"), "the file manager")
        self.assertEqual(self.person.services("ShowItems")[0][0], [f"file://{self.downloads}"])
        fetch, download = self.person.calls()
        home = self.person.desktop.home
        environment = [f"HOME={home}", "LANG=en_US.UTF-8",
                       "PATH=/opt/homebrew/bin:/usr/local/bin:/usr/bin:/bin:"
                       f"{home}/.local/bin:{home}/.deno/bin"]
        self.assertEqual(fetch, [LEADING + ["--dump-json", "--no-playlist", "--no-warnings",
                                            "--quiet", WATCH + "steady"], environment])
        self.assertEqual(download, [
            LEADING + ["--no-playlist", "--no-warnings", "--newline", "-f",
                       "bestvideo[height<=720]+bestaudio/best[height<=720]",
                       "--merge-output-format", "mp4", "--postprocessor-args",
                       "ffmpeg:-c:v copy -c:a aac -movflags +faststart",
                       "-o", f"{self.downloads}/%(title)s.%(ext)s", WATCH + "steady"],
            environment])

    def check_audio(self):
        wait_until(lambda: len(self.person.history()) == 2, "the second record")
        record = self.person.history()[0]
        self.assertEqual((record["format"], record["quality"]), ("mp3", "Best"))
        # The record names the file that the audio came from.
        self.assertEqual(pathlib.Path(record["savedPath"]).stem, TITLE)
        self.assertEqual(probe(self.downloads / f"{TITLE}.mp3"), {"audio": "mp3", "height": 0})
        self.assertIn("-x", self.person.calls()[-1][0])

    def test_by_mouse(self):
        person = self.person
        person.click("Paste a YouTube URL...")
        person.desktop.type(WATCH + "steady")
        person.click("Fetch Info")
        person.see(TITLE)
        person.click("720p")
        person.click("Download")
        self.check_pause(lambda: person.click("Pause download"),
                         lambda: person.click("Resume download"))
        person.see("Complete", 120)
        person.click("Show in Finder")
        self.check_video()
        person.click("MP3 (Audio only)")
        person.click("Download")
        self.check_audio()

    def test_by_keyboard_alone(self):
        person = self.person
        keys = person.desktop.keys
        person.desktop.type(WATCH + "steady")
        keys("Return")
        person.see(TITLE)
        person.tab_to("720p")
        keys("space")
        person.tab_to("Download")
        keys("space")
        self.check_pause(lambda: (person.tab_to("Pause download"), keys("space")),
                         lambda: (person.tab_to("Resume download"), keys("space")))
        person.see("Complete", 120)
        person.tab_to("Show in Finder")
        keys("Return")
        self.check_video()
        person.tab_to("MP3 (Audio only)", "shift+Tab")
        keys("space")
        person.tab_to("Download")
        keys("space")
        self.check_audio()

    def test_a_run_resumes_after_the_window_closed(self):
        person = self.person
        person.desktop.type(WATCH + "steady")
        person.desktop.keys("Return")
        person.see(TITLE)
        person.desktop.keys("ctrl+d")
        person.see_progress()
        person.desktop.keys("ctrl+p")
        person.see("Paused")
        person.desktop.keys("ctrl+q")
        self.assertEqual(person.program.wait(timeout=30), 0)
        self.assertEqual(person.tools(), [])
        self.assertFalse((self.downloads / f"{TITLE}.mp4").exists())
        self.assertEqual(person.history(), [])
        begun = next(self.downloads.glob("*.part")).stat().st_size

        person.start_program()
        person.desktop.type(WATCH + "steady")
        person.desktop.keys("Return")
        person.see(TITLE)
        person.desktop.keys("ctrl+d")
        person.see("Downloading")
        wait_until(lambda: any(part.stat().st_size >= begun for part in self.downloads.glob("*.part")),
                   "the download to go on where it was")
        person.see("Complete", 120)
        self.assertEqual(probe(self.downloads / f"{TITLE}.mp4")["height"], 1080)

    def test_a_killed_program_leaves_no_tool(self):
        self.start_slow_download()
        person = self.person
        os.kill(person.program.pid, signal.SIGKILL)
        wait_until(lambda: not person.tools(), "the tool to end", 2)

    def test_a_title_with_markup_reads_as_it_is(self):
        person = self.person
        title = "a <script>alert(1)</script> & b"
        person.desktop.type(WATCH + "angles")
        person.desktop.keys("Return")
        person.see(title)
        person.desktop.keys("ctrl+d")
        person.see("Complete", 120)
        wait_until(lambda: person.services("Notify"), "the notification")
        self.assertEqual(person.services("Notify")[0][4],
                         "&quot;a &lt;script&gt;alert(1)&lt;/script&gt; &amp; b&quot; downloaded successfully")

    def test_a_private_video_shows_and_announces_an_error(self):
        person = self.person
        alerts = person.listen_for_alerts()
        person.desktop.type(WATCH + "private")
        person.desktop.keys("Return")
        error = ("Failed to fetch info: ERROR: [youtube] private: Private video. "
                 "Sign in if you've been granted access to this video")
        person.see(error)
        advice = ("The site wants to know who you are. Choose a browser in which you are signed in, "
                  "and its cookies will be used.")
        wait_until(lambda: sorted(alerts()) == sorted([error, advice]), "both alerts")

    def test_odd_titles_are_saved_and_recorded(self):
        odd = ("quotes", "slashes", "emoji", "rtl", "cjk", "percent", "angles")
        for count, video in enumerate(odd, 1):
            self.download(video, TITLES[video], "Complete")
            wait_until(lambda: len(self.person.history()) == count, "the record")
            record = self.person.history()[0]
            self.assertEqual(record["title"], TITLES[video])
            self.assertEqual(probe(pathlib.Path(record["savedPath"]))["height"], 1080)

    def test_a_title_like_tool_output_saves_no_path(self):
        # Each line that names the file reads as progress, so no path is known.
        self.download("likeoutput", TITLES["likeoutput"], "Complete")
        wait_until(self.person.history, "the record")
        self.assertNotIn("savedPath", self.person.history()[0])
        self.assertEqual(len(list(self.downloads.glob("*.mp4"))), 1)

    def test_a_title_too_long_leaves_no_file(self):
        self.download("long", TITLES["long"].strip(), "Failed")
        self.assertEqual(self.person.history(), [])
        self.assertEqual(list(self.downloads.glob("*.mp4")), [])

    def test_a_quick_restart_keeps_the_last_record(self):
        person = self.person
        person.program.terminate()
        self.assertEqual(person.program.wait(timeout=30), 0)
        environment = person.desktop.environment
        options = environment.get("ASAN_OPTIONS", "")
        environment |= {"LD_PRELOAD": os.environ["QUILLON_SLOW_DISK"],
                        "ASAN_OPTIONS": options + ":verify_asan_link_order=0"}
        person.start_program()
        first = person.program
        self.download("steady", TITLE, "Complete")
        person.desktop.keys("ctrl+q")
        wait_until(lambda: not person.desktop.window("Quillon"), "the window to go")
        self.assertIsNone(first.poll(), "it has ended before the next start")
        del environment["LD_PRELOAD"]
        environment["ASAN_OPTIONS"] = options
        person.start_program()
        self.assertEqual(first.wait(timeout=30), 0)
        person.see("Show in Finder", row=TITLE)
        self.assertEqual(len(person.history()), 1)

    def test_colours_follow_the_desktop_while_open(self):
        person = self.person
        wait_until(lambda: person.background() == "#ECECEE", "light colours")
        person.desktop_services.send_signal(signal.SIGUSR1)
        wait_until(lambda: person.background() == "#1E1E20", "dark colours")


class SecondStart(Case):
    def start_again(self):
        person = self.person
        second = person.desktop.start(str(person.program.args[0]))
        self.assertEqual(second.wait(timeout=30), 0)
        wait_until(person.is_in_front, "the window to come forward")
        self.assertIsNone(person.program.poll())

    def cover(self):
        self.person.desktop.start("xev")
        wait_until(lambda: not self.person.is_in_front(), "another window in front")

    def test_brings_the_window_before_others(self):
        self.cover()
        self.start_again()

    def test_leaves_the_window_maximized(self):
        self.person.maximize()
        self.cover()
        self.start_again()
        self.assertTrue(self.person.is_maximized())

    def test_brings_a_minimized_window_back_as_it_was(self):
        self.person.maximize()
        self.person.desktop.run("xdotool", "windowminimize", self.person.window)
        wait_until(lambda: "HIDDEN" in self.person.window_state(), "the window to go")
        self.start_again()
        self.assertTrue(self.person.is_maximized())

    def test_asks_for_attention_from_another_workspace(self):
        run = self.person.desktop.run
        run("xdotool", "set_num_desktops", "2")
        run("xdotool", "set_desktop_for_window", self.person.window, "1")
        wait_until(lambda: not self.person.has_keyboard(), "the window to be elsewhere")
        second = self.person.desktop.start(str(self.person.program.args[0]))
        self.assertEqual(second.wait(timeout=30), 0)
        # Whether the workspace changes is the window manager's choice.
        wait_until(lambda: self.person.is_in_front()
                   or "DEMANDS_ATTENTION" in self.person.window_state(), "a call for attention")


class FolderThatIsNotThereYet(Case):
    preferences = {"quillon.downloadDir": " ~/Films/new "}

    def test_is_made_below_home(self):
        self.download("progressive", "Test video progressive", "Complete")
        path = self.person.desktop.home / "Films/new/Test video progressive.mp4"
        self.assertEqual(probe(path), {"video": "h264", "audio": "aac", "height": 360})


class FolderThatCannotBeWritten(Case):
    preferences = {"quillon.downloadDir": "/dev/null/films"}

    def test_fails_the_run(self):
        self.download("progressive", "Test video progressive", "Failed")
        self.assertEqual(self.person.history(), [])
        self.assertEqual(self.person.services("Notify"), [])


if __name__ == "__main__":
    unittest.main(verbosity=2)
