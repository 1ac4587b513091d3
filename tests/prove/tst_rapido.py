#!/usr/bin/python3
"""Which tests ./test rapido takes, in which order, and what it leaves: on programs of a line each."""

import contextlib
import io
import sys
import tempfile
import unittest
from pathlib import Path
from unittest import mock

sys.path.append(str(Path(__file__).resolve().parents[2] / "attrezzi"))
import rapido  # noqa: E402


class TestRapido(unittest.TestCase):
    def setUp(self):
        cartella = tempfile.TemporaryDirectory()
        self.addCleanup(cartella.cleanup)
        self.prove = Path(cartella.name)
        for nome, valore in (("PROVE", self.prove), ("INSIEME", 1)):
            sostituto = mock.patch.object(rapido, nome, valore)
            sostituto.start()
            self.addCleanup(sostituto.stop)

    def prova(self, nome, stato=0, byte="uno"):
        """A test program that notes its turn; made again, it is one that has changed."""
        programma = self.prove / nome
        programma.parent.mkdir(exist_ok=True)
        programma.write_text(f'#!/bin/sh\necho {programma.name} >> "{self.prove}/turni"\nexit {stato}\n')
        programma.chmod(0o755)
        programma.with_suffix(".byte").write_text(byte)
        return programma

    def esegui(self, secondi=60, *cambiati):
        """@returns the status, the programs that ran in their order, and what was said."""
        turni = self.prove / "turni"
        turni.unlink(missing_ok=True)
        detto = io.StringIO()
        with contextlib.redirect_stdout(detto):
            stato = rapido.main([str(secondi), *cambiati])
        return stato, turni.read_text().split() if turni.exists() else [], detto.getvalue()

    def test_ciòCheÈRiuscitoNonSiRipete(self):
        self.prova("core/tst_a")
        self.assertEqual(self.esegui()[:2], (0, ["tst_a"]))
        self.assertEqual(self.esegui()[:2], (0, []))

    def test_altriByteSonoUnAltraProva(self):
        self.prova("core/tst_a")
        self.esegui()
        self.prova("core/tst_a", byte="due")
        self.assertEqual(self.esegui()[1], ["tst_a"])

    def test_chiLeggeISorgentiÈSempreDovuta(self):
        self.prova("casa/tst_casa").with_suffix(".sempre").touch()
        self.esegui()
        self.assertEqual(self.esegui()[1], ["tst_casa"])

    def test_unaFallitaSiVedeEDopoÈLaPrima(self):
        self.prova("core/tst_z", stato=3)
        stato, _, detto = self.esegui()
        self.assertEqual(stato, 1)
        self.assertIn("tst_z: status 3", detto)
        (self.prove / "core/tst_z.riuscita").write_text("\n20.00")  # no short one
        self.prova("core/tst_a")
        self.assertEqual(self.esegui(60, "core/a.cpp")[1], ["tst_z", "tst_a"])

    def test_primaLePiùVicine(self):
        for nome in ("core/tst_altra", "report/tst_a_vicina", "report/tst_pagina"):
            self.prova(nome)
        self.assertEqual(self.esegui(60, "report/pagina.cpp")[1], ["tst_pagina", "tst_a_vicina", "tst_altra"])

    def test_ciòCheNonEntraNelTempoRestaDovuto(self):
        lunga = self.prova("core/tst_lunga")
        lunga.with_suffix(".riuscita").write_text("altri\n100.00")
        self.prova("core/tst_breve")
        stato, turni, detto = self.esegui(60)
        self.assertEqual((stato, turni), (0, ["tst_breve"]))
        self.assertIn("1 passed, 0 failed, 1 left\n  tst_lunga (100 s)\n", detto)
        self.assertEqual(self.esegui(200)[1], ["tst_lunga"])


if __name__ == "__main__":
    unittest.main()
