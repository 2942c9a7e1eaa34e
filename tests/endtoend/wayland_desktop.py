# SPDX-License-Identifier: GPL-3.0-or-later
"""A desktop whose windows a Wayland compositor shows, each as large as the screen. The
compositor is itself a window of a virtual display, so that the same mouse and keyboard
drive it."""

import pathlib
import re

from desktop import Desktop, wait_until

SIZE = (960, 860)


class WaylandDesktop(Desktop):
    def __init__(self, home: pathlib.Path):
        super().__init__(home, "{}x{}".format(*SIZE))

    def _start_window_manager(self) -> None:
        settings = self.home / "weston.ini"
        # Releases differ in how they call the renderer, and none takes both.
        release = int(re.search(r"\d+", self.run("weston", "--version"))[0])
        renderer = "renderer=pixman" if release >= 12 else "use-pixman=true"
        settings.write_text("[core]\nbackend=x11-backend.so\nshell=kiosk-shell.so\nidle-time=0\n"
                            f"{renderer}\n")
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
