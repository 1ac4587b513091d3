#!/usr/bin/python3
"""Runs the tests that are due, nearest first to what has changed, for as long as a minute lasts; names those left.

usage: rapido.py SECONDS [CHANGED_SOURCE ...]

A test is due when the bytes of its program, or of what it reads, are not those with which it passed last (PROGRAM.byte,
made by the build, and PROGRAM.riuscita in build/dev/tests), or when it reads the sources themselves (PROGRAM.sempre).
First go those that failed last, then those of the changed sources by name, then those of their folders, then the
shortest. Nothing is started that took longer last time than what is left of the SECONDS. What was left is due again at the next run.
Ends with 1 when a test has failed.
"""

import os
import subprocess
import sys
import time
from dataclasses import dataclass
from pathlib import Path

RADICE = Path(__file__).resolve().parent.parent
PROVE = RADICE / "build/dev/tests"
AMBIENTE = {"QT_QPA_PLATFORM": "offscreen", "LC_ALL": "C.UTF-8"}
IGNOTA = 5.0  # seconds that a test takes of which nothing is known
MASSIMO = 600  # seconds after which a test hangs
PAUSA = 0.02
INSIEME = (os.cpu_count() or 1) + 2  # half of what a form's test does is waiting


@dataclass
class Prova:
    programma: Path
    secondi: float  # that it took last
    fallita: bool

    @property
    def nome(self):
        return self.programma.name.removeprefix("tst_")

    def annota(self, testo):
        self.programma.with_suffix(".riuscita").write_text(testo, encoding="ascii")


def dovuta(byte):
    """@returns the test of these bytes, or None when it passed with them."""
    programma = byte.with_suffix("")
    nota = programma.with_suffix(".riuscita")
    impronte, _, secondi = (nota.read_text(encoding="ascii") if nota.exists() else "").rpartition("\n")
    if impronte == byte.read_text(encoding="ascii") and not programma.with_suffix(".sempre").exists():
        return None
    return Prova(programma, float(secondi or IGNOTA), bool(secondi) and not impronte)


def lontananza(prova, cambiati):
    """How far a test stands from the changed sources: 0 to 3."""
    if prova.fallita:
        return 0
    if any(prova.nome.startswith(sorgente.stem.removeprefix("tst_")) for sorgente in cambiati):
        return 1
    cartella = prova.programma.parent.relative_to(PROVE).parts[:1]
    return 2 if any(cartella == sorgente.parts[:1] for sorgente in cambiati) else 3


def avvia(prova):
    with prova.programma.with_suffix(".registro").open("wb") as registro:
        return subprocess.Popen(
            ["timeout", str(MASSIMO), prova.programma, "-silent"],
            cwd=prova.programma.parent,
            env=os.environ | AMBIENTE,
            stdin=subprocess.DEVNULL,
            stdout=registro,
            stderr=subprocess.STDOUT,
        )


def raccogli(prova, processo, inizio):
    """@returns True when it passed; what a failed one said is printed."""
    secondi = time.monotonic() - inizio
    registro = prova.programma.with_suffix(".registro")
    if processo.returncode == 0:
        impronte = prova.programma.with_suffix(".byte").read_text(encoding="ascii")
        prova.annota(f"{impronte}\n{secondi:.2f}")
        registro.unlink()
        return True
    prova.annota(f"\n{secondi:.2f}")
    print(f"{prova.programma.name}: status {processo.returncode}")
    print(registro.read_text(encoding="utf-8", errors="replace"))
    return False


def esegui(prove, termine):
    """@returns (how many passed, those that failed, those that were not started)."""
    attese, in_corso, riuscite, fallite = list(prove), {}, 0, []
    while attese or in_corso:
        resto = termine - time.monotonic()
        while len(in_corso) < INSIEME and (prossima := next((p for p in attese if p.secondi < resto), None)):
            attese.remove(prossima)
            in_corso[avvia(prossima)] = (prossima, time.monotonic())
        if not in_corso:
            break
        for processo in [p for p in in_corso if p.poll() is not None]:
            prova, inizio = in_corso.pop(processo)
            if raccogli(prova, processo, inizio):
                riuscite += 1
            else:
                fallite.append(prova)
        time.sleep(PAUSA)
    return riuscite, fallite, attese


def main(argomenti):
    termine = time.monotonic() + float(argomenti[0])
    cambiati = [Path(sorgente) for sorgente in argomenti[1:]]
    prove = [prova for byte in sorted(PROVE.glob("*/tst_*.byte")) if (prova := dovuta(byte))]
    prove.sort(key=lambda prova: (lontananza(prova, cambiati), prova.secondi))
    riuscite, fallite, attese = esegui(prove, termine)
    print(f"{riuscite} passed, {len(fallite)} failed, {len(attese)} left")
    for prova in attese:
        print(f"  {prova.programma.name} ({prova.secondi:.0f} s)")
    return 1 if fallite else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
