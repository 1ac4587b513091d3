"""A vehicle on a program that no accessibility bus shows, operated with the mouse: another system's, another user's.

The program of this machine shows where things stand: its windows have the same measures.
"""

import os
import subprocess
import tempfile
import time
from pathlib import Path

from operatore import GRUPPO, GRUPPO_PORTE, UTENTE, Strumento, attendi
from prova import QX5SIM, ProvaStazione, veicolo
from stampante import Stampante

RIPROVA = 2  # seconds until an operator clicks again
STAMPA = 20  # seconds until an operator presses the print button again: a page takes that long on a busy machine
SCHERMATE = os.environ.get("LUMIRA_SCHERMATE")


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


class ProvaAMemoria(ProvaStazione):
    """A vehicle of the network's worklist, on this machine's program and then on the other."""

    NOME = "70000001"
    ORDINARIO = False  # whether an ordinary user works on the other
    RIPOSO = 1  # polls after which the instrument of the other goes to the measure

    def setUp(self):
        super().setUp()
        self.finestre = Finestre(self.schermo)
        self.posti = {}  # by name: where things stand that were clicked on

    def prendi_stampante(self):
        cartella = tempfile.TemporaryDirectory(prefix="stampante-")
        self.addCleanup(cartella.cleanup)
        self.stampante = Stampante(cartella.name)
        self.addCleanup(self.stampante.ferma)

    def prepara(self, stazione):
        stazione.imposta("MCTC", "Modalita", "0")
        stazione.imposta("MCTC", "IniFile", "1")
        stazione.accettazione(self.NOME, DatiLibrettoVeicolo__Targa="WW777WW")

    # On this machine's program.

    def impara(self, programma, pulsante):
        """Clicks a button of this machine's program and keeps its place."""
        self._impara(programma, pulsante, programma.attendi_pulsante(pulsante))

    def _impara(self, programma, nome, elemento):
        self.posti[nome] = programma.centro(elemento)
        programma.clicca_su(elemento)

    def impara_la_scheda(self, **ambiente):
        """The vehicle up to its entry form.

        @returns the program.
        """
        self.prepara(self.stazione)
        programma = self.avvia_al_menu(**ambiente)
        self.impara(programma, "Prova proiettori")
        riga = programma.attendi(lambda: next(iter(programma.elementi("list item")), None), cosa="riga")
        self._impara(programma, "riga", riga)
        self.impara(programma, "Conferma")
        return programma

    def impara_il_veicolo(self, **ambiente):
        """The vehicle up to its result screen.

        @returns the program. The instrument is off again.
        """
        strumento = self.simula(veicolo(1))
        programma = self.impara_la_scheda(**ambiente)
        self.impara(programma, "Avvia")
        programma.attendi_testo("ESITO REGOLARE")
        strumento.spegni()
        return programma

    def impara_l_uscita(self, programma):
        """From the result screen or the entry form to the end of the program."""
        self.impara(programma, "Esci")
        programma.attendi_pulsante("Prova proiettori")
        self._impara(programma, "Esci dal menu", programma.attendi_pulsante("Esci"))
        programma.attendi_fine()

    def impara_la_stampa(self):
        """The vehicle, its page and the way out.

        @returns the sheet.
        """
        programma = self.impara_il_veicolo(**self.stampante.ambiente)
        self.impara(programma, "Stampa")
        foglio = self.stampante.foglio(1)
        programma.attendi_pulsante("Stampa")
        self.impara_l_uscita(programma)
        return foglio

    # On the other.

    def prepara_altra(self, stazione):
        """Another station, .stazione from now on, with the same vehicle to come.

        @returns its instrument.
        """
        self.stazione = stazione
        self.prepara(stazione)
        strumento = Strumento(QX5SIM, stazione, veicolo(1, riposo=self.RIPOSO))
        self.addCleanup(strumento.spegni)
        if self.ORDINARIO:
            self.cedi_all_utente()
        return strumento

    def cedi_all_utente(self):
        """The exchange folders of .stazione become the user's; its port becomes what any port is on Debian."""
        scambio = self.stazione.percorso("scambio")
        for cartella in (scambio, *scambio.iterdir()):
            os.chown(cartella, UTENTE, GRUPPO)
        porta = self.stazione.percorso("porte", "COM1")
        os.chown(porta, 0, GRUPPO_PORTE)
        os.chmod(porta, 0o660)

    def attendi_menu(self):
        """@returns the windows that show with the menu of the station that has just been started."""
        attendi(lambda: self.finestre.mostra("lumira"), cosa="menu")
        return self.finestre.visibili()

    def porta_alla_scheda(self, menu):
        """The vehicle from the menu to its entry form."""
        self.clicca_finche(lambda: self.finestre.visibili() > menu, "Prova proiettori", cosa="lista")
        lista = self.finestre.visibili()
        self.schermata("lista")
        self.clicca_finche(lambda: self.finestre.visibili() != lista, "riga", "Conferma", cosa="veicolo")

    def porta_al_risultato(self, strumento):
        """The vehicle on the station that has just been started, up to its result screen.

        @returns the windows that show with its menu.
        """
        menu = self.attendi_menu()
        self.porta_alla_scheda(menu)
        self.clicca_finche(lambda: " Stato" in strumento.registro(), "Avvia", cosa="collegamento")
        attendi(lambda: self.finestre.mostra("ESITO REGOLARE"), cosa="esito")
        self.schermata("esito")
        return menu

    def stampa(self):
        """@returns the sheet that comes out."""
        numero = self.stampante.fogli() + 1
        self.clicca_finche(lambda: self.stampante.fogli() >= numero, "Stampa", cosa="foglio", riprova=STAMPA)
        fogli = (self.stampante.cartella / "uscita").glob("*.pdf")
        return max(fogli, key=lambda foglio: int(foglio.stem))

    def esci_dal_risultato(self, programma, menu):
        """From the result screen to the end of the program."""
        self.clicca_finche(lambda: self.finestre.visibili() == menu, "Esci", cosa="menu dopo la prova")
        self.schermata("menu")
        self.esci_dal_menu(programma)

    def esci_dal_menu(self, programma):
        self.clicca_finche(lambda: programma.poll() is not None, "Esci dal menu", cosa="fine del programma")
        self.assertEqual(programma.returncode, 0)

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

    def schermata(self, cosa):
        if SCHERMATE:
            self.schermo.schermata(Path(SCHERMATE) / f"{type(self).__name__}-{cosa}.png")
