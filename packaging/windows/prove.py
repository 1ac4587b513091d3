#!/usr/bin/env python3
"""Runs the unit tests of build/windows as Windows programs under Wine, several at a time.

    packaging/windows/prove.py [FOLDER ...]      folders of tests/; by default those of FOLDERS

What cannot run there stands in prove_saltate.txt and is named with its reason; a test program that is neither
built nor named there, or a name there that fits nothing, is a failure.
"""
import concurrent.futures
import fnmatch
import os
import pathlib
import queue
import subprocess
import sys
import tempfile
import time

import caratteri

RADICE = pathlib.Path(__file__).resolve().parents[2]
# The longest first: at the end nobody waits for one alone.
FOLDERS = ("forms", "platform", "core", "app", "link", "mctc", "simulatore", "report", "strumenti")
# Forms run without a display: where Wine has one, each window waits two seconds for the focus.
CON_FINESTRE = ("forms",)
WINE = RADICE / "packaging/windows/wine.sh"
SALTATE = RADICE / "packaging/windows/prove_saltate.txt"
CARATTERI = RADICE / "build/caratteri"
TEMPO = 600  # seconds, for one program
# Each on a machine of its own: tests change the separators of the user and what stands in the registry.
MACCHINE = max(2, os.cpu_count() or 1)
PREFISSO = os.environ.get("WINEPREFIX", f"{tempfile.gettempdir()}/lumira-wine-{os.getuid()}")  # as in wine.sh


def leggi_saltate():
    """{program: {pattern: reason}}; a pattern is "*", FUNCTION or FUNCTION:ROW, with * and ? in it."""
    saltate = {}
    for riga in SALTATE.read_text(encoding="utf-8").splitlines():
        if riga.strip() and not riga.startswith("#"):
            programma, schema, motivo = (pezzo.strip() for pezzo in riga.split("|", 2))
            saltate.setdefault(programma, {})[schema] = motivo
    return saltate


def prepara(macchina):
    """Makes what Wine keeps for one machine. @return whether it is there: no program has to wait for it then."""
    return subprocess.run([WINE, "cmd", "/c", "exit"], env=dict(os.environ, WINEPREFIX=macchina, LC_ALL="C.UTF-8"),
                          stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                          stderr=subprocess.DEVNULL).returncode == 0


def totali(riusciti, falliti, saltati):
    return f"Totals: {riusciti} passed, {falliti} failed, {saltati} skipped"


def esegui(exe, macchina, argomenti):
    """@param macchina the folder that Wine keeps its registry in. @return status and standard output."""
    # Wine keeps the variables of the Qt of this machine from the programs: theirs come as WINEQT.
    ambiente = dict(os.environ, WINEPREFIX=macchina, LC_ALL="C.UTF-8", WINEQT_QPA_FONTDIR=f"Z:{CARATTERI}")
    schermo = ["-platform", "offscreen"] if exe.parent.name in CON_FINESTRE else []
    try:
        fatto = subprocess.run([WINE, exe, *schermo, *argomenti], cwd=exe.parent, env=ambiente, timeout=TEMPO,
                               stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
    except subprocess.TimeoutExpired:
        return -1, ""
    return fatto.returncode, fatto.stdout.decode("utf-8", "replace")


def casi(exe, macchina):
    """Every FUNCTION, or FUNCTION:ROW where it has a table."""
    trovati = []
    for riga in esegui(exe, macchina, ["-datatags"])[1].splitlines():
        _, funzione, *resto = riga.rstrip().split(" ", 2)
        trovati.append(":".join([funzione, *resto]))
    return trovati


def scegli(exe, macchina, saltate):
    """@return what to run, the patterns that name nothing, and the lines that tell what is skipped.

    Rows are named only in the tables that lose some: not every row's name comes through the command line.
    """
    tutti = casi(exe, macchina)
    tagliate = set()
    inutili, righe = [], []
    for schema, motivo in saltate.items():
        scelti = [c for c in tutti if fnmatch.fnmatchcase(c, schema) or c.startswith(schema + ":")]
        if not scelti:
            inutili.append(schema)
        tutti = [c for c in tutti if c not in scelti]
        tagliate |= {c.partition(":")[0] for c in scelti}
        righe.append(f"SKIP {exe.stem} {schema}: {motivo}\n{totali(0, 0, len(scelti))}")
    restanti = [c if c.partition(":")[0] in tagliate else c.partition(":")[0] for c in tutti]
    return list(dict.fromkeys(restanti)), inutili, righe


def falliti(righe):
    """@return what a log tells of the failures, a few lines each."""
    inizi = [numero for numero, riga in enumerate(righe) if riga.startswith(("FAIL!", "QFATAL"))]
    return [riga for numero in inizi for riga in righe[numero:numero + 4]]


def prova(exe, macchina, saltate):
    """Runs one test program. @return the complaints, and the lines to print."""
    nome, inizio = exe.stem, time.monotonic()
    if "*" in saltate:
        return [], [f"SKIP {nome}: {saltate['*']}\n{totali(0, 0, 1)}"]
    if not exe.exists():
        return [f"{nome}: not built, and not named in {SALTATE.name}"], []
    # Only where rows are left out is the program asked which it has: each start takes a second.
    restanti, inutili, uscita = scegli(exe, macchina, saltate) if saltate else ([], [], [])
    if saltate and not restanti:
        return [f"{nome}: does not start"], uscita
    falli = [f"{nome}: {SALTATE.name} names {schema}, which is not there" for schema in inutili]
    with tempfile.TemporaryDirectory() as temporanea:
        # On Windows the test library keeps its log off a standard output that is no console.
        registro = pathlib.Path(temporanea) / "registro.txt"
        stato, _ = esegui(exe, macchina, ["-o", f"{registro},txt", *restanti])
        righe = registro.read_text(encoding="utf-8", errors="replace").splitlines() if registro.exists() else []
    totale = next((r for r in righe if r.startswith("Totals")), None)
    secondi = f"{time.monotonic() - inizio:.1f} s"
    uscita.append(f"{'PASS' if stato == 0 else 'FAIL'} {nome} ({secondi}): {totale or totali(0, 1, 0)}")
    if stato == 0:
        return falli, uscita
    return [*falli, f"{nome}: failed ({stato})"], uscita + falliti(righe)


def main():
    saltate = leggi_saltate()
    caratteri.presta(CARATTERI)
    macchine = [PREFISSO + (f"-{numero + 1}" if numero else "") for numero in range(MACCHINE)]
    with concurrent.futures.ThreadPoolExecutor(MACCHINE) as insieme:
        if not all(insieme.map(prepara, macchine)):
            sys.exit(f"FAIL: Wine makes no machine, see {PREFISSO}*.log")
    libere = queue.SimpleQueue()
    for macchina in macchine:
        libere.put(macchina)

    def su_una_macchina(exe):
        macchina = libere.get()
        try:
            return prova(exe, macchina, saltate.get(exe.stem, {}))
        finally:
            libere.put(macchina)

    programmi = [RADICE / "build/windows/tests" / cartella / f"{sorgente.stem}.exe"
                 for cartella in sys.argv[1:] or FOLDERS
                 for sorgente in sorted((RADICE / "tests" / cartella).glob("tst_*.cpp"))]
    falli = []
    with concurrent.futures.ThreadPoolExecutor(MACCHINE) as insieme:
        for attesa in concurrent.futures.as_completed([insieme.submit(su_una_macchina, exe) for exe in programmi]):
            lamenti, uscita = attesa.result()
            falli += lamenti
            for riga in uscita:
                print(riga, flush=True)
    for fallo in falli:
        print("FAIL:", fallo)
    return 1 if falli else 0


if __name__ == "__main__":
    sys.exit(main())
