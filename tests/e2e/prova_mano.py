"""The operator's hand: a key that stays down, a key or a button of the mouse pressed twice.

A form comes up where the one before has just been confirmed; what the hand still does there was not meant for
it.
"""

import time

from operatore import RIPROVA, resta
from prova import ProvaStazione, veicolo

A_LUNGO = 50000  # polls: longer than any test
DOPPIO = 80  # ms between the two presses of a quick hand


class Mano(ProvaStazione):
    def setUp(self):
        super().setUp()
        self.stazione.accettazione("94000001")
        self.simula(veicolo(1, riposo=A_LUNGO))

    def alla_scheda(self, programma):
        """From the menu to the entry form, with a vehicle of the worklist."""
        programma.premi("Prova proiettori")
        programma.scegli_riga("94000001.ACC")
        programma.premi_verso("Conferma", "Avvia")

    def giu(self, tasto):
        self.schermo.esegui("xdotool", "keydown", tasto)

    def su(self, tasto):
        self.schermo.esegui("xdotool", "keyup", tasto)

    def tieni_verso(self, programma, tasto, nome, prossimo):
        """Holds a key on a button until the next form is up, and on. The worklist takes its button away while
        it looks at the folder: a press in that moment is lost, and an operator presses again."""
        programma.attendi_pulsante(nome)
        self.addCleanup(self.su, tasto)
        self.giu(tasto)
        ripremi = time.monotonic() + RIPROVA

        def arrivato():
            nonlocal ripremi
            if time.monotonic() > ripremi and programma.abilitato(nome):
                self.su(tasto)
                self.giu(tasto)
                ripremi = time.monotonic() + RIPROVA
            return prossimo()

        programma.attendi(arrivato, cosa=f"{tasto} tenuto su {nome}")

    def doppio_clic(self, programma, nome):
        x, y = programma.centro(programma.attendi_pulsante(nome))
        self.schermo.esegui("xdotool", "mousemove", x, y, "click", "--repeat", "2", "--delay", DOPPIO, "1")

    def sessione_in_corso(self, programma):
        programma.attendi(programma.in_collegamento, cosa="finestra di collegamento")
        resta(programma.in_collegamento, 1.5, "la sessione")
        programma.attendi_testo("Attesa dati...")

    def test_un_tasto_tenuto_si_ripete_nelle_caselle(self):
        """Without repeats of the display the other tests would hold by themselves."""
        programma = self.avvia_al_menu()
        self.alla_scheda(programma)
        programma.clicca("text", "Inclinazione (%)")
        self.addCleanup(self.su, "a")
        self.giu("a")
        programma.attendi(lambda: len(programma.valore("Inclinazione (%)") or "") > 5, cosa="ripetizioni")
        self.su("a")

    def test_invio_tenuto_conferma_una_volta_sola(self):
        programma = self.avvia_al_menu()
        programma.premi("Prova proiettori")
        programma.scegli_riga("94000001.ACC")
        self.tieni_verso(programma, "Return", "Conferma", lambda: programma.abilitato("Avvia"))
        resta(lambda: programma.abilitato("Avvia"), 2, "la scheda del veicolo")
        self.su("Return")

        self.tieni_verso(programma, "Return", "Avvia", programma.in_collegamento)
        self.sessione_in_corso(programma)
        self.su("Return")
        self.sessione_in_corso(programma)
        programma.tasto("Return")  # pressed anew it breaks off
        programma.attendi_pulsante("Prova proiettori")

    def test_escape_tenuto_chiude_un_form_solo(self):
        self.stazione.accettazione("94000002", DatiLibrettoVeicolo__Targa="AB")
        programma = self.avvia_al_menu()
        programma.premi("Prova proiettori")
        programma.scegli_riga("94000002.ACC")
        self.tieni_verso(programma, "Escape", "Ok", lambda: programma.abilitato("Annulla"))
        resta(lambda: programma.in_qualche_finestra("push button", "Annulla"), 2, "la lista")

    def test_invio_doppio_non_interrompe(self):
        programma = self.avvia_al_menu()
        self.alla_scheda(programma)
        programma.attendi_pulsante("Avvia")
        self.schermo.esegui("xdotool", "key", "--delay", DOPPIO, "Return", "Return")
        self.sessione_in_corso(programma)

    def test_doppio_clic_su_avvia_non_interrompe(self):
        programma = self.avvia_al_menu()
        self.alla_scheda(programma)
        self.doppio_clic(programma, "Avvia")
        self.sessione_in_corso(programma)
        programma.tasto("Escape")
        programma.attendi_pulsante("Prova proiettori")

    def test_doppio_clic_su_esci_non_apre_altro(self):
        programma = self.avvia_al_menu()
        self.alla_scheda(programma)
        self.doppio_clic(programma, "Esci")

        def al_menu():
            return programma.abilitato("Informazioni") and len(programma.finestre()) == 1

        programma.attendi(al_menu, cosa="il menu")
        resta(al_menu, 1, "il menu")
        programma.premi("Informazioni")  # a single click counts at once
        programma.attendi_testo("Informazioni")
