#!/usr/bin/python3
"""Where the processor's time goes of what has not reached its aim; puts the tables into docs/prestazioni.md.

    attrezzi/profilo.py INSTALLATION [--misure DIR] [--giri N] [--scrivi]

INSTALLATION and --misure as for attrezzi/confronta.py. Samples are taken with `perf` (Debian: linux-perf) by the
processor's clock, RITMO a second: of a start from exec until the picture stands, of a verdict from the end of the link
to its picture, of what runs in lumira-confronta as long as the measured procedure runs. The memory at the menu is what
the system says of each mapping. N rounds of each (default 7), the middle of them.
"""

import argparse
import contextlib
import os
import re
import statistics
import subprocess
import tempfile
from pathlib import Path

from confronta import FIGURE, RADICE, Banco, Prova, acceso, stazione_nuova
from operatore import ferma_processo
from sezione import scrivi_sezione

INIZIO = "<!-- attrezzi/profilo.py: da qui -->\n"
FINE = "<!-- attrezzi/profilo.py: fin qui -->\n"
RITMO = 15000
# What a library's name begins with; the first line that fits counts, the last takes what is left.
PARTI = (
    ("the system: files and folders, pages filled, the screen's server asked", ("[kernel", "[vdso")),
    ("libraries looked up and bound", ("ld-linux",)),
    ("the picture's decoder", ("libjpeg", "libqjpeg")),
    ("type: which there is, its shapes", ("libfontconfig", "libfreetype", "libharfbuzz", "libexpat")),
    ("Qt", ("libQt6", "libqxcb", "libqoffscreen")),
    ("C and C++ library", ("libc.so", "libstdc++", "libm.so", "libgcc")),
    ("the station's own code, or the yardstick's", ("lumira", "metro")),
    ("other libraries", ("",)),
)
# The same of the memory.
ZONE = (
    ("the window's pixels, shared with the screen's server", ("memfd:",)),
    ("pictures, texts, controls: memory asked for", ("[",)),
    ("Qt", ("libQt6", "libqxcb", "libqjpeg", "libqt")),
    ("type: which there is, its shapes", ("libfontconfig", "libfreetype", "libharfbuzz", "libexpat")),
    ("print system, and what it stands on", ("libcups", "libgnutls", "libavahi", "libgssapi", "libkrb5", "libk5", "libnettle",
                                            "libhogweed", "libgmp", "libp11", "libtasn1", "libidn2", "libunistring")),
    ("the station's own code", ("lumira",)),
    ("other libraries and files", ("",)),
)  # fmt: skip
# What lumira-confronta measures: its group, its name there, the heads of both columns, and how much each did in a round.
IN_PROCESSO = (
    ("sondaggio", "poll of 10,000 files", "poll of 10,000 files, ms", 1, "listing with status, ms", 1),
    ("targhe", "plates of 5,000 new files", "plates of 5,000 files, ms", 1, "opening and reading them, ms", 1),
    ("controllo", "check of a file in a folder of 10,000, asked for in capitals",
     "20 checks in a folder of 10,000, in capitals, ms", 1, "20 checks alone, ms", 1),
    ("crescita", "poll of 100000 files, a file", "poll of 100,000, us a file", 100, "of 1,000, us a file", 20),
)  # fmt: skip


def parti(registro):
    """@return the milliseconds of each of PARTI in what was recorded."""
    detto = subprocess.run(["perf", "report", "-i", registro, "--stdio", "-q", "-g", "none", "--sort", "dso", "-F", "sample,dso",
                            "-t", "|"], capture_output=True, text=True, check=True).stdout
    righe = [[cella.strip() for cella in riga.split("|")] for riga in detto.splitlines() if riga.strip()]
    return somme(PARTI, [(libreria, int(campioni) * 1000 / RITMO) for campioni, libreria in righe])


def somme(divisione, voci):
    """@return how much of these names and figures falls to each part of a division."""
    totali = [0.0] * len(divisione)
    for nome, quanto in voci:
        totali[next(n for n, (_, inizi) in enumerate(divisione) if nome.startswith(inizi))] += quanto
    return totali


class Pesata(Prova):
    """A start, and what its memory is."""

    zone = ()

    def conta(self, processo, *_):
        voci, nome = [], ""
        for riga in Path(f"/proc/{processo.pid}/smaps").read_text().splitlines():
            if mappa := re.match(r"[0-9a-f]+-[0-9a-f]+ (?:\S+ +){4}(.*)", riga):
                nome = mappa[1].removeprefix("/").rsplit("/", 1)[-1] or "["
            elif riga.startswith("Rss:"):
                voci.append((nome, int(riga.split()[1]) / 1024))
        self.zone = somme(ZONE, voci)


class Campionata(Prova):
    """A start under perf."""

    def __init__(self, registro, *comando, **opzioni):
        super().__init__(*perf(registro), *comando, **opzioni)
        self._registro = registro

    def esegui_e_conta(self, schermo):
        self.esegui(schermo, conta=False)
        return parti(self._registro)


def perf(registro):
    return ["perf", "record", "-q", "-F", str(RITMO), "-e", "cpu-clock", "-o", registro]


class Comando:
    """What tells perf when to look, and hears that it does."""

    def __init__(self, cartella):
        self.tubi = [Path(cartella) / nome for nome in ("comando", "risposta")]
        for tubo in self.tubi:
            tubo.unlink(missing_ok=True)
            os.mkfifo(tubo)
        self._descrittori = [os.open(tubo, os.O_RDWR) for tubo in self.tubi]

    def opzioni(self):
        return ["-D", "-1", "--control", "fifo:" + ",".join(map(str, self.tubi))]

    def di(self, parola):
        os.write(self._descrittori[0], f"{parola}\n".encode())
        os.read(self._descrittori[1], 16)

    def chiudi(self):
        for descrittore in self._descrittori:
            os.close(descrittore)


def avvii(scelte, schermo, stazione, cartella):
    """The starts of both, in turn. @return a column each."""
    prove = [Campionata(f"{cartella}/avvio.perf", comando, env=schermo.ambiente)
             for comando in (stazione.percorso("lumira"), scelte.misure / "metro/metro-finestra")]
    giri = [[prova.esegui_e_conta(schermo) for prova in prove] for _ in range(scelte.giri)]
    return [("start, ms", mediane([giro[0] for giro in giri])), ("bare window, ms", mediane([giro[1] for giro in giri]))]


def pesi(scelte, schermo, stazione):
    """The memory of both at their pictures. @return a column each."""
    colonne = []
    for testa, comando in (("menu, MB", stazione.percorso("lumira")), ("bare window, MB", scelte.misure / "metro/metro-finestra")):
        prova = Pesata(comando, env=schermo.ambiente)
        prova.esegui(schermo)
        colonne.append((testa, prova.zone))
    return colonne


def verdetti(scelte, schermo, stazione, cartella):
    """From the end of the link to the verdict. @return its column."""
    registro, giri = f"{cartella}/verdetto.perf", []
    banco = Banco(stazione, schermo)
    with contextlib.ExitStack() as fine:
        fine.callback(banco.chiudi)
        for _ in range(scelte.giri):
            comando = Comando(cartella)
            campioni = subprocess.Popen([*perf(registro), *comando.opzioni(), "-p", str(banco.processo.pid)],
                                        stderr=subprocess.DEVNULL)
            banco.porta_al_risultato(lambda c=comando: c.di("enable"))
            comando.di("disable")
            ferma_processo(campioni)
            comando.chiudi()
            giri.append(parti(registro))
            banco.tasto("Escape")
    return [("link to verdict, ms", mediane(giri))]


def in_processo(scelte, cartella, gruppo, nome, nostra, quanto, metro, quanto_metro):
    """Both sides of a measure of lumira-confronta. @return a column each."""
    colonne = []
    for lato, testa, diviso in (("nostra", nostra, quanto), ("metro", metro, quanto_metro)):
        registro = f"{cartella}/{lato}.perf"
        comando = Comando(cartella)
        misura = [scelte.misure / "lumira-confronta", "--solo", gruppo, "--misura", nome, "--giri", str(scelte.giri),
                  "--perf", ",".join(map(str, comando.tubi)), "--lato", lato]
        subprocess.run([*perf(registro), *comando.opzioni(), *map(str, misura)], check=True, stdout=subprocess.DEVNULL,
                       stderr=subprocess.DEVNULL, env=os.environ | {"QT_QPA_PLATFORM": "offscreen"})
        comando.chiudi()
        colonne.append((testa, [parte / scelte.giri / diviso for parte in parti(registro)]))
    return colonne


def mediane(giri):
    return [statistics.median(giro[parte] for giro in giri) for parte in range(len(PARTI))]


def tabella(colonne, divisione=PARTI):
    """A row for each part of which there is any, and their sum."""
    righe = [(nome, valori) for (nome, _), valori in zip(divisione, zip(*(valori for _, valori in colonne))) if max(valori) >= 0.05]
    righe.append(("together", [sum(valori) for _, valori in colonne]))
    testo = "| part | " + " | ".join(testa for testa, _ in colonne) + " |\n|---" + "|---" * len(colonne) + "|\n"
    return testo + "".join(f"| {nome} | " + " | ".join(f"{valore:.3g}" for valore in valori) + " |\n" for nome, valori in righe)


def leggi_argomenti():
    argomenti = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    argomenti.add_argument("installazione", type=Path)
    argomenti.add_argument("--misure", type=Path, default=RADICE / "build/release/bench")
    argomenti.add_argument("--giri", type=int, default=7)
    argomenti.add_argument("--scrivi", action="store_true")
    return argomenti.parse_args()


def main():
    scelte = leggi_argomenti()
    with tempfile.TemporaryDirectory() as cartella:
        with stazione_nuova(scelte.installazione) as stazione, acceso() as schermo:
            tabelle = tabella(avvii(scelte, schermo, stazione, cartella) + verdetti(scelte, schermo, stazione, cartella))
            tabelle += "\n" + tabella(pesi(scelte, schermo, stazione), ZONE)
        cartelle = [colonna for misura in IN_PROCESSO for colonna in in_processo(scelte, cartella, *misura)]
        tabelle += "\n" + tabella(cartelle)
    print(tabelle, end="")
    if scelte.scrivi:
        scrivi_sezione(FIGURE, INIZIO, FINE, tabelle)


if __name__ == "__main__":
    main()
