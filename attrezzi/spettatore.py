"""Watches a virtual screen by the millisecond, and what the program that paints on it takes for it.

The server of the screen keeps its pixels in a file: whoever looks there is no client of it and asks the program
nothing. A picture is there when the last pixel of it has come; that shows once nothing has changed for a while.
"""

import mmap
import os
import struct
import time
from pathlib import Path
from typing import NamedTuple

PASSO = 0.0005  # seconds between two looks at the pixels
QUIETE = 1  # seconds without a change: the picture is whole
ATTESA = 60  # seconds for it to begin
INTESTAZIONE = struct.Struct(">20I")  # of a window dump: its own size, the place of the pixels, their measures


class Cambio(NamedTuple):
    """The last change of a picture."""

    istante: float  # of time.monotonic()
    processore: float  # seconds that the program had worked by then


def processore(processo):
    """@returns seconds that a process has worked so far, in all its threads."""
    return time.clock_gettime(~processo.pid << 3 | 2)  # the system's clock of another process


def memoria(processo):
    """@returns megabytes that a process holds in memory."""
    for riga in Path(f"/proc/{processo.pid}/status").read_text().splitlines():
        if riga.startswith("VmRSS:"):
            return int(riga.split()[1]) / 1024
    raise ValueError(f"{processo.pid}: no memory")


class Spettatore:
    """The eyes on one screen."""

    def __init__(self, schermo):
        """@param schermo an operatore.SchermoVirtuale."""
        with open(schermo.cartella / "Xvfb_screen0", "rb") as file:
            self._memoria = mmap.mmap(file.fileno(), 0, access=mmap.ACCESS_READ)
        testa = INTESTAZIONE.unpack_from(self._memoria)
        lunga, self._larghezza, self._altezza = testa[0], testa[4], testa[5]
        self._byte_pixel, self._byte_riga, colori = testa[11] // 8, testa[12], testa[19]
        self._inizio = lunga + colori * 12

    def punti(self, sopra=0.0, sotto=1.0, colonne=48, righe=32):
        """A grid of pixels. @param sopra, sotto the part of the screen's height that it covers."""
        for riga in range(righe):
            y = int(self._altezza * (sopra + (sotto - sopra) * (riga + 0.5) / righe))
            for colonna in range(colonne):
                x = int(self._larghezza * (colonna + 0.5) / colonne)
                yield self._inizio + y * self._byte_riga + x * self._byte_pixel

    def guarda(self, punti):
        return b"".join(self._memoria[p : p + 3] for p in punti)

    def attendi_quadro(self, punti, processo, prima=None):
        """Waits for a picture other than the one before to be whole.

        @param prima what guarda() showed before; by default what it shows now.
        @returns the Cambio that made it whole.
        @throws TimeoutError when none comes.
        """
        punti = list(punti)
        visto = self.guarda(punti) if prima is None else prima
        ultimo = None
        termine = time.monotonic() + ATTESA
        while ultimo is None or time.monotonic() < ultimo.istante + QUIETE:
            ora = self.guarda(punti)
            if ora != visto:
                visto = ora
                ultimo = Cambio(time.monotonic(), processore(processo))
            elif ultimo is None and time.monotonic() > termine:
                raise TimeoutError("the screen does not change")
            time.sleep(PASSO)
        return ultimo

    def attendi_quiete(self):
        """Waits until nothing has changed for a while, also when nothing does."""
        punti = list(self.punti())
        visto, dal = self.guarda(punti), time.monotonic()
        while time.monotonic() < dal + QUIETE:
            if (ora := self.guarda(punti)) != visto:
                visto, dal = ora, time.monotonic()
            time.sleep(0.05)


def attendi(condizione, cosa):
    """Waits by the millisecond. @returns the moment. @throws TimeoutError when it does not come."""
    termine = time.monotonic() + ATTESA
    while not condizione():
        if time.monotonic() > termine:
            raise TimeoutError(cosa)
        time.sleep(PASSO)
    return time.monotonic()


def aperti(processo):
    """@returns the files that a process holds open."""
    nomi = set()
    for voce in os.scandir(f"/proc/{processo.pid}/fd"):
        try:
            nomi.add(os.readlink(voce.path))
        except FileNotFoundError:
            continue
    return nomi
