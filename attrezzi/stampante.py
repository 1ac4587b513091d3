"""A printer of one's own for the program: see stampante.sh, which starts it. Its sheets are PDF files."""

import subprocess
import unittest
from pathlib import Path

from operatore import attendi

COPIONE = Path(__file__).with_name("stampante.sh")
ATTESA_COMANDO = 60  # seconds
SENZA_PACCHETTI = 77


class Stampante:
    """A print scheduler with one queue, the default one. What prints there has .ambiente in its environment; .lavoro
    is the folder of its socket."""

    CODA = "Rapporto"

    def __init__(self, cartella):
        """@throws unittest.SkipTest with the reason when the machine lacks a print system."""
        self.cartella = Path(cartella)
        esito = self._copione("start")
        if esito.returncode == SENZA_PACCHETTI:
            raise unittest.SkipTest(esito.stderr.strip())
        if esito.returncode != 0:
            raise AssertionError(esito.stderr)
        # By its own path: an ordinary user gets there, but not into a test's folder.
        self.lavoro = (self.cartella / "lavoro").resolve()
        self.ambiente = {"CUPS_SERVER": str(self.lavoro / "cups.sock"), "CUPS_SERVERROOT": str(self.lavoro)}

    def amministra(self, *comando):
        """Runs an administration command: lpadmin, cupsreject, ..."""
        ambiente = self.ambiente | {"PATH": "/usr/sbin:/usr/bin:/sbin:/bin"}
        subprocess.run(comando, env=ambiente, check=True, timeout=ATTESA_COMANDO)

    def foglio(self, numero):
        """Waits for the sheet of a job, counted from 1.

        @returns its path.
        """
        percorso = self.cartella / "uscita" / f"{numero}.pdf"
        attendi(percorso.exists, cosa=f"foglio {numero}")
        return percorso

    def fogli(self):
        """How many sheets have come out so far."""
        return len(list((self.cartella / "uscita").glob("*.pdf")))

    def ferma(self):
        self._copione("stop").check_returncode()

    def _copione(self, azione):
        return subprocess.run(
            [COPIONE, azione, self.cartella], capture_output=True, text=True, timeout=ATTESA_COMANDO
        )
