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
STACCA, RIMETTI = b"\x04", b"\x05"


class Adattatore:
    """An adapter with somebody at the far end of its line, who sends back what comes."""

    def __init__(self, dispositivo, ordini=None):
        """@param dispositivo: path of the device, the same each time that it is plugged in.
        @param ordini: {byte: what is done before that byte is sent back}.
        """
        self.dispositivo = dispositivo
        self._ordini = ordini or {}
        self._filo = None
        self.inserisci()

    def inserisci(self):
        self._capo, presa = pty.openpty()
        tty.setraw(presa)
        # Kept until the port is opened: a line whose last user leaves ends the far end's reading.
        self._presa = presa
        self._fine, self._avviso = os.pipe()
        self._filo = threading.Thread(target=self._rimanda)
        self._filo.start()
        self.dispositivo.symlink_to(os.ttyname(presa))

    def _rimanda(self):
        while True:
            pronti, _, _ = select.select([self._capo, self._fine], [], [])
            if self._fine in pronti:
                break
            byte = os.read(self._capo, 4096)
            for ordine, esegui in self._ordini.items():
                if ordine in byte:
                    esegui()
            os.write(self._capo, byte)
        os.close(self._presa)
        os.close(self._capo)

    def stacca(self):
        if self._filo is None:
            return
        self.dispositivo.unlink()
        os.write(self._avviso, b".")
        self._filo.join()
        self._filo = None
        os.close(self._avviso)
        os.close(self._fine)


class Seriale(ProvaMacchina):
    def test_il_controllo_seriale_di_windows(self):
        cartella = tempfile.TemporaryDirectory(prefix="seriale-")
        self.addCleanup(cartella.cleanup)
        cartella = Path(cartella.name)
        adattatore = Adattatore(cartella / "uno")
        self.addCleanup(adattatore.stacca)
        comandi = Adattatore(
            cartella / "dodici", {STACCA: adattatore.stacca, RIMETTI: adattatore.inserisci}
        )
        self.addCleanup(comandi.stacca)
        self.macchina.collega_porta(1, adattatore.dispositivo)
        self.macchina.collega_porta(12, comandi.dispositivo)
        # On Windows the test library keeps its log off a standard output that is no console.
        registro = cartella / "registro.txt"
        try:
            self.macchina.esegui(PROVA, "-o", f"{Macchina.percorso(registro)},txt")
        finally:
            print(registro.read_text(errors="replace").replace("Totals:", "In tutto:"))
