#!/usr/bin/env python3
# SPDX-FileCopyrightText: the Kelmar developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""Writes the generated part of the demonstration site: ECU files, addressing and projects.

  tools/make_site.py            into site/
  tools/make_site.py --check    says which files differ, and ends with 1 when one does
"""

import argparse
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parents[1]
sys.dont_write_bytecode = True
sys.path.insert(0, str(ROOT / "tools"))

from sitekit import bellorme, functions, norvale, tervane  # noqa: E402
from ecukit.xml import attr  # noqa: E402

PROJECTS = (
    ("Norvale", (("NV1", "Sillage"), ("NV1_PH2", "Sillage, second phase"), ("NV2", "Sillage estate"))),
    ("Tervane", (("TK4", "Kobalt 4"), ("TK4E", "Kobalt 4 electric"))),
    ("Bellorme", (("BC", "Célestine"), ("BC_2009", "Célestine, before 2009"))),
)


def projects_file():
    out = '<?xml version="1.0" encoding="UTF-8"?>\n<projects>\n'
    for maker, rows in PROJECTS:
        out += f'  <Manufacturer name="{attr(maker)}">\n'
        out += "".join(f'    <project code="{attr(code)}" name="{attr(name)}"/>\n' for code, name in rows)
        out += "  </Manufacturer>\n"
    return out + "</projects>\n"


def files():
    for vehicle in (norvale, tervane, bellorme):
        for path, make in vehicle.FILES.items():
            yield f"vehicles/{path}.xml", "".join(make().check().parts())
    yield "GenericAddressing.xml", functions.addressing_file()
    yield "projects.xml", projects_file()


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--check", action="store_true")
    parser.add_argument("--site", type=Path, default=ROOT / "site")
    options = parser.parse_args()
    differs = False
    for name, content in files():
        path, wanted = options.site / name, content.encode()
        if options.check:
            if not path.is_file() or path.read_bytes() != wanted:
                print(f"{path} differs")
                differs = True
        else:
            path.parent.mkdir(parents=True, exist_ok=True)
            path.write_bytes(wanted)
    return 1 if differs else 0


if __name__ == "__main__":
    sys.exit(main())
