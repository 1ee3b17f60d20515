# SPDX-FileCopyrightText: the Kelmar developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""Any amount of plausible content, a group at a time.

A group is a handful of data, the requests that carry them, a device with its tests; four groups
share a screen, eight screens a category. Each group is made from the seed and its number alone, so
that the sections of a file can be streamed one after the other without keeping the model.
"""

import random
from dataclasses import dataclass

from . import words
from .screens import (CATEGORIES_CLOSE, CATEGORY_CLOSE, Button, Display, Label, Range, Screen,
                      categories_open, category_open)
from .xml import (DATAS_CLOSE, DATAS_OPEN, DEVICES_CLOSE, DEVICES_OPEN, REQUESTS_CLOSE, Data, Device,
                  Request, Test, position, requests_open)

GROUPS_PER_SCREEN = 4
SCREENS_PER_CATEGORY = 8

_bytes_per_group = {}  # of a sample, measured once a run


@dataclass
class Group:
    number: int
    did: str
    title: str
    values: list  # Data, scaled or lists
    flags: list  # Data of one bit
    identity: Data  # bytes
    rng: random.Random

    @property
    def read_name(self):
        return "DataRead." + self.title

    @property
    def write_name(self):
        return "DataWrite." + self.title


class Bulk:
    """`everywhere`: name of one data that every request, device and screen uses as well."""

    def __init__(self, seed=1, groups=1, little_endian=False, everywhere="", first_did=0x2000, mark=""):
        self.seed = seed
        self.groups = groups
        self.little_endian = little_endian
        self.everywhere = everywhere
        self.first_did = first_did
        self.mark = mark

    def group(self, g):
        rng = random.Random(self.seed * 1_000_003 + g)
        serial = f"{self.mark}{g + 1:04d}"
        quantity = words.QUANTITIES[rng.randrange(len(words.QUANTITIES))]
        values = []
        for k in range(rng.randrange(6, 11)):
            values.append(self._value(rng, f"{serial}.{k + 1}"))
        flags = [Data(f"Fault {kind} {serial}-{k}", bits=1, items=words.FLAG)
                 for k in (1, 2) for kind in ("stored", "present")]
        identity = Data(f"Part number {serial}", bits=8 * rng.randrange(4, 25), is_bytes=True,
                        ascii=rng.random() < 0.7)
        did = f"{(self.first_did + g) & 0xFFFF:04X}"
        title = f"{quantity[0]} {words.PLACES[g % len(words.PLACES)]} {serial}"
        return Group(g, did, title, values, flags, identity, rng)

    @staticmethod
    def _value(rng, serial):
        place = words.PLACES[rng.randrange(len(words.PLACES))]
        if rng.random() < 0.3:
            data = Data(f"{words.STATES[rng.randrange(len(words.STATES))]} {place} {serial}",
                        bits=rng.choice((2, 3, 4, 8)),
                        items=words.LISTS[rng.randrange(len(words.LISTS))])
        else:
            name, unit, step, offset, bits, signed = words.QUANTITIES[
                rng.randrange(len(words.QUANTITIES))]
            data = Data(f"{name} {place} {serial}", bits=bits, unit=unit, a=step, b=offset,
                        c=rng.choice((1, 1, 1, 10, 100)), signed=signed,
                        format=rng.choice(("", "", "0.0", "0.00")))
        chance = rng.random()
        if chance < 0.25:
            data.comment = words.COMMENTS[rng.randrange(len(words.COMMENTS))]
        if chance < 0.1:
            data.sheet = words.SHEETS[rng.randrange(len(words.SHEETS))]
        if chance > 0.7:
            data.mnemonic = f"VX{serial.replace('.', '_')}"
        return data

    # --- pieces of one group --------------------------------------------------------------------

    def datas(self, group):
        return "".join(d.xml() for d in group.values + group.flags + [group.identity])

    def _everywhere(self, request, ref=False):
        """Appended as one more byte of the reply."""
        if self.everywhere:
            request.min_bytes += 1
            request.received_positions.append(position(self.everywhere, request.min_bytes, 0, ref))
        return request

    def requests(self, group):
        rng, requests = group.rng, []
        other = "Big" if self.little_endian else "Little"
        read = Request(group.read_name, "22" + group.did, "62" + group.did)
        byte, bit = 4, 0
        for data in group.values + group.flags:
            if data.bits >= 8 or bit + data.bits > 8:
                if bit:
                    byte, bit = byte + 1, 0
            mixed = data.bits > 8 and rng.random() < 0.05
            read.received_positions.append(position(data.name, byte, bit, True, other if mixed else ""))
            end = bit + data.bits
            byte, bit = byte + end // 8, end % 8
        if bit:
            byte += 1
        read.received_positions.append(position(group.identity.name, byte, 0, True))
        read.min_bytes = byte + group.identity.bits // 8 - 1
        read.maintainability = rng.random() < 0.2
        if rng.random() < 0.3:
            read.comment = words.COMMENTS[rng.randrange(len(words.COMMENTS))]
        requests.append(self._everywhere(read, group.number == 0))

        size = read.min_bytes - 3
        write = Request(group.write_name, "2E" + group.did + "00" * size, "6E" + group.did, 3)
        for data in group.values[:3]:
            if data.bits % 8 == 0:
                write.sent_positions.append(position(data.name, 4 + len(write.sent_positions) * 3))
        write.sent = write.sent.ljust(2 * (3 + 3 * len(write.sent_positions)), "0")
        write.manual = True
        write.deny = rng.choice(((), ("Plant",), ("NoSDS", "AfterSales"), ("AfterSales", "Supplier")))
        requests.append(self._everywhere(write))

        if group.number % 7 == 3:
            length = rng.randrange(200, 2000)
            frame = Request(f"Memory block {group.title}", "23" + group.did + "0000",
                            "63" + group.did + rng.randbytes(length).hex().upper(), length + 3)
            frame.variable = True
            frame.shift = 1
            frame.received_positions.append(position(group.identity.name, 4))
            requests.append(self._everywhere(frame))
        return "".join(r.xml() for r in requests)

    def device(self, group):
        g, rng = group.number, group.rng
        tests = tuple(
            Test(k + 1, words.TESTS[rng.randrange(len(words.TESTS))],
                 obd=(g * 2 + k + 1) if rng.random() < 0.5 else 0,
                 severity=rng.randrange(1, 4), autocheck=rng.random() < 0.8,
                 stored=(group.flags[2 * k].name,), present=(group.flags[2 * k + 1].name,))
            for k in range(2))
        datas = tuple(d.name for d in group.values[:2])
        if self.everywhere:
            # A flag belongs to one device only; the others hold the data as theirs.
            if g == 0:
                tests += (Test(9, "Seen everywhere", stored=(self.everywhere,)),)
            else:
                datas += (self.everywhere,)
        kind = words.DEVICE_KINDS[rng.randrange(len(words.DEVICE_KINDS))]
        return Device(f"{kind} {group.title}", dtc=(0x9000 + g) & 0xFFFF, obd=0,
                      type=rng.randrange(1, 5), datas=datas, tests=tests,
                      freeze_frame=group.read_name if rng.random() < 0.4 else "",
                      mnemonic=f"D{g:05d}" if rng.random() < 0.5 else "").xml()

    def screen(self, s):
        """Screen number `s`, of the groups that are its own."""
        first = s * GROUPS_PER_SCREEN
        groups = [self.group(g) for g in range(first, min(first + GROUPS_PER_SCREEN, self.groups))]
        rng = random.Random(self.seed * 7_919 + s)
        screen = Screen(f"Screen {self.mark}{s + 1:04d} {groups[0].title}", colour=rng.choice((0xFFFFFF, 0xF0F0E0)),
                        width=12000 + 600 * (s % 3), height=9000)
        screen.labels.append(Label(f"Écran {s + 1} : {groups[0].title}", 300, 120, width=9000, size=14, bold=True))
        top = 700
        for group in groups:
            screen.labels.append(Label(group.title, 300, top, size=9.75, colour=0x800000))
            top += 420
            for data in group.values[:4]:
                ranges = ()
                if data.items is None and rng.random() < 0.4:
                    ranges = (Range(rng.randrange(0, 50), 0x00FF00), Range(rng.randrange(100, 400) / 4, 0x0080FF),
                              Range(500, 0x0000FF, rng.choice(("440", "alarm"))))
                screen.displays.append(Display(data.name, group.read_name, 300, top, ranges=ranges))
                top += 330
            screen.buttons.append(Button(f"Read {group.did}", 9000, top - 700,
                                         message=rng.choice(("", "Contact on, engine off ?")),
                                         steps=((100, group.read_name), (250, group.write_name))))
        screen.displays.append(Display("", groups[0].read_name, 300, top))
        if self.everywhere:
            screen.displays.append(Display(self.everywhere, groups[0].read_name, 6000, top))
        screen.init = ((0, groups[0].read_name),)
        return screen.xml()

    # --- sections, streamed -----------------------------------------------------------------------

    def all_datas(self):
        if self.everywhere:
            yield Data(self.everywhere, comment="Used by every request, device and screen.").xml()
        for g in range(self.groups):
            yield self.datas(self.group(g))

    def all_requests(self):
        for g in range(self.groups):
            yield self.requests(self.group(g))

    def all_devices(self):
        for g in range(self.groups):
            group = self.group(g)
            yield self.device(group)

    def all_categories(self):
        screens = -(-self.groups // GROUPS_PER_SCREEN)
        for s in range(screens):
            if s % SCREENS_PER_CATEGORY == 0:
                if s:
                    yield CATEGORY_CLOSE
                yield category_open(f"Category {self.mark}{s // SCREENS_PER_CATEGORY + 1:03d}")
            yield self.screen(s)
        if screens:
            yield CATEGORY_CLOSE

    def sections(self):
        """Datas to categories, the body of a file that holds nothing else."""
        yield DATAS_OPEN
        yield from self.all_datas()
        yield DATAS_CLOSE + requests_open(self.little_endian)
        yield from self.all_requests()
        yield REQUESTS_CLOSE + DEVICES_OPEN
        yield from self.all_devices()
        yield DEVICES_CLOSE + categories_open()
        yield from self.all_categories()
        yield CATEGORIES_CLOSE

    def size_of(self, groups, seed=None):
        """Bytes of the body when it holds so many groups."""
        probe = Bulk(self.seed if seed is None else seed, groups, self.little_endian,
                     self.everywhere, self.first_did, self.mark)
        return sum(len(part.encode()) for part in probe.sections())

    def fit(self, size):
        """Sets the number of groups so that the body comes near to `size` bytes; one at least."""
        kind = (self.everywhere, self.mark)
        if kind not in _bytes_per_group:
            _bytes_per_group[kind] = self.size_of(160, 1) / 160
        groups = max(1, round(size / _bytes_per_group[kind]))
        if groups < 160:
            groups = max(1, round(size * groups / self.size_of(groups)))
        self.groups = groups
        return self
