#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""The demonstration: Quillon's main job, offline, against the local video site."""

import argparse
import json
import os
import pathlib
import shutil
import subprocess
import sys
import urllib.parse

from desktop import Desktop, start_site, wait_until
from scenarios import WATCH


def ask_nothing_about_the_tool(desktop: Desktop) -> None:
    """The local site answers a tool of any age, so no notice is wanted."""
    tool = next((path for path in ("/opt/homebrew/bin/yt-dlp", "/usr/local/bin/yt-dlp",
                                   "/usr/bin/yt-dlp") if os.path.exists(path)), None)
    if tool:
        version = desktop.run(tool, "--version").strip()
        preferences = desktop.home / ".config/quillon/preferences.json"
        preferences.parent.mkdir(parents=True, exist_ok=True)
        preferences.write_text(json.dumps({"quillon.toolNotNow": f"{tool} {version}"}))


def tool_runs() -> bool:
    return subprocess.run(["pgrep", "-f", "extractor-args youtube:player_client"],
                          stdout=subprocess.DEVNULL).returncode == 0


def history_of(home: pathlib.Path) -> list[dict]:
    file = home / ".config/quillon/preferences.json"
    if not file.exists():
        return []
    document = json.loads(file.read_text()).get("quillon.history.v2")
    return json.loads(document["utf8"]) if document else []


def do_main_job(desktop: Desktop, window: str) -> dict:
    """What a person would do; returns the history record that comes of it."""
    desktop.run("xdotool", "windowsize", "--sync", window, "960", "720")
    desktop.type(WATCH + "boat")
    desktop.keys("Return")
    wait_until(tool_runs, "the tool to start")
    wait_until(lambda: not tool_runs(), "the video's metadata")
    desktop.run("sleep", "1")  # for the picture
    desktop.keys("ctrl+d")
    history = wait_until(lambda: history_of(desktop.home), "the download", 180)
    desktop.run("sleep", "1")  # for the last frame
    return history[0]


def keep_results(desktop: Desktop, window: str, record: dict, folder: pathlib.Path) -> list[pathlib.Path]:
    video, probe, history, picture = (pathlib.Path(record["savedPath"]), folder / "ffprobe.txt",
                                      folder / "history.json", folder / "screenshot.png")
    probe.write_text(desktop.run("ffprobe", "-v", "error", "-show_entries",
                                 "format=duration:stream=codec_type,codec_name,width,height",
                                 str(video)))
    history.write_text(json.dumps(record, ensure_ascii=False, indent=2) + "\n")
    desktop.screenshot(window, picture)
    return [video, probe, history, picture]


def claim(folder: pathlib.Path) -> None:
    """Makes the folder ours; one that is there and not ours, or only a link, is refused."""
    mark = folder / ".quillon-demonstration"
    if folder.is_symlink() or (folder.exists() and not mark.is_file()):
        sys.exit(f"{folder} is there already and was not made by this demonstration")
    folder.mkdir(parents=True, exist_ok=True)
    mark.touch()


def main() -> None:
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--program", type=pathlib.Path, required=True)
    parser.add_argument("--into", type=pathlib.Path, required=True, help="where the results go")
    arguments = parser.parse_args()
    claim(arguments.into)
    shutil.rmtree(arguments.into / "home", ignore_errors=True)
    display = os.environ.get("DISPLAY") or os.environ.get("WAYLAND_DISPLAY")
    with Desktop(arguments.into / "home", display=display) as desktop:
        print("Starting the local video site; its films are made at the first start", flush=True)
        site = start_site(desktop, pathlib.Path("build/site-media"))
        ask_nothing_about_the_tool(desktop)
        program = desktop.start(str(arguments.program), "--local-pictures",
                                urllib.parse.urlsplit(site).netloc)
        if display:
            print(f"Quillon is open. Paste {WATCH}boat into it; "
                  f"downloads go to {desktop.home}/Downloads", flush=True)
            program.wait()
            return
        window = wait_until(lambda: desktop.window("Quillon"), "the window")
        print(f"Pasting {WATCH}boat, fetching and downloading", flush=True)
        record = do_main_job(desktop, window)
        results = keep_results(desktop, window, record, arguments.into)
        desktop.keys("ctrl+q")
        program.wait(timeout=30)
    print("\nDone. Quillon has left:")
    for path in results:
        print(f"  {path.resolve()}")


if __name__ == "__main__":
    main()
