#!/usr/bin/env python3
# SPDX-FileCopyrightText: the Kelmar developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""The generated files hold nothing that the editor would drop, and the committed ones are those that
the tools write."""

import sys
import tempfile
import unittest
import xml.etree.ElementTree as tree
from pathlib import Path

sys.dont_write_bytecode = True
sys.path.insert(0, str(Path(__file__).resolve().parent))
import make_ecu
import make_samples
import make_site
from ecukit.xml import number_to_text

ECU = "{http://www.omnikor.example/2002/ECU}"
SCREENS = "{http://www.omnikor.example/2002/screens}"


def troubles(text):
    """What of this file would not survive loading, as readable lines."""
    target = tree.fromstring(text.encode()).find(ECU + "Target")
    found = []

    def unique(kind, names):
        seen = set()
        for name in names:
            key = name.casefold() if isinstance(name, str) else name
            if key in seen:
                found.append(f"{kind} '{name}' twice")
            seen.add(key)
        return seen

    # Collections without name space are made in the ECU's: the file declares it as the default.
    datas = {d.get("Name") for d in target.iter(ECU + "Data")}
    unique("Data", (d.get("Name") for d in target.iter(ECU + "Data")))
    for data in target.iter(ECU + "Data"):
        unique(f"value of {data.get('Name')}", (i.get("Value") for i in data.iter(ECU + "Item")))
    requests = {r.get("Name"): r for r in target.iter(ECU + "Request")}
    unique("Request", (r.get("Name") for r in target.iter(ECU + "Request")))
    positions, referenced = set(), set()
    for name, request in requests.items():
        placed = [p.get("Name") for p in request.iter(ECU + "DataItem")]
        unique(f"position in {name}", placed)
        for position in request.iter(ECU + "DataItem"):
            positions.add((name, position.get("Name")))
            if position.get("Name") not in datas:
                found.append(f"position of unknown '{position.get('Name')}' in '{name}'")
            if position.get("Ref") == "1":
                if position.get("Name") in referenced:
                    found.append(f"second reference of '{position.get('Name')}'")
                referenced.add(position.get("Name"))
    unique("Device", (d.get("Name") for d in target.iter(ECU + "Device")))
    unique("OBD", (t.get("OBD") for t in target.iter(ECU + "Test") if t.get("OBD")))
    used = set()
    for device in target.iter(ECU + "Device"):
        names = [d.get("Name") for d in device.iter(ECU + "DeviceData")]
        unique(f"data of device {device.get('Name')}", names)
        unique(f"test of {device.get('Name')}", (t.get("Type") for t in device.iter(ECU + "Test")))
        used.update(names)
        found += [f"device data '{n}' unknown" for n in names if n not in datas]
        for test in device.iter(ECU + "Test"):
            flags = [f.text for f in list(test.iter(ECU + "StoredFlag")) + list(test.iter(ECU + "PresentFlag"))]
            found += [f"flag '{f}' without reference" for f in flags if f not in referenced]
            found += [f"flag '{f}' used before" for f in flags if f in used]
            used.update(flags)
        if device.get("FreezeFrame") and device.get("FreezeFrame") not in requests:
            found.append(f"freeze frame '{device.get('FreezeFrame')}' unknown")
    unique("Category", (c.get("Name") for c in target.iter(SCREENS + "Category")))
    for element in list(target.iter(SCREENS + "Display")) + list(target.iter(SCREENS + "Input")):
        pair = (element.get("RequestName"), element.get("DataName"))
        if pair[0] not in requests or (pair[1] and pair not in positions):
            found.append(f"display of {pair}")
    found += [f"step of '{s.get('RequestName')}'" for s in target.iter(SCREENS + "Send") if s.get("RequestName") not in requests]
    return found


class GeneratedFiles(unittest.TestCase):
    def text(self, *arguments, **named):
        return "".join(make_ecu.ecu_parts(*arguments, **named))

    def test_of_every_protocol_lose_nothing(self):
        for kind in make_ecu.KINDS:
            with self.subTest(kind):
                self.assertEqual([], troubles(self.text(7, 60_000, kind, kind == "can29")))

    def test_with_a_planted_fault_are_caught(self):
        text = self.text(7, 20_000, "can")
        self.assertEqual([], troubles(text))
        flag = text[text.index("<StoredFlag>") + 12:text.index("</StoredFlag>")]
        for old, new in (("<Data Name=", '<Data Name="CONTACT" /><Data Name="Contact"/>\n<Data Name='),
                         ('<DataItem Name="', '<DataItem Name="no '), ('RequestName="', 'RequestName="no '),
                         (f"<StoredFlag>{flag}", "<StoredFlag>no"), ("</Devices>", f'<Device Name="x"><Test Type="1"><StoredFlag>{flag}</StoredFlag></Test></Device></Devices>'),
                         ('Test Type="2"', 'Test Type="1"')):
            with self.subTest(old):
                self.assertIn(old, text)
                self.assertNotEqual([], troubles(text.replace(old, new, 1)))

    def test_with_a_data_used_everywhere_lose_nothing(self):
        text = self.text(3, 200_000, "can", everywhere="Vehicle <speed>")
        self.assertEqual([], troubles(text))
        root = tree.fromstring(text.encode())
        requests = list(root.iter(ECU + "Request"))
        for request in requests:
            self.assertIn("Vehicle <speed>", [p.get("Name") for p in request.iter(ECU + "DataItem")])
        for device in root.iter(ECU + "Device"):
            names = [d.get("Name") for d in device.iter(ECU + "DeviceData")] + [f.text for f in device.iter(ECU + "StoredFlag")]
            self.assertIn("Vehicle <speed>", names)
        for screen in root.iter(SCREENS + "Screen"):
            self.assertIn("Vehicle <speed>", [d.get("DataName") for d in screen.iter(SCREENS + "Display")])

    def test_have_the_wanted_size(self):
        for size in (20_000, 100_000, 1_000_000, 3_000_000):
            with self.subTest(size):
                self.assertAlmostEqual(size, len(self.text(1, size, "can").encode()), delta=size * 0.15)

    def test_are_the_same_for_the_same_seed_and_others_for_another(self):
        self.assertEqual(self.text(5, 30_000, "ip"), self.text(5, 30_000, "ip"))
        self.assertNotEqual(self.text(5, 30_000, "ip"), self.text(6, 30_000, "ip"))

    def test_stand_in_a_tree_that_is_a_data_root(self):
        with tempfile.TemporaryDirectory() as folder:
            make_ecu.write_tree(folder, 12, 8000, 1)
            files = list(Path(folder, "vehicles").rglob("*.xml"))
            self.assertEqual(12, len(files))
            for file in files:
                self.assertEqual([], troubles(file.read_text(encoding="utf-8")))
            site = tree.parse(Path(folder, "parameters.xml")).getroot()
            self.assertEqual("vehicles", site.find("dataSets/dataSet").get("folder"))


class TheSite(unittest.TestCase):
    def test_is_what_the_tool_writes(self):
        for name, content in make_site.files():
            with self.subTest(name):
                self.assertEqual(content, (make_site.ROOT / "site" / name).read_bytes().decode())

    def test_loses_nothing_when_loaded(self):
        for name, content in make_site.files():
            if name.startswith("vehicles/"):
                with self.subTest(name):
                    self.assertEqual([], troubles(content))

    def test_names_only_projects_of_its_own(self):
        codes = {code for _, rows in make_site.PROJECTS for code, _ in rows}
        for name, content in make_site.files():
            if name.startswith("vehicles/"):
                target = tree.fromstring(content.encode()).find(ECU + "Target")
                projects = target.find("Projects")
                named = {p.tag for p in projects} if projects is not None else set()
                self.assertLessEqual(named, codes, name)


class TheSamples(unittest.TestCase):
    def test_are_what_the_tool_writes(self):
        folder = make_site.ROOT / "tests" / "data" / "good"
        with tempfile.TemporaryDirectory() as other:
            make_samples.write(Path(other))
            names = sorted(p.name for p in Path(other).iterdir())
            self.assertEqual(names, sorted(p.name for p in folder.iterdir()))
            for name in names:
                self.assertEqual(Path(other, name).read_bytes(), (folder / name).read_bytes(), name)


class NumberText(unittest.TestCase):
    def test_has_no_zero_before_the_point_and_no_exponent(self):
        for value, wanted in ((0.5, " .5"), (2, " 2"), (-0.25, "-.25"), (0.00001, " .00001"), (-40, "-40"),
                              (1234567.5, " 1234567.5"), (100000000, " 100000000"), (0, " 0")):
            self.assertEqual(wanted, number_to_text(value))


if __name__ == "__main__":
    unittest.main()
