#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Takes the figures of docs/performance.md, each beside what it is compared with.

Works on a virtual display, with the benchmark build, and prints one line a figure.
"tool RELEASE" takes a release of yt-dlp, in its zip form, and needs no build.
"""

import os
import pathlib
import re
import select
import statistics
import subprocess
import sys
import tempfile
import time

ROOT = pathlib.Path(__file__).resolve().parents[1]
sys.path.insert(0, str(ROOT / "demo"))

from desktop import Desktop, start_site, wait_until  # noqa: E402
from scenarios import WATCH  # noqa: E402

BUILD = ROOT / "build/benchmark"
QUILLON = BUILD / "src/quillon"
EMPTY = BUILD / "benchmarks/EmptyWindow"
ROUNDS = 9
STARTS = 25  # single ones differ by a third
FRAMES = {"QT_LOGGING_RULES": "qt.scenegraph.time.renderloop=true",
          "QT_MESSAGE_PATTERN": "%{time hhmmss.zzz} %{message}"}


def watch(desktop: Desktop, program: pathlib.Path, *arguments: str):
    """The program with a line on standard error for each frame."""
    log = tempfile.NamedTemporaryFile(mode="r+", prefix="quillon-frames-")
    silent = dict(desktop.environment)
    desktop.environment |= FRAMES
    process = desktop.start(str(program), *arguments, stderr=log.fileno())
    desktop.environment = silent
    return process, pathlib.Path(log.name), log


def frames(log: pathlib.Path) -> list[float]:
    return [float(found[1]) for line in log.read_text(errors="replace").splitlines()
            if (found := re.match(r"\s*([\d.]+) .*frame rendered", line, re.I))]


def pictures(desktop: Desktop) -> list[str]:
    """What lets the program show those of the local video site."""
    site = (desktop.home / ".config/quillon-site").read_text()
    return ["--local-pictures", site.removeprefix("http://")]


def start_of(desktop: Desktop, program: pathlib.Path) -> tuple[float, float]:
    """Seconds to the first frame, and the memory (PSS, MB) a second later."""
    began = now_of_day()
    process, path, log = watch(desktop, program)
    with log:
        first = of_day(wait_until(lambda: frames(path), "a frame")[0]) - began
        time.sleep(1)
        rollup = pathlib.Path(f"/proc/{process.pid}/smaps_rollup").read_text()
        process.terminate()
        process.wait()
    return first, int(re.search(r"^Pss:\s+(\d+)", rollup, re.M)[1]) / 1024


def compare_starts(desktop: Desktop, renderer: str) -> None:
    # The first of two starts is the slower one, whichever it is.
    starts = [{program: start_of(desktop, program)
               for program in ((QUILLON, EMPTY) if round_ % 2 else (EMPTY, QUILLON))}
              for round_ in range(STARTS)]
    for index, what, unit in ((0, "start to first frame", "s"), (1, "memory at first frame", "MB")):
        ours = statistics.median(each[QUILLON][index] for each in starts)
        empty = statistics.median(each[EMPTY][index] for each in starts)
        print(f"{renderer}: {what}: {ours:.3f} {unit}, a window with a line of text {empty:.3f} {unit}, "
              f"ratio {ours / empty:.2f}", flush=True)


def processor_time(pid: int) -> float:
    fields = pathlib.Path(f"/proc/{pid}/stat").read_text().rpartition(")")[2].split()
    return (int(fields[11]) + int(fields[12])) / os.sysconf("SC_CLK_TCK")


def start_slow_download(desktop: Desktop):
    process, _path, log = watch(desktop, QUILLON, *pictures(desktop))
    window = wait_until(lambda: desktop.window("Quillon"), "the window")
    time.sleep(1)
    desktop.type(WATCH + "slow")
    desktop.keys("Return")
    time.sleep(4)
    desktop.keys("ctrl+d")
    wait_until(lambda: any((desktop.home / "Downloads").glob("*.part")), "the download")
    return process, window, log


def measure_download(desktop: Desktop, renderer: str, hidden: bool) -> None:
    process, window, log = start_slow_download(desktop)
    with log:
        if hidden:
            desktop.run("xdotool", "windowminimize", window)
            time.sleep(1)
        before, began = processor_time(process.pid), time.monotonic()
        time.sleep(60)
        share = (processor_time(process.pid) - before) / (time.monotonic() - began)
        process.terminate()
        process.wait()
    for part in (desktop.home / "Downloads").glob("*"):
        part.unlink()
    shown = "minimized, so without rendering" if hidden else "shown"
    print(f"{renderer}: processor time during a 60 s download, {shown}: {share:.2%} of one core",
          flush=True)


def entering(times: list[float]) -> float:
    """The first frame of something that fades in: others follow at once, while a
    spinner draws one every tenth of a second."""
    return next(frame for frame, third in zip(times, times[3:]) if third - frame < 0.09)


def measure_card(desktop: Desktop) -> None:
    """From the end of the tool to the first frame of the card."""
    process, path, log = watch(desktop, QUILLON, *pictures(desktop))
    with log:
        wait_until(lambda: desktop.window("Quillon"), "the window")
        time.sleep(1)
        delays = []
        for round_ in range(ROUNDS):
            desktop.keys("ctrl+a")
            desktop.type(f"{WATCH}bulk{round_:04}")
            time.sleep(1)  # for what the field animates
            desktop.keys("Return")
            ended = end_of_tool(desktop.home)
            time.sleep(1)
            after = [frame - ended for frame in map(of_day, frames(path)) if frame >= ended]
            delays.append((entering(after), after.index(entering(after)) + 1))
        process.terminate()
        process.wait()
    print(f"from the tool's end to the first frame with the card: "
          f"{statistics.median(delay for delay, _ in delays) * 1000:.0f} ms; "
          f"it is frame {statistics.median(number for _, number in delays):.0f} behind the end",
          flush=True)


def now_of_day() -> float:
    now = time.time()
    local = time.localtime(now)
    return local.tm_hour * 3600 + local.tm_min * 60 + local.tm_sec + now % 1


def of_day(stamp: float) -> float:
    whole = int(stamp)
    return whole // 10000 * 3600 + whole // 100 % 100 * 60 + whole % 100 + stamp % 1


def end_of_tool(home: pathlib.Path) -> float:
    """When the tool that runs for this home ends, in seconds of the day."""
    def tool():
        for process in pathlib.Path("/proc").glob("[0-9]*"):
            try:
                if b"--dump-json" in (process / "cmdline").read_bytes() \
                        and f"HOME={home}".encode() in (process / "environ").read_bytes():
                    return int(process.name)
            except OSError:
                pass
        return None

    descriptor = os.pidfd_open(wait_until(tool, "the tool"))
    select.select([descriptor], [], [])
    now = now_of_day()
    os.close(descriptor)
    return now


def measure_parser(desktop: Desktop) -> None:
    recorded = desktop.home / "recorded"
    with recorded.open("wb") as output:
        for video in ("boat", "steady", "progressive", "fragmented", "nolength"):
            subprocess.run(["yt-dlp", "--newline", "--no-playlist", "-f",
                            "bestvideo[height<=720]+bestaudio/best[height<=720]",
                            "--merge-output-format", "mp4",
                            "-o", f"{desktop.home}/recorded-files/%(title)s.%(ext)s", WATCH + video],
                           env=desktop.environment, stdout=output, check=True)
    report = desktop.run(str(BUILD / "benchmarks/ParserBenchmark"), str(recorded))
    lines = recorded.read_bytes().count(b"\n")
    print(f"parser, {lines} recorded lines:")
    for line in report.splitlines():
        if "RecordedOutput" in line:
            print("  " + re.sub(r"\s+", " ", line))


def listed(desktop: Desktop, playlist: str, most: int = 5000) -> str:
    """A file with what the tool prints of a playlist."""
    file = desktop.home / f"{playlist}-{most}"
    printed = subprocess.run(["yt-dlp", "--flat-playlist", "--dump-json",
                              f"https://www.youtube.com/playlist?list={playlist}"],
                             env=desktop.environment, stdout=subprocess.PIPE, check=True).stdout
    file.write_bytes(b"".join(printed.splitlines(keepends=True)[:most]))
    return str(file)


def run_benchmark(desktop: Desktop, name: str, *arguments: str) -> None:
    subprocess.run([str(BUILD / "benchmarks" / name), *arguments], env=desktop.environment,
                   check=True)


def measure_lists(desktop: Desktop, renderer: str) -> None:
    """Playlists as the tool prints them, and a long history."""
    print(f"{renderer}:", flush=True)
    run_benchmark(desktop, "ListBenchmark", listed(desktop, "PL12"), listed(desktop, "PL5000"))


def measure_queue(desktop: Desktop, renderer: str) -> None:
    print(f"{renderer}:", flush=True)
    run_benchmark(desktop, "QueueBenchmark", listed(desktop, "PL12"),
                  listed(desktop, "PL5000", 2000))


def measure_run(desktop: Desktop, renderer: str) -> None:
    print(f"{renderer}:", flush=True)
    run_benchmark(desktop, "QueueBenchmark")


def run_player_benchmark(desktop: Desktop, renderer: str, *arguments: str) -> None:
    print(f"{renderer}:", flush=True)
    subprocess.run([str(BUILD / "src/PlayerBenchmark"), *arguments], env=desktop.environment,
                   check=True)


def long_stream(media: pathlib.Path, height: int) -> str:
    """The name of a minute of this height, made at first use."""
    name = f"minute{height}.mp4"
    if not (media / name).exists():
        subprocess.run(["ffmpeg", "-nostdin", "-v", "error", "-y", "-f", "lavfi", "-i",
                        f"testsrc2=size={height * 16 // 9}x{height}:rate=25:duration=60", "-f", "lavfi",
                        "-i", "sine=frequency=440:duration=60", "-c:v", "libx264", "-preset", "veryfast",
                        "-pix_fmt", "yuv420p", "-c:a", "aac", "-movflags", "+faststart",
                        str(media / name)], check=True)
    return name


def bare_player(desktop: Desktop, url: str, size: str = "--geometry=569x320") -> tuple[float, float]:
    """The part of a core and the megabytes (PSS) of a player with the same engine,
    with a picture as large as the panel's."""
    player = desktop.start("mpv", "--no-config", "--vo=x11", "--ao=null", "--hwdec=no", size, url)
    time.sleep(4)
    before, began = processor_time(player.pid), time.monotonic()
    time.sleep(15)
    share = (processor_time(player.pid) - before) / (time.monotonic() - began)
    rollup = pathlib.Path(f"/proc/{player.pid}/smaps_rollup").read_text()
    player.terminate()
    player.wait()
    return share, int(re.search(r"^Pss:\s+(\d+)", rollup, re.M)[1]) / 1024


def compare_players(desktop: Desktop, what: str, url: str, *full: str) -> None:
    for _round in range(3):
        ours = desktop.run(str(BUILD / "src/PlayerBenchmark"), url, *full).split()
        share, memory = bare_player(desktop, url, *("--fullscreen" for _each in full))
        print(f"{what}: {float(ours[0]):.1%} of a core, {ours[1]} MB, {ours[2]} frames/s, "
              f"{ours[3]} MB stay; bare player {share:.1%}, {memory:.1f} MB; ratios "
              f"{float(ours[0]) / share:.2f}, {float(ours[1]) / memory:.2f}", flush=True)


def measure_player(desktop: Desktop, renderer: str, site: str, media: pathlib.Path) -> None:
    for height in (720, 1080):
        compare_players(desktop, f"{renderer}: playing {height}p",
                        f"{site}/media/{long_stream(media, height)}")


def measure_full_screen() -> None:
    media = ROOT / "build/site-media"
    for size in ("1920x1080", "3840x2160"):
        with Desktop(pathlib.Path(tempfile.mkdtemp(prefix="quillon-benchmark-")), size) as desktop:
            url = f"{start_site(desktop, media)}/media/{long_stream(media, 360)}"
            compare_players(desktop, f"llvmpipe: 360p on {size}", url, "full")
            desktop.environment["QT_QUICK_BACKEND"] = "software"
            compare_players(desktop, f"software: 360p on {size}", url, "full")


def cost(desktop: Desktop, *command: str) -> tuple[float, float]:
    """Seconds until the command has ended, and of processor time."""
    began = time.monotonic()
    process = subprocess.Popen(command, env=desktop.environment | {"PATH": "/usr/bin:/bin"}, stdin=subprocess.DEVNULL,
                               stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    _pid, _status, usage = os.wait4(process.pid, 0)
    return time.monotonic() - began, usage.ru_utime + usage.ru_stime


def measure_tool(desktop: Desktop, release: str) -> None:
    """The packaged tool, a release of it, and what the program installs of that release."""
    installed = str(desktop.home / "yt-dlp")
    subprocess.run(["/usr/bin/python3", "-I", str(ROOT / "src/tool/pack_tool.py"), release, installed,
                    "mark"], check=True, stdout=subprocess.DEVNULL)
    os.chmod(installed, 0o755)
    forms = {"packaged": "/usr/bin/yt-dlp", "as released": release, "installed": installed}
    for what, arguments in (("start", ["--version"]),
                            ("refused fetch", ["--dump-json", "--quiet", WATCH + "private"])):
        rounds = [{name: cost(desktop, tool, *arguments) for name, tool in forms.items()}
                  for _ in range(STARTS)]
        base = [statistics.median(each["packaged"][index] for each in rounds) for index in (0, 1)]
        for name in forms:
            ours = [statistics.median(each[name][index] for each in rounds) for index in (0, 1)]
            print(f"tool, {what}, {name}: {ours[0]:.3f} s, {ours[1]:.3f} s of a processor; "
                  f"ratios {ours[0] / base[0]:.2f}, {ours[1] / base[1]:.2f}", flush=True)


def main() -> None:
    if sys.argv[1:2] == ["tool"]:
        with Desktop(pathlib.Path(tempfile.mkdtemp(prefix="quillon-benchmark-"))) as desktop:
            start_site(desktop, ROOT / "build/site-media")
            measure_tool(desktop, sys.argv[2])
        return
    chosen = set(sys.argv[1:]) or {"start", "card", "download", "parser", "lists", "queue", "run",
                                "player", "full", "picture", "idle"}
    if "full" in chosen:
        measure_full_screen()
    with Desktop(pathlib.Path(tempfile.mkdtemp(prefix="quillon-benchmark-"))) as desktop:
        media = ROOT / "build/site-media"
        site = start_site(desktop, media)
        for renderer in ("llvmpipe", "software"):
            if renderer == "software":
                desktop.environment["QT_QUICK_BACKEND"] = "software"
            if "start" in chosen:
                compare_starts(desktop, renderer)
            if "lists" in chosen:
                measure_lists(desktop, renderer)
            if "queue" in chosen:
                measure_queue(desktop, renderer)
            if "run" in chosen:
                measure_run(desktop, renderer)
            if "player" in chosen:
                measure_player(desktop, renderer, site, media)
            if "idle" in chosen:
                run_player_benchmark(desktop, renderer, "idle")
            if "picture" in chosen:
                run_player_benchmark(desktop, renderer)
            if "download" in chosen:
                measure_download(desktop, renderer, hidden=False)
                if renderer == "software":
                    measure_download(desktop, renderer, hidden=True)
        desktop.environment.pop("QT_QUICK_BACKEND")
        if "card" in chosen:
            measure_card(desktop)
        if "parser" in chosen:
            measure_parser(desktop)


if __name__ == "__main__":
    main()
