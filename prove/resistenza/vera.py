#!/usr/bin/python3
"""A station that is never closed, on a real line: the installed program and qx5sim on a pseudo terminal.

usage: vera.py INSTALLATION [--prima 100] [--veicoli 1000] [--documento docs/affidabilita.md]

INSTALLATION is a station folder as `cmake --install build/release` lays it out. Each vehicle is an acceptance file of its
own, led through by the keyboard from the menu to the verdict and back; its result has to be there and is fetched. The
section of the document is written by build/dev/prove/comuni/scrivi_sezione.
"""

import argparse
import os
import subprocess
import sys
from pathlib import Path

RADICE = Path(__file__).resolve().parents[2]
sys.path.insert(0, str(RADICE / "attrezzi"))

from confronta import Banco, acceso, stazione_nuova  # noqa: E402
from spettatore import attendi  # noqa: E402

SEZIONE = "resistenza vera"
CRESCITA = 0.01
LOCALE = "1"  # the folders of this machine: a result takes its acceptance file away

TESTO = """## Resistenza su una linea vera

Written by `prove/resistenza/vera.py INSTALLATION --documento docs/affidabilita.md`. The installed program under Xvfb, an
instrument on a pseudo terminal, a key press for every step from the menu to the verdict and back. What the process
holds as the system has it, each time before the menu.

"""


def misure(processo):
    """@returns what the system says of a process, by the names of the table."""
    proc = Path(f"/proc/{processo.pid}")
    stato = dict(riga.split(":", 1) for riga in (proc / "status").read_text().splitlines())
    return {
        "resident memory, kB": int(stato["VmRSS"].split()[0]),
        "of its own, kB": int(stato["RssAnon"].split()[0]),
        "open descriptors": len(os.listdir(proc / "fd")),
        "threads": int(stato["Threads"]),
    }


def prova(stazione, banco, numero):
    """One vehicle from its acceptance file to its result, and back to the menu."""
    nome = f"{20000000 + numero}"
    stazione.accettazione(nome)
    banco.porta_al_collegamento()
    attendi(lambda: stazione.contenuto() == [f"{nome}.far"], f"{nome}: the result is not there")
    banco.attendi_quiete()  # the result goes to the disk before the verdict comes to the screen
    banco.tasto("Escape")
    (stazione.scambio / f"{nome}.far").unlink()


def tabella(prima, veicoli, inizio, fine):
    testo = f"| held | after {prima} vehicles | after {veicoli} more | growth |\n|---|---|---|---|\n"
    for nome, valore in inizio.items():
        testo += f"| {nome} | {valore} | {fine[nome]} | {fine[nome] / valore - 1:.2%} |\n"
    return testo


def main():
    argomenti = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    argomenti.add_argument("installazione", type=Path)
    argomenti.add_argument("--prima", type=int, default=100)
    argomenti.add_argument("--veicoli", type=int, default=1000)
    argomenti.add_argument("--documento")
    scelti = argomenti.parse_args()
    with stazione_nuova(scelti.installazione) as stazione, acceso() as schermo:
        for accettazione in stazione.scambio.iterdir():
            accettazione.unlink()
        stazione.imposta("MCTC", "Modalita", LOCALE)
        banco = Banco(stazione, schermo)
        try:
            for numero in range(scelti.prima):
                prova(stazione, banco, numero)
            inizio = misure(banco.processo)
            for numero in range(scelti.veicoli):
                prova(stazione, banco, scelti.prima + numero)
            fine = misure(banco.processo)
        finally:
            banco.chiudi()
    testo = TESTO + tabella(scelti.prima, scelti.veicoli, inizio, fine)
    print(testo)
    if scelti.documento:
        scrivi = RADICE / "build/dev/prove/comuni/scrivi_sezione"
        subprocess.run([scrivi, scelti.documento, SEZIONE], input=testo.encode(), check=True)
    return 1 if any(fine[nome] > valore * (1 + CRESCITA) for nome, valore in inizio.items()) else 0


if __name__ == "__main__":
    sys.exit(main())
