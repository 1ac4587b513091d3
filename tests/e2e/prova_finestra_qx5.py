"""The window of the simulated instrument, as it is installed: a teacher at its controls, a station on its line."""

import os
import select
import shutil
import subprocess
import unittest

import operatore
from prova import ProvaStazione, QX5SIM

STATO = bytes.fromhex("02 41 42 43 10 36 03")
A_RIPOSO = bytes.fromhex("02 41 42 43 31 39 03")
PRONTA = bytes.fromhex("02 41 42 43 34 32 03")


class Linea:
    """The station's end of the line."""

    def __init__(self, porta):
        self._porta = os.open(porta, os.O_RDWR | os.O_NOCTTY)

    def chiedi(self, comando, secondi=3):
        os.write(self._porta, comando)
        risposta = b""
        while not risposta.endswith(b"\x03") and select.select([self._porta], [], [], secondi)[0]:
            risposta += os.read(self._porta, 100)
        return risposta

    def chiudi(self):
        os.close(self._porta)


class Finestra(ProvaStazione):
    def finestra(self, *opzioni):
        porta = self.stazione.percorso("porte", "COM1")
        comando = [QX5SIM, "--finestra", "--collega", porta, "--registro", self.stazione.percorso("qx5sim.log")]
        programma = operatore.Programma(self.stazione, self.schermo, comando=[*comando, *opzioni])
        self.addCleanup(programma.chiudi)
        programma.attendi(lambda: "pronto:" in programma.diario(), cosa="qx5sim pronto")
        linea = Linea(porta)
        self.addCleanup(linea.chiudi)
        return programma, linea

    def test_chi_insegna_conduce_lo_strumento(self):
        programma, linea = self.finestra("--lingua", "IT")
        self.assertEqual(linea.chiedi(STATO), A_RIPOSO)
        programma.clicca("radio button", "Misura pronta")
        programma.attendi(lambda: linea.chiedi(STATO) == PRONTA, cosa="misura pronta")
        programma.clicca("check box", "Nessuna risposta")
        programma.attendi(lambda: linea.chiedi(STATO, 0.5) == b"", cosa="strumento muto")
        programma.clicca("check box", "Nessuna risposta")
        programma.attendi(lambda: linea.chiedi(STATO) == PRONTA, cosa="lo strumento risponde ancora")
        programma.processo.terminate()
        self.assertEqual(programma.attendi_fine(), 0)
        self.assertFalse(self.stazione.percorso("porte", "COM1").is_symlink())

    def test_le_parole_nella_lingua_chiesta(self):
        programma, _ = self.finestra("--lingua", "DE")
        programma.attendi(lambda: "In Ruhe" in programma.nomi("radio button"), cosa="Zustand")
        self.assertIn("Keine Antwort", programma.nomi("check box"))

    @unittest.skipUnless(shutil.which("ldd"), "manca ldd")
    def test_senza_finestra_nessuna_libreria_di_finestre(self):
        librerie = subprocess.run(["ldd", QX5SIM], capture_output=True, text=True, check=True).stdout
        self.assertIn("libQt6Core", librerie)
        self.assertNotIn("libQt6Widgets", librerie)
        self.assertNotIn("libQt6Gui", librerie)
