# SPDX-License-Identifier: GPL-3.0-or-later
"""A server of releases of the tool, signed with a key of its own."""

import hashlib
import http.server
import pathlib
import shutil
import subprocess
import threading
import time
import zipfile

PACKAGED = pathlib.Path("/usr/lib/python3/dist-packages/yt_dlp")


def packed_tool(version: str, target: pathlib.Path) -> bytes:
    """The system's tool in the form of a release, as if it were of this version."""
    with target.open("wb") as file:
        file.write(b"#!/usr/bin/env python3\n")
        with zipfile.ZipFile(file, "w", zipfile.ZIP_DEFLATED) as release:
            for source in sorted(PACKAGED.rglob("*.py")):
                release.write(source, source.relative_to(PACKAGED.parent))
            release.write(PACKAGED / "__main__.py", "__main__.py")
    # In place of its own version, which goes with it.
    lines = [f"__version__ = '{version}'" if line.startswith("__version__") else line
             for line in (PACKAGED / "version.py").read_text().splitlines()]
    return replaced(target, "yt_dlp/version.py", "\n".join(lines) + "\n")


def replaced(path: pathlib.Path, name: str, content: str) -> bytes:
    """The zip with another content of one file."""
    fresh = path.with_suffix(".fresh")
    with zipfile.ZipFile(path) as old, fresh.open("wb") as file:
        file.write(b"#!/usr/bin/env python3\n")
        with zipfile.ZipFile(file, "w", zipfile.ZIP_DEFLATED) as new:
            for entry in old.infolist():
                new.writestr(entry, content if entry.filename == name else old.read(entry))
    return fresh.read_bytes()


class Signer:
    def __init__(self, folder: pathlib.Path):
        self.home = folder / "gnupg"
        self.home.mkdir(mode=0o700)
        self._run("--passphrase", "", "--quick-gen-key", "test@example.org", "ed25519", "sign", "never")
        self.key = folder / "key.asc"
        self._run("--armor", "--output", str(self.key), "--export")

    def sign(self, content: bytes) -> bytes:
        return self._run("--detach-sign", input=content)

    def close(self) -> None:
        subprocess.run(["gpgconf", "--homedir", str(self.home), "--kill", "all"], check=False)
        shutil.rmtree(self.home, ignore_errors=True)

    def _run(self, *arguments: str, **options) -> bytes:
        return subprocess.run(["gpg", "--batch", "--quiet", "--homedir", str(self.home), *arguments],
                              check=True, stdout=subprocess.PIPE, **options).stdout


class Releases:
    """Serves one release until it is closed, the tool at `rate` bytes a second."""

    def __init__(self, folder: pathlib.Path, version: str, rate: int = 0):
        folder.mkdir(parents=True, exist_ok=True)
        self.signer = Signer(folder)
        tool = packed_tool(version, folder / "tool")
        sums = f"{hashlib.sha256(tool).hexdigest()}  yt-dlp\n".encode()
        self.files = {"/yt-dlp": tool, "/SHA2-256SUMS": sums,
                      "/SHA2-256SUMS.sig": self.signer.sign(sums)}
        self.rate = rate
        self.server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), self._handler())
        self.server.daemon_threads = True
        threading.Thread(target=self.server.serve_forever, daemon=True).start()

    @property
    def url(self) -> str:
        return f"http://127.0.0.1:{self.server.server_address[1]}/"

    def close(self) -> None:
        self.server.shutdown()
        self.server.server_close()
        self.signer.close()

    def _handler(self):
        releases = self

        class Handler(http.server.BaseHTTPRequestHandler):
            def log_message(self, *_arguments) -> None:
                pass

            def do_GET(self) -> None:
                body = releases.files.get(self.path)
                if body is None:
                    self.send_error(404)
                    return
                self.send_response(200)
                self.send_header("Content-Length", str(len(body)))
                self.end_headers()
                step = releases.rate // 20 or len(body)
                for position in range(0, len(body), step):
                    self.wfile.write(body[position:position + step])
                    if releases.rate and len(body) > step:
                        time.sleep(0.05)

        return Handler
