#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""The local video site, as the tests of a fresh clone start it: two at a time."""

import pathlib
import subprocess
import sys
import tempfile
import unittest

from person import ROOT


class VideoSite(unittest.TestCase):
    def start(self, folder: pathlib.Path, home: str) -> subprocess.Popen:
        site = subprocess.Popen([sys.executable, str(ROOT / "demo/site.py"), "--home",
                                 str(folder / home), "--media", str(folder / "media")],
                                stdout=subprocess.PIPE, text=True)
        self.addCleanup(site.stdout.close)
        self.addCleanup(site.wait)
        self.addCleanup(site.terminate)
        return site

    def test_two_first_starts_share_the_media(self):
        with tempfile.TemporaryDirectory(prefix="quillon-test-") as name:
            folder = pathlib.Path(name)
            sites = [self.start(folder, home) for home in ("one", "two")]
            for site in sites:
                self.assertRegex(site.stdout.readline(), r"^http://127\.0\.0\.1:\d+\n$")
            self.assertTrue((folder / "media/whole360.mp4").exists())
            self.assertEqual(len(list(folder.glob("media*/thumbnail.png"))), 1)


if __name__ == "__main__":
    unittest.main()
