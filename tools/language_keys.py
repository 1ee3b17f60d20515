#!/usr/bin/env python3
# SPDX-FileCopyrightText: the Kelmar developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""Keeps the language files of the site in step with the texts in the code.

    tools/language_keys.py [ROOT]                   checks; one line a fault, ends with 1 if any
    tools/language_keys.py [ROOT] --list            every key of the code with its default
    tools/language_keys.py [ROOT] --update [--controls FILE]
                                                    writes the English texts anew, drops keys that
                                                    are no more, lists the French texts to write

Two sources tell the keys. The texts of messages stand in the code beside their keys, and this tool
reads them there. The texts of controls are set where a page is laid out; the test of the window
compares them with the files, and leaves them in build/dev/control_texts.tsv for --controls.
docs/languages.md tells how the files are made.
"""

import argparse
import re
import sys
from pathlib import Path
from xml.dom import minidom
from xml.sax.saxutils import escape

PAGES_FILE = "OmnikorKelmarControl.xml"
WINDOW_FILE = "KelmarX.xml"
LANGUAGES = [("en", "English"), ("fr", "Français")]

# The main window has a language service of its own; its member is `texts_`.
WINDOW_SOURCES = {"src/frame/kelmar_form.cpp"}
WINDOW_SERVICE = "texts_"

# Settings, whatever the language.
PARAMETERS = {PAGES_FILE: {"Parameters/sorvaneAddressingFile": "GenericAddressing.xml"},
              WINDOW_FILE: {}}

# Keys whose default is a makeshift: the files word the English text.
WORDED_BY_THE_FILES = {"REQUESTS/MSG/importFromH86File/TooBig/text"}

# French texts that are meant to be as the English ones.
SAME_IN_FRENCH = "site/lang/same_in_french.txt"

SERVICE_CALLS = {"getMultilangMessageDefault", "getMultilangMessage"}
KEY = re.compile(r"^[A-Z][A-Z0-9_]*/(?:CONTROLS|MSG|error|about)(?:/[\w.-]+)+$")
KEY_BEGIN = re.compile(r"^[A-Z][A-Z0-9_]*/(?:CONTROLS|MSG)(?:/[\w.-]+)*/$")
PLACEHOLDER = re.compile(r"\{[0-5]\}")
TOKEN = re.compile(
    r"""(?P<skip>//[^\n]*|/\*.*?\*/|\s+)
      |(?P<raw>R"(?P<mark>[^(\s]*)\((?P<rawtext>.*?)\)(?P=mark)")
      |(?P<string>(?:u8)?"(?:\\.|[^"\\\n])*")
      |(?P<char>(?:u8)?'(?:\\.|[^'\\\n])*')
      |(?P<word>[A-Za-z_]\w*|\d[\w.']*)
      |(?P<sign>->|::|\[\[|\]\]|.)""",
    re.DOTALL | re.VERBOSE)
LOOK_AHEAD = 6  # tokens
SIMPLE_ESCAPES = {"n": "\n", "r": "\r", "t": "\t", "0": "\0", "\\": "\\", '"': '"', "'": "'"}


class Fault(Exception):
    """What keeps the tool from its work."""


def unescaped(literal):
    """The text of a string literal, with its quotes."""
    body = literal[literal.index('"') + 1:-1]
    parts = bytearray()
    at = 0
    while at < len(body):
        if body[at] != "\\":
            parts += body[at].encode("utf-8")
            at += 1
            continue
        code = body[at + 1]
        digits = re.match(r"x([0-9a-fA-F]+)|u([0-9a-fA-F]{4})", body[at + 1:])
        if digits and digits.group(1):
            parts.append(int(digits.group(1), 16))
            at += 1 + digits.end()
        elif digits:
            parts += chr(int(digits.group(2), 16)).encode("utf-8")
            at += 1 + digits.end()
        elif code in SIMPLE_ESCAPES:
            parts += SIMPLE_ESCAPES[code].encode("utf-8")
            at += 2
        else:
            raise Fault(f"a string literal with the escape \\{code}: {literal}")
    return parts.decode("utf-8", "surrogateescape")  # a table of bytes is no text


class Token:
    """A word or sign of a source; `text` of a string is what it holds, neighbours joined."""

    def __init__(self, kind, text, line):
        self.kind, self.text, self.line = kind, text, line

    def __repr__(self):
        return f"{self.kind}:{self.text}"


def tokens_of(source):
    found = []
    line = 1
    for match in TOKEN.finditer(source):
        kind = match.lastgroup if match.lastgroup != "mark" else "raw"
        if match.group("raw") is not None:
            kind, text = "string", match.group("rawtext")
        elif match.group("string") is not None:
            kind, text = "string", unescaped(match.group("string"))
        else:
            text = match.group(0)
        if kind == "string" and found and found[-1].kind == "string":
            found[-1].text += text
        elif kind != "skip":
            found.append(Token(kind, text, line))
        line += match.group(0).count("\n")
    return found + [Token("end", "", line)] * LOOK_AHEAD


class Use:
    """A key in the code: where, in which file, with which default (None: only named there)."""

    def __init__(self, key, default, place, file):
        self.key, self.default, self.place, self.file = key, default, place, file


def constants_of(sources):
    """Texts that the code knows by name."""
    named = {}
    for tokens in sources:
        for at, token in enumerate(tokens):
            # constexpr char name[] = "..."; constexpr std::string_view name = "...";
            if token.kind != "string" or at < 2 or tokens[at - 1].text != "=":
                continue
            name = at - 2
            if tokens[name].text == "]" and tokens[name - 1].text == "[":
                name -= 2
            if tokens[name].kind == "word" and at + 1 < len(tokens) and tokens[at + 1].text == ";":
                named[tokens[name].text] = token.text
    return named


def key_helpers_of(sources):
    """Functions that put a text of their own beside a key: f(const char* key) { return {key, "..."}; }"""
    shape = ["(", "const", "char", "*", None, ")", "{", "return", "{", None, ",", None, "}", ";", "}"]
    helpers = {}
    for tokens in sources:
        for at in range(len(tokens) - len(shape)):
            found = tokens[at + 1:at + 1 + len(shape)]
            if all(word in (None, token.text) for word, token in zip(shape, found)) and (
                    found[4].text == found[9].text and found[11].kind == "string"):
                helpers[tokens[at].text] = found[11].text
    return helpers


def array_rows_of(sources):
    """{name of an array of menu entries: {index: text}}, from rows {"name", index, "text", {..."""
    rows = {}
    for tokens in sources:
        for at in range(len(tokens) - 7):
            row = tokens[at:at + 8]
            if [token.text for token in row[::2]] != ["{", ",", ",", ","] or row[7].text != "{":
                continue
            name, index, text = row[1], row[3], row[5]
            if name.kind == text.kind == "string" and re.match(r"^\w+$", name.text) and (
                    index.text.isdigit()):
                rows.setdefault(name.text, {})[index.text] = text.text
    return rows


def arguments_at(tokens, opening):
    """The arguments behind the opening bracket at this index, each a list of tokens."""
    arguments, depth = [[]], 0
    for token in tokens[opening:]:
        if token.kind == "sign" and token.text in "([{":
            depth += 1
            if depth == 1:
                continue
        elif token.kind == "sign" and token.text in ")]}":
            depth -= 1
            if depth == 0:
                return arguments
        if depth == 1 and token.kind == "sign" and token.text == ",":
            arguments.append([])
        else:
            arguments[-1].append(token)
    return arguments


def literals_of(argument, named):
    """The texts that an argument may be: one, or those of `condition ? one : other`."""
    words = [token for token in argument if token.text not in ("std", "::", "string", "string_view",
                                                               "(", ")", "{", "}")]
    if len(words) == 1 and words[0].kind == "string":
        return [words[0].text]
    if len(words) == 1 and words[0].kind == "word" and words[0].text in named:
        return [named[words[0].text]]
    if any(token.text == "?" for token in argument):
        return [token.text for token in argument if token.kind == "string"]
    return []


class Code:
    """What the sources say of keys."""

    def __init__(self, root):
        self.uses = []
        self.control_keys = set()  # of TranslateControl
        self.faults = []
        sources = {}
        for path in sorted((root / "src").rglob("*")):
            if path.suffix in (".cpp", ".h"):
                sources[path.relative_to(root).as_posix()] = tokens_of(path.read_text("utf-8"))
        self.arrays = {}  # of each folder
        for path in sources:
            folder = path.rsplit("/", 1)[0]
            if folder not in self.arrays:
                self.arrays[folder] = array_rows_of(
                    tokens for other, tokens in sources.items() if other.rsplit("/", 1)[0] == folder)
        headers = [tokens for path, tokens in sources.items() if path.endswith(".h")]
        for path, tokens in sources.items():
            self.named = constants_of(headers + [tokens])
            self.helpers = key_helpers_of(headers + [tokens])
            self.read(path, tokens)

    def read(self, path, tokens):
        taken = set()  # tokens of keys whose default is known
        for at, token in enumerate(tokens):
            if token.text in SERVICE_CALLS and at + 1 < len(tokens) and tokens[at + 1].text == "(":
                self.read_call(path, tokens, at, taken)
            elif token.text == "TranslateControl" and tokens[at + 1].text == "(":
                for argument in arguments_at(tokens, at + 1):
                    self.control_keys.update(text for text in literals_of(argument, self.named)
                                             if text.endswith("/CONTROLS"))
        for at, token in enumerate(tokens):
            if token.kind == "string" and id(token) not in taken:
                self.read_literal(path, tokens, at)

    def file_of(self, path, tokens, at):
        own = path in WINDOW_SOURCES and at >= 2 and tokens[at - 2].text == WINDOW_SERVICE
        return WINDOW_FILE if own else PAGES_FILE

    def read_call(self, path, tokens, at, taken):
        arguments = arguments_at(tokens, at + 1)
        with_default = tokens[at].text == "getMultilangMessageDefault"
        place = 1 if with_default else 0
        if len(arguments) <= place:
            return
        texts = [token.text for token in arguments[place] if token.kind == "string"]
        if len(texts) == 3 and KEY_BEGIN.match(texts[0]) and texts[1:] == ["/item", "/caption"]:
            self.read_array(path, texts[0], arguments[place], taken)
            return
        keys = [text for text in literals_of(arguments[place], self.named) if KEY.match(text)]
        for token in arguments[place]:
            taken.add(id(token))
            if token.kind == "string" and not KEY.match(token.text):
                self.faults.append(f"{path}:{token.line}: \"{token.text}\" is no whole key")
        if not keys:
            return  # a wrapper, whose callers name the key
        file = self.file_of(path, tokens, at)
        defaults = literals_of(arguments[0], self.named) if with_default else []
        line = arguments[place][0].line
        if with_default and not defaults:
            self.faults.append(f"{path}:{line}: the default of {keys[0]} is no literal text")
        for key in keys:
            for default in defaults or [None]:
                self.uses.append(Use(key, default, f"{path}:{line}", file))

    def read_array(self, path, area, argument, taken):
        """Keys of menu arrays, area + name + "/item" + index + "/caption": the rows are the table
        beside the call."""
        place = f"{path}:{argument[0].line}"
        taken.update(id(token) for token in argument)
        for name, entries in self.arrays[path.rsplit("/", 1)[0]].items():
            for index, text in entries.items():
                self.uses.append(Use(f"{area}{name}/item{index}/caption", text, place, PAGES_FILE))

    def read_literal(self, path, tokens, at):
        token = tokens[at]
        if KEY_BEGIN.match(token.text):
            self.faults.append(f"{path}:{token.line}: a key that begins with \"{token.text}\" is made "
                               "at run time; write it out")
        if not KEY.match(token.text):
            return
        default = self.neighbour(tokens, at)
        self.uses.append(Use(token.text, default, f"{path}:{token.line}", PAGES_FILE))

    def neighbour(self, tokens, at):
        """The default beside a key: {key, text}, (text, key), helper(key), or the caption of a tab's
        row."""

        def text_at(index):
            token = tokens[max(index, 0)]
            if token.kind == "string" and not KEY.match(token.text):
                return token.text
            return None

        before, after = tokens[at - 1].text, tokens[at + 1].text
        if before == "(" and after == ")" and tokens[at - 2].text in self.helpers:
            return self.helpers[tokens[at - 2].text]
        if before in ("{", "=") and after == ",":
            text = text_at(at + 2)
            # A designated initialiser: {.key = "...", .text = "..."}
            if text is None and tokens[at + 2].text == "." and tokens[at + 4].text == "=":
                text = text_at(at + 5)
            return text
        if before == ",":
            # {index, tab, caption, tool tip, page, key, ...}
            if tokens[at + 3].text == "::" and tokens[at + 2].text == "PageKind":
                return text_at(at - 6)
            return text_at(at - 2)
        return None

    def messages(self):
        """{file: {key: {default: first place}}} of what the code asks for."""
        found = {PAGES_FILE: {}, WINDOW_FILE: {}}
        for use in self.uses:
            if use.default is not None:
                found[use.file].setdefault(use.key, {}).setdefault(use.default, use.place)
        # A key that is only named, of a box say, has its default elsewhere. The text of a box may come
        # from a failure; it is then known by its title.
        known = set().union(*found.values())
        for use in self.uses:
            if use.default is None and not known & {use.key, re.sub("/text$", "/title", use.key)}:
                self.faults.append(f"{use.place}: {use.key} has no default in the code")
        return found

    def is_control_key(self, key):
        return any(key.startswith(control + "/") for control in self.control_keys)


class LanguageFile:
    """The texts of one file: {key: {language: text}}, and its settings."""

    def __init__(self, path):
        self.path = path
        self.texts, self.parameters, self.languages = {}, {}, []
        self.twice = []
        if path.exists():
            root = minidom.parse(str(path)).documentElement
            if root.tagName != "software":
                raise Fault(f"{path}: the root is {root.tagName}, not software")
            for child in elements(root):
                self.read(child, child.tagName)

    def read(self, element, key):
        if key == "availableLanguages":
            for item in elements(element):
                texts = {child.tagName: text_of(child) for child in elements(item)}
                self.languages.append((texts.get("key", ""), texts.get("caption", "")))
            return
        children = elements(element)
        for child in children:
            self.read(child, key + "/" + child.tagName)
        if children:
            return
        language = element.getAttribute("xml:lang")
        if key.startswith("Parameters/"):
            self.parameters[key] = text_of(element)
            return
        texts = self.texts.setdefault(key, {})
        if language in texts:
            self.twice.append((key, language))
        texts[language] = text_of(element)

    def write(self):
        tree = {}
        for key, texts in self.texts.items():
            node = tree
            for step in key.split("/"):
                node = node.setdefault(step, {})
            node[""] = texts
        lines = ['<?xml version="1.0" encoding="UTF-8"?>',
                 "<!-- English as in the code; written by tools/language_keys.py. French by hand. -->",
                 "<software>", "  <availableLanguages>"]
        for key, caption in LANGUAGES:
            lines.append(f"    <item><caption>{caption}</caption><key>{key}</key></item>")
        lines.append("  </availableLanguages>")
        if self.parameters:
            lines.append("  <Parameters>")
            for key, text in sorted(self.parameters.items()):
                name = key.split("/", 1)[1]
                lines.append(f"    <{name}>{escape(text)}</{name}>")
            lines.append("  </Parameters>")
        write_nodes(tree, 1, lines)
        lines.append("</software>")
        self.path.parent.mkdir(parents=True, exist_ok=True)
        self.path.write_text("\n".join(lines) + "\n", encoding="utf-8")


def write_nodes(node, depth, lines):
    indent = "  " * depth
    for name in sorted(step for step in node if step):
        child = node[name]
        for language, text in sorted(child.get("", {}).items()):
            attribute = f' xml:lang="{language}"' if language else ""
            lines.append(f"{indent}<{name}{attribute}>{escaped(text)}</{name}>")
        if any(step for step in child if step):
            lines.append(f"{indent}<{name}>")
            write_nodes(child, depth + 1, lines)
            lines.append(f"{indent}</{name}>")


def escaped(text):
    # A reader turns line ends and leading blanks into others unless they are written like this.
    return escape(text).replace("\r", "&#13;").replace("\n", "&#10;").replace("\t", "&#9;")


def elements(node):
    return [child for child in node.childNodes if child.nodeType == child.ELEMENT_NODE]


def text_of(element):
    return "".join(child.data for child in element.childNodes
                   if child.nodeType in (child.TEXT_NODE, child.CDATA_SECTION_NODE))


def same_in_french(root):
    path = root / SAME_IN_FRENCH
    if not path.exists():
        return {}
    return {line: number for number, line in enumerate(path.read_text("utf-8").splitlines(), 1)
            if line.strip() and not line.startswith("#")}


def mnemonic_of(text):
    marked = re.search(r"&([^&\s])", text.replace("&&", ""))
    return marked.group(1).lower() if marked else None


def check(root):
    """The faults of the files, each a line."""
    code = Code(root)
    messages = code.messages()
    faults = list(code.faults)
    same = same_in_french(root)
    same_used = set()
    for name in (PAGES_FILE, WINDOW_FILE):
        file = LanguageFile(root / "site" / "lang" / name)
        shown = f"site/lang/{name}"
        if not file.path.exists():
            faults.append(f"{shown}: there is no such file")
            continue
        if file.languages != LANGUAGES:
            faults.append(f"{shown}: availableLanguages are not {LANGUAGES}")
        if file.parameters != PARAMETERS[name]:
            faults.append(f"{shown}: the Parameters are not {PARAMETERS[name]}")
        faults += [f"{shown}: {key}: two texts in \"{language}\"" for key, language in file.twice]
        for key, defaults in sorted(messages[name].items()):
            texts = file.texts.get(key, {})
            place = next(iter(defaults.values()))
            english = texts.get("en")
            if len(defaults) > 1:
                if english is not None:
                    faults.append(f"{shown}: {key}: has two defaults in the code, so no English text "
                                  f"can stand for both ({', '.join(sorted(defaults.values()))})")
            elif english is None:
                faults.append(f"{shown}: {key}: no English text ({place})")
            elif key in WORDED_BY_THE_FILES:
                faults += placeholder_faults(shown, key, english, texts.get("fr"))
            elif english not in defaults:
                faults.append(f"{shown}: {key}: the English text is not that of the code ({place})")
            # Where two texts mean different things, no French one could stand for both either.
            if "fr" not in texts and len(defaults) == 1:
                faults.append(f"{shown}: {key}: no French text ({place})")
            if key not in WORDED_BY_THE_FILES:
                # A French text that stands for several is written for one of them.
                wrong = [placeholder_faults(shown, key, default, texts.get("fr"))
                         for default in sorted(defaults)]
                faults += sum(wrong, []) if all(wrong) else []
        for key, texts in sorted(file.texts.items()):
            if key not in messages[name]:
                if not code.is_control_key(key):
                    faults.append(f"{shown}: {key}: the code does not use it")
                for language in ("en", "fr"):
                    if language not in texts:
                        faults.append(f"{shown}: {key}: a control without a text in \"{language}\"")
                faults += placeholder_faults(shown, key, texts.get("en", ""), texts.get("fr"))
            for language, text in texts.items():
                if language not in ("en", "fr"):
                    faults.append(f"{shown}: {key}: a text in \"{language}\"")
                if not text.strip():
                    faults.append(f"{shown}: {key}: an empty text in \"{language}\"")
            if "fr" in texts and texts["fr"] in ({texts.get("en")} | set(messages[name].get(key, {}))):
                same_used.add(texts["fr"])
                if texts["fr"] not in same:
                    faults.append(f"{shown}: {key}: French as English: \"{texts['fr']}\"; when this "
                                  f"is meant, it belongs into {SAME_IN_FRENCH}")
        faults += mnemonic_faults(shown, file)
    for text, line in same.items():
        if text not in same_used:
            faults.append(f"{SAME_IN_FRENCH}:{line}: no text \"{text}\" is the same in both")
    return faults


def placeholder_faults(shown, key, english, french):
    if french is None:
        return []
    if sorted(PLACEHOLDER.findall(english)) == sorted(PLACEHOLDER.findall(french)):
        return []
    return [f"{shown}: {key}: French has other placeholders than \"{english}\""]


def mnemonic_faults(shown, file):
    """Letters that two entries of the menu bar, or of one of its menus, would share."""
    faults = []
    for language, _ in LANGUAGES:
        seen = {}
        for key, texts in sorted(file.texts.items()):
            match = re.match(r"^(MAIN/CONTROLS)/(mnu[A-Z][a-z]+)([A-Z]\w*)?/caption$", key)
            letter = mnemonic_of(texts.get(language, "")) if match else None
            if not letter:
                continue
            # mnuFile stands in the bar, mnuFileQuit in the menu mnuFile.
            menu = (match.group(2) if match.group(3) else "bar", letter)
            if menu in seen:
                faults.append(f"{shown}: {key}: the letter \"{letter}\" is that of {seen[menu]} too "
                              f"({language})")
            seen[menu] = key
    return faults


def read_controls(path):
    """{file: {key: text}} from the list that the test of the window leaves."""
    found = {PAGES_FILE: {}, WINDOW_FILE: {}}
    for line in Path(path).read_text("utf-8").splitlines():
        name, key, text = line.split("\t")
        found[name][key] = text.replace("\\n", "\n").replace("\\\\", "\\")
    return found


def update(root, controls):
    """Writes both files; gives the keys without a French text."""
    code = Code(root)
    messages = code.messages()
    missing = []
    for name in (PAGES_FILE, WINDOW_FILE):
        file = LanguageFile(root / "site" / "lang" / name)
        wanted = {key: next(iter(defaults)) if len(defaults) == 1 else None
                  for key, defaults in messages[name].items()}
        if controls is None:
            for key, texts in file.texts.items():
                if code.is_control_key(key) and "en" in texts:
                    wanted.setdefault(key, texts["en"])
        else:
            for key, text in controls[name].items():
                wanted.setdefault(key, text)
        texts = {}
        for key, english in wanted.items():
            french = file.texts.get(key, {}).get("fr")
            if key in WORDED_BY_THE_FILES:
                english = file.texts.get(key, {}).get("en", english)
            texts[key] = {} if english is None else {"en": english}
            if french is not None:
                texts[key]["fr"] = french
            elif english is not None:
                missing.append((name, key, english))
        file.texts = {key: text for key, text in texts.items() if text}
        file.parameters = PARAMETERS[name]
        file.write()
    return missing


def main():
    parser = argparse.ArgumentParser(description="Keeps the language files in step with the code.")
    parser.add_argument("root", nargs="?", default=Path(__file__).resolve().parent.parent, type=Path)
    parser.add_argument("--list", action="store_true", help="list the keys of the code")
    parser.add_argument("--update", action="store_true", help="write the files anew")
    parser.add_argument("--controls", help="the list of control texts from the test of the window")
    options = parser.parse_args()
    try:
        if options.list:
            for name, keys in Code(options.root).messages().items():
                for key, defaults in sorted(keys.items()):
                    for default, place in defaults.items():
                        print(f"{name}\t{key}\t{default!r}\t{place}")
            return 0
        if options.update:
            controls = read_controls(options.controls) if options.controls else None
            for name, key, english in update(options.root, controls):
                print(f"{name}: {key}: to be written in French: {english!r}")
            return 0
        faults = check(options.root)
    except (Fault, OSError) as trouble:
        print(f"language_keys: {trouble}", file=sys.stderr)
        return 2
    for fault in faults:
        print(fault)
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
