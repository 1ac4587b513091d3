#!/usr/bin/python3
"""Where the processor's time of a start goes, beside a bare Qt window's; puts the table into docs/prestazioni.md.

    attrezzi/profilo_avvio.py INSTALLATION [--misure DIR] [--giri N] [--scrivi]

INSTALLATION and --misure as for attrezzi/confronta.py. Samples are taken with `perf` (Debian: linux-perf) by the
processor's clock, RITMO a second, from exec until the picture stands; N starts of each (default 7), the middle of them.
"""

import argparse
import statistics
import subprocess
import tempfile
from pathlib import Path

from confronta import FIGURE, RADICE, Prova, acceso, stazione_nuova
from sezione import scrivi_sezione

INIZIO = "<!-- attrezzi/profilo_avvio.py: da qui -->\n"
FINE = "<!-- attrezzi/profilo_avvio.py: fin qui -->\n"
RITMO = 15000
TITOLO = "| part of a start | station, ms | bare window, ms |\n|---|---|---|\n"
# What a library's name begins with; the first line that fits counts, the last takes what is left.
PARTI = (
    ("the system: files mapped, pages filled, the screen's server asked", ("[kernel", "[vdso")),
    ("libraries looked up and bound", ("ld-linux",)),
    ("the picture's decoder", ("libjpeg", "libqjpeg")),
    ("type: which there is, its shapes", ("libfontconfig", "libfreetype", "libharfbuzz", "libexpat")),
    ("Qt", ("libQt6", "libqxcb")),
    ("C and C++ library", ("libc.so", "libstdc++", "libm.so", "libgcc")),
    ("the station's own code", ("lumira",)),
    ("other libraries", ("",)),
)


class Campionata(Prova):
    """A start under perf."""

    def __init__(self, registro, *comando, **opzioni):
        super().__init__("perf", "record", "-q", "-F", str(RITMO), "-e", "cpu-clock", "-o", registro, *comando, **opzioni)
        self._registro = registro

    def parti(self):
        """@return the milliseconds of each of PARTI in the start that was last."""
        detto = subprocess.run(["perf", "report", "-i", self._registro, "--stdio", "-q", "-g", "none", "--sort", "dso",
                                "-F", "sample,dso", "-t", "|"], capture_output=True, text=True, check=True).stdout
        somme = [0.0] * len(PARTI)
        for riga in filter(None, map(str.strip, detto.splitlines())):
            campioni, libreria = (cella.strip() for cella in riga.split("|"))
            quale = next(n for n, (_, nomi) in enumerate(PARTI) if libreria.startswith(nomi))
            somme[quale] += int(campioni) * 1000 / RITMO
        return somme


def leggi_argomenti():
    argomenti = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    argomenti.add_argument("installazione", type=Path)
    argomenti.add_argument("--misure", type=Path, default=RADICE / "build/release/bench")
    argomenti.add_argument("--giri", type=int, default=7)
    argomenti.add_argument("--scrivi", action="store_true")
    return argomenti.parse_args()


def main():
    argomenti = leggi_argomenti()
    with tempfile.TemporaryDirectory() as cartella, stazione_nuova(argomenti.installazione) as stazione, acceso() as schermo:
        prove = [Campionata(f"{cartella}/{nome}.perf", comando, env=schermo.ambiente)
                 for nome, comando in (("nostra", stazione.percorso("lumira")), ("metro", argomenti.misure / "metro/metro-finestra"))]
        giri = []
        for _ in range(argomenti.giri):
            giri.append([])
            for prova in prove:
                prova.esegui(schermo, conta=False)
                giri[-1].append(prova.parti())
    medie = [[statistics.median(giro[prova][parte] for giro in giri) for prova in range(len(prove))]
             for parte in range(len(PARTI))]
    medie.append([sum(colonna) for colonna in zip(*medie)])
    nomi = [nome for nome, _ in PARTI] + ["together"]
    tabella = TITOLO + "".join(f"| {nome} | {nostra:.1f} | {metro:.1f} |\n" for nome, (nostra, metro) in zip(nomi, medie))
    print(tabella, end="")
    if argomenti.scrivi:
        scrivi_sezione(FIGURE, INIZIO, FINE, tabella)


if __name__ == "__main__":
    main()
