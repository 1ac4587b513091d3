"""What the tests of the Windows installer share: a machine that starts empty, and a look at what was laid down."""

import shutil

from finestre import TEMPO
from macchina import COSTRUZIONE, ProvaMacchina
from operatore import attendi

IN_USO = 3  # status of a run that found the station open
CHIAVE = r"HKLM\Software\lumira\lumira"
DISINSTALLAZIONE = r"HKLM\Software\Microsoft\Windows\CurrentVersion\Uninstall\lumira"


def consegnato():
    """The installer, as it is delivered."""
    (installatore,) = (COSTRUZIONE / "pacchetti").glob("lumira-*-windows.exe")
    return installatore


def rimuovi(macchina, stazione):
    """Removes the station of a folder."""
    macchina.esegui(stazione / "Uninstall.exe", "/S")
    # The uninstaller goes on in a copy of itself.
    attendi(lambda: not (stazione / "Uninstall.exe").exists(), TEMPO, "fine della rimozione")


class ProvaInstallatore(ProvaMacchina):
    def setUp(self):
        self.installatore = consegnato()
        self.disco = self.macchina.disco
        self.stazione = self.disco / "stazione"
        self.addCleanup(self.sgombera)

    def sgombera(self):
        """Leaves the machine as if nothing had been installed on it."""
        for cartella in ("stazione", "lumira", "Program Files/lumira"):
            shutil.rmtree(self.disco / cartella, True)
        for chiave in (CHIAVE, DISINSTALLAZIONE):
            self.macchina.avvia("reg", "delete", chiave, "/f").wait(TEMPO)  # it may not be there

    def installa(self, *argomenti, **opzioni):
        # The folder is the last argument and stands without quotes: its words come one by one.
        self.macchina.esegui(self.installatore, "/S", *argomenti, **opzioni)

    def installa_in_stazione(self):
        self.installa(r"/D=C:\stazione")

    def rimuovi(self):
        rimuovi(self.macchina, self.stazione)

    def registrato(self, chiave, nome):
        """A text of the registry; None is the key's own."""
        quale = ["/v", nome] if nome else ["/ve"]
        return self.macchina.esegui("reg", "query", chiave, *quale).split("REG_SZ")[1].strip()

    @property
    def menu(self):
        return self.disco / "ProgramData/Microsoft/Windows/Start Menu/Programs/lumira"

    def gruppo(self):
        """Names of the program group's entries."""
        return sorted(voce.name for voce in self.menu.glob("*"))

    def contenuto(self):
        """Every file of the station with its bytes; not the copies of the configuration, which each update may add."""
        file = [f for f in self.stazione.rglob("*") if f.is_file() and not f.name.startswith("lumira.ini.")]
        return {str(f.relative_to(self.stazione)): f.read_bytes() for f in file}
