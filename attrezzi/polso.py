"""The pulse of a program: asks it for its name on the accessibility bus, over and over. As long as its one thread
is at something, no answer comes.
"""

import threading
import time

from accessibilita import Bus, NonRisponde

PAUSA = 0.01  # seconds between an answer and the next question


class Polso(threading.Thread):
    """Feels the pulse from its making until ferma(). @param programma of operatore, its menu already found."""

    def __init__(self, programma):
        super().__init__(daemon=True)
        self._bus = Bus(programma.schermo.ambiente["DBUS_SESSION_BUS_ADDRESS"])
        self._pid = programma.processo.pid
        self._finito = threading.Event()
        self._attese = []
        self.start()

    def run(self):
        applicazione = next(a for a in self._bus.applicazioni() if self._bus.processo(a) == self._pid)
        while not self._finito.is_set():
            da = time.monotonic()
            while not self._risponde(applicazione) and not self._finito.is_set():
                pass
            self._attese.append((da, time.monotonic()))
            time.sleep(PAUSA)

    @staticmethod
    def _risponde(applicazione):
        try:
            return bool(applicazione.nome)
        except NonRisponde:
            return False

    def ferma(self):
        """@returns when each question was asked and answered (time.monotonic)."""
        self._finito.set()
        self.join()
        return self._attese


def sottrai(attesa, intervalli):
    """What is left of an interval, in seconds, without the parts of it that others cover."""
    da, a = attesa
    coperti, fine = 0.0, da
    for inizio, termine in sorted(intervalli):
        inizio, termine = max(inizio, fine), min(termine, a)
        if termine > inizio:
            coperti += termine - inizio
            fine = termine
    return (a - da) - coperti
