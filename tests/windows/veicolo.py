"""A vehicle on the delivered Windows program, operated with the mouse.

Windows' own accessibility is not there under Wine. The Debian program shows where things stand: its windows have
the same measures.
"""

import os
import subprocess
import tempfile
import time
from pathlib import Path

import operatore
from macchina import CONSEGNA, Macchina
from operatore import attendi
from prova import QX5SIM, ProvaStazione, veicolo

RIPROVA = 2  # seconds until an operator clicks again
SCHERMATE = os.environ.get("LUMIRA_SCHERMATE")


class StazioneWindows(operatore.Stazione):
    @staticmethod
    def nome_cartella(percorso):
        return Macchina.percorso(percorso)


class Finestre:
    """The windows of the program on the screen, as far as a screen tells."""

    def __init__(self, schermo):
        self.schermo = schermo

    def _chiedi(self, *domanda):
        fatto = subprocess.run(["xdotool", *domanda], env=self.schermo.ambiente, capture_output=True, text=True)
        return fatto.stdout.split("\n")[:-1]

    def visibili(self):
        return set(self._chiedi("search", "--onlyvisible", "--class", "lumira"))

    def mostra(self, inizio):
        """True when a window shows whose title begins so."""
        nomi = [nome for finestra in self.visibili() for nome in self._chiedi("getwindowname", finestra)]
        return any(nome.startswith(inizio) for nome in nomi)


class ProvaVeicolo(ProvaStazione):
    """A vehicle of the network's worklist, on the Debian program and then on the machine."""

    NOME = "70000001"

    def setUp(self):
        super().setUp()
        self.macchina = Macchina(self.schermo.ambiente)
        self.addCleanup(self.macchina.chiudi)
        self.finestre = Finestre(self.schermo)
        self.posti = {}  # by name: where things stand that were clicked on

    def _prepara(self, stazione):
        stazione.imposta("MCTC", "Modalita", "0")
        stazione.imposta("MCTC", "IniFile", "1")
        stazione.accettazione(self.NOME, DatiLibrettoVeicolo__Targa="WW777WW")

    def impara(self, programma, pulsante):
        """Clicks a button of the Debian program and keeps its place."""
        self._impara(programma, pulsante, programma.attendi_pulsante(pulsante))

    def _impara(self, programma, nome, elemento):
        self.posti[nome] = programma.centro(elemento)
        programma.clicca_su(elemento)

    def porta_su_debian(self, **ambiente):
        """The vehicle up to its result screen.

        @returns the program. The instrument is off again.
        """
        self._prepara(self.stazione)
        strumento = self.simula(veicolo(1))
        programma = self.avvia_al_menu(**ambiente)
        self.impara(programma, "Prova proiettori")
        riga = programma.attendi(lambda: next(iter(programma.elementi("list item")), None), cosa="riga")
        self._impara(programma, "riga", riga)
        self.impara(programma, "Conferma")
        self.impara(programma, "Avvia")
        programma.attendi_testo("ESITO REGOLARE")
        strumento.spegni()
        return programma

    def esci_su_debian(self, programma):
        self.impara(programma, "Esci")
        programma.attendi_pulsante("Prova proiettori")
        self._impara(programma, "Esci dal menu", programma.attendi_pulsante("Esci"))
        programma.attendi_fine()

    def porta_su_windows(self):
        """The same vehicle on a new station of the machine, .stazione, up to its result screen.

        @returns the process of the program, and the windows that show with its menu.
        """
        cartella = tempfile.TemporaryDirectory(prefix="stazione-")
        self.addCleanup(cartella.cleanup)
        self.stazione = StazioneWindows(Path(cartella.name) / "lumira", CONSEGNA)
        self._prepara(self.stazione)
        strumento = operatore.Strumento(QX5SIM, self.stazione, veicolo(1))
        self.addCleanup(strumento.spegni)
        self.macchina.collega_porta(1, os.path.realpath(self.stazione.percorso("porte", "COM1")))
        programma = self.macchina.avvia(self.stazione.percorso("lumira.exe"), cwd=self.stazione.cartella)
        self.addCleanup(operatore.ferma_processo, programma)

        attendi(lambda: self.finestre.mostra("lumira"), cosa="menu")
        menu = self.finestre.visibili()
        self.clicca_finche(lambda: self.finestre.visibili() > menu, "Prova proiettori", cosa="lista")
        lista = self.finestre.visibili()
        self.schermata("lista")
        self.clicca_finche(lambda: self.finestre.visibili() != lista, "riga", "Conferma", cosa="veicolo")
        self.clicca_finche(lambda: " Stato" in strumento.registro(), "Avvia", cosa="collegamento")
        attendi(lambda: self.finestre.mostra("ESITO REGOLARE"), cosa="esito")
        self.schermata("esito")
        return programma, menu

    def clicca_finche(self, condizione, *nomi, cosa, riprova=RIPROVA):
        """Clicks as often as it takes: a window that has just come may lose a click."""
        prossimo = 0.0

        def clicca_o_guarda():
            nonlocal prossimo
            if condizione():
                return True
            if time.monotonic() >= prossimo:
                for nome in nomi:
                    self.schermo.clicca(*self.posti[nome])
                prossimo = time.monotonic() + riprova
            return False

        attendi(clicca_o_guarda, cosa=cosa)

    def esci_dal_risultato(self, programma, menu):
        """From the result screen to the end of the program."""
        self.clicca_finche(lambda: self.finestre.visibili() == menu, "Esci", cosa="menu dopo la prova")
        self.schermata("menu")
        self.clicca_finche(lambda: programma.poll() is not None, "Esci dal menu", cosa="fine del programma")
        self.assertEqual(programma.returncode, 0)

    def schermata(self, cosa):
        if SCHERMATE:
            self.schermo.schermata(Path(SCHERMATE) / f"windows-{cosa}.png")
