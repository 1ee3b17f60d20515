# SPDX-FileCopyrightText: the Kelmar developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""ECUs of the Norvale Sillage: the saloon, with a network of every age."""

from ecukit.builder import Ecu, lst, num, txt
from ecukit.screens import Range
from ecukit.xml import Link

from .functions import who

ON_OFF = {0: "Off", 1: "On"}
PROJECTS = ("NV1", "NV1_PH2")


def _identification(ecu, supplier):
    ecu.did(0xF187, "Spare part number", txt("Spare part number", 10), official=True)
    ecu.did(0xF188, "Software number", txt("ECU software number", 10), official=True)
    ecu.did(0xF18A, "Supplier identifier", lst("System supplier", {1: "Other", 2: supplier}, 16))
    ecu.did(0xF190, "VIN", txt("VIN", 17, comment="Seventeen characters.\r\nWritten once, at the end of the line."),
            write=True, write_comment="Refused while the vehicle moves.", official=True)
    ecu.did(0xF18C, "Serial number", txt("Serial number", 8, False))
    return ecu


def _engine(name, idents, size, **more):
    ecu = Ecu(who(name, "Engine", "can", group="Engine", projects=PROJECTS, email="diag@norvale.example",
                  comment="Common rail engine control.\r\n\r\n- 4 cylinders\r\n- one pump, 1800 bar\r\n"
                          "- NOx trap <optional>", boot="BOOT_CR4", **more), idents)
    ecu.sessions()
    ecu.did(0x2001, "Engine state",
            num("Engine speed", 16, "rpm", .25, format="0", mnemonic="VX1NMOT",
                comment="Mean over one turn.\r\nZero below 60 rpm.",
                sheet="Check the gap of the sensor:\n0.8 mm to 1.4 mm."),
            num("Vehicle speed", 16, "km/h", .01, mnemonic="VX1VEH"),
            num("Coolant temperature", 8, "°C", 1, -40, mnemonic="VX1TCO"),
            num("Température d'huile", 8, "°C", 1, -40),
            lst("Engine running state", ((0, "Stopped"), (1, "Cranking", "Starter engaged."),
                                         (2, "Running"), (3, "Stop & start")), 3),
            lst("Clutch pedal", {0: "Released", 1: "Pressed"}, 1),
            lst("Brake pedal <main>", {0: "Released", 1: "Pressed"}, 1),
            lst("Brake pedal <redundant>", {0: "Released", 1: "Pressed"}, 1),
            num("Pedal position", 8, "%", .4))
    ecu.did(0x2002, "Rail",
            num("Rail pressure", 16, "bar", .1), num("Rail pressure set point", 16, "bar", .1),
            num("Pump duty cycle", 8, "%", .390625), num("Pression de suralimentation", 16, "hPa"))
    ecu.did(0x2003, "Injector corrections",
            *(num(f"Injector {n} correction", 12, "mg/cp", .0078125, signed=True) for n in (1, 2, 3, 4)),
            write=True, comment="Signed, per cylinder.", write_comment="Only after an injector was replaced.")
    ecu.did(0x2010, "Particle filter",
            num("Soot mass", 16, "g", .01), num("Distance since regeneration", 24, "km"),
            lst("Regeneration", {0: "None", 1: "Requested", 2: "Running", 3: "Refused: oil < minimum"}, 4),
            num("Leak current", 16, "A", .00001, comment="Very small: ten microamperes a step."))
    ecu.did(0x2050, "Freeze frame", "Engine speed", "Coolant temperature", "Rail pressure", snapshot=True)
    ecu.request("Regeneration start", "3101A050", "7101A050", manual=True, deny=("Plant",), min_bytes=5)
    ecu.request("Injector test", "2F2003", "6F2003", manual=True, sent_start=4, min_bytes=4,
                parameters=[lst("Injector to test", {1: "1", 2: "2", 3: "3", 4: "4"}), "Pump duty cycle"])
    ecu.request("Memory dump", "23148000000800", "63" + "".join(f"{(i * 37) % 256:02X}" for i in range(2048)),
                variable=True, comment="2 kB of calibration in one frame.",
                fields=[(txt("Calibration label", 16), 2, 0), (num("Calibration checksum", 32), 2046, 0)])
    ecu.faults("222201", "622201", "222202", "622202",
               ("Rail pressure sensor", 0x0190, {"mnemonic": "CAPT_RAIL", "datas": ("Rail pressure",),
                                                 "freeze_frame": "DataRead.Freeze frame"},
                (1, "Open circuit", {"obd": 400, "severity": 2}), (2, "Short circuit to ground", {"obd": 401}),
                (7, "Signal < minimum", {"autocheck": False})),
               ("Coolant sensor", 0x0115, {"datas": ("Coolant temperature",)},
                (1, "Open circuit", {"obd": 277}), (2, "Short circuit to ground")),
               ("Injecteur cylindre n° 1", 0x0201, {"type": 3, "datas": ("Injector 1 correction",)},
                (1, "Circuit ouvert", {"obd": 513, "severity": 3}), (3, "Court-circuit au +")),
               ("Injecteur cylindre n° 2", 0x0202, {"type": 3, "datas": ("Injector 2 correction",)},
                (1, "Circuit ouvert", {"obd": 514, "severity": 3}), (3, "Court-circuit au +")),
               ("Pedal <double track>", 0x2120, {"datas": ("Pedal position",)},
                (6, "Tracks not plausible", {"severity": 3})),
               ("Control unit", 0x0606, {"type": 2}, (13, "Internal anomaly")))
    ecu.read_dtc()
    _identification(ecu, "Okenum")
    ecu.category("Moteur").screen(
        "Engine main", ("DataRead.Engine state", "Engine speed", "Vehicle speed", "Coolant temperature",
                        "Température d'huile", "Engine running state", "Pedal position"),
        ("DataRead.Rail", "Rail pressure", "Rail pressure set point"), title="Engine <main values>",
        ranges={"Engine speed": (Range(0, 0xC0C0C0), Range(700, 0x00C000), Range(4500, 0x00A5FF, "440"),
                                 Range(5200.5, 0x0000FF, "alarm")),
                "Coolant temperature": (Range(-40, 0xFF8000), Range(60, 0x00C000), Range(112.5, 0x0000FF, "880"))},
        buttons=(("Read all", "", (0, "DataRead.Engine state"), (50, "DataRead.Rail")),
                 ("Reset ECU", "Contact on, engine stopped ?", (0, "Start diagnostic session"), (500, "ECU reset"))),
        init=((0, "Start diagnostic session"), (100, "DataRead.Engine state")))
    ecu.screen("Injectors", ("DataRead.Injector corrections", *(f"Injector {n} correction" for n in (1, 2, 3, 4))),
               ("Injector test", "Injector to test"), ("DataRead.Rail", "Pump duty cycle"),
               buttons=(("Test", "The engine must be stopped", (0, "Injector test")),),
               labels=("Values are per stroke.", "Un injecteur à la fois."))
    ecu.category("Dépollution").screen(
        "Particle filter", ("DataRead.Particle filter", "Soot mass", "Distance since regeneration", "Regeneration"),
        ("Regeneration start",), buttons=(("Regenerate", "Park outside. Continue ?", (0, "Regeneration start")),),
        ranges={"Soot mass": (Range(0, 0x00C000), Range(22.5, 0x00A5FF), Range(30, 0x0000FF, "alarm"))})
    return ecu.grow(size, len(idents) * 31, "C") if size else ecu


def engine_d12():
    return _engine("Engine CR4 D12", [(12, "OKN", "1A00", "0100"), (12, "OKN", "1A00", "0101"), (12, "OKN", "1A10", "0200")],
                   320_000, href="http://links.omnikor.example/engine-cr4-d12")


def engine_d14():
    return _engine("Engine CR4 D14", [(14, "OKN", "1B00", "0100"), (14, "OKN", "1B20", "0110")], 0)


def engine_old():
    ecu = Ecu(who("Injection essence S1 \"mono\"", "Engine", "fast", group="Engine", language="Français",
                  failures=2, projects=("NV1",), comment="Ancienne injection monopoint.\r\nSérie jusqu'en 2009."),
              [(5, "LUM", "0010", "0001"), (5, "LUM", "0010", "0002"), (6, "LUM", "0012", "0001")])
    ecu.sessions(False)
    ecu.local(0x01, "Mesures moteur", num("Régime moteur", 16, "tr/min", .25), num("Température d'eau", 8, "°C", 1, -40),
              num("Pression collecteur", 16, "mbar"), num("Tension batterie", 8, "V", .1),
              num("Richesse", 8, "", 1, 0, 128), lst("Papillon", {0: "Fermé", 1: "Ouvert", 2: "Pleine charge"}, 2),
              lst("Pompe à essence", ON_OFF, 1))
    ecu.local(0x02, "Adaptations", num("Adaptation ralenti", 8, "%", .5, signed=True),
              num("Adaptation mélange", 8, "%", .5, signed=True), write=True)
    ecu.local(0x80, "Identification", txt("Numéro de pièce", 5, False), txt("Logiciel", 2, False))
    ecu.faults("2110", "6110", "2111", "6111",
               ("Sonde d'eau", 0x1115, {"datas": ("Température d'eau",), "mnemonic": "CTN_EAU"},
                (1, "Circuit ouvert"), (2, "Court-circuit à la masse")),
               ("Papillon motorisé", 0x1220, {"type": 3}, (4, "Butée basse"), (5, "Butée haute")))
    ecu.read_dtc(False)
    ecu.category("Injection").screen("Mesures", ("Mesures moteur", "Régime moteur", "Température d'eau", "Papillon"),
                                     buttons=(("Effacer", "Effacer les défauts ?", (0, "ClearDTC")),))
    return ecu


def gearbox():
    ecu = Ecu(who("Boîte AT6", "Automatic gearbox", "can", group="Gearbox", projects=PROJECTS, gateway="CGW",
                  tool_address=True), [(7, "ZPH", "0600", "0001"), (7, "ZPH", "0600", "0002")])
    ecu.sessions()
    ecu.did(0x3001, "Gear", lst("Gear engaged", {**{i: f"Gear {i}" for i in range(1, 7)}, 0: "Neutral", 13: "Reverse"}, 4),
            lst("Lever", {0: "P", 1: "R", 2: "N", 3: "D", 4: "M <+>", 5: "M <->"}, 4),
            num("Oil temperature", 8, "°C", 1, -50), num("Turbine speed", 16, "rpm", .5),
            num("Line pressure", 16, "bar", .001))
    ecu.did(0x3010, "Clutch fill times", *(num(f"Clutch {c} fill time", 8, "ms", 2) for c in "ABCDE"), write=True)
    ecu.faults("223021", "623021", "223022", "623022",
               ("Speed sensor <turbine>", 0x0715, {"datas": ("Turbine speed",)}, (7, "No signal", {"obd": 1813})),
               ("Solenoid A", 0x0750, {"type": 3}, (1, "Open circuit"), (2, "Short circuit")))
    ecu.read_dtc()
    ecu.category("Gearbox").screen("Gear", ("DataRead.Gear", "Gear engaged", "Lever", "Oil temperature", "Line pressure"))
    return ecu


def abs_esp():
    wheels = ("avant gauche", "avant droite", "arrière gauche", "arrière droite")
    ecu = Ecu(who("ABS / ESP <gen. 9>", "ABS/ESP", "can", group="Brakes & stability", projects=("NV1", "NV1_PH2"),
                  comment="ESP avec aide au démarrage.\r\n<< À recalibrer après tout réglage de géométrie >>"),
              [(3, "GRD", "9A00", "0001"), (3, "GRD", "9A00", "0002"), (3, "GRD", "9A10", "0001"), (4, "GRD", "9B00", "0001")])
    ecu.sessions()
    ecu.did(0xD001, "Wheel speeds", *(num(f"Vitesse roue {w}", 16, "km/h", .01) for w in wheels))
    ecu.did(0xD002, "Dynamics", num("Lacet", 16, "°/s", .01, signed=True), num("Accélération latérale", 16, "m/s²", .001, signed=True),
            num("Angle volant", 16, "°", .1, -780), num("Pression maître-cylindre", 12, "bar", .1),
            lst("Frein <contact>", ON_OFF, 1), lst("ESP \"off\"", ON_OFF, 1))
    ecu.did(0xD010, "Calibration", lst("Calibration volant", {0: "Non faite", 1: "Faite", 2: "Échec > 3 essais"}, 2),
            num("Offset lacet", 8, "°/s", .01, signed=True), write=True)
    ecu.request("Pump test", "2FD0200305", "6FD02003", manual=True, deny=("NoSDS", "Plant", "AfterSales", "Engineering", "Supplier"),
                comment="Trois secondes au plus.\r\nVéhicule à l'arrêt !")
    ecu.faults("22D021", "62D021", "22D022", "62D022",
               *((f"Capteur de roue {w}", 0x4000 + i, {"datas": (f"Vitesse roue {w}",), "mnemonic": f"CAPT_{i}"},
                  (1, "Circuit ouvert", {"severity": 2}), (7, "Pas de signal"), (6, "Incohérent"))
                 for i, w in enumerate(wheels)),
               ("Pompe hydraulique", 0x4110, {"type": 3}, (1, "Open circuit"), (18, "Tension < 9 V")))
    ecu.read_dtc()
    _identification(ecu, "Gardenne")
    ecu.category("Freinage").screen(
        "Roues", ("DataRead.Wheel speeds", *(f"Vitesse roue {w}" for w in wheels)), title="Vitesses <roues>",
        init=((0, "Start diagnostic session"),),
        ranges={"Vitesse roue avant gauche": (Range(0, 0xFFFFFF), Range(2.75, 0x00FF00))})
    ecu.screen("Dynamique", ("DataRead.Dynamics", "Lacet", "Accélération latérale", "Angle volant", "Frein <contact>"),
               ("DataRead.Calibration", "Calibration volant"), ("DataWrite.Calibration", "Offset lacet"),
               buttons=(("Pompe", "Véhicule à l'arrêt ?", (0, "Pump test"), (3000, "Tester present")),))
    return ecu.grow(60_000, 9, "E")


def power_steering():
    ecu = Ecu(who("Direction assistée DAE2", "Power steering", "fast-multi", group="Steering", failures=1,
                  link=Link(key1=239, inter_byte=4)),
              [(2, "HBQ", "0200", "0010")], little_endian=True)
    ecu.sessions(False)
    ecu.local(0x10, "Mesures direction", num("Couple volant", 16, "N.m", .01, -327.68), num("Courant moteur", 16, "A", .1, signed=True),
              num("Température étage", 8, "°C", 1, -40), (num("Vitesse reçue", 16, "km/h", .01), 9, 0, "Big"),
              (lst("Mode", {0: "Normal", 1: "Ville", 2: "Dégradé"}, 3), 11, 2))
    ecu.faults("2120", "6120", "2121", "6121",
               ("Capteur de couple", 0, {"datas": ("Couple volant",)}, (1, "Voie 1 ouverte"), (2, "Voie 2 ouverte")))
    ecu.category("Direction").screen("Couple", ("Mesures direction", "Couple volant", "Courant moteur", "Mode"))
    return ecu


def parking_brake():
    ecu = Ecu(who("Frein de parking FPA", "Parking brake", "can29", group="Brakes & stability"),
              [(1, "GRD", "4400", "0003"), (1, "GRD", "4400", "0004")])
    ecu.sessions()
    ecu.did(0xE001, "Actuator", num("Effort câble gauche", 16, "N"), num("Effort câble droit", 16, "N"),
            lst("État du frein", {0: "Desserré", 1: "Serré", 2: "En cours", 3: "Inconnu"}, 2))
    ecu.request("Apply", "2FE0100301", "6FE01003", manual=True)
    ecu.request("Release", "2FE0100302", "6FE01003", manual=True)
    ecu.faults("22E021", "62E021", "22E022", "62E022",
               ("Moteur gauche", 0x5001, {"type": 3, "datas": ("Effort câble gauche",)}, (1, "Circuit ouvert"), (9, "Effort > seuil")),
               ("Moteur droit", 0x5002, {"type": 3, "datas": ("Effort câble droit",)}, (1, "Circuit ouvert"), (9, "Effort > seuil")))
    ecu.read_dtc()
    ecu.category("Frein").screen("Frein de parking", ("DataRead.Actuator", "Effort câble gauche", "Effort câble droit", "État du frein"),
                                 buttons=(("Serrer", "", (0, "Apply")), ("Desserrer", "Cales en place ?", (0, "Release"))))
    return ecu


def body():
    ecu = Ecu(who("Body controller BC-FD", "Body controller", "canfd", group="Body", projects=PROJECTS,
                  upload="http://upload.norvale.example/bc", comment="Central body controller on CAN-FD.\r\nFrames up to 4095 bytes."),
              [(21, "VXT", f"{0xC000 + 16 * i:04X}", f"{v:04X}") for i in range(4) for v in (1, 2, 3)])
    ecu.sessions()
    ecu.did(0x4001, "Doors", *(lst(f"Door {d}", {0: "Closed", 1: "Open"}, 1) for d in ("FL", "FR", "RL", "RR", "boot", "bonnet")))
    ecu.did(0x4002, "Lamps", *(lst(f"Lamp {p}", {0: "Off", 1: "On", 2: "Short circuit", 3: "Open circuit"}, 2)
                               for p in ("low beam left", "low beam right", "stop", "fog", "reverse", "plate")), write=True)
    ecu.did(0x4100, "Configuration", txt("Configuration block", 3000, False), official=True, write=True,
            comment="The whole configuration in one long frame.")
    ecu.read_dtc()
    ecu.category("Carrosserie").screen("Portes & feux", ("DataRead.Doors", "Door FL", "Door FR", "Door boot"),
                                       ("DataRead.Lamps", "Lamp stop", "Lamp fog"), columns=2)
    return ecu.grow(2_000_000, 4, "B")


def airbag():
    ecu = Ecu(who("Airbag AB3 <8 lignes>", "Airbag", "slow", group="Safety", failures=2,
                  link=Link(kw2_delay=30, kw2_timeout=350)),
              [(9, "OKN", "3300", "0007"), (9, "OKN", "3300", "0008"), (9, "OKN", "3310", "0001")])
    ecu.sessions(False)
    lines = ("conducteur", "passager", "prétensionneur gauche", "prétensionneur droit")
    ecu.local(0x20, "Résistances", *(num(f"Ligne {n}", 16, "ohm", .01) for n in lines))
    ecu.local(0x21, "Verrouillage", lst("Airbag passager", {0: "Actif", 1: "Inhibé \"clé\""}, 1), lst("Calculateur", {0: "Déverrouillé", 1: "Verrouillé"}, 1), write=True)
    ecu.faults("2130", "6130", "2131", "6131",
               *((f"Ligne {n} (feu)", 0x9000 + i, {"type": 3, "datas": (f"Ligne {n}",)}, (1, "Résistance > 6,5 ohm"), (2, "Résistance < 1,2 ohm"),
                  (3, "Court-circuit au +")) for i, n in enumerate(lines)))
    ecu.read_dtc(False)
    ecu.category("Sécurité").screen("Lignes de feu", ("Résistances", *(f"Ligne {n}" for n in lines)), ("Verrouillage", "Airbag passager"),
                                    labels=("NE PAS débrancher, contact mis !",))
    return ecu


def climate():
    ecu = Ecu(who("Climatisation bizone", "Climate control", "slow-multi", group="Climate", failures=1), [(4, "LUM", "4100", "0002")])
    ecu.sessions(False)
    ecu.local(0x30, "Températures", num("Habitacle", 8, "°C", .5, -40), num("Extérieure", 8, "°C", .5, -40), num("Évaporateur", 8, "°C", .5, -40),
              num("Ensoleillement", 8, "W/m²", 5), num("Pression réfrigérant", 8, "bar", .2))
    ecu.local(0x31, "Volets", *(num(f"Volet {v}", 8, "%", .5) for v in ("mixage gauche", "mixage droit", "entrée d'air", "distribution")))
    ecu.faults("2132", "6132", "2133", "6133", ("Sonde évaporateur", 0, {"datas": ("Évaporateur",)}, (1, "Ouvert"), (2, "Court-circuit")))
    ecu.category("Confort").screen("Climatisation", ("Températures", "Habitacle", "Extérieure", "Évaporateur"), ("Volets", "Volet mixage gauche"))
    return ecu


def cluster():
    ecu = Ecu(who("Combiné d'instruments", "Instrument cluster", "can", group="Displays", gateway="CGW", failures=3),
              [(8, "VXT", "8100", "0005"), (8, "VXT", "8100", "0006"), (10, "VXT", "8200", "0001")])
    ecu.sessions()
    ecu.did(0x5001, "Odometer", num("Odometer", 24, "km", .1), num("Trip <A>", 16, "km", .1), num("Trip <B>", 16, "km", .1))
    ecu.did(0x5002, "Gauges", num("Fuel level", 8, "l", .5), num("Displayed speed", 16, "km/h", .01))
    ecu.did(0x5003, "Language", lst("Language", {0: "English", 1: "Français", 2: "Deutsch", 3: "Español", 4: "Ελληνικά"}), write=True)
    ecu.read_dtc()
    ecu.category("Combiné").screen("Odometer", ("DataRead.Odometer", "Odometer", "Trip <A>"), ("DataRead.Language", "Language"))
    return ecu


FILES = {
    "Norvale Sillage/Powertrain/Engine_CR4_D12": engine_d12,
    "Norvale Sillage/Powertrain/Engine_CR4_D14": engine_d14,
    "Norvale Sillage/Powertrain/Injection_essence_S1": engine_old,
    "Norvale Sillage/Powertrain/Gearbox_AT6": gearbox,
    "Norvale Sillage/Chassis/ABS_ESP_gen9": abs_esp,
    "Norvale Sillage/Chassis/Power_steering_DAE2": power_steering,
    "Norvale Sillage/Chassis/Parking_brake_FPA": parking_brake,
    "Norvale Sillage/Body/Body_controller_BC-FD": body,
    "Norvale Sillage/Body/Airbag_AB3": airbag,
    "Norvale Sillage/Body/Comfort/Climate_bizone": climate,
    "Norvale Sillage/Body/Comfort/Instrument_cluster": cluster,
}
