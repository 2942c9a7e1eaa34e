# SPDX-License-Identifier: GPL-3.0-or-later
"""A desktop with several windows under a Wayland compositor that tells of them. The compositor
is itself a window of a virtual display, so that the same mouse and keyboard drive it."""

import json
import os
import pathlib
import re
import shutil
import tempfile

from desktop import Desktop, wait_until

SIZE = (1400, 900)
NOBODY = 65534

# The program stands on the left, what else there is on the right.
SETTINGS = """
output X11-1 resolution {}x{}
default_border none
xwayland disable
focus_on_window_activation focus
for_window [title=".*"] floating enable, move absolute position 1100 100
for_window [title="^Quillon$"] resize set 960 720, move absolute position 0 0
""".format(*SIZE)


class SwayDesktop(Desktop):
    def __init__(self, home: pathlib.Path):
        super().__init__(home, "{}x{}".format(*SIZE))

    def _start_window_manager(self) -> None:
        folder = pathlib.Path(tempfile.mkdtemp(prefix="quillon-sway-"))
        self.callback(shutil.rmtree, folder, ignore_errors=True)
        settings, cookies = folder / "settings", folder / "cookies"
        settings.write_text(SETTINGS)
        shutil.copy(self.environment["XAUTHORITY"], cookies)
        command = ["sway", "--config", str(settings)]
        if os.geteuid() == 0:  # which it refuses to run as
            for path in (folder, settings, cookies):
                os.chown(path, NOBODY, NOBODY)
            command = ["setpriv", f"--reuid={NOBODY}", f"--regid={NOBODY}", "--clear-groups", *command]
        self.start("env", f"XDG_RUNTIME_DIR={folder}", f"XAUTHORITY={cookies}", "WLR_BACKENDS=x11",
                   "WLR_RENDERER=pixman", *command)
        control = wait_until(lambda: next(folder.glob("sway-ipc.*.sock"), None), "the compositor")
        self.environment |= {"SWAYSOCK": str(control), "QT_QPA_PLATFORM": "wayland",
                             "WAYLAND_DISPLAY": str(folder / "wayland-1")}
        # It has no name where no window manager has spoken of names.
        only_window = re.compile(r"1 child:\s+(0x\w+)")
        self.screen = wait_until(lambda: only_window.search(self.run("xwininfo", "-root", "-children")),
                                 "the compositor's window")[1]

    def windows(self) -> dict[str, dict]:
        """By their titles."""
        tree = json.loads(self.run("swaymsg", "--raw", "--type", "get_tree"))
        found, nodes = {}, [tree]
        while nodes:
            node = nodes.pop()
            nodes += node["nodes"] + node["floating_nodes"]
            if node.get("app_id"):
                found[node["name"]] = node
        return found

    def focus(self, title: str) -> None:
        self.run("swaymsg", f'[title="^{title}$"] focus')

    def resize(self, window: str, width: int, height: int) -> None:
        """The compositor's settings say how large windows are."""

    def window(self, name: str) -> str | None:
        return self.screen if name in self.windows() else None
