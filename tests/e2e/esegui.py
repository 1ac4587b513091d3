#!/usr/bin/python3
"""Installs a build and runs the end-to-end tests on it, several files at a time.

usage: esegui.py COSTRUZIONE [file ...]      e.g. esegui.py build/release prova_avvio.py

A file of another folder is given by its path. Each file runs in a process of its own and says at its end
"Totals: N passed, N failed, N skipped", as the Qt tests do. Pictures of failed waits go to the folder
LUMIRA_SCHERMATE, if it is set.
"""

import concurrent.futures
import os
import re
import subprocess
import sys
import tempfile
import time
import unittest
from pathlib import Path

CARTELLA = Path(__file__).resolve().parent
ATTREZZI = CARTELLA.parents[1] / "attrezzi"
sys.path[:0] = [str(CARTELLA), str(ATTREZZI)]

import operatore  # noqa: E402

INSIEME = 4  # files at a time: they wait most of their time
MASSIMO = 600  # seconds for one file, on a machine that builds besides


def totali(riusciti, falliti, saltati):
    return f"Totals: {riusciti} passed, {falliti} failed, {saltati} skipped"


def esegui_qui(nome):
    """Runs the tests of one file in this process."""
    percorso = CARTELLA / nome
    sys.path.insert(0, str(percorso.parent))
    prove = unittest.defaultTestLoader.loadTestsFromName(percorso.stem)
    esito = unittest.TextTestRunner(stream=sys.stdout, verbosity=2).run(prove)
    falliti = len(esito.failures) + len(esito.errors) + len(esito.unexpectedSuccesses)
    saltati = len(esito.skipped)
    print(totali(max(0, esito.testsRun - falliti - saltati), falliti, saltati), flush=True)
    return 0 if esito.wasSuccessful() else 1


def esegui_a_parte(nome, cartella):
    """Runs the tests of one file in a process of its own, whose files all lie in one folder.

    @returns what it wrote, and whether all went well.
    """
    inizio = time.monotonic()
    processo = operatore.avvia_processo(
        [sys.executable, __file__, "--qui", nome],
        env=os.environ | {"TMPDIR": cartella},
        stdout=subprocess.PIPE,
        stderr=subprocess.STDOUT,
    )
    try:
        uscita = processo.communicate(timeout=MASSIMO)[0].decode(errors="replace")
    except subprocess.TimeoutExpired:
        operatore.ferma_processo(processo)
        uscita = f"non finisce in {MASSIMO} s\n"
    if not re.search(r"^Totals: ", uscita, re.MULTILINE):
        uscita += totali(0, 1, 0) + "\n"
    testa = f"--- {Path(nome).name} ({time.monotonic() - inizio:.1f} s)\n"
    return testa + uscita, processo.returncode == 0


def installa(costruzione, cartella):
    comando = ["cmake", "--install", costruzione, "--prefix", cartella]
    subprocess.run([str(parte) for parte in comando], check=True, stdout=subprocess.DEVNULL)


def esegui_tutti(costruzione, nomi):
    riuscito = True
    with tempfile.TemporaryDirectory(prefix="lumira-") as cartella:
        os.chmod(cartella, 0o711)  # the way to the folders of those tests that are not run by their own user
        os.environ["LUMIRA_COSTRUZIONE"] = str(costruzione)
        os.environ["LUMIRA_INSTALLAZIONE"] = f"{cartella}/installazione"
        installa(costruzione, os.environ["LUMIRA_INSTALLAZIONE"])
        with concurrent.futures.ThreadPoolExecutor(INSIEME) as insieme:
            attese = [insieme.submit(esegui_a_parte, nome, cartella) for nome in nomi]
            for attesa in concurrent.futures.as_completed(attese):
                uscita, bene = attesa.result()
                print(uscita, end="", flush=True)
                riuscito = riuscito and bene
    return 0 if riuscito else 1


def percorso(nome):
    return str(Path(nome).resolve()) if "/" in nome else nome


def tutti():
    # The longest first: the test of the silent instrument lasts as long as all the others together.
    return sorted((f.name for f in CARTELLA.glob("prova_*.py")), key=lambda nome: "silenzio" not in nome)


def main(argomenti):
    if argomenti[:1] == ["--qui"]:
        return esegui_qui(argomenti[1])
    if not argomenti:
        sys.exit(__doc__)
    costruzione, *nomi = argomenti
    return esegui_tutti(Path(costruzione).resolve(), [percorso(nome) for nome in nomi] or tutti())


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
