"""The Windows body of the serial control, on COM ports whose far ends are here."""

import os
import pty
import select
import tempfile
import threading
import tty
from pathlib import Path

from macchina import COSTRUZIONE, Macchina, ProvaMacchina

PROVA = COSTRUZIONE / "tests" / "link" / "tst_seriale_win32.exe"
RIAGGANCIA = b"\x04"


class Eco:
    """The far end of a line: it sends back what comes, and hangs up when it is told to."""

    def __init__(self):
        self._capo, presa = pty.openpty()
        tty.setraw(presa)
        self.dispositivo = os.ttyname(presa)
        # Kept until the port is opened: a line whose last user leaves ends the far end's reading.
        self._presa = presa
        self._fine, self._avviso = os.pipe()
        self._filo = threading.Thread(target=self._rimanda)
        self._filo.start()

    def _rimanda(self):
        while True:
            pronti, _, _ = select.select([self._capo, self._fine], [], [])
            if self._fine in pronti:
                break
            byte = os.read(self._capo, 4096)
            if RIAGGANCIA in byte:
                break
            os.write(self._capo, byte)
        os.close(self._presa)
        os.close(self._capo)

    def chiudi(self):
        os.write(self._avviso, b".")
        self._filo.join()
        os.close(self._avviso)
        os.close(self._fine)


# What does not run here, and why.
SALTATE = {"portaOccupata()": "Wine lets a port be opened twice"}


class Seriale(ProvaMacchina):
    def test_il_controllo_seriale_di_windows(self):
        for numero in (1, 12):
            eco = Eco()
            self.addCleanup(eco.chiudi)
            self.macchina.collega_porta(numero, eco.dispositivo)
        funzioni = self.macchina.esegui(PROVA, "-functions").split()
        for funzione, motivo in SALTATE.items():
            print(f"SKIP {funzione}: {motivo}")
            funzioni.remove(funzione)
        with tempfile.TemporaryDirectory(prefix="seriale-") as cartella:
            # On Windows the test library keeps its log off a standard output that is no console.
            registro = Path(cartella) / "registro.txt"
            try:
                nomi = [funzione.removesuffix("()") for funzione in funzioni]
                self.macchina.esegui(PROVA, "-o", f"{Macchina.percorso(registro)},txt", *nomi)
            finally:
                print(registro.read_text(errors="replace").replace("Totals:", "In tutto:"))
