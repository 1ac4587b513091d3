"""The Debian package on a machine that has nothing but what it depends on, used by an ordinary user: installed,
started, upgraded while the station is open, removed."""

import os
import subprocess
import tempfile
import unittest
from pathlib import Path

import operatore
from operatore import attendi
from prova import ProvaStazione
from radice import UTENTE, Radice

COSTRUZIONE = Path(os.environ["LUMIRA_COSTRUZIONE"])
ESCI = (512, 733)  # the middle of the menu's last row, on a screen of 1024 by 768


@unittest.skipUnless(os.geteuid() == 0, "solo root fa una macchina in una cartella")
class MacchinaNuova(ProvaStazione):
    def setUp(self):
        cartella = tempfile.TemporaryDirectory(prefix="macchina-")
        self.addCleanup(cartella.cleanup)
        comando = ["cpack", "--config", COSTRUZIONE / "CPackConfig.cmake", "-B", cartella.name]
        subprocess.run([str(parte) for parte in comando], check=True, capture_output=True)
        (pacchetto,) = Path(cartella.name).glob("*.deb")
        self.macchina = Radice(Path(cartella.name) / "radice", pacchetto)
        pacchetto.rename(self.macchina.percorso("tmp/lumira.deb"))
        casa = self.macchina.percorso("home/utente")
        casa.mkdir(parents=True)
        os.chown(casa, *(int(numero) for numero in UTENTE.split(":")))
        casa.chmod(0o700)
        self.opt = self.macchina.percorso("opt/lumira")

    def installa(self):
        self.macchina.esegui("dpkg", "--install", "/tmp/lumira.deb")

    def avvia_utente(self):
        """The station, started by somebody who is not root."""
        processo = operatore.avvia_processo(
            self.macchina.comando("/opt/lumira/lumira", utente=UTENTE),
            env=self.schermo.ambiente | {"HOME": "/home/utente", "XDG_RUNTIME_DIR": "/home/utente"},
        )
        self.addCleanup(operatore.ferma_processo, processo)
        return processo

    def finestre(self):
        """Windows of the program that show."""
        domanda = ["xdotool", "search", "--onlyvisible", "--class", "lumira"]
        return subprocess.run(domanda, env=self.schermo.ambiente, capture_output=True, text=True).stdout.split()

    def test_installata_usata_aggiornata_aperta_e_rimossa(self):
        self.installa()
        processo = self.avvia_utente()
        attendi(self.finestre, cosa="menu")
        # The menu alone: whoever is of the machine's people can write the configuration.
        operatore.resta(lambda: len(self.finestre()) == 1, 2, "il solo menu")

        self.installa()  # over the open one
        self.assertEqual(self.avvia_utente().wait(operatore.ATTESA), 0)
        self.assertIsNone(processo.poll())

        self.schermo.clicca(*ESCI)
        self.assertEqual(processo.wait(operatore.ATTESA), 0)
        self.macchina.esegui("dpkg", "--remove", "lumira")
        self.assertEqual([p.name for p in self.opt.rglob("*") if p.is_file()], ["lumira.ini"])
