"""What others made and lies in the station folder for Windows: every library in the list, of the version it tells."""

import hashlib
import json
import re
import unittest
import zipfile
from pathlib import PurePosixPath

from macchina import CONSEGNA, COSTRUZIONE, RADICE

ELENCO = [
    voce
    for voce in json.loads((RADICE / "licenze" / "elenco.json").read_text(encoding="utf-8"))
    if voce["sistema"] == "windows"
]
PROPRIE = {"qx5finestra.dll"}

# Libraries inside others that tell their version, and how.
DETTE = {
    "zlib": rb" inflate ([\d.]+) Copyright",
    "libpng": rb"libpng version ([\d.]+)",
    "libjpeg-turbo": rb"libjpeg-turbo version ([\d.]+)",
    "Qt": rb"Qt ([\d.]+) \(",
}


class Licenze(unittest.TestCase):
    def test_ogni_libreria_e_in_elenco(self):
        presenti = {str(f.relative_to(CONSEGNA)) for f in CONSEGNA.rglob("*.dll")}
        # A library is somebody's work as a whole, whatever of others' lies in it.
        intere = [voce for voce in ELENCO if "parte_di" not in voce]
        elencate = {nome for voce in intere for nome in voce["file"] if nome.endswith(".dll")}
        self.assertIn("Qt6Core.dll", presenti)
        self.assertEqual(presenti - PROPRIE, elencate - PROPRIE)

    def test_le_versioni_sono_quelle_dell_elenco(self):
        for voce in ELENCO:
            if voce["nome"] in DETTE:
                byte = (CONSEGNA / voce["file"][0]).read_bytes()
                self.assertEqual(re.search(DETTE[voce["nome"]], byte)[1].decode(), voce["versione"], voce["nome"])

    def test_le_licenze_viaggiano_con_la_cartella(self):
        for voce in ELENCO:
            for testo in voce["testi"]:
                self.assertTrue((CONSEGNA / "licenze" / "testi" / testo).is_file(), testo)
        for nome in ("elenco.json", "lumira.txt", "LEGGIMI.txt"):
            self.assertTrue((CONSEGNA / "licenze" / nome).is_file(), nome)

    def test_la_distinta_dice_ogni_file_dello_zip(self):
        (archivio,) = (COSTRUZIONE / "pacchetti").glob("lumira-*-windows.zip")
        with zipfile.ZipFile(archivio) as zip_:
            # One folder of the package's name holds all.
            nomi = {str(PurePosixPath(*PurePosixPath(n).parts[1:])): n for n in zip_.namelist() if not n.endswith("/")}
            distinta = json.loads(zip_.read(nomi.pop("licenze/distinta.spdx.json")))
            dette = {f["fileName"][2:]: f["checksums"][1]["checksumValue"] for f in distinta["files"]}
            self.assertEqual(dette, {n: hashlib.sha256(zip_.read(dove)).hexdigest() for n, dove in nomi.items()})
        self.assertLessEqual({voce["nome"] for voce in ELENCO}, {p["name"] for p in distinta["packages"]})
