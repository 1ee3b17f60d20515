#!/usr/bin/env python3
# SPDX-FileCopyrightText: the Kelmar developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""Makes the first inputs of the fuzzers: fuzz/seeds.py FOLDER

The samples of the tests go in as they are. Of each ECU file of the site there are a few small ones:
some of its requests, devices, screens and identifications, and the data that these name, cut out of
the text so that everything else stays byte for byte.
"""

import hashlib
import random
import re
import sys
import xml.parsers.expat
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
LARGEST = 16_000
LISTS = {"AutoIdents": 3, "Requests": 3, "Devices": 2, "ds:Categories": 1}
NAMED = re.compile(rb'(?:Name|FreezeFrame|Snapshot)="([^"]*)"|<StoredFlag>([^<]*)<|<PresentFlag>([^<]*)<')


def members_of(text):
    """For each list of the target its members: pairs of positions in the text."""
    parser = xml.parsers.expat.ParserCreate()
    path, members, starts = [], {}, []

    def start(name, _):
        path.append(name)
        starts.append(parser.CurrentByteIndex)

    def end(name):
        begin = starts.pop()
        path.pop()
        if len(path) == 3 and path[1] == "zem:Target":
            # The event of an empty element stands at its start, that of an end tag at its "<".
            stop = text.index(b">", parser.CurrentByteIndex) + 1
            members.setdefault(path[2], []).append((begin, stop))

    parser.StartElementHandler = start
    parser.EndElementHandler = end
    parser.Parse(text, True)
    return members


def name_of(fragment):
    found = re.match(rb'<[\w:]+ Name="([^"]*)"', fragment)
    return found.group(1) if found else None


def cut(text, members, rng):
    """The file without most of its members; none when it is too large all the same."""
    kept = set()
    for name, count in LISTS.items():
        small = [m for m in members.get(name, ()) if m[1] - m[0] <= LARGEST // 3]
        if small:
            first = rng.randrange(len(small))
            kept.update(small[first:first + count])
    named = {name for begin, stop in kept for groups in NAMED.findall(text[begin:stop])
             for name in groups if name}
    for name in ("Datas", "Requests"):
        kept.update(m for m in members.get(name, ()) if name_of(text[m[0]:m[1]]) in named)
    parts, at = [], 0
    for begin, stop in sorted(m for ms in members.values() for m in ms):
        if (begin, stop) in kept or text[begin:begin + 5] == b"<CANI":
            continue
        parts.append(text[at:begin])
        at = stop
    result = b"".join(parts) + text[at:]
    return result if len(result) <= LARGEST else None


def seeds():
    for folder in ("good", "broken", "encodings"):
        for file in sorted((ROOT / "tests/data" / folder).glob("*.xml")):
            yield file.read_bytes()
    for file in sorted((ROOT / "site/vehicles").rglob("*.xml")):
        text = file.read_bytes()
        if len(text) <= LARGEST:
            yield text
            continue
        members = members_of(text)
        rng = random.Random(file.name)
        for _ in range(4):
            if small := cut(text, members, rng):
                yield small


def main():
    if len(sys.argv) != 2:
        sys.exit("seeds.py FOLDER")
    folder = Path(sys.argv[1])
    folder.mkdir(parents=True, exist_ok=True)
    for seed in seeds():
        (folder / hashlib.sha1(seed).hexdigest()).write_bytes(seed)


if __name__ == "__main__":
    main()
