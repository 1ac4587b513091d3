#!/usr/bin/python3
"""The bad days of disks and networks at length: tests/e2e/prova_dischi.py with a folder that takes five seconds.

usage: dischi.py [COSTRUZIONE] [--documento docs/affidabilita.md]

COSTRUZIONE is the build of the installed program, build/release where none is named. The section of the document is
written by build/dev/prove/comuni/scrivi_sezione.
"""

import argparse
import json
import os
import subprocess
import sys
import tempfile
from pathlib import Path

RADICE = Path(__file__).resolve().parents[2]
SEZIONE = "dischi"
LENTEZZA = "5"  # seconds

TESTO = """## Dischi

Written by `prove/dischi/dischi.py --documento docs/affidabilita.md`. The installed program works on a folder that
obeys the test (`attrezzi/disco.py`, a file system of its own): slow, silent, cut off, gone, full, read-only. The
operator presses and reads by the accessibility bus (`tests/e2e/prova_dischi.py`). Meanwhile the program is asked for its name
over and over: as long as its one thread is at something, no answer comes. Longest stall: from a question to its
answer. Of its own: what is left of the longest one when the time is taken away in which a call of the program stood
before the folder; the opening of a form is in it, and whatever else the machine does.

| case | the operator reads | and then | longest stall | of its own |
|---|---|---|---|---|
"""


def righe(misure):
    for riga in sorted((json.loads(testo) for testo in misure.read_text().splitlines()), key=lambda m: m["caso"]):
        intera, propria = (f"{riga[quale] * 1000:.0f} ms" for quale in ("intera", "propria"))
        yield f"| {riga['caso']} | {riga['letto']} | {riga['seguito']} | {intera} | {propria} |\n"


def main():
    argomenti = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    argomenti.add_argument("costruzione", nargs="?", default=RADICE / "build/release")
    argomenti.add_argument("--documento")
    scelti = argomenti.parse_args()
    with tempfile.TemporaryDirectory() as cartella:
        misure = Path(cartella) / "misure"
        esito = subprocess.run(
            [sys.executable, "-B", RADICE / "tests/e2e/esegui.py", scelti.costruzione, "prova_dischi.py"],
            env=os.environ | {"LUMIRA_MISURE_DISCHI": str(misure), "LUMIRA_LENTEZZA": LENTEZZA},
        ).returncode
        testo = TESTO + "".join(righe(misure))
    print(testo)
    if esito == 0 and scelti.documento:
        scrivi = RADICE / "build/dev/prove/comuni/scrivi_sezione"
        esito = subprocess.run([scrivi, scelti.documento, SEZIONE], input=testo.encode()).returncode
    return esito


if __name__ == "__main__":
    sys.exit(main())
