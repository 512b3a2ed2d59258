#!/usr/bin/python3
"""Reads music files with mutagen, independently of the tag library in use, and tells what a song
record has to show. Standard input: a JSON list of paths. Standard output: a JSON list of objects.

"song"    the record's fields, for an mp3 only
"frames"  every ID3v2 frame as [id, content], in file order, under the name that version 2.4 has
"audio"   the MD5 of the bytes between the tags (mp3) or of the audio packets (others)
"error"   mutagen refused the file
"""

import base64
import hashlib
import io
import json
import re
import subprocess
import sys

import mutagen
from mutagen import apev2, id3
from mutagen._constants import GENRES

V22_NAMES = {
    cls.__name__: cls.__base__.__name__
    for cls in vars(id3).values()
    if isinstance(cls, type) and issubclass(cls, id3.Frame) and len(cls.__name__) == 3
}


class AllFrames(id3.ID3):
    """Keeps frames of the same kind side by side, where mutagen would join them."""

    def _add(self, frame, strict):
        self.__dict__.setdefault("in_order", []).append(frame)


def leading_int(text):
    match = re.match(r"\s*([+-]?\d+)", text)
    return int(match.group(1)) if match else 0


def until_nul(text):
    return text.split("\0")[0]


def frame_name(frame):
    name = type(frame).__name__
    if name in ("IPLS", "IPL"):
        return "TIPL"
    return V22_NAMES.get(name, name) if len(name) == 3 else name


def tag_areas(data):
    """The byte ranges of the audio, and those of APE and ID3v1 at the end."""
    start = 0
    while data[start:start + 3] == b"ID3" and len(data) >= start + 10:
        size = 0
        for byte in data[start + 6:start + 10]:
            size = size << 7 | byte & 0x7F
        start += 10 + size + (10 if data[start + 5] & 0x10 else 0)
    end = len(data)
    if data[-128:-125] == b"TAG":
        end -= 128
    footer = data[end - 32:end]
    if footer[:8] == b"APETAGEX":
        size = int.from_bytes(footer[12:16], "little")
        end -= size + (32 if footer[23] & 0x80 else 0)
    return start, end


class Id3:
    """The frames of the tag at the start of the file, unconverted but for their names."""

    def __init__(self, data):
        self.frames = []
        self.unknown = []
        self.version = []
        # mutagen refuses a file that ends inside its tag; what is there counts.
        missing = max(0, tag_areas(data)[0] - len(data)) if data[:3] == b"ID3" else 0
        try:
            tag = AllFrames(io.BytesIO(data + bytes(missing)), translate=False, load_v1=False)
        except id3.ID3NoHeaderError:
            return
        self.version = list(tag.version)
        self.unknown = [list(entry) if isinstance(entry, tuple) else entry
                        for entry in tag.unknown_frames]
        self.frames = [(frame_name(f), f) for f in tag.__dict__.get("in_order", [])]

    def all(self, name):
        return [frame for known, frame in self.frames if known == name]

    def text(self, *names):
        """Every entry of the first frame's list, joined by blanks; empty entries don't count."""
        for name in names:
            for frame in self.all(name):
                return " ".join(until_nul(str(t)) for t in frame.text if str(t))
        return ""

    def comment(self):
        comments = self.all("COMM")
        plain = [c for c in comments if c.desc == ""]
        for frame in (plain or comments)[:1]:
            return until_nul(frame.text[0]) if frame.text else ""
        return ""

    def genre(self):
        """Numbers, alone or in brackets, stand for names; each name counts once. What else
        stands in leading brackets is no name: version 2.3 has references there."""
        names = []
        for frame in self.all("TCON")[:1]:
            for text in frame.text:
                for part in self.genre_parts(text):
                    name = genre_name(part)
                    if name and name not in names:
                        names.append(name)
        return " ".join(names)

    def genre_parts(self, text):
        parts = []
        while self.version < [2, 4] and (match := re.match(r"\(([^)]*)\)(.*)$", text, re.S)):
            code, text = match.groups()
            if code in ("RX", "CR") or (re.fullmatch(r"\d+", code) and genre_name(code) != text):
                parts.append(code)
        return parts + [text]

    def user(self, key):
        for wanted in (key, key.upper()):
            for frame in self.all("TXXX"):
                if frame.desc == wanted:
                    return until_nul(frame.text[0]) if frame.text else ""
        return ""


def genre_name(text):
    if re.fullmatch(r"\d+", text) and int(text) <= 255:
        return GENRES[int(text)] if int(text) < len(GENRES) else ""
    return text


class Ape:
    def __init__(self, path):
        try:
            self.tag = apev2.APEv2(path)
        except mutagen.MutagenError:
            self.tag = {}

    def text(self, key):
        value = self.tag.get(key)
        return " ".join(value) if isinstance(value, apev2.APETextValue) else ""


class Id3v1:
    def __init__(self, data):
        block = data[-128:]
        self.block = block if block[:3] == b"TAG" and len(block) == 128 else None

    def raw(self, begin, length):
        return until_nul(self.block[begin:begin + length].decode("latin-1")) if self.block else ""

    def part(self, begin, length):
        return self.raw(begin, length).strip(" \t\n\f\r")

    def comment(self):
        """Blanks count in the longer comment of version 1.0."""
        return self.part(97, 28) if self.track() else self.raw(97, 30)

    def track(self):
        return self.block[126] if self.block and self.block[125] == 0 else 0

    def genre(self):
        number = self.block[127] if self.block else 255
        return GENRES[number] if number < len(GENRES) else ""


def positions(tag):
    entries = []
    for frame in tag.all("SYLT")[:1]:
        for text, time in frame.text:
            fields = until_nul(text).split("\t")
            part, steps = fields[:2] if len(fields) > 1 else ("", fields[0])
            entries.append([time - (1 << 32) if time >= 1 << 31 else time, part, steps])
    return entries


def bpm(tag):
    frames = tag.all("TBPM")
    text = until_nul(str(frames[0].text[0])) if frames and frames[0].text else ""
    try:
        return str(int(float(text.replace(",", "."))))
    except ValueError:
        return "0"


def number(text, default):
    return text.replace(",", ".") or default


def song(tag, ape, v1):
    first = lambda *values: next((v for v in values if v), values[-1])
    year = first(leading_int(tag.text("TDRC", "TYER")[:4]), leading_int(ape.text("Year")),
                 leading_int(v1.part(93, 4)))
    track = first(leading_int(tag.text("TRCK")), leading_int(ape.text("Track")), v1.track())
    popm = tag.all("POPM")
    version = leading_int(tag.user("Version"))
    late = 800 if version < 2 else 0
    return {
        "artist": first(tag.text("TPE1"), ape.text("Artist"), v1.part(33, 30)),
        "album": first(tag.text("TALB"), ape.text("Album"), v1.part(63, 30)),
        "comment": first(tag.comment(), ape.text("Comment"), v1.comment()),
        "genre": first(tag.genre(), ape.text("Genre"), v1.genre()),
        "title": first(tag.text("TIT2"), ape.text("Title"), v1.part(3, 30)),
        "tracknum": str(track) if track else "",
        "year": str(year),
        "bpm": bpm(tag),
        "rating": popm[0].rating if popm else 0,
        "positions": [[time - late, part, steps] for time, part, steps in positions(tag)],
        "song_id": tag.user("SongId"),
        "tempo": number(tag.user("LastTempo"), "0.0"),
        "pitch": number(tag.user("LastPitch"), "0.0"),
        "volume": number(tag.user("LastVolume"), "1.0"),
        "level": tag.user("CloggingLevel"),
        "choreographer": tag.user("Choreographer"),
        "adapted_by": tag.user("AdaptedBy"),
        "cue_owner": tag.user("CueOwner"),
        "version": version,
        "iswc_id": tag.user("ISWC"),
    }


def plain(value):
    if isinstance(value, bytes):
        return base64.b64encode(value).decode()
    if isinstance(value, (list, tuple)):
        return [plain(v) for v in value]
    if isinstance(value, id3.Frame):
        return [frame_name(value), content(value)]
    if hasattr(value, "values") and not isinstance(value, str):
        return [plain(v) for v in value.values()]
    if value is None or isinstance(value, (str, int, float)):
        return value
    return str(value)


def without_end(value):
    """A list of texts without the empty ones behind it: a terminator more or less."""
    while isinstance(value, list) and value and value[-1] == "":
        value = value[:-1]
    return value


def content(frame):
    if isinstance(frame, id3.PIC):
        frame = id3.APIC(mime={"JPG": "image/jpeg", "PNG": "image/png"}.get(frame.mime, frame.mime),
                         type=frame.type, desc=frame.desc, data=frame.data)
    specs = list(frame._framespec) + list(frame._optionalspec)
    return {spec.name: without_end(plain(getattr(frame, spec.name, None))) for spec in specs
            if spec.name != "encoding"}


def dump_mp3(path):
    with open(path, "rb") as file:
        data = file.read()
    tag = Id3(data)
    start, end = tag_areas(data)
    return {
        "song": song(tag, Ape(path), Id3v1(data)),
        "frames": [[name, content(frame)] for name, frame in tag.frames]
        + [["unknown", plain(entry)] for entry in tag.unknown],
        "version": tag.version,
        "id3v1": Id3v1(data).block is not None,
        "id3v1_title": Id3v1(data).part(3, 30),
        "ape": sorted((k, str(v)) for k, v in Ape(path).tag.items()),
        "audio": hashlib.md5(data[start:end]).hexdigest(),
    }


def dump_other(path):
    file = mutagen.File(path)
    if file is None:
        raise mutagen.MutagenError("no reader")
    tags = {key: plain(value) for key, value in dict(file.tags or {}).items()}
    pictures = [hashlib.md5(p.data).hexdigest() for p in getattr(file, "pictures", [])]
    audio = subprocess.run(["ffmpeg", "-v", "error", "-i", "file:" + path, "-map", "0:a", "-c",
                            "copy", "-f", "md5", "-"], capture_output=True, text=True)
    return {"tags": tags, "pictures": pictures, "audio": audio.stdout.strip()}


def dump(path):
    try:
        return dump_mp3(path) if path.lower().endswith((".mp3", ".mp2", ".id3")) \
            else dump_other(path)
    except Exception as error:
        return {"error": f"{type(error).__name__}: {error}"}


if __name__ == "__main__":
    paths = json.load(io.TextIOWrapper(sys.stdin.buffer, "utf-8"))
    json.dump([dump(path) for path in paths], sys.stdout)
