#!/usr/bin/env python3
# SPDX-FileCopyrightText: the Kelmar developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""Writes tests/data/good: small ECU files, each named after what it shows, and index.txt, which says
what loading and saving makes of each:

  NAME <tab> same|changed|refused <tab> ENCODING <tab> WHAT IT SHOWS

same: with the clock at the date of its generator the saved file is the same, byte for byte, when
saved in ENCODING. changed: it loads, and the saved file differs. refused: it loads after a question
and must not be saved.
"""

import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parents[1]
sys.dont_write_bytecode = True
sys.path.insert(0, str(ROOT / "tools"))

from ecukit.builder import Ecu, lst, num, txt  # noqa: E402
from ecukit.screens import Display, Label, Range, Screen  # noqa: E402
from ecukit.xml import Device, Identity, Link, Test, head, position  # noqa: E402


def ecu(name="Sample", kind="can", link=None, little_endian=False, idents=((1, "OKN", "0001", "0001"),), **more):
    link = link or Link(kind)
    link.kind = kind
    if link.extended and link.send < 0x800:
        link.send, link.receive = 0x18DA7AF1, 0x18DAF17A
    return Ecu(Identity(name, "Engine", 122, link, **more), idents, little_endian)


def plain(made):
    """A little of everything, so that each sample has something to lose."""
    made.did(0x2001, "State", num("Speed", 16, "rpm", .25), lst("Key", {0: "Off", 1: "On"}, 1), num("Temperature", 8, "°C", 1, -40))
    made.device("Speed sensor", dtc=0x335, datas=("Speed",), freeze_frame="DataRead.State",
                tests=(Test(1, "No signal", obd=821, stored=("Key",)),))
    made.category("Main").screen("State", ("DataRead.State", "Speed", "Temperature"), ranges={"Speed": (Range(700, 65280),)})
    return made


def text_of(made):
    return "".join(made.check().parts())


SAMPLES = {}


def sample(name, outcome="same", encoding="UTF-8", shows=""):
    def keep(make):
        SAMPLES[name] = (outcome, encoding, shows, make)
        return make
    return keep


for _name, _kind, _shows in (
        ("can-11-bit", "can", "CAN with 11-bit identifiers"), ("can-29-bit", "can29", "CAN with extended identifiers"),
        ("can-fd", "canfd", "CAN-FD"), ("can-messaging", "messaging", "CAN without identifiers: messaging"),
        ("ip", "ip", "IP and MAC address"), ("kwp-fast-init", "fast", "KWP 2000, fast init, one ECU"),
        ("kwp-fast-init-multipoint", "fast-multi", "KWP 2000, fast init, several ECUs"),
        ("kwp-5-baud-type-1", "slow", "KWP 2000, 5 baud init, type I"),
        ("kwp-5-baud-type-2", "slow-multi", "KWP 2000, 5 baud init, type I and II")):
    sample(_name, shows=_shows)(lambda kind=_kind: text_of(plain(ecu(kind=kind))))


@sample("iso8", "changed", shows="ISO8 is not recognised when read back and becomes KWP fast init")
def _():
    return text_of(plain(ecu(kind="iso8")))


@sample("odd-timing", shows="no delay has its default")
def _():
    return text_of(plain(ecu(kind="slow", link=Link(baud=9600, key1=8, key2=8, inter_byte=1, kw2_delay=2, first_request=3,
                                                   reply_to_request=4, tester_present=5, kw2_timeout=6,
                                                   request_to_reply=7, on_error=8))))


@sample("receive-identifier-unset", shows="the mark that the writer leaves for a receive identifier that is not set")
def _():
    text = text_of(plain(ecu()))
    return text.replace('<CANId Value="2024"/>', '<CANId Value="536870911" Extended="1"/>')


@sample("all-of-the-target", shows="every attribute and element of the target")
def _():
    return text_of(plain(ecu("Everything", "can", logical_address="7A", gateway="CGW", tool_address=True, language="English",
                             email="a@b.example", href="http://links.example/a?b=1&c=2",
                             upload="http://upload.example/", group="Group <A>", projects=("NV1", "TK4.e-2", "Été"),
                             comment="  leading blanks go, lines stay\r\n\r\n  indented\r\n<b>&amp;</b>", date="2026-01-15", failures=2,
                             boot="BOOT")))


@sample("quoted-names", shows="quotes, apostrophes, ampersands and angle brackets in every kind of name")
def _():
    made = ecu("The \"best\" of 'both' & <more>", group="'a' \"b\"")
    made.did(0x2001, "<Read> \"it's\" & that", num("\"double\""), num("'single'"), num("\"both\" 'kinds'"), num("a & b < c > d"),
             lst("List of \"texts\"", ((0, "\"on\""), (1, "'off'"), (2, "<&>", "Info <&> \"as it is\"")), 2),
             lst("Flag \"'<&>'\"", {0: "No", 1: "Yes"}, 1), txt("Bytes ]]> 'n' \"m\"", 2))
    made.device("Device \"'<&>'\"", mnemonic="<M> & \"'", datas=("\"double\"", "\"both\" 'kinds'"), freeze_frame="DataRead.<Read> \"it's\" & that",
                tests=(Test(1, "<Test> & \"'\"", stored=("Flag \"'<&>'\"",)),))
    made.category("Category \"'<&>'\"").screen(
        "Screen \"'<&>'\"", ("DataRead.<Read> \"it's\" & that", "\"double\"", "'single'", "\"both\" 'kinds'", "a & b < c > d"),
        buttons=(("Button \"'<&>'\"", "Really <sure> & \"'", (10, "DataRead.<Read> \"it's\" & that")),))
    return text_of(made)


@sample("line-ends-in-attributes", shows="tabs and line ends in names are kept as references")
def _():
    made = ecu("Tab\there")
    made.did(1, "Two\r\nlines", num("Tab\tdata"), num("Line\nfeed"))
    made.category("Main").screen("Line\nfeed", ("DataRead.Two\r\nlines", "Tab\tdata"), labels=("first line\r\nsecond line",))
    return text_of(made)


@sample("accents", shows="names beyond ASCII, among them some that differ in case only in other alphabets")
def _():
    made = ecu("Éléments œuvrés à l'été, ΔΣ, Жук, 漢字, 𝄞", projects=("Été", "Ωmega"))
    made.did(1, "Œuvre", num("État d'âme", 8, "°C"), num("Σίγμα", 8, "Ω"), num("Жук"), num("漢字"), num("𝄞 clef"), num("Straße"))
    made.device("Capteur d'été", datas=("État d'âme", "漢字"))
    made.category("Éclairage").screen("Écran", ("DataRead.Œuvre", "Σίγμα", "𝄞 clef"))
    return text_of(made)


@sample("multi-line-comments", shows="comments with line ends, blanks, markup and the end mark of a section")
def _():
    made = plain(ecu(comment="One\r\n\r\nThree  \r\n\tindented\r\nlast"))
    made.did(2, "Commented", num("Commented", comment="first\r\nsecond ]]> after\r\n<third/> &amp; fourth"),
             num("Sheet", sheet="  blanks stay here\nsecond line  "), comment="request\r\ncomment")
    return text_of(made)


@sample("value-lists", shows="value lists in any order, with notes, and an empty one")
def _():
    made = ecu()
    made.did(1, "Lists", lst("Unordered", ((3, "three"), (-1, "minus one"), (0, "zero", "With a note.\nTwo lines.")), 8, signed=True),
             lst("Empty", (), 8), lst("Wide", {0: "none", 65535: "all", 2147483647: "most"}, 32))
    made.category("Main").screen("Lists", ("DataRead.Lists", "Unordered", "Wide"))
    return text_of(made)


@sample("coefficients", shows="steps, offsets and divisors: fractions, negative, small ones")
def _():
    made = ecu()
    made.did(1, "Numbers", num("Half", a=.5), num("Negative", a=-.25, b=-40), num("Tiny", 32, a=.00001), num("Tiny offset", b=.00002),
             num("Divided", c=1000), num("Divided by a fraction", c=.125), num("Large", 32, a=1234567.5, b=100000000),
             num("Formatted", format="0.00", unit="%"), num("Plain"), num("Signed", 12, signed=True), num("Many digits", a=.123456789012345))
    made.category("Main").screen("Numbers", ("DataRead.Numbers", "Half", "Tiny"),
                                 ranges={"Half": (Range(-.5, 255), Range(.125, 65280), Range(99.75, 0, "beep"))})
    return text_of(made)


@sample("byte-data", shows="data of bytes: texts, raw bytes, one and a half bytes")
def _():
    made = ecu()
    made.did(1, "Bytes", txt("Text", 10), txt("Raw", 4, False), txt("One and a half", 1.5, False), num("Twelve bits", 12), num("Three bytes", 24))
    made.device("Bytes", datas=("Text", "Raw"))
    return text_of(made)


@sample("little-endian", shows="a little endian ECU with positions of the other order")
def _():
    made = plain(ecu(little_endian=True))
    made.did(2, "Mixed", (num("As the ECU", 16), 4, 0), (num("The other way", 16), 6, 3, "Big"))
    return text_of(made)


@sample("requests", shows="access rights, manual, variable and shifted requests, an empty one")
def _():
    made = ecu()
    for n, deny in enumerate(("NoSDS", "Plant", "AfterSales", "Engineering", "Supplier")):
        made.request(f"Without {deny}", f"210{n}", f"610{n}", deny=(deny,))
    made.request("Without any", "2106", deny=("NoSDS", "Plant", "AfterSales", "Engineering", "Supplier"))
    made.request("Everything", "3E00", "7E00", 12, maintainability=True, manual=True, variable=True, shift=-2, comment="All\r\nof it",
                 parameters=[num("Parameter"), num("Part", 4)], fields=[num("Answer", 16), (num("Bit 3", 1), 5, 3)])
    made.request("Nothing", "")
    return text_of(made)


@sample("long-frame", shows="frames of 4095 bytes with positions at their ends")
def _():
    made = ecu()
    content = "".join(f"{(7 * i + 3) % 256:02X}" for i in range(4094))
    made.request("Long", "36" + content, "76" + content, fields=[(num("First"), 2, 0), (num("Last"), 4095, 0)],
                 parameters=[(num("Sent last"), 4095, 0)])
    return text_of(made)


@sample("devices-and-tests", shows="devices of all types, tests with several flags, unknown freeze frame")
def _():
    made = ecu()
    flags = [lst(f"Flag {n}", {0: "No", 1: "Yes"}, 1) for n in range(12)]
    made.did(1, "Flags", *flags, num("Value"))
    made.device("Input", dtc=1, obd=2, datas=("Value", ("Flag 11", True)))
    made.device("Internal", type=2, mnemonic="INT", tests=(Test(1, stored=("Flag 0", "Flag 1"), present=("Flag 2", "Flag 3")),
                                                           Test(2, "Not automatic", 17, 4, False, (), ("Flag 4",))))
    made.device("Output", type=3, tests=(Test(0), Test(255, "No flags", 18)))
    made.devices.append(Device("Other", type=4, freeze_frame="A request that is not there"))
    text = "".join(made.parts())
    return text


@sample("screens", shows="labels, buttons, inputs, ranges with sounds, scenarios, two screens of one name, an empty category")
def _():
    made = plain(ecu())
    made.request("Write", "3B01", "7B01", parameters=[num("Wish")])
    made.screen("State", ("DataRead.State", "Speed", "Key"), ("Write", "Wish"), ("Write",), title="Again \"State\"",
                init=((0, "DataRead.State"), (250, "Write")), buttons=(("No steps", ""), ("Two steps", "Sure ?", (0, "Write"), (5, "DataRead.State"))),
                ranges={"Speed": (Range(0, 0), Range(.5, 255, "440"), Range(6000, 16711680, "beep"))})
    made.category("Empty")
    made.category("Bare").categories[-1][1].append(Screen("Bare", window_state=2, width=0, height=0))
    made.categories[-1][1].append(Screen("Fonts", colour=-2147483633, labels=[
        Label("Right", 0, 0, size=8.25, alignment=1), Label("Centre", -15, -30, size=24, alignment=2, bold=True, italic=True, colour=255, back=-2147483643),
        Label("::pic:motor", 0, 0)], displays=[Display("Speed", "DataRead.State", 0, 0, size=24, bold=True)]))
    return text_of(made)


@sample("empty", shows="a target without anything in its lists")
def _():
    return text_of(ecu("Empty", idents=()))


@sample("only-screens-of-another-file", "changed", shows="displays whose data or request is missing are dropped, and a screen that ends with one")
def _():
    text = text_of(plain(ecu()))
    lost = Display("Lost", "DataRead.State", 0, 0).xml()
    kept = '<Category Name="Main">\n'
    first = Screen("Loses one", displays=[Display("Speed", "DataRead.State", 0, 0)]).xml().replace("\n<Display", lost + "\n<Display")
    last = Screen("Is lost", displays=[Display("Speed", "DataRead.State", 0, 0)]).xml().replace("\n</Screen>", lost + "\n</Screen>")
    return text.replace(kept, kept + first + last)


@sample("positions-without-data", "changed", shows="positions, flags and requests that cannot be kept")
def _():
    text = text_of(plain(ecu()))
    read = '<Request Name="DataRead.State">'
    text = text.replace("</Received>", position("Nowhere", 9) + position("Speed", 20) + "</Received>", 1)
    text = text.replace("<StoredFlag>", "<StoredFlag>Nowhere</StoredFlag>\r\n<StoredFlag>", 1)
    return text.replace(read, '<Request><Sent/></Request>' + read)


@sample("no-generator", "changed", shows="a file without Generator")
def _():
    text = text_of(plain(ecu()))
    start = text.index("<Generator")
    return text[:start] + text[text.index("\n", start) + 1:]


@sample("other-generator", "changed", shows="a file of another program")
def _():
    return text_of(plain(ecu())).replace('Generator name="Kelmar"', 'Generator name="Workshop export"')


@sample("sibling-tool", "refused", shows="a file of the sibling tool")
def _():
    return text_of(plain(ecu())).replace('Generator name="Kelmar"', 'Generator name="QVR"')


@sample("comment-as-xml-comment", "changed", shows="older files keep comments as XML comments")
def _():
    text = text_of(plain(ecu()))
    text = text.replace("<DateOfficialisation/>", "<!-- Comment of the ECU.\nTwo lines. -->\n<DateOfficialisation/>")
    text = text.replace('<Data Name="Speed">\n', '<Data Name="Speed">\n<!-- Comment of the data -->\n')
    return text.replace('<Request Name="DataRead.State">\n', '<Request Name="DataRead.State">\n<!--Comment of the request-->\n')


@sample("without-style-sheet", "changed", shows="no style sheet instruction")
def _():
    return text_of(plain(ecu())).replace(head(), head(style_sheet=""))


@sample("other-namespace", "changed", shows="name-space addresses decide nothing")
def _():
    return text_of(plain(ecu())).replace("http://www.omnikor.example/2002/", "urn:other:")


@sample("protocol-element", "changed", shows="the general protocol section, here with the values of KWP fast init")
def _():
    text = text_of(plain(ecu(kind="fast")))
    section = ('<Protocol Name="KWP2000 FastInit MonoPoint" InitMode="2" Multipoint="0" BaudRate="9600">\n<InterByte Delay="1"/>'
               '\n<ReplyToRequest Delay="2"/>\n<RequestToReply Timeout="3"/>\n<TesterPresent Delay="4"/>\n<OnError Delay="5"/>'
               '\n<KW1 Value="6"/>\n<KW2 Value="7" Timeout="8"/>\n<KW2_ Delay="9"/>\n<FirstRequest Delay="10"/>\n</Protocol>')
    return text[:text.index("<K ")] + section + text[text.index("</K>") + 4:]


@sample("both-can-and-k", "changed", shows="K is looked at first")
def _():
    text = text_of(plain(ecu(kind="can")))
    return text.replace("<CAN ", Link("fast").section() + "<CAN ")


@sample("projects-twice", "changed", shows="a project that is named twice is kept once")
def _():
    return text_of(plain(ecu(projects=("NV1",)))).replace("<NV1/>", "<NV1/>\n  <NV1/><nv1/>")


@sample("reference-off", "changed", shows="no reference: saved without the mark, which reads as a reference again")
def _():
    return text_of(plain(ecu())).replace('Reference="1"', 'Reference="0"')


@sample("unknown-failure-type", "changed", shows="a type of failures that the catalogue lacks")
def _():
    return text_of(plain(ecu())).replace('<Failures Name="DTC Failures" Id="3"/>', '<Failures Name="Some" Id="99"/>')


@sample("without-language", "changed", shows="no Language element")
def _():
    return text_of(plain(ecu())).replace('<Language Name="Français" Reference="1"/>\n', "")


@sample("indented", "changed", shows="indented by hand, single quotes, attributes on lines of their own")
def _():
    text = text_of(plain(ecu(kind="canfd")))
    text = text.replace("\n<Data ", "\n\n    <Data\n        ").replace("<Bits ", "\n      <Bits ")
    return text.replace('Ref="1"', "Ref='1'").replace("><Display", ">\n  <Display").replace("?><", "?>\n<") + "\n"


@sample("cr-lf-line-ends", "changed", shows="all line ends are those of another platform")
def _():
    return text_of(plain(ecu(comment="Two\r\nlines"))).replace("\r\n", "\n").replace("\n", "\r\n")


@sample("utf8-with-mark", "changed", shows="UTF-8 with a byte order mark")
def _():
    return "\ufeff" + text_of(plain(ecu("Été")))


def _in_encoding(encoding, name):
    return text_of(plain(ecu(name, group=name, comment=name + "\r\n" + name))).replace('encoding="UTF-8"', f'encoding="{encoding}"')


@sample("utf16", encoding="UTF-16", shows="UTF-16 with a byte order mark")
def _():
    return "\ufeff" + _in_encoding("UTF-16", "Été, œuf, Ω, 漢字, 𝄞")


@sample("utf16-big-endian", "changed", "UTF-16", "UTF-16 with the bytes the other way round")
def _():
    return "\ufeff" + _in_encoding("UTF-16", "Été, œuf, Ω, 漢字, 𝄞")


@sample("latin1", encoding="ISO-8859-1", shows="ISO-8859-1")
def _():
    return _in_encoding("ISO-8859-1", "Été à Noël, ½ ° ± ÿ")


@sample("windows-1252", encoding="windows-1252", shows="windows-1252, with characters that ISO-8859-1 lacks")
def _():
    return _in_encoding("windows-1252", "Été, œuf, 5 €, « ‹ › », Š Ž Ÿ – — … ™")


CODECS = {"UTF-8": "utf-8", "UTF-16": "utf-16-le", "ISO-8859-1": "latin-1", "windows-1252": "cp1252"}


def write(folder):
    folder.mkdir(parents=True, exist_ok=True)
    index = ""
    for name, (outcome, encoding, shows, make) in sorted(SAMPLES.items()):
        codec = "utf-16-be" if name.endswith("big-endian") else CODECS[encoding]
        (folder / f"{name}.xml").write_bytes(make().encode(codec))
        index += f"{name}.xml\t{outcome}\t{encoding}\t{shows}\n"
    (folder / "index.txt").write_text(index, encoding="utf-8")


if __name__ == "__main__":
    write(ROOT / "tests" / "data" / "good")
