# SPDX-FileCopyrightText: the Kelmar developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""ECU functions of the demonstration site: the addressing file, and the identity of its ECUs."""

from ecukit.xml import Identity, Link, attr

# (name, address, normal identifiers or None, extended identifiers: 1 when the function has them)
TABLE = (
    ("Engine", 122, (2016, 2024), 1),
    ("Automatic gearbox", 110, (2017, 2025), 0),
    ("ABS/ESP", 1, (1856, 1888), 0),
    ("Airbag", 44, (1874, 1906), 1),
    ("Body controller", 38, (1861, 1893), 1),
    ("Climate control", 41, (1860, 1892), 0),
    ("Instrument cluster", 81, (1859, 1891), 0),
    ("Power steering", 4, (1858, 1890), 0),
    ("Parking brake", 13, (1877, 1909), 1),
    ("Battery manager", 180, None, 1),
    ("Motor inverter", 181, None, 1),
    ("On-board charger", 182, None, 1),
    ("DC/DC converter", 183, None, 1),
    ("Central gateway", 210, (1872, 1904), 1),
    ("Telematics", 214, (1873, 1905), 0),
    ("Immobiliser", 84, None, 0),
    ("Door lock control", 86, None, 0),
    ("Suspension", 8, (1857, 1889), 0),
    ("Front camera", 37, (1879, 1911), 1),
    ("Front radar", 36, (1878, 1910), 1),
    ("Rear radar", 35, (1876, 1908), 1),
    ("Headlamp levelling", 16, (1862, 1894), 0),
    ("Tyre pressure monitor", 18, (1863, 1895), 0),
    ("Seat memory", 46, (1864, 1896), 0),
    ("Left door module", 134, (1865, 1897), 0),
    ("Right door module", 135, (1866, 1898), 0),
    ("Trailer module", 148, (1867, 1899), 0),
    ("Radio", 247, (1868, None), 0),
    ("Navigation", 88, (1869, 1901), 0),
    ("Amplifier", 89, (1870, 1902), 0),
    ("Parking aid", 14, (1871, 1903), 0),
    ("Rain & light sensor", 24, None, 0),
    ("Steering column lock", 21, (1880, 1912), 0),
    ("Steering angle sensor", 3, (1881, 1913), 0),
    ("Brake booster", 5, (1882, 1914), 1),
    ("Exhaust additive", 12, (1883, None), 0),
    ("Gas control", 123, (2018, 2026), 0),
    ("Glow plug unit", 9, None, 0),
    ("Fuel pump unit", 124, (2019, 2027), 0),
    ("Transfer case", 27, (1884, 1916), 0),
    ("Wiper module", 33, (1885, 1917), 0),
    ("Keyless access", 85, (1886, 1918), 1),
    ("Roof control <soft top>", 60, (1887, 1919), 0),
    ("Vehicle messages", 254, None, 0),
)

_BY_NAME = {row[0]: row for row in TABLE}


def extended_ids(address):
    return 0x18DA00F1 | address << 8, 0x18DAF100 | address


def who(name, function, kind, link=None, **more):
    """Identity of an ECU with the address and the identifiers of its function."""
    _, address, normal, extended = _BY_NAME[function]
    link = link or Link(kind)
    link.kind = kind
    if link.extended:
        link.send, link.receive = extended_ids(address)
    elif kind in ("can", "canfd"):
        link.send, link.receive = normal
    more.setdefault("logical_address", f"{address:02X}" if normal or extended else "")
    more.setdefault("date", "2026-01-15")
    return Identity(name, function, address, link, **more)


def addressing_file():
    out = '<?xml version="1.0" encoding="UTF-8"?>\n<Functions>\n'
    for name, address, normal, extended in TABLE:
        out += f'  <Function Name="{attr(name)}" Address="{address}">\n'
        main = normal or (extended_ids(address) if extended else None)
        if main:
            out += f"    <XId>{main[0]}</XId>\n"
            if main[1] is not None:
                out += f"    <RId>{main[1]}</RId>\n"
            out += ('    <ProtocolList>\n      <Protocol Name="DiagOnCAN">\n'
                    f"        <LogicalAddress>{address:02X}</LogicalAddress>\n")
            for flag, pair in ((0, normal), (1, extended_ids(address) if extended else None)):
                if pair:
                    rid = f"<Rid>{pair[1]}</Rid>" if pair[1] is not None else ""
                    out += f'        <Address Extended="{flag}"><Xid>{pair[0]}</Xid>{rid}</Address>\n'
            out += "      </Protocol>\n    </ProtocolList>\n"
        out += "  </Function>\n"
    return out + "</Functions>\n"
