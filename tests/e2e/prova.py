"""What every end-to-end test starts from: a fresh copy of the installation, a screen, a program, an instrument.

LUMIRA_INSTALLAZIONE names the installation, LUMIRA_COSTRUZIONE the build that it comes from; esegui.py sets
both. The tests of a file run in one process, with one screen.
"""

import os
import re
import tempfile
import unittest
from pathlib import Path

import operatore

INSTALLAZIONE = Path(os.environ["LUMIRA_INSTALLAZIONE"])
QX5SIM = INSTALLAZIONE / "simulatore" / "qx5sim"
ATTESI = Path(__file__).parent / "attesi"

# Four records, as the instrument sends them: four digits and the verdicts on the vertical and horizontal aim.
REGOLARE = ("0243O#", "0612OO", "0251OO", "0598#O")

# Lines of a result file that are not the same in two runs.
VARIABILI = {b"DataMisura": 8, b"InizioMisura": 6, b"FineMisura": 6}


def veicolo(numero, record=REGOLARE, riposo=1, prova=1, altro=""):
    """A vehicle of a scenario: polls answered "1" and "2" before the measure, and its four records."""
    nomi = ("AnabSx", "AbbSx", "AnabDx", "AbbDx")
    righe = [f"[VEICOLO{numero}]", f"Riposo={riposo}", f"Prova={prova}", altro]
    return "\n".join(righe + [f"{nome}={valore}" for nome, valore in zip(nomi, record)]) + "\n"


class ProvaStazione(unittest.TestCase):
    """A station of its own for each test, a screen for all tests of a class."""

    maxDiff = None
    SCHERMO = operatore.SchermoVirtuale  # makes the screen

    @classmethod
    def setUpClass(cls):
        cls.schermo = cls.SCHERMO()
        cls.addClassCleanup(cls.schermo.chiudi)

    def setUp(self):
        cartella = tempfile.TemporaryDirectory(prefix="stazione-")
        self.addCleanup(cartella.cleanup)
        self.stazione = operatore.Stazione(Path(cartella.name) / "lumira", INSTALLAZIONE)

    def simula(self, scenario, *opzioni):
        strumento = operatore.Strumento(QX5SIM, self.stazione, scenario, *opzioni)
        self.addCleanup(strumento.spegni)
        return strumento

    def avvia(self, *davanti, **ambiente):
        """Starts the program and waits for nothing. @param davanti command that runs it."""
        programma = operatore.Programma(self.stazione, self.schermo, *davanti, **ambiente)
        self.addCleanup(programma.chiudi)
        return programma

    def avvia_al_menu(self, **ambiente):
        programma = self.avvia(**ambiente)
        programma.attendi_pulsante("Prova proiettori")
        return programma

    def porta_al_collegamento(self, programma, nome, prima_di_avviare=None):
        """From the menu to the link form, with a vehicle of the worklist."""
        programma.premi("Prova proiettori")
        programma.scegli_riga(f"{nome}.ACC")
        programma.premi_verso("Conferma", "Avvia")
        if prima_di_avviare:
            prima_di_avviare()
        programma.premi("Avvia")
        programma.attendi(programma.in_collegamento, cosa="finestra di collegamento")

    def prova_veicolo(self, programma, nome, verdetto, prima_di_avviare=None):
        """One vehicle from the menu to the result screen."""
        self.porta_al_collegamento(programma, nome, prima_di_avviare)
        programma.attendi_testo(verdetto)

    def esci(self, programma):
        """From the menu to the end of the program."""
        programma.attendi_pulsante("Prova proiettori")
        programma.premi("Esci")
        self.assertEqual(programma.attendi_fine(), 0)
        self.assertEqual(programma.diario(), "")

    def far_uguale(self, nome, atteso):
        """The result file equals the expected one but for date and times."""
        self.uguale_salvo_gli_orari(self.stazione.risultato(nome), (ATTESI / f"{atteso}.far").read_bytes())

    def uguale_salvo_gli_orari(self, trovato, modello):
        """Two result files are equal byte for byte; date and times have their form alone."""
        for chiave, cifre in VARIABILI.items():
            variabile = re.compile(rb"(?m)^" + chiave + rb"=\d{%d}\r$" % cifre)
            self.assertRegex(trovato, variabile)
            trovato = variabile.sub(chiave + b"=\r", trovato)
            modello = variabile.sub(chiave + b"=\r", modello)
        self.assertEqual(trovato.decode("cp1252").split("\n"), modello.decode("cp1252").split("\n"))
        self.assertEqual(trovato, modello)
