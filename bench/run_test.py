#!/usr/bin/env python3
# SPDX-FileCopyrightText: the Kelmar developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""run_test.py BUILD   runs the short form of the measurements and looks for every row."""

import json
import re
import subprocess
import sys
import tempfile
from pathlib import Path

ROWS = (
    r"load against Expat, 0\.2 MB", r"load against Expat, 1\.5 MB",
    r"load and save against xmllint, 0\.2 MB", r"load and save against xmllint, 1\.5 MB",
    r"growth exponent of load", r"growth exponent of load and save",
    r"growth exponent of renaming a data used everywhere",
    r"growth exponent of deleting a data used everywhere",
    r"peak memory of load and save by the file, 0\.2 MB",
    r"peak memory of load and save by the file, 1\.5 MB",
    r"first paint against a bare window",
    r"identification scan against parsing 20 files, warm",
    r"identification scan against parsing 20 files, cold",
    r"filling the list of requests against QTreeWidget, 1,000 rows",
    r"growth exponent of filling the list of requests",
    r"keystroke in the sent bytes against a bare field, 255 bytes",
    r"growth exponent of pasting requests as text",
    r"growth exponent of capitalising names with their references",
)


def main():
    with tempfile.TemporaryDirectory() as folder:
        raw = Path(folder) / "raw.json"
        done = subprocess.run([Path(__file__).parent / "run", "--short", "--build", sys.argv[1],
                               "-o", raw], capture_output=True, text=True)
        print(done.stdout, done.stderr, sep="\n")
        if done.returncode != 0:
            sys.exit("the measurements failed")
        missing = [row for row in ROWS
                   if not re.search(rf"^\| {row} \| \d+\.\d\d \| -?\d+\.\d\d", done.stdout, re.MULTILINE)]
        kept = json.loads(raw.read_text())
    if missing or len(kept["table"]) != len(ROWS) or not all(kept["raw"].values()):
        sys.exit(f"rows that are missing: {missing}")


if __name__ == "__main__":
    main()
