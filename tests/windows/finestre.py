"""Windows programs on a screen, operated with the mouse: their windows and controls by their texts. What a program
draws by itself, as the station does inside its windows, has none."""

from typing import NamedTuple

import operatore
from macchina import COSTRUZIONE, Macchina, ProvaMacchina
from operatore import attendi

ELENCO = COSTRUZIONE / "tests" / "windows" / "elenco_finestre.exe"
TEMPO = 120  # seconds: an installer unpacks a whole station meanwhile
SGUARDI = 3  # at most, until one takes place: on a busy computer Wine does not start a program now and then


class Controllo(NamedTuple):
    """A window or a control that shows."""

    x: int
    y: int
    larghezza: int
    altezza: int
    testo: str


class ProvaFinestre(ProvaMacchina):
    """A machine with a screen for all tests of a class."""

    DAVANTI = []  # command that runs everything on the machine

    @classmethod
    def setUpClass(cls):
        cls.schermo = operatore.SchermoVirtuale()
        cls.addClassCleanup(cls.schermo.chiudi)
        cls.macchina = Macchina(cls.schermo.ambiente, cls.DAVANTI)
        cls.addClassCleanup(cls.macchina.chiudi)

    def avvia_stazione(self, cartella):
        """The station of a folder, open on its menu."""
        programma = self.macchina.avvia(cartella / "lumira.exe", cwd=cartella)
        self.addCleanup(operatore.ferma_processo, programma)
        self.attendi_testo("lumira")
        return programma

    def _elenco(self):
        for _ in range(SGUARDI - 1):
            try:
                return self.macchina.esegui(ELENCO)
            except AssertionError as errore:
                print(f"sguardo mancato: {errore}")  # it says nothing of what shows
        return self.macchina.esegui(ELENCO)

    def controlli(self):
        righe = self._elenco().splitlines()
        campi = [riga.split(" ", 4) for riga in righe if riga.count(" ") >= 4]
        return [Controllo(*(int(numero) for numero in riga[:4]), riga[4]) for riga in campi]

    def mostra(self, testo):
        return any(testo in c.testo for c in self.controlli())

    def attendi_schermo(self, condizione, cosa):
        """Waits as attendi() does; a failure tells what the screen showed."""
        try:
            return attendi(condizione, TEMPO, cosa)
        except operatore.AttesaScaduta as errore:
            mostrati = "\n".join(str(c) for c in self.controlli())
            raise AssertionError(f"{errore}\n{mostrati}") from None

    def attendi_testo(self, testo):
        """Waits for a window or control whose text holds this."""
        self.attendi_schermo(lambda: self.mostra(testo), testo)

    def resta_senza(self, testo, secondi):
        """Looks on for some time: the text must not show."""
        operatore.resta(lambda: not self.mostra(testo), secondi, f"senza {testo}")

    def clicca(self, pulsante):
        for c in self.controlli():
            if c.testo == pulsante:
                self.schermo.clicca(c.x + c.larghezza // 2, c.y + c.altezza // 2)

    def premi_finche(self, pulsante, condizione, cosa):
        """Clicks as often as it takes: a window that has just come may lose a click."""

        def premi_o_guarda():
            return condizione() or self.clicca(pulsante)

        self.attendi_schermo(premi_o_guarda, cosa)

    def premi(self, pulsante, fino_a):
        """Clicks a button that leads to a text."""
        self.premi_finche(pulsante, lambda: self.mostra(fino_a), fino_a)
