#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""The program as it lies after an installation, away from its build."""

import os
import pathlib
import subprocess
import tempfile
import unittest

import accessibility
from person import Person


class Installed(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="quillon-test-")
        self.addCleanup(folder.cleanup)
        self.prefix = pathlib.Path(folder.name) / "usr"
        subprocess.run(["cmake", "--install", os.environ["QUILLON_BUILD"], "--prefix",
                        str(self.prefix)], check=True, stdout=subprocess.DEVNULL)

    def test_plays_with_its_own_player(self):
        person = Person(command=[str(self.prefix / "bin/quillon")])
        self.addCleanup(person.close)
        person.desktop.keys("ctrl+3")
        person.see("Search YouTube...")
        person.desktop.type("boats")
        person.desktop.keys("Return")
        person.see("13 results")
        person.tab_to("Building a wooden boat, day 4: planking the hull")
        person.desktop.keys("Return")
        person.see("Pause")
        loaded = pathlib.Path(f"/proc/{person.program.pid}/maps").read_text()
        self.assertIn(str(self.prefix / "lib/quillon/quillon-player.so"), loaded)
        self.assertEqual(accessibility.application().get_name(), "quillon")

    def test_has_what_a_desktop_expects(self):
        share = self.prefix / "share"
        name = "io.github.quillon.quillon"
        expected = ["applications/" + name + ".desktop", "dbus-1/services/" + name + ".service",
                    "metainfo/" + name + ".metainfo.xml", "man/man1/quillon.1",
                    "icons/hicolor/scalable/apps/" + name + ".svg",
                    "icons/hicolor/symbolic/apps/" + name + "-symbolic.svg"]
        expected += [f"icons/hicolor/{size}x{size}/apps/{name}.png"
                     for size in (16, 22, 24, 32, 48, 64, 128, 256, 512)]
        found = [str(path.relative_to(share)) for path in share.rglob("*") if path.is_file()]
        self.assertEqual(sorted(found), sorted(expected))
        for path in share.rglob("*.png"):
            side = path.parts[-3]
            self.assertEqual(subprocess.run(["identify", "-format", "%wx%h", str(path)], check=True,
                                            stdout=subprocess.PIPE).stdout.decode(), side)


if __name__ == "__main__":
    unittest.main()
