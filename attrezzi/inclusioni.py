#!/usr/bin/env python3
"""Compiles sources without the headers that the builds have read before: each has to include what it uses.

    attrezzi/inclusioni.py FILE ...      these; for a header a source that reads it
    attrezzi/inclusioni.py --tutti       all of them

The release is built so, and with it what a workshop is given on Debian: the rest is looked at here, tests and the
bodies of Windows. It reads what the compilers are given, in build/dev and build/windows. A source that was clean is
compiled again only when it changes, or a header of ours that it reads.
"""
import subprocess
import sys

from comandi import RADICE, guarda_tutti, leggi_comandi, scegli

PULITI = RADICE / "build/inclusioni"
SENZA_RELEASE = ("tests", "prove", "bench")  # folders that the release is built without


def nella_release(sorgente, cartella):
    return cartella.name == "dev" and sorgente.relative_to(RADICE).parts[0] not in SENZA_RELEASE


def guarda(_sorgente, cartella, comando):
    """@return what the compiler complains of, empty when it takes the source."""
    fatto = subprocess.run([*comando, "-fsyntax-only"], cwd=cartella, capture_output=True, text=True, errors="replace")
    return "" if fatto.returncode == 0 else fatto.stderr


def main(argomenti):
    if not argomenti:
        raise SystemExit(__doc__)
    tutti, noti = leggi_comandi(), {}
    comandi = {s: dove for s, dove in tutti.items() if not nella_release(s, dove[0])}
    scelti = sorted(comandi if argomenti == ["--tutti"] else scegli(argomenti, comandi, noti))
    return 1 if guarda_tutti(scelti, comandi, noti, PULITI, guarda) else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
