# SPDX-FileCopyrightText: the Kelmar developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""ECUs of the Bellorme Célestine: the small old one, described in French."""

from ecukit.builder import Ecu, lst, num, txt
from ecukit.screens import Range
from ecukit.xml import Link

from .functions import who

PROJECTS = ("BC", "BC_2009")


def engine():
    ecu = Ecu(who("Moteur essence 1,2 l", "Engine", "fast", group="Moteur", failures=2, projects=PROJECTS),
              [(5, "LUM", "0010", "0009"), (7, "LUM", "0020", "0001"), (7, "LUM", "0020", "0002")])
    ecu.sessions(False)
    ecu.local(0xA0, "État moteur", num("Régime", 16, "tr/min", .25), num("Eau", 8, "°C", 1, -40), num("Air", 8, "°C", 1, -40),
              num("Avance", 8, "°", .5, -23.5), num("Batterie", 8, "V", .1), lst("Étage", {0: "Arrêt", 1: "Démarrage", 2: "Ralenti", 3: "Charge < 50 %", 4: "Charge > 50 %"}, 3))
    ecu.local(0xA1, "Compteurs", num("Temps de fonctionnement", 24, "min"), num("Nombre de démarrages", 16))
    ecu.faults("21B0", "61B0", "21B1", "61B1",
               ("Sonde d'air", 0x0110, {"datas": ("Air",)}, (1, "Ouvert"), (2, "Masse")),
               ("Sonde d'eau", 0x0115, {"datas": ("Eau",)}, (1, "Ouvert"), (2, "Masse")),
               ("Capteur point mort haut", 0x0335, {"datas": ("Régime",)}, (7, "Pas de signal", {"severity": 3})))
    ecu.read_dtc(False)
    ecu.category("Moteur").screen("État", ("État moteur", "Régime", "Eau", "Air", "Avance", "Étage"),
                                  ranges={"Eau": (Range(-40, 0xFF8000), Range(105, 0x0000FF, "alarme"))})
    return ecu.grow(45_000, 77, "P")


def immobiliser():
    ecu = Ecu(who("Antidémarrage à puce", "Immobiliser", "iso8", group="Accès", failures=1, projects=("BC_2009",),
                  link=Link(key1=85, key2=170, kw2_timeout=500, first_request=60)), [(1, "GRD", "0001", "0001")])
    ecu.request("Lecture clés", "0102", "81", fields=[num("Nombre de clés apprises"), lst("Clé reconnue", {0: "Non", 1: "Oui"}, 1)])
    ecu.request("Apprentissage", "0203", "82", manual=True, deny=("NoSDS", "AfterSales"), parameters=[num("Code confidentiel", 16)],
                comment="Deux essais par heure.\r\nContact mis.")
    ecu.faults("0304", "83", "0305", "83", ("Bague transpondeur", 0, {"datas": ("Nombre de clés apprises",)}, (7, "Pas de signal")))
    ecu.category("Accès").screen("Clés", ("Lecture clés", "Nombre de clés apprises", "Clé reconnue"), ("Apprentissage", "Code confidentiel"),
                                 buttons=(("Apprendre", "Toutes les clés sont là ?", (0, "Apprentissage")),))
    return ecu


def doors():
    ecu = Ecu(who("Verrouillage centralisé", "Door lock control", "fast-multi", group="Accès", failures=1, projects=PROJECTS), [(2, "VXT", "D000", "0001"), (2, "VXT", "D000", "0002")],
              little_endian=True)
    ecu.sessions(False)
    ecu.local(0x40, "Portes", *(lst(f"Porte {p}", {0: "Fermée", 1: "Ouverte"}, 1) for p in ("avant gauche", "avant droite", "arrière gauche", "arrière droite", "coffre")),
              num("Tension alimentation", 16, "mV", 10))
    ecu.local(0x41, "Télécommandes", num("Nombre de télécommandes", 4), *(txt(f"Code télécommande {n}", 4, False) for n in (1, 2)))
    ecu.faults("2142", "6142", "2143", "6143", ("Moteur de serrure", 0, {"type": 3, "datas": ("Tension alimentation",)}, (1, "Ouvert"), (2, "Court-circuit")))
    ecu.category("Accès").screen("Portes", ("Portes", "Porte avant gauche", "Porte avant droite", "Porte coffre"))
    return ecu


def messages():
    ecu = Ecu(who("Messagerie véhicule", "Vehicle messages", "messaging", group="Réseau", failures=0, projects=PROJECTS,
                  link=Link(baud=250000), comment="Trames périodiques du réseau.\r\nPas de diagnostic : lecture seule."), [])
    for number, (name, fields) in enumerate((
            ("Trame moteur 10 ms", [num("Régime diffusé", 16, "tr/min", .125), num("Couple diffusé", 16, "N.m", .5, -400)]),
            ("Trame freinage 20 ms", [num("Vitesse diffusée", 16, "km/h", .01), lst("Freinage", {0: "Non", 1: "Oui"}, 1)]),
            ("Trame carrosserie 100 ms", [lst("Clignotants", {0: "Arrêt", 1: "Gauche", 2: "Droite", 3: "Détresse"}, 2), lst("Feux", {0: "Éteints", 1: "Veilleuses", 2: "Codes", 3: "Routes"}, 2)]))):
        ecu.request(name, f"{0x180 + 0x20 * number:04X}", "", min_bytes=8, fields=fields)
    for number, name in enumerate(("boîte", "direction", "climatisation", "batterie")):
        ecu.request(f"Trame {name} 100 ms", f"{0x300 + number:04X}", min_bytes=8, comment=f"Trame {name}, toutes les 100 ms.",
                    fields=[num(f"Compteur {name}", 4), lst(f"État {name}", {0: "Endormi", 1: "Éveillé", 3: "En défaut"}, 4),
                            num(f"Contrôle {name}", 8)])
    ecu.category("Réseau").screen("Trames", ("Trame moteur 10 ms", "Régime diffusé", "Couple diffusé"), ("Trame freinage 20 ms", "Vitesse diffusée"), ("Trame carrosserie 100 ms",))
    return ecu


def airbag():
    ecu = Ecu(who("Airbag 2 lignes", "Airbag", "slow", group="Sécurité", failures=2, projects=PROJECTS), [(9, "OKN", "3300", "0002"), (8, "OKN", "3200", "0001")])
    ecu.sessions(False)
    ecu.local(0x20, "Résistances", num("Conducteur", 16, "ohm", .01), num("Passager", 16, "ohm", .01))
    ecu.faults("2130", "6130", "2131", "6131", ("Feu conducteur", 0x9001, {"type": 3, "datas": ("Conducteur",)}, (1, "Résistance > max"), (2, "Résistance < min")))
    ecu.read_dtc(False)
    ecu.category("Sécurité").screen("Lignes", ("Résistances", "Conducteur", "Passager"))
    return ecu


def abs_unit():
    ecu = Ecu(who("ABS 4 voies", "ABS/ESP", "slow-multi", group="Freinage", failures=2, projects=PROJECTS), [(3, "GRD", "0900", "0001"), (3, "GRD", "0900", "0002")])
    ecu.sessions(False)
    ecu.local(0x01, "Roues", *(num(f"Roue {w}", 16, "km/h", .0625) for w in ("AVG", "AVD", "ARG", "ARD")), lst("Voyant \"ABS\"", {0: "Éteint", 1: "Allumé"}, 1))
    ecu.faults("2111", "6111", "2112", "6112", *((f"Capteur {w}", 0x4000 + i, {"datas": (f"Roue {w}",)}, (1, "Ouvert"), (7, "Pas de signal")) for i, w in enumerate(("AVG", "AVD", "ARG", "ARD"))))
    ecu.read_dtc(False)
    ecu.category("Freinage").screen("Roues", ("Roues", "Roue AVG", "Roue AVD", "Roue ARG", "Roue ARD"))
    return ecu


def suspension():
    ecu = Ecu(who("Suspension pilotée", "Suspension", "can", group="Châssis", failures=0), [(1, "ZPH", "5000", "0001")])
    ecu.sessions()
    ecu.did(0x1001, "Hauteurs", *(num(f"Hauteur {w}", 16, "mm", .1, signed=True) for w in ("AVG", "AVD", "ARG", "ARD")),
            lst("Mode", ((0, "Confort"), (1, "Sport", "Ferme & bas."), (2, "Haut <chargement>")), 2))
    ecu.did(0x1002, "Amortisseurs", *(num(f"Courant amortisseur {w}", 8, "mA", 10) for w in ("AVG", "AVD", "ARG", "ARD")))
    ecu.did(0x1003, "Calage", *(num(f"Calage {w}", 8, "mm", .5, signed=True) for w in ("avant", "arrière")), write=True,
            write_comment="Véhicule à vide,\r\nsur sol plan.")
    ecu.faults("221031", "621031", "221032", "621032",
               *((f"Capteur hauteur {w}", 0x7000 + i, {"datas": (f"Hauteur {w}",)}, (1, "Ouvert"), (2, "Court-circuit"))
                 for i, w in enumerate(("AVG", "AVD", "ARG", "ARD"))))
    ecu.category("Châssis").screen("Hauteurs", ("DataRead.Hauteurs", "Hauteur AVG", "Hauteur AVD", "Mode"))
    return ecu


FILES = {
    "Bellorme Célestine/Moteur/Moteur_essence_1l2": engine,
    "Bellorme Célestine/Accès/Antidémarrage": immobiliser,
    "Bellorme Célestine/Accès/Verrouillage": doors,
    "Bellorme Célestine/Réseau/Messagerie": messages,
    "Bellorme Célestine/Sécurité/Airbag_2_lignes": airbag,
    "Bellorme Célestine/Châssis/ABS_4_voies": abs_unit,
    "Bellorme Célestine/Châssis/Suspension": suspension,
}
