# SPDX-License-Identifier: GPL-3.0-or-later
"""What the local video site has to offer, by id."""

from media import HEIGHTS, SECONDS

WATCH = "https://www.youtube.com/watch?v="

TITLES = {
    "boat": "Building a wooden boat, day 4: planking the hull",
    "caulking": "Building a wooden boat, day 5: caulking the seams",
    "nocturne": "Nocturne in E-flat major, live recording",
    "bridges": "How bridges carry load",
    "quotes": "She said \"yes\" and 'no'",
    "slashes": "AC/DC \\ back|slash: what? * <b>",
    "emoji": "Sunrise 🌅 over the bay 🎉",
    "rtl": "שלום עולם مرحبا بالعالم",
    "cjk": "街を歩く 東京の朝",
    "percent": "100% of %(title)s in 5%d steps",
    "angles": "a <script>alert(1)</script> & b",
    "long": "long " * 60,
    "likeoutput": "[download]  50.0% of 1.00MiB at 1.00MiB/s ETA 00:01",
}

# How the site serves a video's files; the rest of the ids serve them well, but for those
# that begin with "paced".
SERVING = {
    "steady": "rate=800000",
    "caulking": "rate=800000",
    "bridges": "rate=4000000",
    "slow": "rate=60000",
    "trickle": "rate=20000",
    "missing": "status=404",
    "drop": "drop=65536",
    "nolength": "length=no",
}

THUMBNAILS = {"boat": "png", "nocturne": "jpg", "bridges": "webp"}

PLAYLISTS = {
    "PL3": ["boat", "nocturne", "bridges"],
    "PL5": ["steady", "boat", "caulking", "nocturne", "bridges"],
    "PL12": ["boat", "nocturne", "bridges", "long", "rtl", "cjk", "emoji", "quotes", "percent",
             "slashes", "angles", "caulking"],
    "PL0": [],
    "PLbad": ["boat", "private", "bridges"],
    "PL5000": [f"bulk{number:04}" for number in range(5000)],
}


class Refused(Exception):
    """The site refuses, with a text for the user."""


def public_id(video_id: str) -> str:
    """The id as URLs carry it: the tool wants eleven characters."""
    return video_id.ljust(11, "_")


def title_of(video_id: str) -> str:
    if video_id.startswith("bulk"):
        return f"Bulk video {int(video_id[4:]) + 1}"
    return TITLES.get(video_id, f"Test video {video_id}").strip()


def thumbnails_of(video_id: str, base: str) -> list[dict]:
    kind = THUMBNAILS.get(video_id, "png")
    return [{"url": f"{base}/media/thumbnail.{kind}?id={video_id}", "width": 480, "height": 270}]


def formats_of(video_id: str, base: str) -> list[dict]:
    serving = SERVING.get(video_id, "rate=800000" if video_id.startswith("paced") else "")
    where = lambda name: f"{base}/media/{name}?{serving}"
    whole = {"format_id": "18", "url": where("whole360.mp4"), "ext": "mp4", "height": 360,
             "width": 640, "vcodec": "avc1", "acodec": "mp4a", "tbr": 500}
    if video_id == "noformats":
        return []
    if video_id in ("progressive", "nolength", "missing", "drop", "trickle"):
        return [whole]
    if video_id == "fragmented":
        return [{"format_id": "hls", "url": where("stream.m3u8"), "ext": "mp4", "height": 360,
                 "protocol": "m3u8_native", "vcodec": "avc1", "acodec": "mp4a", "tbr": 500}]
    audio = {"format_id": "140", "url": where("audio.m4a"), "ext": "m4a", "vcodec": "none",
             "acodec": "mp4a", "abr": 128, "tbr": 128}
    opus = {"format_id": "250", "url": where("audio.webm"), "ext": "webm", "vcodec": "none",
            "acodec": "opus", "abr": 96, "tbr": 96}
    videos = [{"format_id": f"v{height}", "url": where(f"video{height}.mp4"), "ext": "mp4",
               "height": height, "width": height * 16 // 9, "vcodec": "avc1", "acodec": "none",
               "tbr": height * 3} for height in HEIGHTS]
    return [opus, audio, whole, *videos]


def video(url_id: str, base: str) -> dict:
    video_id = url_id.rstrip("_")
    if video_id == "private":
        raise Refused("Private video. Sign in if you've been granted access to this video")
    return {
        "id": public_id(video_id),
        "title": title_of(video_id),
        "uploader": "Harbour Workshop",
        "duration": SECONDS,
        "thumbnails": thumbnails_of(video_id, base),
        "formats": formats_of(video_id, base),
    }


def entry(video_id: str, base: str) -> dict:
    return {"_type": "url", "url": WATCH + public_id(video_id), "id": public_id(video_id), "title": title_of(video_id),
            "duration": float(SECONDS), "thumbnails": thumbnails_of(video_id, base),
            "uploader": "Harbour Workshop"}


def playlist(playlist_id: str, base: str) -> dict:
    if playlist_id not in PLAYLISTS:
        raise Refused("The playlist does not exist.")
    return {"id": playlist_id, "title": f"The playlist {playlist_id}",
            "entries": [entry(video_id, base) for video_id in PLAYLISTS[playlist_id]]}


def search(query: str, base: str) -> dict:
    if "nothing" in query:
        found = []
    elif "missing" in query:
        found = ["missing", "drop"]
    elif query.startswith("paced"):
        found = [query]
    else:
        found = list(TITLES)
    return {"id": query, "title": query, "entries": [entry(video_id, base) for video_id in found]}
