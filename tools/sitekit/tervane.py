# SPDX-FileCopyrightText: the Kelmar developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""ECUs of the Tervane Kobalt 4: a combustion and an electric branch of one young vehicle."""

from ecukit.builder import Ecu, lst, num, txt
from ecukit.screens import Range
from ecukit.xml import Link

from .functions import who

PROJECTS = ("TK4",)
ELECTRIC = ("TK4", "TK4E")


def engine():
    ecu = Ecu(who("Engine T3 turbo", "Engine", "can29", group="Engine", language="English", projects=PROJECTS,
                  email="ecu-team@tervane.example"),
              [(12, "OKN", "1A00", "0300"), (15, "VXT", "7000", "0001"), (15, "VXT", "7000", "0002")])
    ecu.sessions()
    ecu.did(0x2001, "Engine values", num("Engine speed", 16, "rpm", .125), num("Boost pressure", 16, "mbar"),
            num("Lambda", 16, "", .0001220703125), num("Ignition advance", 8, "°", .5, -64),
            num("Knock <cyl. 1>", 8, "V", .02), num("Knock <cyl. 2>", 8, "V", .02), num("Knock <cyl. 3>", 8, "V", .02))
    ecu.did(0x2002, "Throttle", num("Throttle position", 16, "%", 1, 0, 100), lst("Throttle learnt", {0: "No", 1: "Yes"}, 1), write=True)
    ecu.faults("222031", "622031", "222032", "622032",
               ("Lambda probe", 0x0130, {"datas": ("Lambda",)}, (1, "Open circuit", {"obd": 304, "severity": 2}), (19, "Value > range", {"obd": 305})),
               ("Throttle", 0x0120, {"type": 3, "datas": ("Throttle position",)}, (6, "Not plausible", {"obd": 288, "severity": 3})))
    ecu.read_dtc()
    ecu.category("Engine").screen("Main values", ("DataRead.Engine values", "Engine speed", "Boost pressure", "Lambda", "Ignition advance"),
                                  ranges={"Boost pressure": (Range(0, 0xFFFFFF), Range(1800, 0x00A5FF), Range(2200, 0x0000FF, "1000"))},
                                  init=((0, "Start diagnostic session"),))
    return ecu.grow(700_000, 15, "T")


def battery():
    ecu = Ecu(who("HV battery manager <400 V>", "Battery manager", "canfd29", group="Electric drive", language="English",
                  projects=ELECTRIC, boot="BMS_BOOT", comment="96 cells, little endian throughout.\r\nDo not open the contactors while driving!"),
              [(30, "HBQ", "B400", "0001"), (30, "HBQ", "B400", "0002"), (30, "HBQ", "B410", "0001"), (31, "HBQ", "B500", "0001")],
              little_endian=True)
    ecu.sessions()
    ecu.did(0x6001, "Pack", num("Pack voltage", 16, "V", .1), num("Pack current", 16, "A", .05, -1600), num("State of charge", 16, "%", .01),
            num("State of health", 16, "%", .01), lst("Contactors", {0: "Open", 1: "Precharge", 2: "Closed", 3: "Welded!"}, 2))
    ecu.did(0x6010, "Cell voltages", *(num(f"Cell {i:02d} voltage", 16, "mV", .1) for i in range(1, 97)))
    ecu.did(0x6011, "Cell temperatures", *(num(f"Module {i:02d} temperature", 8, "°C", 1, -40) for i in range(1, 13)))
    ecu.request("Event log", "2360000010", "63", fields=[(num("Events in log", 16), 2, 0, "Big"), txt("Event records", 4080, False)],
                variable=True, comment="255 records of 16 bytes.")
    ecu.faults("226031", "626031", "226032", "626032",
               *((f"Module {i:02d}", 0x0A00 + i, {"type": 2, "datas": (f"Module {i:02d} temperature",), "freeze_frame": "DataRead.Pack"},
                  (9, "Temperature > 60 °C", {"severity": 3}), (8, "Temperature < -30 °C")) for i in range(1, 13)),
               ("Contactor +", 0x0AA1, {"type": 3}, (12, "Welded", {"severity": 4}), (1, "Coil open")))
    ecu.read_dtc()
    ecu.category("High voltage").screen(
        "Pack", ("DataRead.Pack", "Pack voltage", "Pack current", "State of charge", "Contactors"),
        ranges={"State of charge": (Range(0, 0x0000FF, "alarm"), Range(12.5, 0x00A5FF), Range(20, 0x00C000)),
                "Pack current": (Range(-1600, 0xFF0000), Range(-.5, 0xFFFFFF), Range(.5, 0x00C000))})
    ecu.screen("Cells", ("DataRead.Cell voltages", *(f"Cell {i:02d} voltage" for i in range(1, 97))), columns=4)
    ecu.screen("Modules", ("DataRead.Cell temperatures", *(f"Module {i:02d} temperature" for i in range(1, 13))), columns=2)
    return ecu


def gateway():
    ecu = Ecu(who("Central gateway CG-IP", "Central gateway", "ip", Link(ip="192.0.2.40", mac="02:00:5E:10:20:40"), group="Network",
                  language="English", projects=ELECTRIC, gateway="CGW"),
              [(50, "VXT", "C900", "0001"), (50, "VXT", "C900", "0002")])
    ecu.sessions()
    ecu.did(0x7001, "Networks", *(lst(f"Network {n}", {0: "Asleep", 1: "Awake", 2: "Bus off"}, 2) for n in ("powertrain", "chassis", "body", "multimedia")),
            num("Bus load", 8, "%", .5))
    ecu.did(0x7002, "Routing table", txt("Routing table", 1024, False), write=True, official=True)
    ecu.read_dtc()
    ecu.category("Network").screen("Networks", ("DataRead.Networks", "Network powertrain", "Network chassis", "Bus load"))
    return ecu.grow(500_000, 50, "G")


def telematics():
    ecu = Ecu(who("Telematics & emergency call", "Telematics", "ip", Link(ip="192.0.2.41", mac="02:00:5E:10:20:41"), group="Network", language="English",
                  projects=ELECTRIC), [(51, "LUM", "7E00", "0001")])
    ecu.sessions()
    ecu.did(0x7101, "Radio link", num("Signal level", 8, "dBm", 1, -150, signed=False), lst("Network", {0: "None", 2: "2nd gen.", 4: "4th gen.", 5: "5th gen."}, 4),
            txt("Operator", 16), txt("SIM number", 20))
    ecu.did(0x7102, "Emergency call", lst("Call state", {0: "Idle", 1: "Armed", 2: "Calling", 3: "Failed: no network"}, 3), num("Backup battery", 8, "V", .05))
    ecu.read_dtc()
    ecu.category("Telematics").screen("Link", ("DataRead.Radio link", "Signal level", "Operator"), ("DataRead.Emergency call", "Call state"))
    return ecu


def inverter():
    ecu = Ecu(who("Motor inverter 160 kW", "Motor inverter", "can29", group="Electric drive", language="English", projects=ELECTRIC),
              [(32, "HBQ", "D160", "0001"), (32, "HBQ", "D160", "0002")], little_endian=True)
    ecu.sessions()
    ecu.did(0x6101, "Motor", num("Motor speed", 16, "rpm", 1, 0, signed=True), num("Motor torque", 16, "N.m", .1, signed=True),
            *(num(f"Phase {p} current", 16, "A", .1, signed=True) for p in "UVW"), num("Rotor angle", 12, "°", .087890625))
    ecu.did(0x6102, "Resolver offset", num("Resolver offset", 16, "°", .01), write=True, write_comment="After a change of the motor.")
    ecu.faults("226131", "626131", "226132", "626132",
               ("Resolver", 0x0C10, {"datas": ("Rotor angle",)}, (7, "No signal", {"severity": 3}), (6, "Sine/cosine not plausible")),
               *((f"Phase {p} sensor", 0x0C20 + i, {"datas": (f"Phase {p} current",)}, (1, "Open circuit")) for i, p in enumerate("UVW")))
    ecu.read_dtc()
    ecu.category("Drive").screen("Motor", ("DataRead.Motor", "Motor speed", "Motor torque", "Phase U current", "Phase V current", "Phase W current"))
    return ecu.grow(120_000, 32, "M")


def charger():
    ecu = Ecu(who("On-board charger 11 kW", "On-board charger", "can29", group="Electric drive", language="English", projects=ELECTRIC),
              [(33, "LUM", "0B11", "0001")])
    ecu.sessions()
    ecu.did(0x6201, "Charging", num("Mains voltage", 16, "V", .1), num("Mains current", 8, "A", .25),
            lst("Plug", {0: "None", 1: "Plugged", 2: "Locked"}, 2), lst("Cable", {0: "13 A", 1: "20 A", 2: "32 A"}, 2))
    ecu.read_dtc()
    ecu.category("Charging").screen("Charging", ("DataRead.Charging", "Mains voltage", "Mains current", "Plug"))
    return ecu


def camera():
    ecu = Ecu(who("Front camera", "Front camera", "canfd", group="Driving aids", language="English", projects=PROJECTS),
              [(40, "ZPH", "CA00", "0001"), (40, "ZPH", "CA00", "0002"), (41, "ZPH", "CA10", "0001")])
    ecu.sessions()
    ecu.did(0x8001, "Calibration", num("Yaw angle", 16, "°", .001, signed=True), num("Pitch angle", 16, "°", .001, signed=True),
            lst("Calibration state", {0: "Done", 1: "Running", 2: "To be done", 3: "Failed <target not seen>"}, 3))
    ecu.did(0x8002, "Line detection", *(lst(f"Line {side}", {0: "None", 1: "Solid", 2: "Dashed"}, 2) for side in ("left", "right")))
    ecu.read_dtc()
    ecu.category("Camera").screen("Calibration", ("DataRead.Calibration", "Yaw angle", "Pitch angle", "Calibration state"))
    return ecu.grow(40_000, 40, "F")


def airbag():
    ecu = Ecu(who("Airbag T3", "Airbag", "can", group="Safety", language="English", projects=PROJECTS, failures=3),
              [(9, "OKN", "3300", "0007"), (11, "OKN", "3400", "0001")])
    ecu.sessions()
    ecu.did(0x9001, "Squibs", *(num(f"Squib {n} resistance", 16, "ohm", .01) for n in range(1, 13)))
    ecu.faults("229031", "629031", "229032", "629032",
               *((f"Squib {n}", 0x9000 + n, {"type": 3, "datas": (f"Squib {n} resistance",), "mnemonic": f"SQ{n:02d}"},
                  (1, "Resistance > maximum"), (2, "Resistance < minimum"), (3, "Short circuit to +")) for n in range(1, 13)))
    ecu.read_dtc()
    ecu.category("Safety").screen("Squibs", ("DataRead.Squibs", *(f"Squib {n} resistance" for n in range(1, 13))), columns=2)
    return ecu


FILES = {
    "Tervane Kobalt 4/Powertrain/Engine_T3": engine,
    "Tervane Kobalt 4/Electric/HV_battery_manager": battery,
    "Tervane Kobalt 4/Electric/Motor_inverter": inverter,
    "Tervane Kobalt 4/Electric/On-board_charger": charger,
    "Tervane Kobalt 4/Network/Central_gateway": gateway,
    "Tervane Kobalt 4/Network/Telematics": telematics,
    "Tervane Kobalt 4/Safety/Airbag_T3": airbag,
    "Tervane Kobalt 4/Safety/Front_camera": camera,
}
