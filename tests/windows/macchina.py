"""A Windows machine of a test's own: Wine, with its registry and drives in a folder."""

import os
import shutil
import subprocess
import tempfile
import unittest
from pathlib import Path

import operatore

RADICE = Path(__file__).resolve().parents[2]
WINE = RADICE / "packaging" / "windows" / "wine.sh"
COSTRUZIONE = RADICE / "build" / "windows"
CONSEGNA = COSTRUZIONE / "consegna"  # the station folder as it is delivered

TEMPO = 300  # seconds for a program that ends by itself
MASSIMO_ERRORI = 4000  # bytes of what a failed one has said


class Macchina:
    """What runs on it ends with it. Paths of this computer stand below Z:."""

    def __init__(self, ambiente=None, davanti=()):
        """
        @param ambiente of a virtual screen, for what opens windows.
        @param davanti command that runs everything on the machine, e.g. without the powers of root.
        """
        self._davanti = list(davanti)
        self._wine = WINE
        self._cartella = tempfile.TemporaryDirectory(prefix="macchina-", ignore_cleanup_errors=True)
        self.ambiente = (os.environ if ambiente is None else ambiente) | {
            "WINEPREFIX": f"{self._cartella.name}/wine",
            "WINEDEBUG": "-all",
            "LC_ALL": "C.UTF-8",
        }
        self.disco = Path(self._cartella.name) / "wine" / "drive_c"

    @staticmethod
    def percorso(percorso):
        """The name that a file of this computer has there."""
        return "Z:" + str(percorso).replace("/", "\\")

    def comando(self, programma, *argomenti):
        """What runs a program there, from here; with .ambiente."""
        return [*self._davanti, self._wine, programma, *argomenti]

    def avvia(self, programma, *argomenti, **opzioni):
        # The machine goes on with what its first program was given.
        opzioni = {"stdout": subprocess.DEVNULL, "stderr": subprocess.DEVNULL} | opzioni
        return operatore.avvia_processo(self.comando(programma, *argomenti), env=self.ambiente, **opzioni)

    def esegui(self, programma, *argomenti, stato=0, **opzioni):
        """Runs a program to its end.

        @returns what it wrote on its standard output.
        @throws AssertionError when its status is another than this one, with what it wrote on both.
        """
        with tempfile.TemporaryFile() as errori:  # no pipe: the machine would keep it open
            processo = self.avvia(programma, *argomenti, **({"stderr": errori} | opzioni), stdout=subprocess.PIPE)
            try:
                uscita = processo.communicate(timeout=TEMPO)[0].decode("utf-8", "replace")
            finally:
                operatore.ferma_processo(processo)
            if processo.returncode == stato:
                return uscita
            errori.seek(0)
            detto = errori.read(MASSIMO_ERRORI).decode("utf-8", "replace")
            raise AssertionError(f"{programma}: {processo.returncode}\n{uscita}{detto}")

    def collega_porta(self, numero, dispositivo):
        """Gives the machine a COM port: a terminal device of this computer."""
        chiave = r"HKLM\Software\Wine\Ports"
        self.esegui("reg", "add", chiave, "/v", f"COM{numero}", "/t", "REG_SZ", "/d", dispositivo, "/f")
        self.spegni()  # ports are read at the start of the machine

    def imposta_lingua(self, lingua):
        """Language, code page and separators of the machine, from its next start on; wine.sh has the list.

        @param lingua e.g. "pl_PL.UTF-8".
        """
        self.spegni()
        self.ambiente["LC_ALL"] = lingua

    def spegni(self):
        """Ends all that runs on the machine, and the machine; the next program starts it anew."""
        for opzione in ("-k", "-w"):
            subprocess.run(
                [*self._davanti, "wineserver", opzione],
                env=self.ambiente, check=False, timeout=TEMPO, capture_output=True,
            )  # fmt: skip

    def chiudi(self):
        self.spegni()
        self._cartella.cleanup()


class MacchinaUtente(Macchina):
    """An ordinary user's, who knows nothing of this build: a program finds no library but what came with it."""

    def __init__(self, ambiente):
        super().__init__(ambiente, operatore.COME_UTENTE)
        cartella = self._cartella.name
        os.chown(cartella, operatore.UTENTE, operatore.GRUPPO)
        self.ambiente |= {nome: cartella for nome in ("HOME", "TMPDIR", "XDG_RUNTIME_DIR")}
        self._wine = self.ricevi(WINE)  # it looks for the build's libraries from where it lies

    def ricevi(self, percorso):
        """@returns the copy of a file of this computer that its user may read."""
        return shutil.copy(percorso, self._cartella.name)


class ProvaMacchina(unittest.TestCase):
    """One machine for all tests of a class."""

    @classmethod
    def setUpClass(cls):
        cls.macchina = Macchina()
        cls.addClassCleanup(cls.macchina.chiudi)
