"""The delivered Windows program on a machine with an instrument behind its COM port, operated with the mouse.

Windows' own accessibility is not there under Wine. The Debian program shows where things stand: its windows have
the same measures, and it makes the result file that the Windows program has to make too.
"""

import os
import shutil
import subprocess
import tempfile
import time
from pathlib import Path

import operatore
from macchina import CONSEGNA, Macchina
from operatore import attendi
from prova import QX5SIM, ProvaStazione, veicolo

NOME = "70000001"
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


class Veicolo(ProvaStazione):
    def setUp(self):
        super().setUp()
        self.macchina = Macchina(self.schermo.ambiente)
        self.addCleanup(self.macchina.chiudi)
        self.finestre = Finestre(self.schermo)

    def prepara(self, stazione):
        stazione.imposta("MCTC", "Modalita", "0")
        stazione.imposta("MCTC", "IniFile", "1")
        stazione.accettazione(NOME, DatiLibrettoVeicolo__Targa="WW777WW")

    def porta_su_debian(self):
        """@returns the places that were clicked on, one after the other."""
        self.prepara(self.stazione)
        strumento = self.simula(veicolo(1))
        programma = self.avvia_al_menu()
        posti = []

        def premi(elemento):
            posti.append(programma.centro(elemento))
            programma.clicca_su(elemento)

        premi(programma.attendi_pulsante("Prova proiettori"))
        premi(programma.attendi(lambda: next(iter(programma.elementi("list item")), None), cosa="riga"))
        premi(programma.attendi_pulsante("Conferma"))
        premi(programma.attendi_pulsante("Avvia"))
        programma.attendi_testo("ESITO REGOLARE")
        premi(programma.attendi_pulsante("Esci"))
        premi(programma.attendi_pulsante("Esci"))
        programma.attendi_fine()
        strumento.spegni()
        return posti

    def clicca_finche(self, condizione, *posti, cosa):
        """Clicks as often as it takes: a window that has just come may lose a click."""
        prossimo = 0.0

        def clicca_o_guarda():
            nonlocal prossimo
            if condizione():
                return True
            if time.monotonic() >= prossimo:
                for posto in posti:
                    self.schermo.clicca(*posto)
                prossimo = time.monotonic() + RIPROVA
            return False

        attendi(clicca_o_guarda, cosa=cosa)

    def schermata(self, cosa):
        if SCHERMATE:
            self.schermo.schermata(Path(SCHERMATE) / f"windows-{cosa}.png")

    def test_un_veicolo_dalla_lista_al_risultato_come_su_debian(self):
        prova, riga, conferma, avvia, esci, esci_dal_menu = self.porta_su_debian()
        atteso = self.stazione.risultato(NOME)

        cartella = tempfile.TemporaryDirectory(prefix="stazione-")
        self.addCleanup(cartella.cleanup)
        self.stazione = StazioneWindows(Path(cartella.name) / "lumira", CONSEGNA)
        self.prepara(self.stazione)
        strumento = operatore.Strumento(QX5SIM, self.stazione, veicolo(1))
        self.addCleanup(strumento.spegni)
        self.macchina.collega_porta(1, os.path.realpath(self.stazione.percorso("porte", "COM1")))
        programma = self.macchina.avvia(self.stazione.percorso("lumira.exe"), cwd=self.stazione.cartella)
        self.addCleanup(operatore.ferma_processo, programma)

        attendi(lambda: self.finestre.mostra("lumira"), cosa="menu")
        menu = self.finestre.visibili()
        self.clicca_finche(lambda: self.finestre.visibili() > menu, prova, cosa="lista")
        lista = self.finestre.visibili()
        self.schermata("lista")
        self.clicca_finche(lambda: self.finestre.visibili() != lista, riga, conferma, cosa="veicolo")
        self.clicca_finche(lambda: " Stato" in strumento.registro(), avvia, cosa="collegamento")
        attendi(lambda: self.finestre.mostra("ESITO REGOLARE"), cosa="esito")
        self.schermata("esito")
        self.clicca_finche(lambda: self.finestre.visibili() == menu, esci, cosa="menu dopo la prova")
        self.schermata("menu")
        self.clicca_finche(lambda: programma.poll() is not None, esci_dal_menu, cosa="fine del programma")
        self.assertEqual(programma.returncode, 0)
        self.uguale_salvo_gli_orari(self.stazione.risultato(NOME), atteso)
        self.assertEqual(self.stazione.contenuto(), [f"{NOME}.acc", f"{NOME}.far"])
