# SPDX-FileCopyrightText: the Kelmar developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""Builds an ECU the way an engineer describes it: identifiers with their fields in order, faults as
a table, screens as lists. Bytes, bits, reference marks and geometry follow from that."""

from . import screens
from .bulk import Bulk
from .screens import Button, Display, Label, Screen
from .xml import (DATAS_CLOSE, DATAS_OPEN, DEVICES_CLOSE, DEVICES_OPEN, FOOT, REQUESTS_CLOSE, Data,
                  Device, Request, Test, auto_idents, head, position, requests_open)


def num(name, bits=8, unit="", a=1, b=0, c=1, **more):
    return Data(name, bits, unit=unit, a=a, b=b, c=c, **more)


def lst(name, items, bits=8, **more):
    rows = tuple(items.items()) if isinstance(items, dict) else items
    return Data(name, bits, items=tuple((v, t) if isinstance(t, str) else (v, *t) for v, t, *_ in
                                        (r if len(r) == 2 else (r[0], r[1:]) for r in rows)), **more)


def txt(name, count, is_ascii=True, **more):
    return Data(name, int(count * 8), is_bytes=True, ascii=is_ascii, **more)


FLAG = {0: "No", 1: "Yes"}


class Ecu:
    def __init__(self, identity, idents=(), little_endian=False):
        self.identity = identity
        self.idents = list(idents)
        self.little_endian = little_endian
        self.datas, self.requests, self.devices, self.categories = {}, {}, [], []
        self._where = {}  # data -> names of the requests that carry it, and on which side
        self._referenced = set()
        self._flags = set()
        self.bulk = None

    # --- data and requests ------------------------------------------------------------------------

    def add(self, *datas):
        for data in datas:
            if data.name.casefold() in (n.casefold() for n in self.datas):
                raise ValueError(f"{self.identity.name}: data '{data.name}' twice")
            if len(data.name) > 70:
                raise ValueError(f"data name too long: {data.name}")
            self.datas[data.name] = data
        return self

    def request(self, name, sent, reply="", min_bytes=None, fields=(), start=None, parameters=(),
                sent_start=None, **more):
        """`fields` in reply order: a Data (defined here), a name (defined before), or a number of
        bytes to skip; a tuple (field, byte, bit) stands where it says. `parameters` likewise, in the
        sent frame."""
        if name.casefold() in (n.casefold() for n in self.requests):
            raise ValueError(f"{self.identity.name}: request '{name}' twice")
        request = Request(name, sent, reply, **more)
        length = len(reply) // 2
        received, end = self._place(name, fields, start or length + 1, False)
        request.received_positions = received
        request.min_bytes = min_bytes or max(length, end - 1, 1)
        given, end = self._place(name, parameters, sent_start or len(sent) // 2 + 1, True)
        request.sent_positions = given
        request.sent = sent.ljust(2 * (end - 1), "0") if parameters else sent
        self.requests[name] = request
        return self

    def _place(self, request, fields, byte, sent):
        out, bit, end = [], 0, byte
        for item in fields:
            if isinstance(item, int):
                byte, bit = byte + item + (bit > 0), 0
                end = max(end, byte)
                continue
            endian = ""
            if isinstance(item, tuple):
                item, byte, bit, *rest = item
                endian = rest[0] if rest else ""
            if isinstance(item, Data):
                self.add(item)
            data = item if isinstance(item, Data) else self.datas[item]
            if bit and (data.bits >= 8 or bit + data.bits > 8):
                byte, bit = byte + 1, 0
            ref = data.name not in self._referenced
            self._referenced.add(data.name)
            where = self._where.setdefault(data.name, {})
            if request in where:
                raise ValueError(f"'{data.name}' twice in '{request}'")
            where[request] = sent
            out.append(position(data.name, byte, bit, ref, endian))
            past = bit + data.bits
            end = max(end, byte + -(-past // 8))
            byte, bit = byte + past // 8, past % 8
        return out, end

    def did(self, number, name, *fields, write=False, comment="", write_comment="", official=False,
            snapshot=False):
        n = f"{number:04X}"
        self.request("DataRead." + name, "22" + n, "62" + n, fields=fields, comment=comment,
                     maintainability=official, manual=snapshot)
        if write:
            read = self.requests["DataRead." + name]
            names = [f.name if isinstance(f, Data) else f for f in fields if not isinstance(f, int)]
            self.request("DataWrite." + name, "2E" + n, "6E" + n, parameters=names, sent_start=4,
                         comment=write_comment, maintainability=official)
            self.requests["DataWrite." + name].sent = ("2E" + n).ljust(2 * read.min_bytes, "0")
        return self

    def local(self, number, name, *fields, write=False, **more):
        n = f"{number:02X}"
        self.request(name, "21" + n, "61" + n, fields=fields, **more)
        if write:
            names = [f.name if isinstance(f, Data) else f for f in fields if not isinstance(f, int)]
            self.request("Write " + name, "3B" + n, "7B" + n, parameters=names,
                         manual=True, deny=("AfterSales",))
        return self

    def sessions(self, uds=True):
        if uds:
            self.request("Start diagnostic session", "1003", "5003", manual=True, min_bytes=6)
            self.request("ECU reset", "1101", "5101", manual=True)
            self.request("Tester present", "3E00", "7E00")
            self.request("ClearDTC", "14FFFFFF", "54", manual=True)
        else:
            self.request("Start diagnostic session", "10C0", "50C0", manual=True)
            self.request("Tester present", "3E01", "7E")
            self.request("ClearDTC", "14FF00", "54FF00", manual=True)
        return self

    def read_dtc(self, uds=True):
        codes = tuple((d.dtc, d.name) for d in self.devices if d.dtc) or ((0, "None"),)
        name, sent, reply = ("ReadDTC", "1902FF", "5902") if uds else ("ReadDTC", "17FF00", "57")
        fields = [(Data("NDTC"), 2, 0), (Data("FirstDTC", 16, items=codes), 5, 0),
                  (lst("Type Of Fault", {0: "No possible classification", 1: "Open circuit",
                                         2: "Short circuit to ground", 3: "Short circuit at battery +",
                                         7: "No signal"}, 5), 7, 0),
                  (lst("Current Failure", {0: "Not present", 1: "Present"}, 1), 7, 5),
                  (lst("Historical Failure", {0: "Not stored", 1: "Stored"}, 1), 7, 6)]
        parameters = [(Data("MoreDTC", signed=True), 3, 0)]
        return self.request(name, sent, reply, min_bytes=7, fields=fields, parameters=parameters,
                            sent_start=3, comment="Read by the fault page of the tool.\r\n"
                            "One code after the other: do not change the positions.")

    # --- devices ----------------------------------------------------------------------------------

    def faults(self, stored_sent, stored_reply, present_sent, present_reply, *rows):
        """`rows`: (device, dtc, {options}, (test type, description, {options})...). Each test gets
        a stored and a present flag, which go bit by bit into two requests."""
        stored, present = [], []
        for name, dtc, options, *tests in rows:
            made = []
            for kind, description, *more in tests:
                label = f"{name} - {description}"[:58]
                flags = [lst(f"{label} ({w})", FLAG, 1) for w in ("stored", "present")]
                stored.append(flags[0])
                present.append(flags[1])
                made.append(Test(kind, description, stored=(flags[0].name,), present=(flags[1].name,),
                                 **(more[0] if more else {})))
            self.devices.append(Device(name, dtc, tests=tuple(made), **options))
        self.request("Stored fault flags", stored_sent, stored_reply, fields=stored)
        self.request("Present fault flags", present_sent, present_reply, fields=present)
        return self

    def device(self, name, **options):
        self.devices.append(Device(name, **options))
        return self

    # --- screens ----------------------------------------------------------------------------------

    def category(self, name):
        self.categories.append((name, []))
        return self

    def screen(self, name, *shown, title="", buttons=(), init=(), ranges=None, labels=(), colour=0xFFFFFF,
               columns=1):
        """`shown`: (request, data...) groups; a group of a request alone shows the whole request.
        `buttons`: (caption, message, (delay, request)...). `ranges`: data name -> ranges."""
        ranges = ranges or {}
        screen = Screen(name, colour, width=800 + 8600 * columns, init=tuple(init))
        screen.labels.append(Label(title or name, 300, 150, width=7800, size=14, bold=True, alignment=2))
        top, column, lowest = 800, 0, 0
        rows = [(request, data) for request, *datas in shown for data in (datas or [""])]
        per_column = -(-len(rows) // columns)
        for i, (request, data) in enumerate(rows):
            if i and i % per_column == 0:
                lowest, top, column = max(lowest, top), 800, column + 1
            screen.displays.append(Display(
                data, request, 300 + 8600 * column, top, 4200, 7800,
                sent=bool(data) and self._where[data][request], ranges=tuple(ranges.get(data, ()))))
            top += 345
        top = max(lowest, top) + 150
        for text_ in labels:
            screen.labels.append(Label(text_, 300, top, width=7800, size=9, italic=True, colour=0x808080))
            top += 360
        for i, (caption, message, *steps) in enumerate(buttons):
            screen.buttons.append(Button(caption, 300 + 2400 * (i % 3), top + 600 * (i // 3),
                                         message=message, steps=tuple(steps)))
        screen.height = max(4000, top + 600 * -(-len(buttons) // 3) + 600)
        self.categories[-1][1].append(screen)
        return self

    # --- the file ---------------------------------------------------------------------------------

    def grow(self, size, seed, mark):
        """Adds generated content until the file has about `size` bytes."""
        plain = len("".join(self.parts()).encode())
        self.bulk = Bulk(seed, 1, self.little_endian, mark=mark, first_did=0x3000).fit(size - plain)
        return self

    def check(self):
        for device in self.devices:
            for name in device.datas:
                if name not in self.datas:
                    raise ValueError(f"device '{device.name}': no data '{name}'")
            if device.freeze_frame and device.freeze_frame not in self.requests:
                raise ValueError(f"device '{device.name}': no request '{device.freeze_frame}'")
        for _, all_screens in self.categories:
            for screen in all_screens:
                steps = [s for b in screen.buttons for s in b.steps] + list(screen.init)
                for name in [n for _, n in steps] + [d.request for d in screen.displays]:
                    if name not in self.requests:
                        raise ValueError(f"screen '{screen.name}': no request '{name}'")
        return self

    def parts(self):
        bulk = self.bulk
        yield head() + self.identity.xml() + auto_idents(self.idents)
        yield DATAS_OPEN
        yield from (d.xml() for d in self.datas.values())
        if bulk:
            yield from bulk.all_datas()
        yield DATAS_CLOSE + requests_open(self.little_endian)
        yield from (r.xml() for r in self.requests.values())
        if bulk:
            yield from bulk.all_requests()
        yield REQUESTS_CLOSE + DEVICES_OPEN
        yield from (d.xml() for d in self.devices)
        if bulk:
            yield from bulk.all_devices()
        yield DEVICES_CLOSE + screens.categories_open()
        for name, all_screens in self.categories:
            yield screens.category_open(name) + "".join(s.xml() for s in all_screens) + screens.CATEGORY_CLOSE
        if bulk:
            yield from bulk.all_categories()
        yield screens.CATEGORIES_CLOSE + FOOT
