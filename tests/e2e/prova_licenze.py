"""What others made and travels with the station: every work in the list with its licence."""

import json
import re
import subprocess
import unittest
from pathlib import Path

from prova import INSTALLAZIONE

LICENZE = Path(__file__).resolve().parents[2] / "licenze"
ELENCO = json.loads((LICENZE / "elenco.json").read_text(encoding="utf-8"))
PROPRIE = {"libqx5finestra.so"}  # laid beside the simulator
CARICATORE = re.compile(r"ld-linux.*\.so\.\d+$")  # of the C library itself


def librerie_di(programma):
    uscita = subprocess.run(["readelf", "-d", programma], capture_output=True, text=True).stdout
    return set(re.findall(r"\(NEEDED\).*\[(.*)\]", uscita))


class Licenze(unittest.TestCase):
    def test_ogni_voce_e_completa(self):
        for voce in ELENCO:
            for chiave in ("nome", "versione", "licenza", "sorgente", "file"):
                self.assertTrue(voce[chiave], (voce["nome"], chiave))
            self.assertIn(voce["sistema"], ("windows", "debian"))
            # What does not travel has its licence where the machine has it.
            self.assertEqual(bool(voce["testi"]), voce["sistema"] == "windows", voce["nome"])
            self.assertNotIn("//", json.dumps(voce), voce["nome"])
        for sistema in ("windows", "debian"):
            voci = [voce for voce in ELENCO if voce["sistema"] == sistema]
            nomi = [voce["nome"] for voce in voci]
            self.assertEqual(len(nomi), len(set(nomi)))
            self.assertLessEqual({voce["parte_di"] for voce in voci if "parte_di" in voce}, set(nomi))

    def test_ogni_testo_c_e_e_serve(self):
        citati = {testo for voce in ELENCO for testo in voce["testi"]}
        presenti = {file.name for file in (LICENZE / "testi").iterdir()}
        self.assertEqual(citati, presenti)
        for nome in presenti:
            self.assertGreater(len((LICENZE / "testi" / nome).read_text(encoding="utf-8")), 80, nome)
        self.assertIn("Version 3, 29 June 2007", (LICENZE / "testi/LGPL-3.0.txt").read_text(encoding="utf-8"))

    def test_ogni_libreria_dei_programmi_e_in_elenco(self):
        elencate = {file for voce in ELENCO if voce["sistema"] == "debian" for file in voce["file"]}
        usate = set()
        for file in INSTALLAZIONE.rglob("*"):
            if file.is_file():
                usate |= librerie_di(file)
        usate = {nome for nome in usate if not CARICATORE.match(nome)} - PROPRIE
        self.assertIn("libQt6Widgets.so.6", usate)
        self.assertEqual(usate, elencate)
