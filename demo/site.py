#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""A video site of the project's own on 127.0.0.1.

Installs the extractor plug-in into a home folder, so that the tool takes the
URLs of the real site from here when it runs with that home, and serves
until it is ended. Prints its URL when it is ready.
"""

import argparse
import http.server
import json
import mimetypes
import pathlib
import shutil
import sys
import time
import urllib.parse

import scenarios
from media import ensure_media

HERE = pathlib.Path(__file__).parent
CHUNK = 16384


def install_plugin(home: pathlib.Path, url: str) -> None:
    folder = home / ".config/yt-dlp/plugins/quillon/yt_dlp_plugins/extractor"
    folder.mkdir(parents=True, exist_ok=True)
    shutil.copy(HERE / "plugin/quillon_site.py", folder)
    (home / ".config/quillon-site").write_text(url)


class Handler(http.server.BaseHTTPRequestHandler):
    protocol_version = "HTTP/1.1"
    media: pathlib.Path

    @property
    def base(self) -> str:
        return f"http://127.0.0.1:{self.server.server_address[1]}"

    def log_message(self, *_arguments) -> None:
        pass

    def do_GET(self) -> None:
        url = urllib.parse.urlsplit(self.path)
        query = dict(urllib.parse.parse_qsl(url.query))
        try:
            if url.path.startswith("/api/"):
                self.send_api(url.path.removeprefix("/api/"), query)
            elif url.path.startswith("/media/"):
                self.send_media(self.media / pathlib.Path(url.path).name, query)
            else:
                self.send_error(404)
        except (BrokenPipeError, ConnectionResetError):
            self.close_connection = True

    do_HEAD = do_GET

    def send_api(self, what: str, query: dict) -> None:
        offers = {"video": scenarios.video, "playlist": scenarios.playlist,
                  "search": scenarios.search}
        try:
            answer = offers[what](query["id"], self.base)
        except scenarios.Refused as refusal:
            answer = {"refused": str(refusal)}
        self.send_bytes(json.dumps(answer).encode(), "application/json")

    def send_bytes(self, body: bytes, kind: str) -> None:
        self.send_response(200)
        self.send_header("Content-Type", kind)
        self.send_header("Content-Length", str(len(body)))
        self.end_headers()
        if self.command != "HEAD":
            self.wfile.write(body)

    def send_media(self, path: pathlib.Path, query: dict) -> None:
        if query.get("status") or not path.exists():
            self.send_error(int(query.get("status", 404)))
            return
        body = path.read_bytes()
        start = 0
        # A server that gives no length cannot resume either.
        wanted = self.headers.get("Range") if query.get("length") != "no" else None
        if wanted and wanted.startswith("bytes="):
            first, _, last = wanted.removeprefix("bytes=").partition("-")
            start, end = int(first or 0), min(int(last or len(body) - 1), len(body) - 1)
            if start >= len(body):
                self.send_error(416)
                return
            self.send_response(206)
            self.send_header("Content-Range", f"bytes {start}-{end}/{len(body)}")
            body = body[start:end + 1]
        else:
            self.send_response(200)
        self.send_header("Content-Type", mimetypes.guess_type(path.name)[0] or "application/octet-stream")
        if query.get("length") == "no":
            self.send_header("Connection", "close")
            self.close_connection = True
        else:
            self.send_header("Accept-Ranges", "bytes")
            self.send_header("Content-Length", str(len(body)))
        self.end_headers()
        if self.command != "HEAD":
            self.send_body(body, query)

    def send_body(self, body: bytes, query: dict) -> None:
        rate = int(query.get("rate", 0))
        if "drop" in query and len(body) > int(query["drop"]):
            self.wfile.write(body[:int(query["drop"])])
            self.close_connection = True
            return
        chunk = max(1, rate // 10) if rate else CHUNK
        for position in range(0, len(body), chunk):
            self.wfile.write(body[position:position + chunk])
            self.wfile.flush()
            if rate:
                time.sleep(0.1)


class Server(http.server.ThreadingHTTPServer):
    daemon_threads = True

    def handle_error(self, request, client_address) -> None:
        if not isinstance(sys.exc_info()[1], ConnectionError):  # a tool that was killed
            super().handle_error(request, client_address)


def main() -> None:
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--home", type=pathlib.Path, required=True,
                        help="the home folder that the tool will run with")
    parser.add_argument("--media", type=pathlib.Path, required=True,
                        help="where the media files are kept between runs")
    arguments = parser.parse_args()
    mimetypes.add_type("image/webp", ".webp")
    Handler.media = ensure_media(arguments.media)
    server = Server(("127.0.0.1", 0), Handler)
    url = f"http://127.0.0.1:{server.server_address[1]}"
    install_plugin(arguments.home, url)
    print(url, flush=True)
    try:
        server.serve_forever()
    except KeyboardInterrupt:
        sys.exit(0)


if __name__ == "__main__":
    main()
