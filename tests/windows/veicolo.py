"""A vehicle on the delivered Windows program. Windows' own accessibility is not there under Wine."""

import os
import tempfile
from pathlib import Path

import operatore
from a_memoria import ProvaAMemoria
from macchina import CONSEGNA, Macchina


class StazioneWindows(operatore.Stazione):
    @staticmethod
    def nome_cartella(percorso):
        return Macchina.percorso(percorso)


class ProvaVeicolo(ProvaAMemoria):
    """A vehicle on the Debian program and then on the machine."""

    MACCHINA = Macchina  # makes the machine

    def setUp(self):
        super().setUp()
        self.macchina = self.MACCHINA(self.schermo.ambiente)
        self.addCleanup(self.macchina.chiudi)

    def porta_su_windows(self):
        """The vehicle on a new station of the machine, .stazione, up to its result screen.

        @returns the process of the program, and the windows that show with its menu.
        """
        return self.porta_sulla(self.stazione_consegnata())

    def stazione_consegnata(self):
        """@returns a new station of the machine, as it is delivered."""
        cartella = tempfile.TemporaryDirectory(prefix="stazione-")
        self.addCleanup(cartella.cleanup)
        return StazioneWindows(Path(cartella.name) / "lumira", CONSEGNA)

    def porta_sulla(self, stazione):
        """The vehicle on a station of the machine. @returns as above."""
        programma, strumento = self.avvia_sulla(stazione)
        return programma, self.porta_al_risultato(strumento)

    def avvia_sulla(self, stazione):
        """Starts the program of a station of the machine, .stazione from now on, with the vehicle to come.

        @returns its process and its instrument.
        """
        strumento = self.prepara_altra(stazione)
        self.macchina.collega_porta(1, os.path.realpath(stazione.percorso("porte", "COM1")))
        programma = self.macchina.avvia(stazione.percorso("lumira.exe"), cwd=stazione.cartella)
        self.addCleanup(operatore.ferma_processo, programma)
        return programma, strumento
