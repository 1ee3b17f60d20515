#!/usr/bin/env python3
# SPDX-FileCopyrightText: the Kelmar developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""Makes an ECU file of any size, or a data root with a tree of many files, for the benchmarks.

  tools/make_ecu.py --size 20M --seed 1 --protocol can -o big.xml
  tools/make_ecu.py --size 2M --everywhere "Vehicle speed" -o used-everywhere.xml
  tools/make_ecu.py --tree /tmp/root --files 2000 --each 100k

The same arguments give the same bytes. A file reads as the editor itself saves it: loading and
saving it with the clock at the date of its generator gives it back byte for byte, except for
`--protocol iso8`, which comes back as another protocol on purpose.
"""

import argparse
import random
import sys
from pathlib import Path

sys.dont_write_bytecode = True
sys.path.insert(0, str(Path(__file__).parent))

from ecukit import words  # noqa: E402
from ecukit.bulk import Bulk  # noqa: E402
from ecukit.xml import FOOT, KINDS, Identity, Link, auto_idents, head  # noqa: E402

FUNCTIONS = (("Engine", 122), ("Automatic gearbox", 110), ("ABS/ESP", 1), ("Airbag", 44),
             ("Body controller", 38), ("Climate control", 41), ("Instrument cluster", 81),
             ("Power steering", 4), ("Battery manager", 180), ("Parking brake", 13))
FAMILIES = ("Powertrain", "Chassis", "Body", "Comfort", "Safety")
TREE_KINDS = ("can", "can", "can29", "canfd", "ip", "fast", "fast-multi", "slow", "slow-multi")


def size_argument(text):
    factor = {"k": 1000, "M": 1000_000, "G": 1000_000_000}.get(text[-1:], 0)
    number = text[:-1] if factor else text
    if not number.isdigit() or int(number) == 0:
        raise argparse.ArgumentTypeError(f"'{text}' is no size; say 5000, 100k or 20M")
    return int(number) * (factor or 1)


def idents(rng, count):
    rows = []
    for _ in range(count):
        row = (rng.randrange(1, 256), rng.choice(words.SUPPLIERS), f"{rng.randrange(0x10000):04X}",
               f"{rng.randrange(0x10000):04X}")
        if row not in rows:
            rows.append(row)
    return rows


def ecu_parts(seed, size, kind, little_endian=False, everywhere="", name="", function=("Engine", 122)):
    """The file as a stream of texts, about `size` bytes in all."""
    rng = random.Random(seed)
    link = Link(kind)
    if link.extended:
        link.send, link.receive = 0x18DA10F1, 0x18DAF110
    identity = Identity(
        name or f"Generated {function[0]} {seed}", function[0], function[1], link,
        logical_address=f"{function[1]:02X}", group="Generated", language="English",
        comment=f"Generated database, seed {seed}.\r\nAll names are invented.",
        date="2026-01-15", projects=("NV1", "TK4"))
    start = head() + identity.xml() + auto_idents(idents(rng, 5 + seed % 16))
    bulk = Bulk(seed, 1, little_endian, everywhere)
    yield start
    yield from bulk.fit(max(1, size - len(start.encode()) - len(FOOT))).sections()
    yield FOOT


def write(path, parts):
    with open(path, "wb") as file:
        buffer, held = [], 0
        for part in parts:
            buffer.append(part)
            held += len(part)
            if held > 1 << 20:
                file.write("".join(buffer).encode())
                buffer, held = [], 0
        file.write("".join(buffer).encode())


def write_tree(root, files, each, seed):
    """A data root of its own: `--site DIR` of the programs opens it."""
    root = Path(root)
    rng = random.Random(seed)
    for i in range(files):
        vehicle, family = i // 50, FAMILIES[i // 10 % len(FAMILIES)]
        folder = root / "vehicles" / f"Vehicle {vehicle + 1:03d}" / family
        folder.mkdir(parents=True, exist_ok=True)
        function = FUNCTIONS[rng.randrange(len(FUNCTIONS))]
        kind = TREE_KINDS[rng.randrange(len(TREE_KINDS))]
        name = f"{function[0]} {i + 1:04d}"
        file = folder / (name.replace("/", "-").replace(" ", "_") + ".xml")
        write(file, ecu_parts(seed * 100_000 + i, each, kind, rng.random() < 0.2, name=name,
                              function=function))
    (root / "parameters.xml").write_text(
        '<?xml version="1.0" encoding="UTF-8"?>\n<site name="Generated tree" key="GEN">\n'
        "  <addressingFile>GenericAddressing.xml</addressingFile>\n"
        '  <dataSets>\n    <dataSet label="Generated" folder="vehicles"/>\n  </dataSets>\n'
        "  <urlRef><downloads/></urlRef>\n</site>\n", encoding="utf-8")
    rows = "".join(f'  <Function Name="{name}" Address="{address}"/>\n' for name, address in FUNCTIONS)
    (root / "GenericAddressing.xml").write_text(
        f'<?xml version="1.0" encoding="UTF-8"?>\n<Functions>\n{rows}</Functions>\n', encoding="utf-8")


def main():
    parser = argparse.ArgumentParser(description=__doc__,
                                     formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--size", type=size_argument, default=1000_000, help="bytes, or 100k, 20M")
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--protocol", choices=KINDS, default="can")
    parser.add_argument("--endian", choices=("big", "little"), default="big")
    parser.add_argument("--everywhere", metavar="NAME", default="",
                        help="one data that every request, device and screen uses")
    parser.add_argument("-o", "--output", metavar="FILE")
    parser.add_argument("--tree", metavar="DIR", help="make a data root with many files instead")
    parser.add_argument("--files", type=int, default=2000)
    parser.add_argument("--each", type=size_argument, default=100_000)
    options = parser.parse_args()
    if options.tree:
        if options.output:
            parser.error("--tree and -o exclude each other")
        write_tree(options.tree, options.files, options.each, options.seed)
    elif options.output:
        write(options.output, ecu_parts(options.seed, options.size, options.protocol,
                                        options.endian == "little", options.everywhere))
    else:
        parser.error("say where to: -o FILE or --tree DIR")


if __name__ == "__main__":
    main()
