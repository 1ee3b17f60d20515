#!/usr/bin/env python3
# SPDX-FileCopyrightText: the Kelmar developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""Checks what the compiler does not: which room may know which, where dialogs may open, how long a
source may grow, and how each begins.

    tools/lint.py [ROOT]

Prints one line a fault, "path:line: what", and ends with 1 when there is any. A source that is a
table in the main may be longer when one of its first lines holds "lint: a table".
"""

import re
import sys
from pathlib import Path

# The rooms from the ground up; a room includes only rooms that stand lower, and itself. Those of
# one floor do not see each other.
FLOORS = [
    ["base"],
    ["platform"],
    ["xml"],
    ["database"],
    ["language"],
    ["common", "exports"],
    ["desktop"],
    ["controls"],
    ["editors", "screens", "faults", "labels", "checks"],
    ["frame"],
    ["app"],
]
FLOOR_OF = {room: height for height, rooms in enumerate(FLOORS) for room in rooms}

# Floors on which nothing of Qt is seen; above them, the rules of a subject and the command line.
NO_QT_ROOMS = {"base", "platform", "xml", "database", "language", "common", "exports"}
NO_QT_FOLDERS = {"rules", "cli"}
QT_ROOMS = {"desktop", "controls"}

# Dialogs open in the seam only.
SEAM = "src/desktop/desktop_person.cpp"
DIALOGS = re.compile(r"\bQ(MessageBox|ErrorMessage|FileDialog|InputDialog|ColorDialog|FontDialog)\b")
MENU_EXEC = re.compile(r"\b(QMenu::exec|\w*[mM]enu\w*(\(\))?(\.|->)exec)\s*\(")

LONGEST_SOURCE = 600
LONGEST_TEST = 1000
TABLE = "lint: a table"

SOURCES = {".h", ".cpp"}
HEADED = {".h", ".cpp", ".py", ".cmake", ".sh"}
HEAD = ("SPDX-FileCopyrightText: the Kelmar developers", "SPDX-License-Identifier: GPL-3.0-or-later")
UNFINISHED = re.compile(r"\b(" + "|".join(["TO" + "DO", "FIX" + "ME", "X" + "XX", "HA" + "CK"]) + r")\b")
SKIPPED = re.compile(r"\bGTEST_SKIP\b|\bDISABLED_|\bQSKIP\b")
INCLUDE = re.compile(r'^\s*#\s*include\s+([<"])([^>"]+)[>"]')
QT_HEADER = re.compile(r"^(Q[A-Z]\w*|Qt\w+/.*|q[a-z]+\.h)$")


def without_comments(text):
    """Comments become blanks, so that lines keep their numbers; strings stay."""
    pattern = re.compile(r'//[^\n]*|/\*.*?\*/|("(?:\\.|[^"\\\n])*")', re.DOTALL)
    return pattern.sub(lambda m: m.group(1) or re.sub(r"[^\n]", " ", m.group(0)), text)


def room_of(path):
    """The room of a path such as src/base/text.h, or None."""
    parts = path.parts
    return parts[1] if len(parts) > 2 and parts[0] == "src" else None


def sees_no_qt(path):
    return room_of(path) in NO_QT_ROOMS or bool(NO_QT_FOLDERS & set(path.parts[2:-1]))


class Lint:
    def __init__(self, root):
        self.root = root
        self.faults = []

    def fault(self, path, line, what):
        self.faults.append(f"{path}:{line}: {what}")

    def check_include(self, path, line, quote, header):
        if QT_HEADER.match(header) and sees_no_qt(path):
            self.fault(path, line, f"Qt ({header}) in a room without Qt")
        room = room_of(path)
        if quote != '"' or room is None or "/" not in header:
            return
        target = header.split("/")[0]
        if target not in FLOOR_OF or target == room:
            if target == room and sees_no_qt(path) and not sees_no_qt(Path("src") / header):
                self.fault(path, line, f"rules include what knows widgets ({header})")
            return
        if room not in FLOOR_OF:
            self.fault(path, line, f"the room {room} has no floor in tools/lint.py")
        elif FLOOR_OF[target] >= FLOOR_OF[room]:
            self.fault(path, line, f"{room} includes {header}, which is not below it")
        elif target in QT_ROOMS and sees_no_qt(path):
            self.fault(path, line, f"rules include what knows widgets ({header})")

    def check_code(self, path, text):
        for line, code in enumerate(without_comments(text).split("\n"), 1):
            if include := INCLUDE.match(code):
                self.check_include(path, line, *include.groups())
            if path.parts[0] == "src" and str(path) != SEAM:
                if dialog := DIALOGS.search(code):
                    self.fault(path, line, f"{dialog.group(0)} outside the seam")
                if MENU_EXEC.search(code):
                    self.fault(path, line, "a menu runs its own event loop; pop it up instead")
            if path.parts[0] == "tests" and SKIPPED.search(code):
                self.fault(path, line, "a test that does not run")

    def check_length(self, path, lines):
        longest = LONGEST_TEST if path.parts[0] == "tests" else LONGEST_SOURCE
        if len(lines) > longest and not any(TABLE in line for line in lines[:10]):
            self.fault(path, len(lines), f"longer than {longest} lines")

    def check(self, path):
        text = (self.root / path).read_text(encoding="utf-8")
        lines = text.splitlines()
        start = 1 if lines and lines[0].startswith("#!") else 0
        for offset, wanted in enumerate(HEAD):
            if start + offset >= len(lines) or wanted not in lines[start + offset]:
                self.fault(path, start + offset + 1, f'does not begin with "{wanted}"')
                break
        for line, content in enumerate(lines, 1):
            if UNFINISHED.search(content):
                self.fault(path, line, "unfinished")
        if path.suffix in SOURCES:
            self.check_code(path, text)
            self.check_length(path, lines)

    def run(self):
        count = 0
        for folder in ("src", "tests", "bench", "fuzz", "tools", "cmake"):
            for file in sorted((self.root / folder).rglob("*")):
                path = file.relative_to(self.root)
                named = file.suffix in HEADED or file.name == "CMakeLists.txt"
                if file.is_file() and named and path.parts[:2] != ("tests", "data"):
                    count += 1
                    self.check(path)
        if count == 0:
            self.faults.append(f"{self.root}: there is nothing to check")
        return self.faults


def main(arguments):
    root = Path(arguments[0]) if arguments else Path(__file__).resolve().parent.parent
    faults = Lint(root).run()
    for fault in faults:
        print(fault)
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
