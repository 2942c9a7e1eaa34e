# SPDX-License-Identifier: GPL-3.0-or-later
"""A person in front of the window: sees what a screen reader is told, and uses
mouse and keyboard."""

import json
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import time
import urllib.parse

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "demo"))

import accessibility  # noqa: E402
from accessibility import Atspi, GLib, application, find, focused  # noqa: E402
from desktop import Desktop, start_site, wait_until  # noqa: E402

PROGRAM = pathlib.Path(os.environ["QUILLON_PROGRAM"])
MEDIA = pathlib.Path(os.environ["QUILLON_MEDIA"])
# Quillon prefers these to the recorder in the test's own home.
PREFERRED_TOOLS = ("/opt/homebrew/bin/yt-dlp", "/usr/local/bin/yt-dlp")
REAL_TOOL = os.environ.get("QUILLON_TOOL", "/usr/bin/yt-dlp")
IDENTIFIER = "io.github.quillon.quillon"
SERVICES = ("org.freedesktop.Notifications", "org.freedesktop.FileManager1",
            "org.freedesktop.ScreenSaver", "org.freedesktop.portal.Desktop")
WATCH = "https://www.youtube.com/watch?v="


def version_of(tool: str) -> str:
    return subprocess.run([tool, "--version"], check=True, stdout=subprocess.PIPE).stdout.decode().strip()


class Person:
    """With a desktop, a video site, a recording tool and Quillon of their own."""

    def __init__(self, preferences: dict | None = None, fills_disk: str = "",
                 command: list[str] | None = None, missing_services: tuple[str, ...] = (),
                 desktop_class: type[Desktop] = Desktop):
        """Downloads of the one URL find no more room after 50 kB. With a command, it
        is what is started, and the tool is the system's rather than a recording one.
        For the missing services there are no stand-ins."""
        self.fills_disk = fills_disk
        self.missing_services = missing_services
        self.command = command or [str(PROGRAM)]
        self.records = command is None
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="quillon-test-"))
        self.desktop = desktop_class(self.folder / "home")
        self.recorder = self.desktop.home / ".local/bin/yt-dlp"
        if self.records:
            # Whatever its age, no notice about it gets in the way.
            preferences = (preferences or {}) | {
                "quillon.toolNotNow": f"{self.recorder} {version_of(REAL_TOOL)}"}
        self.desktop.callback(shutil.rmtree, self.folder, ignore_errors=True)
        try:
            if preferences:
                folder = self.desktop.home / ".config/quillon"
                folder.mkdir(parents=True)
                (folder / "preferences.json").write_text(json.dumps(preferences))
            self._prepare()
        except BaseException:
            self.desktop.close()
            raise

    def _prepare(self):
        os.environ.update(self.desktop.environment)
        if self.records:
            self._install_recorder()
        place = urllib.parse.urlsplit(start_site(self.desktop, MEDIA)).netloc
        self.command += ["--local-pictures", place]
        self.desktop_services = self.desktop.start(
            sys.executable, str(ROOT / "tests/endtoend/services.py"),
            str(self.folder / "services"), *self.missing_services, stderr=None)
        wait_until(self._has_services, "the desktop's services")
        self.start_program()

    def _install_recorder(self):
        """A tool in the home folder that notes how it was called."""
        if preferred := next(filter(os.path.exists, PREFERRED_TOOLS), None):
            raise RuntimeError(f"{preferred} would run instead of the recorder; move it away")
        self.recorder.parent.mkdir(parents=True)
        self.recorder.write_text(
            "#!/usr/bin/python3\nimport json, os, resource, sys\n"
            "if sys.argv[1:] == ['--version']:\n"  # nothing that the user has asked for
            f"    os.execv({REAL_TOOL!r}, [{REAL_TOOL!r}, '--version'])\n"
            f"with open({str(self.folder / 'calls')!r}, 'a') as calls:\n"
            "    environment = open('/proc/self/environ').read().split('\\0')[:-1]\n"
            "    calls.write(json.dumps([sys.argv[1:], sorted(environment)]) + '\\n')\n"
            f"if sys.argv[-1] == {self.fills_disk!r} and '-o' in sys.argv:\n"
            "    resource.setrlimit(resource.RLIMIT_FSIZE, (50000, 50000))\n"
            f"os.execv({REAL_TOOL!r}, [{REAL_TOOL!r}] + sys.argv[1:])\n")
        self.recorder.chmod(0o755)

    def start_program(self):
        self.program = self.desktop.start(*self.command, stderr=open(self.folder / "stderr", "ab"))
        self.window = wait_until(lambda: self.desktop.window("Quillon"), "the window")
        self.desktop.resize(self.window, 960, 720)
        self.desktop.run("xdotool", "windowfocus", "--sync", self.window)
        self.see("Paste a YouTube URL...")

    def _has_services(self) -> bool:
        names = self.bus_names()
        return all(name in names for name in SERVICES if name not in self.missing_services)

    def bus_names(self) -> str:
        return self.desktop.run("dbus-send", "--session", "--print-reply",
                                "--dest=org.freedesktop.DBus", "/",
                                "org.freedesktop.DBus.ListNames")

    def close(self):
        self.desktop.close()

    # The window among others

    def window_state(self) -> str:
        return self.desktop.run("xprop", "-id", self.window, "_NET_WM_STATE")

    def is_maximized(self) -> bool:
        return "MAXIMIZED_VERT" in self.window_state()

    def maximize(self):
        """By a double click on its title."""
        place = re.search(r"Absolute upper-left X: *(\d+)\n *Absolute upper-left Y: *(\d+)",
                          self.desktop.run("xwininfo", "-id", self.window))
        self.desktop.run("xdotool", "mousemove", str(int(place[1]) + 300), str(int(place[2]) - 10),
                         "click", "--repeat", "2", "--delay", "60", "1")
        wait_until(self.is_maximized, "the window to be maximized")

    def has_keyboard(self) -> bool:
        """Whether the window itself knows that it is the active one."""
        frame = find(application(), lambda node, _states: node.get_role_name() == "frame")
        frame.clear_cache()
        return frame.get_state_set().contains(Atspi.StateType.ACTIVE)

    def is_in_front(self) -> bool:
        """Whether it is the active one, on the workspace that is shown."""
        active = subprocess.run(["xdotool", "getactivewindow"], env=self.desktop.environment,
                                check=False, stdout=subprocess.PIPE,
                                stderr=subprocess.DEVNULL).stdout.decode().strip()
        return active == self.window

    # What was recorded

    def calls(self) -> list:
        file = self.folder / "calls"
        return [json.loads(line) for line in file.read_text().splitlines()] if file.exists() else []

    def services(self, method: str) -> list:
        file = self.folder / "services"
        lines = file.read_text().splitlines() if file.exists() else []
        return [call["arguments"] for call in map(json.loads, lines) if call["method"] == method]

    def history(self) -> list:
        file = self.desktop.home / ".config/quillon/preferences.json"
        if not file.exists():
            return []
        blob = json.loads(file.read_text()).get("quillon.history.v2")
        return json.loads(blob["utf8"]) if blob else []

    def complaints(self) -> str:
        """What the program said on standard error; machines without a sound card
        or a video decoder make the libraries for these talk, and the toolkit of newer
        releases tells when it is asked for a control that has just gone."""
        lines = (self.folder / "stderr").read_text(errors="replace").splitlines()
        machine = re.compile(r"ALSA lib|\[[EW]\]\[[\d.:]+\] pw\.|Failed to open VDPAU|libva|"
                             r"qt\.accessibility\.atspi: Could not find accessible on path")
        return "\n".join(line for line in lines if not machine.match(line))

    def tools(self) -> list[int]:
        """The process numbers of the tool and its ffmpeg that run for this home."""
        found = []
        for process in pathlib.Path("/proc").glob("[0-9]*"):
            try:
                environment = (process / "environ").read_bytes()
                command = (process / "cmdline").read_bytes()
                state = (process / "stat").read_text().rpartition(")")[2].split()[0]
            except OSError:
                continue
            if f"HOME={self.desktop.home}".encode() in environment and state != "Z" \
                    and (b"yt-dlp" in command or b"ffmpeg" in command):
                found.append(int(process.name))
        return found

    # Seeing

    def look_for(self, name: str, enabled: bool = True, row: str | None = None):
        """The control with this name that is shown now, or nothing; in the row whose
        name begins so, if one is given."""
        def is_available(node):
            node.clear_cache()  # nobody is told that a description has changed
            return node.get_description() != "Unavailable"

        def matches(node, states):
            return node.get_name() == name and node.get_role_name() != "menu bar" \
                and states.contains(Atspi.StateType.SHOWING) \
                and (not enabled or is_available(node))

        place = application()
        if place and row:
            place = find(place, lambda node, _states: node.get_role_name() == "list item"
                         and node.get_name().startswith(row))
        return find(place, matches) if place else None

    def background(self) -> str:
        """The colour of the window where there is nothing on it."""
        pixel = self.desktop.run("import", "-window", self.window, "-crop", "1x1+4+640",
                                 "-depth", "8", "txt:-")
        return re.search(r"#[0-9A-F]{6}", pixel)[0]

    def see_progress(self):
        """A download that has reported how far it is."""
        def matches(node, _states):
            return node.get_name().endswith("%") and node.get_role_name() == "progress bar" \
                and node.get_name() != "Download 0%"

        wait_until(lambda: find(application(), matches), "progress")

    def see(self, name: str, seconds: float = 60, enabled: bool = True, row: str | None = None):
        due = time.monotonic() + 5

        def look():
            nonlocal due
            if time.monotonic() > due and (window := application()):
                # The library may have missed that something is shown, and never asks again.
                window.clear_cache()
                due += 5
            return self.look_for(name, enabled, row)

        try:
            return wait_until(look, f"“{name}”", seconds)
        except TimeoutError as error:
            raise TimeoutError(f"{error}; instead there are {accessibility.shown()}; the tool was called "
                               f"with {[call for call, _environment in self.calls()]}, and "
                               f"{len(self.tools())} of its processes run") from error

    def see_row(self, title: str, rest: str):
        """A row of this title, with what it tells besides (a regular expression)."""
        def matches(node, _states):
            return node.get_role_name() == "list item" \
                and re.match(re.escape(title) + ", " + rest, node.get_name())

        return wait_until(lambda: find(application(), matches), f"“{title}, {rest}”")

    def listen_for_alerts(self):
        """A screen reader's ear: what it returns tells the names of the alerts that have
        been shown since."""
        heard = []

        def take(event):
            if event.detail1 and event.source.get_role() == Atspi.Role.ALERT:
                heard.append(event.source.get_name())

        def hear() -> list[str]:
            while GLib.MainContext.default().iteration(False):
                pass
            return heard

        self.listener = Atspi.EventListener.new(take)
        self.listener.register("object:state-changed:showing")
        return hear

    def text_of(self, name: str) -> str:
        """What stands in the field with this name."""
        field = self.see(name)
        return Atspi.Text.get_text(field, 0, Atspi.Text.get_character_count(field))

    # Acting

    def click(self, name: str, row: str | None = None):
        control = self.see(name, row=row)
        # It may still be moving to its place, or be below the edge of the window.
        place = None
        while place != (place := accessibility.middle_of(control)) \
                or self._turns_wheel_for(place, accessibility.is_in_bar(control)):
            self.desktop.run("sleep", "0.1")
        self.desktop.run("xdotool", "mousemove", str(place[0]), str(place[1]), "click", "1")

    def hover(self, name: str):
        """Over a control, or over the row whose name begins so."""
        def matches(node, _states):
            return node.get_name() == name or node.get_name().startswith(name + ", ")

        place = accessibility.middle_of(wait_until(lambda: find(application(), matches), name))
        self.desktop.run("xdotool", "mousemove", str(place[0]), str(place[1]))

    def _turns_wheel_for(self, place, is_in_bar: bool) -> bool:
        geometry = dict(line.split("=") for line in self.desktop.run(
            "xdotool", "getwindowgeometry", "--shell", self.window).splitlines())
        left, top, height = (int(geometry[key]) for key in ("X", "Y", "HEIGHT"))
        edge = 40 if is_in_bar or not accessibility.bar() else 90  # a bar lies over the page
        if place[1] < top + height - edge:
            return False
        self.desktop.run("xdotool", "mousemove", str(left + 8), str(top + height - 60),
                         "click", "5")
        return True

    def tab_to(self, name: str, key: str = "Tab"):
        """Goes to the control whose name is this, or of a row begins so."""
        for _step in range(40):
            if (current := focused()) == name or current.startswith(name + ", "):
                return
            self.desktop.keys(key)
        raise AssertionError(f"Tab does not reach “{name}”; it is at “{focused()}”")
