#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""How the program is started, and started again while it runs."""

import os
import pathlib
import shutil
import signal
import subprocess
import sys
import tempfile
import unittest

import accessibility
from case import Case, next_line
from person import IDENTIFIER, PROGRAM, WATCH, Desktop, wait_until

PATH = "/" + IDENTIFIER.replace(".", "/")


class WithoutADisplay(unittest.TestCase):
    def run_program(self, *arguments):
        return subprocess.run([str(PROGRAM), *arguments], env={"PATH": os.environ["PATH"]},
                              capture_output=True, text=True, check=False, timeout=60)

    def test_help_and_version_are_printed(self):
        answer = self.run_program("--help")
        self.assertEqual((answer.returncode, answer.stderr), (0, ""))
        self.assertTrue(answer.stdout.startswith("Usage: quillon [ADDRESS]..."))
        self.assertRegex(self.run_program("--version").stdout, r"^Quillon \d+\.\d+\.\d+\n$")


class StartedAgain(Case):
    def start_again(self, *urls, **environment):
        desktop = self.person.desktop
        return subprocess.run([str(PROGRAM), *urls], env=desktop.environment | environment,
                              capture_output=True, text=True, check=False, timeout=60)

    def test_hands_one_address_over(self):
        self.assertEqual(self.start_again(WATCH + "boat").returncode, 0)
        self.person.see("Building a wooden boat, day 4: planking the hull")
        self.assertEqual(self.person.text_of("Paste a YouTube URL..."), WATCH + "boat")

    def test_hands_several_addresses_to_the_queue(self):
        self.assertEqual(self.start_again(WATCH + "boat", WATCH + "nocturne").returncode, 0)
        self.person.see_row("Building a wooden boat, day 4: planking the hull", "Ready")
        self.person.see_row("Nocturne in E-flat major, live recording", "Ready")

    def test_completes_its_startup_sequence_as_of_its_moment(self):
        listener = self.person.desktop.start(
            sys.executable, str(pathlib.Path(__file__).with_name("desktop_messages.py")),
            stdout=subprocess.PIPE, stderr=None, bufsize=0)
        self.assertEqual(next_line(listener), "listening")
        identifier = 'a\\"launcher"-of-programs_TIME4321'
        self.assertEqual(self.start_again(DESKTOP_STARTUP_ID=identifier).returncode, 0)
        self.assertEqual(next_line(listener), "activate 4321")
        self.assertEqual(next_line(listener),
                         r'startup remove: ID="a\\\"launcher\"-of-programs_TIME4321"')

    def test_refuses_what_is_no_address(self):
        answer = self.start_again("/etc/passwd")
        self.assertEqual(answer.returncode, 2)
        self.assertIn("“/etc/passwd” is no address of the web.", answer.stderr)

    def test_says_without_a_bus_that_one_is_running(self):
        answer = self.start_again(DBUS_SESSION_BUS_ADDRESS="unix:path=/nowhere")
        self.assertEqual(answer.returncode, 1)
        self.assertIn("Quillon is running already", answer.stderr)

    def test_its_actions_are_done(self):
        person = self.person
        self.act("browse")
        person.see("Search YouTube...")
        copied = person.folder / "copied"
        copied.write_text(WATCH + "boat")
        person.desktop.start("xclip", "-quiet", "-selection", "clipboard", str(copied))
        self.act("paste-and-fetch")
        person.see("Building a wooden boat, day 4: planking the hull")

    def act(self, action: str):
        self.person.desktop.run("gdbus", "call", "--session", "--dest", IDENTIFIER,
                                "--object-path", PATH, "--method",
                                "org.freedesktop.Application.ActivateAction", action, "[]", "{}")

    def test_the_window_bears_the_identifier(self):
        shown = self.person.desktop.run("xprop", "-id", self.person.window, "WM_CLASS")
        self.assertIn(f'"{IDENTIFIER}"', shown)
        self.assertEqual(accessibility.application().get_name(), "quillon")


class StartedWithAddresses(Case):
    def setUp(self):
        super().setUp()
        self.person.program.terminate()
        self.person.program.wait(timeout=30)
        self.person.command += [WATCH + "boat"]

    def test_fetches_its_address(self):
        self.person.start_program()
        self.person.see("Building a wooden boat, day 4: planking the hull")


class StartedOnAHungBus(unittest.TestCase):
    """Without the screen reader's side, which comes over that bus."""

    def test_the_window_opens_all_the_same(self):
        home = pathlib.Path(tempfile.mkdtemp(prefix="quillon-hung-"))
        self.addCleanup(shutil.rmtree, home, ignore_errors=True)
        with Desktop(home) as desktop:
            os.kill(desktop.bus.pid, signal.SIGSTOP)
            program = desktop.start(str(PROGRAM), stderr=subprocess.PIPE)
            wait_until(lambda: desktop.window("Quillon"), "the window")
            desktop.bus.kill()
            program.terminate()
            self.assertIn(b"does not answer; going on without it", program.communicate(timeout=30)[1])
            self.assertEqual(program.returncode, 0)


if __name__ == "__main__":
    unittest.main()
