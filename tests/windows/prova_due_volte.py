"""The same station packed once more gives the same zip and the same installer, byte for byte."""

import hashlib
import os
import subprocess
import tempfile
import unittest
from pathlib import Path

from macchina import COSTRUZIONE

PRIMO_GENNAIO = "1767225600"  # of 2026, the date of all that is packed


def somma(percorso):
    return hashlib.sha256(percorso.read_bytes()).hexdigest()


class DueVolte(unittest.TestCase):
    def impacchetta(self):
        """@returns {name: sum} of what is delivered."""
        with tempfile.TemporaryDirectory(prefix="pacchetti-") as cartella:
            ambiente = os.environ | {"SOURCE_DATE_EPOCH": PRIMO_GENNAIO}
            subprocess.run(
                ["cpack", "--config", COSTRUZIONE / "CPackConfig.cmake", "-B", cartella],
                env=ambiente, check=True, stdout=subprocess.DEVNULL, timeout=300,
            )  # fmt: skip
            return {p.name: somma(p) for p in Path(cartella).glob("lumira-*-windows.*")}

    def test_lo_stesso_zip_e_lo_stesso_installatore_due_volte(self):
        primi = self.impacchetta()
        self.assertEqual({Path(nome).suffix for nome in primi}, {".zip", ".exe"})
        self.assertEqual(self.impacchetta(), primi)
