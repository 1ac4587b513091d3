"""The operator's hand on the Windows program: a held key, a key or a button of the mouse pressed twice. On Windows it
is the machine that tells a repeat from a stroke; that it goes on doing so from one form to the next shows here
alone."""

import functools
import time

from operatore import RIPROVA, attendi, resta
from scrivania import Scrivania
from veicolo import ProvaVeicolo

A_LUNGO = 50000  # polls: longer than any test
DOPPIO = 80  # ms between the two presses of a quick hand
GUARDATA = 1.5  # seconds: many repeats, and longer than the link form takes no Enter
RIPETIZIONI = 5  # letters of a held key, at least
CASELLA = "Inclinazione (%)"
TITOLO = (512, 274)  # on the screen: the words of the link form, which no click changes
CHIUSA = "la stazione ha chiuso la porta"  # in the log of the instrument


class Mano(ProvaVeicolo):
    # Without a window manager this machine stands still for two seconds whenever a window goes: no double click is
    # that slow.
    SCHERMO = functools.partial(Scrivania, "openbox")
    RIPOSO = A_LUNGO

    def setUp(self):
        super().setUp()
        programma = self.impara_la_scheda()
        self._impara(programma, CASELLA, programma.attendi(lambda: programma.pronto("text", CASELLA), cosa=CASELLA))
        self.impara_l_uscita(programma)
        self.programma, self.strumento = self.avvia_sulla(self.stazione_consegnata())
        self.menu = self.attendi_menu()
        self.interrotte = 0  # sessions

    def alla_scheda(self):
        """From the menu to the entry form; as long as the list is going away, keys are still its own."""
        self.porta_alla_scheda(self.menu)
        attendi(lambda: len(self.finestre.visibili() - self.menu) == 1, cosa="la sola scheda")

    def giu(self, tasto):
        self.addCleanup(self.su, tasto)
        self.schermo.esegui("xdotool", "keydown", tasto)

    def su(self, tasto):
        self.schermo.esegui("xdotool", "keyup", tasto)

    def interrogazioni(self):
        return self.strumento.registro().count(" Stato")

    def attendi_interrogazione(self):
        fatte = self.interrogazioni()
        attendi(lambda: self.interrogazioni() > fatte, cosa="interrogazione dello strumento")

    def sessione_in_corso(self):
        """The line tells: a session that is broken off closes its port."""
        self.attendi_interrogazione()
        resta(lambda: self.strumento.registro().count(CHIUSA) == self.interrotte, GUARDATA, "la sessione")
        self.attendi_interrogazione()

    def interrompi(self):
        """Escape, in the link form: a window manager leaves the keyboard to a form that is typed on. On a busy machine
        the first press of a second session can be lost, and an operator presses again."""
        self.schermo.clicca(*TITOLO)
        self.interrotte += 1
        premi = 0.0

        def interrotta():
            nonlocal premi
            if self.strumento.registro().count(CHIUSA) == self.interrotte:
                return True
            if time.monotonic() > premi:
                self.schermo.tasto("Escape")
                premi = time.monotonic() + RIPROVA
            return False

        attendi(interrotta, cosa="fine della sessione")
        attendi(lambda: self.finestre.visibili() == self.menu, cosa="menu dopo la sessione")

    def inclinazione(self):
        return self.stazione.ini.valore("IMPOSTAZIONI", "InclinazioneFaro")

    def test_quel_che_la_mano_fa_ancora_non_vale_per_il_form_dopo(self):
        # Without repeats of the display, those of Enter would not come either and nothing would be shown.
        self.alla_scheda()
        self.schermo.clicca(*self.posti[CASELLA])
        self.giu("a")
        resta(lambda: self.finestre.visibili() > self.menu, GUARDATA, "la scheda")
        self.su("a")

        self.giu("Return")  # the form's default button
        self.sessione_in_corso()
        self.su("Return")
        self.sessione_in_corso()
        self.assertRegex(self.inclinazione(), f"^a{{{RIPETIZIONI},}}$")
        self.interrompi()

        self.alla_scheda()
        self.schermo.esegui("xdotool", "key", "--delay", DOPPIO, "Return", "Return")
        self.sessione_in_corso()
        self.interrompi()

        self.alla_scheda()
        self.schermo.clicca(*self.posti[CASELLA])
        x, y = self.posti["Esci"]
        self.schermo.esegui("xdotool", "mousemove", x, y, "click", "--repeat", "2", "--delay", DOPPIO, "1")
        attendi(lambda: self.finestre.visibili() == self.menu, cosa="menu dopo la scheda")
        resta(lambda: self.finestre.visibili() == self.menu, GUARDATA, "il menu")
        self.schermo.clicca(x, y)  # pressed once it opens what lies there
        attendi(lambda: self.finestre.mostra("Informazioni"), cosa="Informazioni")
