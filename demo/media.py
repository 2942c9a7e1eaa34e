# SPDX-License-Identifier: GPL-3.0-or-later
"""The media of the local video site, made by ffmpeg at first use and kept."""

import fcntl
import pathlib
import shutil
import subprocess

SECONDS = 6
HEIGHTS = (360, 720, 1080)


def run_ffmpeg(*arguments: str) -> None:
    subprocess.run(["ffmpeg", "-nostdin", "-v", "error", "-y", *arguments], check=True)


def picture(height: int) -> list[str]:
    width = height * 16 // 9
    return ["-f", "lavfi", "-i", f"testsrc2=size={width}x{height}:rate=25:duration={SECONDS}"]


def sound() -> list[str]:
    return ["-f", "lavfi", "-i", f"sine=frequency=440:duration={SECONDS}"]


VIDEO = ["-c:v", "libx264", "-preset", "ultrafast", "-pix_fmt", "yuv420p"]


def make_files(folder: pathlib.Path) -> None:
    for height in HEIGHTS:
        run_ffmpeg(*picture(height), *VIDEO, "-an", str(folder / f"video{height}.mp4"))
    run_ffmpeg(*sound(), "-c:a", "aac", "-b:a", "128k", str(folder / "audio.m4a"))
    run_ffmpeg(*sound(), "-c:a", "libopus", "-b:a", "96k", str(folder / "audio.webm"))
    run_ffmpeg(*picture(360), *sound(), *VIDEO, "-c:a", "aac", str(folder / "whole360.mp4"))
    run_ffmpeg(*picture(360), *sound(), *VIDEO, "-g", "25", "-c:a", "aac", "-hls_time", "1",
               "-hls_list_size", "0", str(folder / "stream.m3u8"))
    for kind, codec in (("png", "png"), ("jpg", "mjpeg"), ("webp", "libwebp")):
        run_ffmpeg("-f", "lavfi", "-i", "gradients=size=480x270:c0=0x14566a:c1=0x6aa978:x0=0:y0=0:x1=480:y1=270",
                   "-frames:v", "1", "-c:v", codec, str(folder / f"thumbnail.{kind}"))


def ensure_media(folder: pathlib.Path) -> pathlib.Path:
    """The folder with every file in it; made whole or not at all. Who comes while another
    makes it waits for that."""
    folder.parent.mkdir(parents=True, exist_ok=True)
    with open(folder.with_name(folder.name + ".lock"), "w") as lock:
        fcntl.flock(lock, fcntl.LOCK_EX)
        if not folder.exists():
            unfinished = folder.with_name(folder.name + ".unfinished")
            shutil.rmtree(unfinished, ignore_errors=True)
            unfinished.mkdir()
            make_files(unfinished)
            unfinished.rename(folder)
    return folder
