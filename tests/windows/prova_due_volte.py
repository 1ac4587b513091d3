"""The same station packed once more gives the same zip and the same installer, byte for byte, and nothing in them tells
of the day or the disk of its making."""

import os
import struct
import subprocess
import tempfile
import unittest
import zipfile
from datetime import datetime, timezone
from pathlib import Path

from macchina import COSTRUZIONE

PRIMO_GENNAIO = int(datetime(2026, 1, 1, tzinfo=timezone.utc).timestamp())  # the date of all that is packed
NESSUNA_DATA = 0


def data_programma(byte):
    """@returns the date that a program or library of Windows tells in its header."""
    (intestazione,) = struct.unpack_from("<I", byte, 0x3C)
    return struct.unpack_from("<I", byte, intestazione + 8)[0]


class DueVolte(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.volte = [cls.impacchetta() for _ in range(2)]

    @classmethod
    def impacchetta(cls):
        """@returns {ending: path} of what is delivered."""
        cartella = tempfile.TemporaryDirectory(prefix="pacchetti-")
        cls.addClassCleanup(cartella.cleanup)
        ambiente = os.environ | {"SOURCE_DATE_EPOCH": str(PRIMO_GENNAIO)}
        subprocess.run(
            ["cpack", "--config", COSTRUZIONE / "CPackConfig.cmake", "-B", cartella.name],
            env=ambiente, check=True, stdout=subprocess.DEVNULL, timeout=300,
        )  # fmt: skip
        return {p.suffix: p for p in Path(cartella.name).glob("lumira-*-windows.*")}

    def test_lo_stesso_zip_e_lo_stesso_installatore_due_volte(self):
        prima, seconda = self.volte
        self.assertEqual(prima.keys(), {".zip", ".exe"})
        for tipo, percorso in prima.items():
            self.assertTrue(percorso.read_bytes() == seconda[tipo].read_bytes(), tipo)

    def test_lo_zip_non_dice_disco_e_giorno(self):
        with zipfile.ZipFile(self.volte[0][".zip"]) as zip:
            nomi = zip.namelist()
            self.assertEqual(nomi, sorted(nomi))
            self.assertEqual({voce.date_time for voce in zip.infolist()}, {(2026, 1, 1, 0, 0, 0)})
            # Programs have the day of the packing, which takes their symbols off; the libraries none, or the day on
            # which the Qt for Windows was built.
            programmi = [nome for nome in nomi if nome.endswith(".exe")]
            self.assertEqual({data_programma(zip.read(nome)) for nome in programmi}, {PRIMO_GENNAIO})
            nostre = [nome for nome in nomi if Path(nome).match("lib*.dll")]
            self.assertEqual({data_programma(zip.read(nome)) for nome in nostre}, {NESSUNA_DATA})
