# SPDX-License-Identifier: GPL-3.0-or-later
"""A desktop of one's own: virtual display, window manager and message bus."""

import contextlib
import os
import pathlib
import secrets
import shutil
import subprocess
import sys
import tempfile
import time


def wait_until(condition, what: str, seconds: float = 60):
    """The condition's first true value."""
    deadline = time.monotonic() + seconds
    while not (value := condition()):
        if time.monotonic() > deadline:
            raise TimeoutError(f"waited {seconds:.0f} s in vain for {what}")
        time.sleep(0.05)
    return value


class Desktop(contextlib.ExitStack):
    """Starts its parts when it is made and ends them when it is closed.

    `environment` is what a program that runs on it needs; its home folder is
    `home`, and nothing of the real user's desktop is in it."""

    def __init__(self, home: pathlib.Path, size: str = "1280x900", display: str | None = None):
        super().__init__()
        self.home = home
        home.mkdir(parents=True, exist_ok=True)
        runtime = tempfile.mkdtemp(prefix="quillon-run-")
        self.callback(shutil.rmtree, runtime, ignore_errors=True)
        inherited = ("PATH", "LD_LIBRARY_PATH", "ASAN_OPTIONS", "LSAN_OPTIONS",
                     "UBSAN_OPTIONS", "QT_QUICK_BACKEND", "XAUTHORITY", "WAYLAND_DISPLAY")
        self.environment = {name: os.environ[name] for name in inherited if name in os.environ}
        self.environment |= {"LANG": "C.UTF-8", "HOME": str(home), "XDG_RUNTIME_DIR": runtime,
                             "NO_AT_BRIDGE": "0", "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1"}
        try:
            self.environment["DISPLAY"] = display or self._start_display(size)
            self.environment["DBUS_SESSION_BUS_ADDRESS"] = self._start_bus()
            if display is None:
                self._start_window_manager()
        except BaseException:
            self.close()
            raise

    def start(self, *command, **options) -> subprocess.Popen:
        """Runs a program on the desktop until the desktop is closed."""
        silent = dict.fromkeys(("stdin", "stdout", "stderr"), subprocess.DEVNULL)
        process = subprocess.Popen(command, env=self.environment, **(silent | options))
        self.callback(self._end, process)
        return process

    @staticmethod
    def _end(process: subprocess.Popen) -> None:
        process.terminate()
        try:
            process.wait(timeout=15)
        except subprocess.TimeoutExpired:
            process.kill()
            process.wait()

    def _start_display(self, size: str) -> str:
        """A display for those alone who know its cookie."""
        cookies = self.home.parent / f".{self.home.name}-cookies"
        cookie = secrets.token_hex(16)
        self.environment["XAUTHORITY"] = str(cookies)
        self.callback(cookies.unlink, missing_ok=True)

        def admit(display: str) -> None:
            self.run("xauth", "-q", "-f", str(cookies), "add", display, ".", cookie)

        admit(":0")  # the display looks at the cookie alone
        read, write = os.pipe()
        # Without -noreset it restarts when its last client leaves, and drops new ones.
        self.display_server = self.start(
            "Xvfb", "-displayfd", str(write), "-screen", "0", f"{size}x24", "-noreset",
            "-nolisten", "tcp", "-auth", str(cookies), pass_fds=[write])
        os.close(write)
        with os.fdopen(read) as number:
            display = ":" + number.readline().strip()
        admit(display)
        return display

    def _start_window_manager(self) -> None:
        self.start("openbox")

        def answers() -> bool:
            return subprocess.run(["xdotool", "get_num_desktops"], env=self.environment, check=False,
                                  stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL).returncode == 0

        # What opens a window before it is there may never see it shown.
        wait_until(answers, "the window manager")

    def _start_bus(self) -> str:
        self.bus = self.start("dbus-daemon", "--session", "--nofork", "--print-address",
                              stdout=subprocess.PIPE)
        return self.bus.stdout.readline().decode().strip()

    def run(self, *command) -> str:
        return subprocess.run(command, env=self.environment, check=True, timeout=60,
                              stdout=subprocess.PIPE, stderr=subprocess.DEVNULL).stdout.decode()

    def window(self, name: str) -> str | None:
        """The number of the visible window with exactly this name."""
        found = subprocess.run(["xdotool", "search", "--onlyvisible", "--name", f"^{name}$"],
                               env=self.environment, stdout=subprocess.PIPE,
                               stderr=subprocess.DEVNULL).stdout.split()
        return found[-1].decode() if found else None

    def resize(self, window: str, width: int, height: int) -> None:
        self.run("xdotool", "windowsize", "--sync", window, str(width), str(height))

    def keys(self, *names: str) -> None:
        self.run("xdotool", "key", "--clearmodifiers", *names)

    def type(self, text: str) -> None:
        self.run("xdotool", "type", "--delay", "8", "--", text)

    def screenshot(self, window: str, path: pathlib.Path) -> None:
        self.run("import", "-window", window, str(path))


def start_site(desktop: Desktop, media: pathlib.Path) -> str:
    """The URL of a local video site for this desktop, when it is ready."""
    site = desktop.start(sys.executable, str(pathlib.Path(__file__).with_name("site.py")),
                         "--home", str(desktop.home), "--media", str(media),
                         stdout=subprocess.PIPE, stderr=None)
    url = site.stdout.readline().decode().strip()
    if not url:  # the tool would ask the real site
        raise RuntimeError("the local video site has not started")
    return url
