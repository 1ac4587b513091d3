"""The print button of the Windows program: its page next to that of the Debian program, the second print, a queue
that does not take jobs, no queue."""

import re
import time

import carta
from a_memoria import STAMPA
from foglio import Foglio
from operatore import attendi
from stampante import Stampante
from veicolo import ProvaVeicolo

AVVISO = "Avviso"  # the title of a message
ORA = re.compile(r"\d\d:\d\d:\d\d")


class Stampa(ProvaVeicolo):
    maxDiff = None

    def setUp(self):
        super().setUp()
        self.prendi_stampante()
        self.macchina.ambiente |= self.stampante.ambiente

    def rifiutati(self):
        """How many jobs the scheduler has turned away."""
        registro = self.stampante.lavoro / "errori.log"
        return registro.read_text().count("not-accepting-jobs") if registro.exists() else 0

    def test_stampa_due_volte_come_su_debian_e_dopo_un_rifiuto(self):
        atteso = self.impara_la_stampa()
        programma, menu = self.porta_su_windows()
        prima = self.stampa()
        self.schermata("stampa")
        carta.confronta(self, prima, atteso)

        istante = time.strftime("%H:%M:%S")
        attendi(lambda: time.strftime("%H:%M:%S") > istante, cosa="il secondo dopo")
        seconda = self.stampa()
        diverse = [coppia for coppia in zip(Foglio(prima).parole, Foglio(seconda).parole) if len(set(coppia)) > 1]
        self.assertEqual(len(diverse), 1, diverse)
        (fine_prima, posto_prima), (fine_seconda, posto_seconda) = diverse[0]
        self.assertEqual(posto_prima, posto_seconda)
        self.assertRegex(fine_prima, ORA)
        self.assertGreater(fine_seconda, fine_prima)

        # The machine's spooler takes the page; that the queue turns it away shows later, and nobody is told.
        self.stampante.amministra("cupsreject", Stampante.CODA)
        fogli, rifiutati = self.stampante.fogli(), self.rifiutati()
        self.clicca_finche(lambda: self.rifiutati() > rifiutati, "Stampa", cosa="rifiuto", riprova=STAMPA)
        self.assertEqual(self.stampante.fogli(), fogli)
        attendi(lambda: self.finestre.mostra("ESITO REGOLARE"), cosa="risultato")
        self.stampante.amministra("cupsaccept", Stampante.CODA)
        carta.confronta(self, self.stampa(), atteso)
        self.esci_dal_risultato(programma, menu)

    def test_senza_coda_un_messaggio_e_il_risultato_resta(self):
        self.impara_la_stampa()
        self.stampante.amministra("lpadmin", "-x", Stampante.CODA)
        programma, menu = self.porta_su_windows()
        risultato = self.finestre.visibili()
        self.clicca_finche(lambda: self.finestre.mostra(AVVISO), "Stampa", cosa="messaggio")
        self.schermata("senza-coda")
        attendi(lambda: self.finestre.visibili() == risultato, cosa="fine del messaggio")
        attendi(lambda: self.finestre.mostra("ESITO REGOLARE"), cosa="risultato")
        self.esci_dal_risultato(programma, menu)
