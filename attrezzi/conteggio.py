#!/usr/bin/python3
"""Adds up the results of a run of CTest and of the tests that are run by scripts.

usage: conteggio.py REGISTRO_CTEST REGISTRO ...

Prints the one line "N passed, N failed[, N skipped]"; the exit status is 1 when something failed or nothing ran.
"""

import re
import sys
from pathlib import Path

TOTALI = re.compile(r"Totals: (\d+) passed, (\d+) failed, (\d+) skipped")
RIGA_CTEST = re.compile(r"^(\d+): (.*)$")
FINE_CTEST = re.compile(r"^ *\d+/\d+ +Test +#(\d+): \S+ \.* *(\*\*\*)?(\w[\w ]*?) ")


def conta_ctest(testo):
    """A program that ends badly with all its functions passed, a leak say, counts as one more failure; so
    does one that did not start. A program without a line of totals is one test."""
    totali, esiti = {}, {}
    for riga in testo.splitlines():
        if (trovata := RIGA_CTEST.match(riga)) and (numeri := TOTALI.match(trovata[2])):
            precedenti = totali.get(trovata[1], (0, 0, 0))
            totali[trovata[1]] = tuple(a + int(b) for a, b in zip(precedenti, numeri.groups()))
        elif trovata := FINE_CTEST.match(riga):
            esiti[trovata[1]] = trovata[2] is None and trovata[3] == "Passed"
    riusciti = falliti = saltati = 0
    for numero, bene in esiti.items():
        passati, errati, omessi = totali.get(numero, (1 if bene else 0, 0, 0))
        riusciti += passati
        falliti += errati if bene else max(errati, 1)
        saltati += omessi
    return riusciti, falliti, saltati


def conta_totali(testo):
    numeri = [tuple(map(int, trovata)) for trovata in TOTALI.findall(testo)]
    return tuple(map(sum, zip(*numeri))) if numeri else (0, 1, 0)


def leggi(percorso):
    """A step that was never reached left no log."""
    percorso = Path(percorso)
    return percorso.read_text(encoding="utf-8", errors="replace") if percorso.exists() else ""


def main(argomenti):
    if len(argomenti) < 2:
        raise SystemExit(__doc__)
    parti = [conta_ctest(leggi(argomenti[0])), *(conta_totali(leggi(registro)) for registro in argomenti[1:])]
    riusciti, falliti, saltati = map(sum, zip(*parti))
    print(f"{riusciti} passed, {falliti} failed" + (f", {saltati} skipped" if saltati else ""))
    return 1 if falliti or not riusciti else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
