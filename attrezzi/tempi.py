#!/usr/bin/python3
"""Tells where the time of the last ./test went: every step, and the slowest of what they are made of.

usage: tempi.py [QUANTI] [--scrivi]

QUANTI: how many of the slowest, 20 if it is not said; --scrivi puts them into docs/prestazioni.md.

Read from build/registri and from what ninja notes. Steps side by side count each for itself: their seconds by the
clock add up to more than the whole, and those of one thing grow with what runs beside it. What was not done anew, because it
was built already, is not there.
"""

import argparse
import re
from pathlib import Path

from sezione import scrivi_sezione

RADICE = Path(__file__).resolve().parent.parent
FIGURE = RADICE / "docs/prestazioni.md"
INIZIO = "<!-- attrezzi/tempi.py: da qui -->\n"
FINE = "<!-- attrezzi/tempi.py: fin qui -->\n"
REGISTRI = RADICE / "build" / "registri"
COSTRUZIONI = ("dev", "release", "windows")

RIGA_CTEST = re.compile(r"^ *\d+/\d+ +Test +#\d+: (\S+) .*? (\d+\.\d+) sec", re.M)
RIGA_FILE = re.compile(r"^--- (\S+) \((\d+\.\d+) s\)$", re.M)
RIGA_WINE = re.compile(r"^(?:PASS|FAIL) (\S+) \((\d+\.\d+) s\):", re.M)


def leggi(percorso):
    return percorso.read_text(encoding="utf-8", errors="replace") if percorso.exists() else ""


def passi():
    """[(end, name, seconds by the clock, of the processor)] of each step, as they ended."""
    trovati = []
    for file in REGISTRI.glob("*.tempo"):
        orologio, programmi, sistema = map(int, file.read_text(encoding="utf-8").split())
        trovati.append((file.stat().st_mtime, file.stem, orologio, programmi + sistema))
    return sorted(trovati)


def costruiti(preset, inizio):
    """[(seconds, what)] that ninja has made since then, in seconds since 1970; an output a line, one line a command."""
    comandi = {}
    for riga in leggi(RADICE / "build" / preset / ".ninja_log").splitlines()[1:]:
        da, a, fatto, cosa, comando = riga.split("\t")
        if int(fatto) / 1e9 >= inizio and not cosa.startswith("/"):
            comandi[comando] = ((int(a) - int(da)) / 1000, f"{preset}: {cosa}")
    return list(comandi.values())


def parti(registro, schema, chi):
    return [(float(secondi), f"{chi}: {nome}") for nome, secondi in schema.findall(leggi(REGISTRI / registro))]


def leggi_argomenti():
    argomenti = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    argomenti.add_argument("quanti", nargs="?", type=int, default=20)
    argomenti.add_argument("--scrivi", action="store_true")
    return argomenti.parse_args()


def lenti(elenco, quanti):
    """[(seconds, what)], the slowest first."""
    trovati = parti("ctest.log", RIGA_CTEST, "ctest") + parti("e2e.log", RIGA_FILE, "e2e")
    trovati += parti("windows.log", RIGA_WINE, "wine") + parti("windows.log", RIGA_FILE, "windows")
    inizi = {nome.removesuffix("-costruzione"): fine - orologio - 1 for fine, nome, orologio, _ in elenco}
    for preset in COSTRUZIONI:
        if preset in inizi:
            trovati += costruiti(preset, inizi[preset])
    return sorted(trovati, reverse=True)[:quanti]


def tabella(elenco, piu_lenti):
    """What docs/prestazioni.md says of it."""
    processore = sum(lavorati for *_, lavorati in elenco)
    testo = "| step | by the clock, s | of the processor, s |\n|---|---|---|\n"
    testo += "".join(f"| {nome} | {orologio} | {lavorati} |\n" for _, nome, orologio, lavorati in elenco)
    testo += f"| all, side by side | {elenco[-1][0] - min(fine - orologio for fine, _, orologio, _ in elenco):.0f} | {processore} |\n"
    testo += "\n| the slowest | by the clock, s |\n|---|---|\n"
    return testo + "".join(f"| {cosa} | {secondi:.1f} |\n" for secondi, cosa in piu_lenti)


def main():
    scelte = leggi_argomenti()
    elenco = passi()
    if not elenco:
        raise SystemExit(f"tempi.py: {REGISTRI} has no step: ./test leaves them")
    piu_lenti = lenti(elenco, scelte.quanti)
    print(f"{'step':28}{'clock s':>9}{'processor s':>13}")
    for _, nome, orologio, processore in elenco:
        print(f"{nome:28}{orologio:9}{processore:13}")
    print(f"\n{'the slowest':60}{'clock s':>9}")
    for secondi, cosa in piu_lenti:
        print(f"{cosa:60}{secondi:9.1f}")
    if scelte.scrivi:
        scrivi_sezione(FIGURE, INIZIO, FINE, tabella(elenco, piu_lenti))


if __name__ == "__main__":
    main()
