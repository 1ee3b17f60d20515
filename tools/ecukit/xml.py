# SPDX-FileCopyrightText: the Kelmar developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""The elements of an ECU file, byte for byte as the editor writes them.

Line feeds between elements are data of the format: every function here adds them where the editor
does and nowhere else.
"""

import re
from dataclasses import dataclass, field
from decimal import Decimal
from pathlib import Path

TITLE = "Kelmar"
DATE = "2026-01-15T08:30"
ECU_SCHEMA = "http://www.omnikor.example/2002/ECU"
SCREEN_SCHEMA = "http://www.omnikor.example/2002/screens"
STYLE_SHEET = "http://www.omnikor.example/Omnikor/ZEMECUPreview.xsl"
CRLF = "\r\n"


def _program_version():
    text = (Path(__file__).parents[2] / "CMakeLists.txt").read_text(encoding="utf-8")
    major, minor, patch = re.search(r"project\(kelmar VERSION (\d+)\.(\d+)\.(\d+)", text).groups()
    return f"{major}.{minor}.0.{patch}"


VERSION = _program_version()

_ATTRIBUTE_SPECIAL = re.compile('[&<"\t\n\r]')
_ATTRIBUTE_REFERENCE = {
    "&": "&amp;",
    "<": "&lt;",
    '"': "&quot;",
    "\t": "&#9;",
    "\n": "&#10;",
    "\r": "&#13;",
}
_TEXT_SPECIAL = re.compile("[&<>\r]")
_TEXT_REFERENCE = {"&": "&amp;", "<": "&lt;", ">": "&gt;", "\r": "&#13;"}


def attr(value):
    return _ATTRIBUTE_SPECIAL.sub(lambda m: _ATTRIBUTE_REFERENCE[m[0]], value)


def text(value):
    return _TEXT_SPECIAL.sub(lambda m: _TEXT_REFERENCE[m[0]], value)


def cdata(value):
    return "<![CDATA[" + value.replace("]]>", "]]]]><![CDATA[>") + "]]>"


def number_to_text(value):
    """A blank before a non-negative number, no zero before the point, never an exponent."""
    if isinstance(value, float):
        value = Decimal(repr(value))
    plain = format(Decimal(value), "f")
    if "." in plain:
        plain = plain.rstrip("0").rstrip(".")
    sign = " "
    if plain.startswith("-"):
        sign, plain = "-", plain[1:]
    if plain.startswith("0."):
        plain = plain[1:]
    return sign + plain


def head(encoding="UTF-8", generator=TITLE, style_sheet=STYLE_SHEET, ecu_schema=ECU_SCHEMA):
    out = f"<?xml version='1.0' encoding=\"{encoding}\"?>"
    if style_sheet:
        out += f'<?xml-stylesheet type="text/xsl" href="{style_sheet}"?>'
    out += f'<xml xmlns:zem="{ecu_schema}">' if ecu_schema else "<xml>"
    return out + f'\n<Generator name="{generator}" version="{VERSION}" date="{DATE}"/>\n'


FOOT = "</zem:Target></xml>"


# --- how the tester reaches the ECU ---------------------------------------------------------------


@dataclass
class Link:
    """The protocol section. `kind` is one of KINDS."""

    kind: str = "can"
    baud: int = 0  # 0: the usual one of the kind
    send: int = 0x7E0
    receive: int = 0x7E8
    key1: int = 208
    key2: int = 143
    inter_byte: int = 0
    kw2_delay: int = 25
    first_request: int = 20
    reply_to_request: int = 5
    tester_present: int = 3000
    kw2_timeout: int = 300
    request_to_reply: int = 300
    on_error: int = 300
    ip: str = "192.0.2.17"
    mac: str = "02:00:5E:10:00:01"

    @property
    def extended(self):
        return self.kind in ("can29", "canfd29")

    def usual_baud(self):
        if self.baud:
            return self.baud
        return {"can": 500000, "can29": 500000, "canfd": 2000000, "canfd29": 2000000,
                "messaging": 500000}.get(self.kind, 10400)

    def section(self):
        if self.kind in ("can", "can29", "canfd", "canfd29"):
            return self._can()
        if self.kind == "messaging":
            return f'<CAN BaudRate="{self.usual_baud()}" Multipoint="1"/>\n'
        if self.kind == "ip":
            return (f"<IP>\n<IPAddress>{text(self.ip)}</IPAddress>"
                    f"\n<MACAddress>{text(self.mac)}</MACAddress></IP>\n")
        return self._k()

    def _can(self):
        mark = ' Extended="1"' if self.extended else ""
        length = ' CANFDTxMaxDataLength="64"' if self.kind.startswith("canfd") else ""
        return (f'<CAN BaudRate="{self.usual_baud()}" Multipoint="1"{length}>'
                f'<SendId>\n<CANId Value="{self.send}"{mark}/>\n</SendId>'
                f'<ReceiveId>\n<CANId Value="{self.receive}"{mark}/>\n</ReceiveId></CAN>\n')

    def _iso8(self):
        return (f'<ISO8>\n<L/>\n<KW1 Value="{self.key1}"/>\n'
                f'<KW2 Value="{self.key2}" Timeout="{self.kw2_timeout}"/>\n'
                f'<FirstRequest Delay="{self.first_request}"/>\n</ISO8>\n')

    def _k(self):
        multi = int(self.kind.endswith("-multi"))
        out = f'<K BaudRate="{self.usual_baud()}">'
        if self.kind == "iso8":
            out += self._iso8()
        elif self.kind.startswith("slow"):
            out += (f'<KWP Multipoint="{multi}">{self._iso8()}'
                    f'<KW2_ Delay="{self.kw2_delay}"/>\n</KWP>\n')
        else:
            out += (f'<KWP Multipoint="{multi}"><FastInit><KW1 Value="{self.key1}"/>\n'
                    f'<KW2 Value="{self.key2}"/>\n</FastInit>\n</KWP>\n')
        return out + (f'<InterByte Delay="{self.inter_byte}"/>\n'
                      f'<ReplyToRequest Delay="{self.reply_to_request}"/>\n'
                      f'<RequestToReply Timeout="{self.request_to_reply}"/>\n'
                      f'<TesterPresent Delay="{self.tester_present}"/>\n'
                      f'<OnError Delay="{self.on_error}"/>\n</K>\n')


KINDS = ("can", "can29", "canfd", "canfd29", "ip", "messaging",
         "fast", "fast-multi", "slow", "slow-multi", "iso8")

FAILURES = {0: "No failures", 1: "Failures Flags",
            2: "10 DTC failures read with After sales Frames", 3: "DTC Failures"}


@dataclass
class Identity:
    """Who the ECU is: all that stands before its auto-identifications."""

    name: str
    function: str
    address: int
    link: Link = field(default_factory=Link)
    logical_address: str = ""
    gateway: str = ""
    tool_address: bool = False  # one of its own; the file then always says 0
    language: str = "Français"
    reference: bool = True
    email: str = ""
    href: str = ""
    upload: str = ""
    group: str = ""
    projects: tuple = ()
    comment: str = ""
    date: str = ""
    failures: int = 3
    boot: str = ""

    def xml(self, ecu_schema=ECU_SCHEMA, screen_schema=SCREEN_SCHEMA):
        out = f'<zem:Target Name="{attr(self.name)}"'
        if ecu_schema:
            out += f' xmlns="{ecu_schema}"'
        if screen_schema:
            out += f' xmlns:ds="{screen_schema}"'
        for name, value in (("email", self.email), ("href", self.href), ("upload", self.upload),
                            ("group", self.group)):
            if value:
                out += f' {name}="{attr(value)}"'
        out += ">"
        if self.projects:
            out += '\n<Projects xmlns="">' + "".join(f"<{p}/>" for p in self.projects) + "</Projects>"
        out += f'\n<Function Name="{attr(self.function)}" Address="{self.address}"'
        if self.logical_address:
            out += f' LogicalAddress="{attr(self.logical_address)}"'
        if self.tool_address:
            out += ' ToolAddress="0"'
        if self.gateway:
            out += f' Type="{attr(self.gateway)}"'
        out += f'/>\n<Language Name="{attr(self.language)}"'
        out += ' Reference="1"/>\n' if self.reference else "/>\n"
        if self.comment.strip(" "):
            out += f'<Description>{cdata(self.comment.strip(" "))}</Description>\n'
        out += ("<DateOfficialisation/>\n" if not self.date
                else f"<DateOfficialisation>{text(self.date)}</DateOfficialisation>\n")
        out += f'<Failures Name="{FAILURES[self.failures]}" Id="{self.failures}"/>\n'
        if self.boot:
            out += f'<Boot Name="{attr(self.boot)}"/>\n'
        out += "<PowerSupply>\n<Ground/>\n<Vbat/>\n<AfterContact/>\n</PowerSupply>\n"
        return out + self.link.section()


def auto_idents(rows):
    """`rows`: (diagnostic version, supplier, software, version)."""
    return "\n<AutoIdents>\n" + "".join(
        f'<AutoIdent DiagVersion="{diag}" Supplier="{attr(supplier)}" Soft="{attr(soft)}"'
        f' Version="{attr(version)}"/>' for diag, supplier, soft, version in rows) + "</AutoIdents>"


# --- data ------------------------------------------------------------------------------------------


@dataclass(slots=True)
class Data:
    name: str
    bits: int = 8
    items: tuple = None  # (value, text) or (value, text, info): a value list
    unit: str = ""
    signed: bool = False
    a: object = 1
    b: object = 0
    c: object = 1
    format: str = ""
    is_bytes: bool = False
    ascii: bool = False
    mnemonic: str = ""
    comment: str = ""
    sheet: str = ""

    def xml(self):
        out = f'\n<Data Name="{attr(self.name)}">\n'
        if self.comment.strip(" "):
            out += f'<Comment>{cdata(self.comment.strip(" "))}</Comment>\n'
        if self.mnemonic:
            out += f"<Mnemonic>{text(self.mnemonic)}</Mnemonic>\n"
        if self.sheet:
            out += f"<Description>{cdata(self.sheet)}</Description>\n"
        if self.is_bytes:
            count = format(self.bits / 8, "g")
            return out + f'<Bytes count="{count}"' + (' ascii="1"/>' if self.ascii else "/>") + "\n</Data>"
        out += "<Bits" if self.bits == 8 else f'<Bits count="{self.bits}"'
        out += ' signed="1">\n' if self.signed else ">\n"
        if self.items is not None:
            return out + self._list() + "</Bits>\n</Data>"
        return out + self._scaled() + "\n</Bits>\n</Data>"

    def _list(self):
        out = "<List>\n"
        for value, label, *info in self.items:
            out += f'\n<Item Value="{value}" Text="{attr(label)}"'
            out += f">{cdata(info[0])}</Item>" if info and info[0] else "/>"
        return out + "</List>"

    def _scaled(self):
        out = "<Scaled"
        if self.unit:
            out += f' Unit="{attr(self.unit)}"'
        if self.a != 1:
            out += f' Step="{number_to_text(self.a)}"'
        if self.b != 0:
            out += f' Offset="{number_to_text(self.b)}"'
        if self.c != 1:
            out += f' DivideBy="{number_to_text(self.c)}"'
        if self.format:
            out += f' Format="{attr(self.format)}"'
        return out + "/>"


DATAS_OPEN = "\n<Datas>\n"
DATAS_CLOSE = "</Datas>"


# --- requests --------------------------------------------------------------------------------------


def position(name, byte, bit=0, ref=False, endian=""):
    """`byte` counts from 1; `endian` only where it differs from the ECU's."""
    out = f'<DataItem Name="{attr(name)}"'
    if ref:
        out += ' Ref="1"'
    out += f' FirstByte="{byte}"'
    if bit:
        out += f' BitOffset="{bit}"'
    if endian:
        out += f' Endian="{endian}"'
    return out + "/>\n"


@dataclass(slots=True)
class Request:
    name: str
    sent: str = ""
    reply: str = ""
    min_bytes: int = 1
    sent_positions: list = field(default_factory=list)  # texts made by position()
    received_positions: list = field(default_factory=list)
    shift: int = 0
    maintainability: bool = False
    manual: bool = False
    deny: tuple = ()  # of NoSDS, Plant, AfterSales, Engineering, Supplier, in this order
    variable: bool = False
    comment: str = ""

    def xml(self):
        out = f'<Request Name="{attr(self.name)}">\n'
        if self.maintainability:
            out += "<DossierMaintenabilite/>\n"
        if self.manual:
            out += "<ManuelSend/>\n"
        if self.deny:
            out += "<DenyAccess>" + "".join(f"<{d}/>" for d in self.deny) + "</DenyAccess>\n"
        if self.comment.strip(" "):
            out += f'<Comment>{cdata(self.comment.strip(" "))}</Comment>\n'
        out += "<Sent>\n"
        if self.variable:
            out += "<VariableLength/>\n"
        out += f"<SentBytes>{self.sent}</SentBytes>\n" if self.sent else "<SentBytes/>\n"
        out += "".join(self.sent_positions)
        out += f'</Sent>\n<Received MinBytes="{self.min_bytes}">\n'
        if self.shift:
            out += f"<ShiftBytesCount>{self.shift}</ShiftBytesCount>\n"
        if self.reply:
            out += f"<ReplyBytes>{self.reply}</ReplyBytes>\n"
        return out + "".join(self.received_positions) + "</Received>\n</Request>"


def requests_open(little_endian):
    return f'\n<Requests Endian="{"Little" if little_endian else "Big"}">\n'


REQUESTS_CLOSE = "</Requests>"


# --- devices ---------------------------------------------------------------------------------------


@dataclass(slots=True)
class Test:
    type: int
    description: str = ""
    obd: int = 0
    severity: int = 1
    autocheck: bool = True
    stored: tuple = ()
    present: tuple = ()

    def xml(self):
        out = f'<Test Type="{self.type}"'
        if self.obd:
            out += f' OBD="{self.obd}"'
        if self.severity != 1:
            out += f' Severity="{self.severity}"'
        if not self.autocheck:
            out += ' Autocheck="0"'
        out += ">" + CRLF
        if self.description:
            out += f"<Description>{text(self.description)}</Description>"
        for flag in self.stored:
            out += f"<StoredFlag>{text(flag)}</StoredFlag>" + CRLF
        for flag in self.present:
            out += f"<PresentFlag>{text(flag)}</PresentFlag>" + CRLF
        return out + "</Test>"


@dataclass(slots=True)
class Device:
    name: str
    dtc: int = 0
    obd: int = 0
    type: int = 1
    freeze_frame: str = ""
    mnemonic: str = ""
    datas: tuple = ()  # names, or (name, True) for one that is a failure flag
    tests: tuple = ()

    def xml(self):
        out = f'<Device Name="{attr(self.name)}"'
        if self.dtc:
            out += f' DTC="{self.dtc}"'
        if self.obd:
            out += f' OBD="{self.obd}"'
        if self.type != 1:
            out += f' Type="{self.type}"'
        if self.freeze_frame:
            out += f' FreezeFrame="{attr(self.freeze_frame)}"'
        if not (self.mnemonic or self.datas or self.tests):
            return out + "/>\n"
        out += ">"
        if self.mnemonic:
            out += f"\n<Mnemonic>{text(self.mnemonic)}</Mnemonic>\n"
        for data in self.datas:
            name, flag = data if isinstance(data, tuple) else (data, False)
            out += f'<DeviceData Name="{attr(name)}" FailureFlag="{int(flag)}"/>'
        return out + "".join(test.xml() for test in self.tests) + "</Device>\n"


DEVICES_OPEN = "\n<Devices>\n"
DEVICES_CLOSE = "</Devices>"
