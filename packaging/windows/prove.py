#!/usr/bin/env python3
"""Runs the unit tests of build/windows as Windows programs under Wine.

    packaging/windows/prove.py [FOLDER ...]      folders of tests/; by default those of FOLDERS

What cannot run there stands in prove_saltate.txt and is named with its reason; a test program that is neither
built nor named there, or a name there that fits nothing, is a failure.
"""
import fnmatch
import os
import pathlib
import subprocess
import sys
import tempfile

import caratteri

RADICE = pathlib.Path(__file__).resolve().parents[2]
FOLDERS = ("platform", "core", "app", "link", "mctc", "simulatore", "report", "forms", "strumenti")
# Forms run without a display: where Wine has one, each window waits two seconds for the focus.
CON_FINESTRE = ("forms",)
WINE = RADICE / "packaging/windows/wine.sh"
SALTATE = RADICE / "packaging/windows/prove_saltate.txt"
CARATTERI = RADICE / "build/caratteri"
TEMPO = 600  # seconds, for one program


def leggi_saltate():
    """{program: {pattern: reason}}; a pattern is "*", FUNCTION or FUNCTION:ROW, with * and ? in it."""
    saltate = {}
    for riga in SALTATE.read_text(encoding="utf-8").splitlines():
        if riga.strip() and not riga.startswith("#"):
            programma, schema, motivo = (pezzo.strip() for pezzo in riga.split("|", 2))
            saltate.setdefault(programma, {})[schema] = motivo
    return saltate


def totali(riusciti, falliti, saltati):
    return f"Totals: {riusciti} passed, {falliti} failed, {saltati} skipped"


def esegui(exe, argomenti):
    """@return status and standard output."""
    # Wine keeps the variables of the Qt of this machine from the programs: theirs come as WINEQT.
    ambiente = dict(os.environ, LC_ALL="C.UTF-8", WINEQT_QPA_FONTDIR=f"Z:{CARATTERI}")
    schermo = ["-platform", "offscreen"] if exe.parent.name in CON_FINESTRE else []
    try:
        fatto = subprocess.run([WINE, exe, *schermo, *argomenti], cwd=exe.parent, env=ambiente, timeout=TEMPO,
                               stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
    except subprocess.TimeoutExpired:
        return -1, ""
    return fatto.returncode, fatto.stdout.decode("utf-8", "replace")


def casi(exe):
    """Every FUNCTION, or FUNCTION:ROW where it has a table."""
    trovati = []
    for riga in esegui(exe, ["-datatags"])[1].splitlines():
        _, funzione, *resto = riga.rstrip().split(" ", 2)
        trovati.append(":".join([funzione, *resto]))
    return trovati


def scegli(exe, saltate):
    """@return what to run, and the patterns that name nothing.

    Rows are named only in the tables that lose some: not every row's name comes through the command line.
    """
    tutti = casi(exe)
    tagliate = set()
    inutili = []
    for schema, motivo in saltate.items():
        scelti = [c for c in tutti if fnmatch.fnmatchcase(c, schema) or c.startswith(schema + ":")]
        if not scelti:
            inutili.append(schema)
        tutti = [c for c in tutti if c not in scelti]
        tagliate |= {c.partition(":")[0] for c in scelti}
        print(f"SKIP {exe.stem} {schema}: {motivo}\n{totali(0, 0, len(scelti))}", flush=True)
    restanti = [c if c.partition(":")[0] in tagliate else c.partition(":")[0] for c in tutti]
    return list(dict.fromkeys(restanti)), inutili


def prova(cartella, nome, saltate):
    """@return the complaints of one test program."""
    exe = RADICE / "build/windows/tests" / cartella / f"{nome}.exe"
    if "*" in saltate:
        print(f"SKIP {nome}: {saltate['*']}\n{totali(0, 0, 1)}", flush=True)
        return []
    if not exe.exists():
        return [f"{nome}: not built, and not named in {SALTATE.name}"]
    restanti, inutili = scegli(exe, saltate)
    if not restanti:
        return [f"{nome}: does not start"]
    falli = [f"{nome}: {SALTATE.name} names {schema}, which is not there" for schema in inutili]
    with tempfile.TemporaryDirectory() as temporanea:
        # On Windows the test library keeps its log off a standard output that is no console.
        registro = pathlib.Path(temporanea) / "registro.txt"
        stato, _ = esegui(exe, ["-o", f"{registro},txt", *(restanti if saltate else [])])
        righe = registro.read_text(encoding="utf-8", errors="replace").splitlines() if registro.exists() else []
    totale = next((r for r in righe if r.startswith("Totals")), None)
    print(f"{'PASS' if stato == 0 else 'FAIL'} {nome}: {totale or totali(0, 1, 0)}", flush=True)
    if stato == 0:
        return falli
    for numero, riga in enumerate(righe):
        if riga.startswith(("FAIL!", "QFATAL")):
            print("\n".join(righe[numero:numero + 4]), flush=True)
    return [*falli, f"{nome}: failed ({stato})"]


def main():
    saltate = leggi_saltate()
    caratteri.presta(CARATTERI)
    falli = []
    for cartella in sys.argv[1:] or FOLDERS:
        for sorgente in sorted((RADICE / "tests" / cartella).glob("tst_*.cpp")):
            falli += prova(cartella, sorgente.stem, saltate.get(sorgente.stem, {}))
    for fallo in falli:
        print("FAIL:", fallo)
    return 1 if falli else 0


if __name__ == "__main__":
    sys.exit(main())
