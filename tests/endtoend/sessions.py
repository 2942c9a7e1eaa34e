#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""The end of the desktop's session in the middle of a download."""

import json
import pathlib
import subprocess
import sys
import unittest

from case import Case
from person import IDENTIFIER, wait_until


class MidDownload(Case):
    def end_is_clean(self):
        wait_until(lambda: not self.person.tools(), "the end of the tool")
        self.assertTrue(list(self.downloads.glob("*.part")), "for a later run")


class EndOfSession(MidDownload):
    def test_a_terminated_program_takes_its_tool_along(self):
        self.start_slow_download()
        self.person.program.terminate()
        self.assertEqual(self.person.program.wait(timeout=30), 0)
        self.end_is_clean()


class LostDisplay(MidDownload):
    def tearDown(self):
        self.assertRegex(self.person.complaints(), r"(X11|Wayland) connection broke")

    def test_leaves_no_tool_and_no_lock(self):
        person = self.person
        self.start_slow_download()
        person.desktop.display_server.kill()
        self.assertNotEqual(person.program.wait(timeout=30), 0)
        self.end_is_clean()
        preferences = json.loads((person.desktop.home / ".config/quillon/preferences.json").read_text())
        self.assertIn("quillon.interrupted", preferences)
        person.desktop.environment["QT_QPA_PLATFORM"] = "offscreen"
        person.desktop.start(*person.command)
        wait_until(lambda: IDENTIFIER in person.bus_names(), "the next start")


class EndOfManagedSession(MidDownload):
    def setUp(self):
        super().setUp()
        person = self.person
        person.program.terminate()
        person.program.wait(timeout=30)
        self.manager = person.desktop.start(
            sys.executable, str(pathlib.Path(__file__).with_name("session_manager.py")),
            stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True)
        person.desktop.environment["SESSION_MANAGER"] = self.manager.stdout.readline().strip()
        person.command += ["-session", "1_1"]  # as it starts again what it has ended
        person.start_program()
        self.assertEqual(self.manager.stdout.readline(), "registered\n")

    def test_the_session_manager_ends_it(self):
        self.start_slow_download()
        self.manager.stdin.write("end\n")
        self.manager.stdin.flush()
        self.assertEqual(self.person.program.wait(timeout=30), 0)
        self.end_is_clean()


if __name__ == "__main__":
    unittest.main()
