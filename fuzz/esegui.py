#!/usr/bin/env python3
"""Runs the fuzz targets on their samples, each a number of times, and says what they found.

    fuzz/esegui.py [TARGET ...]        these; by default all of fuzz/CMakeLists.txt
        --giri N        runs of each target (10 million); a slow one (LENTI) gets its share of them
        --interi        slow ones get all of them too: some three days of a core
        --secondi N     seconds of each target, in place of runs
        --insieme N     targets at a time (one a core)
        --scrivi        write each one's row into the table of docs/affidabilita.md, as it ends
        --riduci        no run: keep of fuzz/campioni and of what former runs have found the fewest inputs that reach
                        as much; the program says then what changed

The targets are built in build/fuzz, with clang. An input that breaks a rule is kept in build/fuzz/difetti and its name
is said; the target alone takes it again: build/fuzz/fuzz/fuzz_acc INPUT. Status 1 when there was one.
"""
import argparse
import concurrent.futures
import os
import re
import shutil
import subprocess
import sys
import time
from pathlib import Path

RADICE = Path(__file__).resolve().parents[1]
sys.path.insert(0, str(RADICE / "attrezzi"))

from sezione import scrivi_sezione  # noqa: E402

CAMPIONI = RADICE / "fuzz/campioni"
COSTRUITI = RADICE / "build/fuzz"
PROGRAMMI = COSTRUITI / "fuzz"
TROVATI = COSTRUITI / "trovati"  # inputs of former runs that went a new way
DIFETTI = COSTRUITI / "difetti"
DOCUMENTO = RADICE / "docs/affidabilita.md"
SEZIONE = "fuzzing"
GIRI = 10_000_000
LENTI = {  # what is slow gets one run in so many: all targets together are to take an hour on two cores
    "fuzz_acc": 100,  # a whole check of a file, 3 ms; its passes have targets of their own
    "fuzz_far": 100,  # a file made into three tables and into objects, 2 ms
    "fuzz_password": 100,  # a copy and two files put in the place of others, 1 ms
    "fuzz_profilo": 20,  # a profile read four times over, 0.3 ms
    "fuzz_risposte": 5,  # each byte behind a full buffer is an error that is thrown
    "fuzz_scenario": 20,  # some hundred values of two profiles, 0.3 ms
    "fuzz_strumento": 100,  # each text that is written is a file put in the place of another, 1 ms
    "fuzz_struttura": 20,  # two files, and their names counted in lists, 0.3 ms
}
LUNGHEZZA = 4096  # bytes of an input: an acceptance file and a configuration have some 3000
LUNGHEZZE = {  # where less says all: a run takes as long as its input, and no sample is longer
    "fuzz_comandi": 512,  # a command's sum is beyond 16 bits from 130 bytes on
    "fuzz_far": 1280,  # a result file has some 800
    "fuzz_numeri": 512,  # digits of the smallest double that is written out
    "fuzz_profilo": 2048,
    "fuzz_registrazione": 2048,
    "fuzz_risposte": 256,  # a reply has 106, and what is said of it is said byte by byte
    "fuzz_scenario": 1024,
    "fuzz_seriale": 64,  # the settings of a port
    "fuzz_sintassi": 1024,
    "fuzz_strumento": 1024,
    "fuzz_struttura": 2048,
    "fuzz_valori": 256,  # the longest field of an acceptance file has 60
}
MEMORIA = 2048  # MB of a target
# Leaks are for the unit tests: the search for them takes longer than the run. A stack kept for each allocation takes as
# long again; a kept input tells it when its target is run by hand. What is freed is held back for some runs: the usual
# 256 MB are memory that no cache holds.
ASAN = "detect_leaks=0:malloc_context_size=1:quarantine_size_mb=1:thread_local_quarantine_size_kb=16"
ATTESA = 20  # seconds that one input may take: more is a defect too

TESTO = """## Fuzzing

Written by `fuzz/esegui.py --scrivi`. Each target gives the system inputs that libFuzzer grows by the ways they take
through the code, from the samples in `fuzz/campioni`, under the address and undefined-behaviour sanitizers. What it
looks for stands in the first lines of its file: a rule written a second time, or a result read back, not only that
the program goes on. Coverage: edges of the code that the inputs reach. Left to itself, the command gives ten million
runs to each target; the slow ones, which put whole files through many passes or files in the place of others, get the
share that stands in `LENTI` in the program, a fifth to a hundredth, or with `--interi` all of them. A row is the last
run of its target, by whatever number of runs it was asked for.

| target | runs | seconds | coverage | samples | crashes |
|---|---|---|---|---|---|
"""


def leggi_nomi():
    """The targets, as fuzz/CMakeLists.txt has them."""
    elenco = (RADICE / "fuzz/CMakeLists.txt").read_text(encoding="utf-8")
    return ["fuzz_" + nome for nome in re.findall(r"^bersaglio\((\w+)", elenco, re.M)]


def costruisci(nomi):
    if not (COSTRUITI / "build.ninja").exists():
        subprocess.run(["cmake", "--preset", "fuzz"], cwd=RADICE, check=True, stdout=subprocess.DEVNULL)
    subprocess.run(["cmake", "--build", "--preset", "fuzz", "--target", *nomi], cwd=RADICE, check=True,
                   stdout=subprocess.DEVNULL)


def ambiente():
    """Targets that write files do it in memory, where there is such a place."""
    memoria = {"TMPDIR": "/dev/shm"} if os.access("/dev/shm", os.W_OK) else {}
    return dict(os.environ, LC_ALL="C.UTF-8", ASAN_OPTIONS=ASAN, **memoria)


def cartella_di(base, nome):
    cartella = base / nome
    cartella.mkdir(parents=True, exist_ok=True)
    return cartella


def chiama(nome, *argomenti):
    """A target to its end. @return status and what it said."""
    comando = [PROGRAMMI / nome, f"-max_len={LUNGHEZZE.get(nome, LUNGHEZZA)}", f"-rss_limit_mb={MEMORIA}",
               f"-timeout={ATTESA}", "-detect_leaks=0", *argomenti]
    fatto = subprocess.run([str(parte) for parte in comando], env=ambiente(), stdin=subprocess.DEVNULL,
                           stdout=subprocess.DEVNULL, stderr=subprocess.PIPE)
    return fatto.returncode, fatto.stderr.decode("utf-8", "replace")


def ultimo(forma, detto):
    """The last number of that form in what a target said, 0 for none."""
    numeri = re.findall(forma, detto)
    return int(numeri[-1]) if numeri else 0


def prova(nome, misura):
    """Runs a target. @return its row of the table, and what it said if it found something."""
    difetti = cartella_di(DIFETTI, nome)
    inizio = time.monotonic()
    stato, detto = chiama(nome, *misura, f"-artifact_prefix={difetti}/", "-print_final_stats=1",
                          cartella_di(TROVATI, nome), cartella_di(CAMPIONI, nome))
    riga = [nome, ultimo(r"stat::number_of_executed_units: +(\d+)", detto), round(time.monotonic() - inizio),
            ultimo(r"\bcov: (\d+)", detto), len(list((CAMPIONI / nome).iterdir())), int(stato != 0)]
    return riga, detto if stato != 0 else ""


def scrivi(riga):
    """Puts a target's row into the table, where those of the others stay: the long run may be done in parts."""
    righe = {nome: intera for intera, nome in
             re.findall(r"^(\| (fuzz_\w+) \|.*\n)", DOCUMENTO.read_text(encoding="utf-8"), re.M)}
    righe[riga[0]] = "| " + " | ".join(str(cella) for cella in riga) + " |\n"
    tabella = "".join(righe[nome] for nome in leggi_nomi() if nome in righe)
    scrivi_sezione(DOCUMENTO, f"<!-- {SEZIONE} -->\n", f"<!-- fine: {SEZIONE} -->\n", TESTO + tabella)


def riduci(nome):
    """Samples and findings become the fewest samples that reach as much; a sample that a person named stays anyway."""
    nuovi = COSTRUITI / "ridotti" / nome
    shutil.rmtree(nuovi, ignore_errors=True)
    nuovi.mkdir(parents=True)
    stato, detto = chiama(nome, "-set_cover_merge=1", "-use_counters=0", nuovi, cartella_di(CAMPIONI, nome),
                          cartella_di(TROVATI, nome))
    if stato != 0:
        return f"{nome}: non ridotto\n{detto}"
    for campione in (CAMPIONI / nome).iterdir():
        if re.fullmatch("[0-9a-f]{40}", campione.name):
            campione.unlink()
    shutil.copytree(nuovi, CAMPIONI / nome, dirs_exist_ok=True)
    file = list((CAMPIONI / nome).iterdir())
    return f"{nome}: {len(file)} campioni, {sum(uno.stat().st_size for uno in file)} byte"


def leggi_argomenti():
    argomenti = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    argomenti.add_argument("bersagli", nargs="*", metavar="TARGET")
    misura = argomenti.add_mutually_exclusive_group()
    misura.add_argument("--giri", type=int, default=GIRI)
    misura.add_argument("--secondi", type=int)
    misura.add_argument("--riduci", action="store_true")
    argomenti.add_argument("--interi", action="store_true")
    argomenti.add_argument("--insieme", type=int, default=os.cpu_count())
    argomenti.add_argument("--scrivi", action="store_true")
    return argomenti.parse_args()


def main():
    argomenti = leggi_argomenti()
    nomi = argomenti.bersagli or leggi_nomi()
    if estranei := set(nomi) - set(leggi_nomi()):
        sys.exit("fuzz/esegui.py: nessun bersaglio " + ", ".join(sorted(estranei)))
    costruisci(nomi)
    righe = []
    with concurrent.futures.ThreadPoolExecutor(argomenti.insieme) as insieme:
        if argomenti.riduci:
            for detto in insieme.map(riduci, nomi):
                print(detto, flush=True)
            return
        def misura(nome):
            giri = max(1, argomenti.giri // (1 if argomenti.interi else LENTI.get(nome, 1)))
            # Short ones are a check of every change: they go the same ways each time.
            return [f"-max_total_time={argomenti.secondi}", "-seed=1"] if argomenti.secondi else [f"-runs={giri}"]

        prove = [insieme.submit(prova, nome, misura(nome)) for nome in nomi]
        for fatta in concurrent.futures.as_completed(prove):
            riga, detto = fatta.result()
            print(detto + "%-20s %10d giri %6d s  copertura %5d  campioni %3d  difetti %d" % tuple(riga), flush=True)
            righe.append(riga)
            if argomenti.scrivi:
                scrivi(riga)
    difetti = sum(riga[-1] for riga in righe)
    print(f"Fuzzing: {len(righe)} bersagli, {sum(riga[1] for riga in righe)} giri, {difetti} con difetti")
    sys.exit(1 if difetti else 0)


if __name__ == "__main__":
    main()
