# SPDX-FileCopyrightText: the Kelmar developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""Vocabulary of the generated databases, in English and French as engineers mix them."""

# (name, unit, step, offset, bits, signed)
QUANTITIES = (
    ("Temperature", "°C", 0.5, -40, 8, False),
    ("Température d'huile", "°C", 1, -40, 8, False),
    ("Pressure", "mbar", 0.25, 0, 16, False),
    ("Pression de suralimentation", "hPa", 1, 0, 16, False),
    ("Speed", "rpm", 0.25, 0, 16, False),
    ("Vitesse", "km/h", 0.01, 0, 16, False),
    ("Voltage", "V", 0.1, 0, 8, False),
    ("Tension d'alimentation", "mV", 20, 0, 8, False),
    ("Current", "A", 0.125, -512, 16, True),
    ("Courant de phase", "A", 0.05, 0, 16, True),
    ("Torque", "N.m", 0.5, -1000, 12, True),
    ("Couple demandé", "N.m", 0.0625, 0, 16, True),
    ("Position", "%", 0.4, 0, 8, False),
    ("Angle", "°", 0.1, -780, 16, True),
    ("Débit d'air", "mg/cp", 0.03125, 0, 16, False),
    ("Duration", "ms", 10, 0, 16, False),
    ("Distance", "km", 1, 0, 24, False),
    ("Acceleration", "m/s²", 0.015625, 0, 12, True),
    ("Duty cycle", "%", 0.390625, 0, 8, False),
    ("Leakage", "mA", 0.00001, 0, 16, False),
)

PLACES = (
    "front left", "front right", "rear left", "rear right", "avant gauche", "avant droit",
    "arrière gauche", "arrière droit", "upper", "lower", "inlet", "outlet", "before <filter>",
    "after <filter>", "bank 1", "bank 2", "amont", "aval", "ambient", "intérieur",
)

LISTS = (
    ((0, "Off"), (1, "On"), (2, "Undefined"), (3, "Not available")),
    ((0, "Inactive"), (1, "Active", "Seen with the contact on only.\nElse inactive."), (2, "Fault")),
    ((0, "Fermé"), (1, "Ouvert"), (2, "En mouvement"), (3, "Défaut capteur")),
    ((0, "P"), (1, "R"), (2, "N"), (3, "D"), (4, "Manual <+>"), (5, "Manual <->"), (15, "Invalid")),
    ((0, "No request"), (1, "Request \"soft\""), (2, "Request \"hard\"")),
    ((0, "Not learnt"), (1, "Learning"), (2, "Learnt"), (3, "Learning failed"),
     (255, "Unknown & not read")),
)

FLAG = ((0, "Absent"), (1, "Present"))

STATES = ("Lamp", "Relay", "Contact", "Mode", "Clutch", "Volet", "Pompe", "Serrure", "Heater",
          "Valve", "Switch", "Ventilateur")

COMMENTS = (
    "Raw value before filtering.\r\nValid above 300 rpm only.",
    "Valeur filtrée (100 ms).\r\n\r\nNe pas utiliser à l'arrêt : la mesure est figée.",
    "See <calibration> & wiring diagram.",
    "1st line: source sensor\r\n2nd line: <b>no markup here</b>\r\n3rd line: café, naïve, œuvre, 20 °C",
)

SHEETS = (
    "Check the connector,\nthen the harness,\nthen the sensor.",
    "Contrôle : débrancher, mesurer 4,7 kΩ ± 5 %.",
)

TESTS = ("Short circuit to ground", "Open circuit", "Court-circuit au + batterie",
         "Signal incohérent", "Value < minimum", "Value > maximum", "Timeout")

DEVICE_KINDS = ("sensor", "actuator", "relay", "capteur", "injecteur", "switch", "harness")

SUPPLIERS = ("OKN", "LUM", "ZPH", "GRD", "VXT", "HBQ")
