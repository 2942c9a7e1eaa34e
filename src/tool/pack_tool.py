# SPDX-License-Identifier: GPL-3.0-or-later
"""Makes a release of the tool start fast: the same zip, with compiled modules beside
the sources. Python would else compile the whole tool anew at every start.

    pack_tool.py RELEASE TARGET MARK

Prints how far it is, in percent, a line each. Exit codes: 3, the release is no zip;
4, there is no room on the disk.
"""

import errno
import importlib.util
import sys
import zipfile
from importlib._bootstrap_external import _code_to_hash_pyc

SHEBANG = b"#!/usr/bin/env python3\n"
NO_ZIP, NO_ROOM = 3, 4
MOST_BYTES = 200_000_000  # unpacked; releases have about 10 million
FULL = (errno.ENOSPC, errno.EDQUOT, errno.EFBIG)


def compiled(source: bytes, name: str) -> bytes:
    """Valid whatever the source's time or content: the time in a zip is local, and a
    changed time zone would make every module compile again. Another Python does not
    take it and reads the source."""
    code = compile(source, name, "exec", dont_inherit=True)
    return bytes(_code_to_hash_pyc(code, importlib.util.source_hash(source), checked=False))


def pack(release: zipfile.ZipFile, target: zipfile.ZipFile) -> None:
    entries = [entry for entry in release.infolist() if not entry.is_dir()]
    for number, entry in enumerate(entries, 1):
        source = release.read(entry)
        target.writestr(entry, source, zipfile.ZIP_DEFLATED)
        if entry.filename.endswith(".py"):
            try:
                module = compiled(source, entry.filename)
            except (SyntaxError, ValueError):
                continue  # never imported, or it fails as it would have failed
            # Not deflated, since these are what a start reads.
            target.writestr(zipfile.ZipInfo(entry.filename + "c", entry.date_time), module)
        print(number * 100 // len(entries), flush=True)


def main() -> int:
    release_path, target_path, mark = sys.argv[1:]
    try:
        with zipfile.ZipFile(release_path) as release:
            if sum(entry.file_size for entry in release.infolist()) > MOST_BYTES:
                return NO_ZIP
            with open(target_path, "wb") as file:
                file.write(SHEBANG)
                with zipfile.ZipFile(file, "w") as target:
                    pack(release, target)
                    target.comment = mark.encode()
    except zipfile.BadZipFile:
        return NO_ZIP
    except OSError as error:
        if error.errno in FULL:
            return NO_ROOM
        raise
    return 0


if __name__ == "__main__":
    sys.exit(main())
