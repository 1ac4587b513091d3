"""The Debian package on a machine that has nothing but what it depends on, used by an ordinary user: installed,
started, upgraded also while the station is open, a vehicle and its page, removed."""

import os
import subprocess
import tempfile
import unittest
from pathlib import Path

import carta
import operatore
from a_memoria import ProvaAMemoria
from operatore import attendi
from radice import Radice

COSTRUZIONE = Path(os.environ["LUMIRA_COSTRUZIONE"])
ESCI = (512, 733)  # the middle of the menu's last row, on a screen of 1024 by 768
PORTE = "/dev/pts"
STAMPA = "/run/cups"  # where a Debian machine has its scheduler's socket


class StazioneNuova(operatore.Stazione):
    """A station installed in a root folder, which is not in its names."""

    def __init__(self, macchina, cartella):
        self.macchina = macchina
        super().__init__(macchina.percorso(cartella))

    def nome_cartella(self, percorso):
        return Path("/") / percorso.relative_to(self.macchina.cartella)


def si_prestano_cartelle():
    prova = ["unshare", "--mount", "mount", "--bind", PORTE, PORTE]
    return subprocess.run(prova, capture_output=True).returncode == 0


@unittest.skipUnless(os.geteuid() == 0, "solo root fa una macchina in una cartella")
class MacchinaNuova(ProvaAMemoria):
    ORDINARIO = True

    def setUp(self):
        super().setUp()
        cartella = tempfile.TemporaryDirectory(prefix="macchina-")
        self.addCleanup(cartella.cleanup)
        comando = ["cpack", "--config", COSTRUZIONE / "CPackConfig.cmake", "-B", cartella.name]
        subprocess.run([str(parte) for parte in comando], check=True, capture_output=True)
        (pacchetto,) = Path(cartella.name).glob("*.deb")
        self.macchina = Radice(Path(cartella.name) / "radice", pacchetto)
        pacchetto.rename(self.macchina.percorso("tmp/lumira.deb"))
        casa = self.macchina.percorso("home/utente")
        casa.mkdir(parents=True)
        os.chown(casa, operatore.UTENTE, operatore.GRUPPO)
        casa.chmod(0o700)
        self.opt = self.macchina.percorso("opt/lumira")

    def installa(self):
        self.macchina.esegui("dpkg", "--install", "/tmp/lumira.deb")

    def avvia_utente(self, *prestiti):
        """The station, started by somebody who is not root. @param prestiti see Radice.comando_utente()."""
        suo = {"HOME": "/home/utente", "XDG_RUNTIME_DIR": "/home/utente", "TMPDIR": "/tmp"}
        processo = operatore.avvia_processo(
            self.macchina.comando_utente("/opt/lumira/lumira", prestiti=prestiti), env=self.schermo.ambiente | suo
        )
        self.addCleanup(operatore.ferma_processo, processo)
        return processo

    def rimuovi(self):
        """@returns the names of the files that it leaves."""
        self.macchina.esegui("dpkg", "--remove", "lumira")
        return sorted(p.name for p in self.opt.rglob("*") if p.is_file())

    def test_installata_usata_aggiornata_aperta_e_rimossa(self):
        self.installa()
        processo = self.avvia_utente()
        attendi(self.finestre.visibili, cosa="menu")
        # The menu alone: whoever is of the machine's people can write the configuration.
        operatore.resta(lambda: len(self.finestre.visibili()) == 1, 2, "il solo menu")

        self.installa()  # over the open one
        self.assertEqual(self.avvia_utente().wait(operatore.ATTESA), 0)
        self.assertIsNone(processo.poll())

        self.schermo.clicca(*ESCI)
        self.assertEqual(processo.wait(operatore.ATTESA), 0)
        # The configuration stays, and what the update kept of it.
        self.assertRegex(" ".join(self.rimuovi()), r"\Alumira\.ini lumira\.ini\.\d{4}-\d\d-\d\d\Z")

    @unittest.skipUnless(si_prestano_cartelle(), "qui nemmeno root presta cartelle (mount): né porte né stampante")
    def test_aggiornata_porta_un_veicolo_stampa_la_sua_pagina_ed_e_rimossa(self):
        self.prendi_stampante()
        pagina = self.impara_la_stampa()
        atteso = self.stazione.risultato(self.NOME)

        self.installa()
        strumento = self.prepara_altra(StazioneNuova(self.macchina, "opt/lumira"))
        configurazione = self.stazione.ini.percorso.read_bytes()
        self.installa()
        self.assertEqual(self.stazione.ini.percorso.read_bytes(), configurazione)

        programma = self.avvia_utente((PORTE, PORTE), (self.stampante.lavoro, STAMPA))
        menu = self.porta_al_risultato(strumento)
        carta.confronta(self, self.stampa(), pagina)
        self.esci_dal_risultato(programma, menu)
        self.uguale_salvo_gli_orari(self.stazione.risultato(self.NOME), atteso)
        self.assertEqual(self.stazione.contenuto(), [f"{self.NOME}.acc", f"{self.NOME}.far"])

        restano = self.rimuovi()
        for nome in (f"{self.NOME}.far", "lumira.ini"):
            self.assertIn(nome, restano)
        self.assertNotIn("lumira", restano)
