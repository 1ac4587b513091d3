#!/usr/bin/python3
"""Writes docs/leggibilita.md: how large the letters and buttons of every form are, before and now.

usage: leggibilita.py [TABELLA]
       TABELLA: what tst_leggibile has written, build/dev/tests/forms/leggibilita.tsv

The figures of before stand in the document itself and stay as they are; those of now are taken from the table.
"""

import sys
from pathlib import Path

RADICE = Path(__file__).resolve().parent.parent
DOCUMENTO = RADICE / "docs" / "leggibilita.md"
TABELLA = RADICE / "build" / "dev" / "tests" / "forms" / "leggibilita.tsv"

CAPO = """# Readable at two metres

Written by `attrezzi/leggibilita.py` from the figures of `tests/forms/tst_leggibile`: the lowest of all scenes and
languages. Letters: the height of the capitals in minutes of arc at two metres (16 from the car, 10 in front of the
screen, 5 for who sits at it). Press: the height of a button or of a line of a list in millimetres. Screens: a 15 inch
one for 800x600 and 1024x768, 17 inch for 1280x1024, 22 inch for 1920x1080, 27 inch for 3840x2160; on a panel of 12
inch all of 800x600 is a fifth smaller. A figure below what is asked is bold; a dash: not there.

"""
GRANDEZZE = {"minuti": "letters", "mm": "press"}


def celle(riga: str) -> list[str]:
    return [cella.strip() for cella in riga.strip().strip("|").split("|")]


def prima_di(documento: Path) -> dict[tuple[str, ...], list[str]]:
    """The figures of before by row, as the document has them; none for the first time."""
    prima = {}
    for riga in documento.read_text(encoding="utf-8").splitlines() if documento.exists() else []:
        if riga.startswith("| frm") or riga.startswith("| dlg"):
            parti = celle(riga)
            prima[tuple(parti[:4])] = [cella.split(" / ")[0] for cella in parti[4:]]
    return prima


def cifra(valore: str, richiesto: str) -> str:
    if float(valore) == 0:
        return "-"
    return f"**{valore}**" if float(valore) < float(richiesto) else valore


def main(argomenti: list[str]) -> int:
    tabella = Path(argomenti[1]) if len(argomenti) > 1 else TABELLA
    testa, *righe = [riga.split("\t") for riga in tabella.read_text(encoding="utf-8").splitlines()]
    schermi = testa[4:]
    prima = prima_di(DOCUMENTO)
    adesso = {}
    for modulo, controllo, richiesto, grandezza, *cifre in righe:
        chiave = (modulo, controllo, GRANDEZZE[grandezza], richiesto)
        adesso[chiave] = [cifra(valore, richiesto) for valore in cifre]
    nessuna = ["-"] * len(schermi)
    testo = CAPO
    testo += "| form | control | what | asked | " + " | ".join(f"{nome}, before / now" for nome in schermi) + " |\n"
    testo += "|---" * (4 + len(schermi)) + "|\n"
    for chiave in sorted(prima.keys() | adesso.keys()):
        coppie = zip(prima.get(chiave, adesso[chiave] if not prima else nessuna), adesso.get(chiave, nessuna))
        testo += "| " + " | ".join((*chiave, *(f"{uno} / {altro}" for uno, altro in coppie))) + " |\n"
    DOCUMENTO.write_text(testo, encoding="utf-8")
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv))
