# SPDX-License-Identifier: GPL-3.0-or-later
"""Desktops whose windows a Wayland compositor shows. It is itself a window of a virtual
display, so that the same mouse and keyboard drive it."""

import pathlib
import re
import subprocess

from desktop import Desktop, wait_until

SIZE = (960, 860)


class WaylandDesktop(Desktop):
    """Each window is as large as the screen."""

    shell = "kiosk-shell.so"

    def __init__(self, home: pathlib.Path):
        super().__init__(home, "{}x{}".format(*SIZE))

    def _start_window_manager(self) -> None:
        settings = self.home / "weston.ini"
        # Releases differ in how they call the renderer.
        settings.write_text(f"[core]\nbackend=x11-backend.so\nshell={self.shell}\nidle-time=0\n"
                            "use-pixman=true\nrenderer=pixman\n"
                            "[shell]\npanel-position=none\nlocking=false\n")
        log = self.home / "weston.log"
        with log.open("w") as output:
            self.display_server = self.start("weston", f"--config={settings}", "--socket=quillon",
                                             "--width={}".format(SIZE[0]),
                                             "--height={}".format(SIZE[1]), stderr=output)
        found = wait_until(lambda: re.search(r"window id (\d+)", log.read_text()), "the compositor")
        self.screen = found[1]
        socket = pathlib.Path(self.environment["XDG_RUNTIME_DIR"]) / "quillon"
        wait_until(socket.exists, "the compositor's socket")
        self.environment |= {"WAYLAND_DISPLAY": "quillon", "QT_QPA_PLATFORM": "wayland"}

    def resize(self, window: str, width: int, height: int) -> None:
        """Every window is as large as the screen."""

    def window(self, _name: str) -> str:
        """That of the compositor: it does not tell of those that it shows."""
        return self.screen

    def find_colour(self, colour: bytes) -> tuple[int, int] | None:
        """Where the middle of what has this colour (three bytes) is shown, if anything has."""
        width = SIZE[0]
        shown = subprocess.run(["import", "-window", self.screen, "-depth", "8", "rgb:-"],
                               env=self.environment, check=True, stdout=subprocess.PIPE).stdout
        found = [index // 3 for index in range(0, len(shown), 3) if shown[index:index + 3] == colour]
        if not found:
            return None
        columns = [index % width for index in found]
        return (min(columns) + max(columns)) // 2, (found[0] // width + found[-1] // width) // 2


class WaylandDesktopOfManyWindows(WaylandDesktop):
    """They lie where the compositor puts them, with frames of their own."""

    shell = "desktop-shell.so"
