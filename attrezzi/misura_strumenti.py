#!/usr/bin/env python3
"""Measures the tools that read files, on folders of generated ones, and puts the figures into docs/prestazioni.md.

    attrezzi/misura_strumenti.py INSTALLATION [--file N] [--scrivi]

INSTALLATION is a station folder as `cmake --install build/release` lays it out. Without --scrivi the figures are
printed only. Of the acceptance files every tenth has a fault of one kind or another; the result files are those of
ten weeks.
"""
import argparse
import datetime
import os
import pathlib
import random
import subprocess
import sys
import tempfile
import time

from sezione import scrivi_sezione

RADICE = pathlib.Path(__file__).resolve().parents[1]
FIGURE = RADICE / "docs/prestazioni.md"
INIZIO = "<!-- attrezzi/misura_strumenti.py: da qui -->\n"
FINE = "<!-- attrezzi/misura_strumenti.py: fin qui -->\n"

GUASTI = (
    (b"\r\nCAP=", b"\r\nCAP=1"),
    (b"\r\nCAP=", b"\r\nCAP= "),
    (b"[Vis_Sterzo]\r\n", b""),
    (b"\r\nNote=", b"\r\nNota="),
)
FARI = ("AnabDx", "AnabSx", "AbbDx", "AbbSx")


def accettazioni(cartella, quante):
    modello = (RADICE / "dati/ModelloAcc.acc").read_bytes()
    for n in range(quante):
        byte = modello.replace(*GUASTI[n // 10 % len(GUASTI)], 1) if n % 10 == 9 else modello
        (cartella / f"{10000000 + n}.acc").write_bytes(byte)


def risultato(caso, giorno):
    """The rows of one result file."""
    lux = {f: caso.randint(10, 950) if "Anab" in f else caso.randint(100, 1600) for f in FARI}
    buone = {f: (37 < v < 900) if "Anab" in f else (200 < v < 1500) for f, v in lux.items()}
    mire = {f"{asse}{f}": caso.random() < 0.98 for asse in ("Vert", "Orizz") for f in FARI}
    verdetto = "IR".__getitem__
    regolare = all(buone.values()) and all(mire.values())
    ora = f"{caso.randint(8, 17):02}{caso.randint(0, 59):02}"
    return [
        "[Kandelo]", "Marca=ACME", "Tipo=X", "NumOmologa=1", "NumSerie=2", "NumVersioneSoftware=1.0",
        "DataScadenza=31122027", "AltezzaAnab=#72,5", "TipoAnab=#A",
        *(f"{mira}={verdetto(buona)}" for mira, buona in mire.items()),
        *(f"IllumLux{f}={lux[f] * 100}" for f in FARI),
        *(f"EsitoIllumLux{f}={verdetto(buone[f])}" for f in FARI),
        f"Esito={verdetto(regolare)}", "CodErrore=", f"DataMisura={giorno:%d%m%Y}", f"InizioMisura={ora}00",
        f"FineMisura={ora}59", f"Operatore={caso.choice(['Bianchi', 'Rossi', 'Verdi'])}",
    ]


def risultati(cartella, quanti):
    caso = random.Random(1)
    primo = datetime.date(2026, 1, 7)
    for n in range(quanti):
        righe = risultato(caso, primo + datetime.timedelta(days=70 * n // quanti))
        (cartella / f"{10000000 + n}.far").write_text("".join(r + "\r\n" for r in righe), "cp1252", newline="")


def misura(programma, *argomenti):
    """@return seconds and megabytes of one run. Its own end is no failure here: faulty files give 1."""
    inizio = time.monotonic()
    figlio = subprocess.Popen([programma, *argomenti], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    _, stato, risorse = os.wait4(figlio.pid, 0)
    secondi = time.monotonic() - inizio
    figlio.returncode = os.waitstatus_to_exitcode(stato)
    if figlio.returncode not in (0, 1):
        sys.exit(f"{programma}: {figlio.returncode}")
    return secondi, risorse.ru_maxrss / 1024


def tabella(installazione, quanti):
    with tempfile.TemporaryDirectory() as temporanea:
        cartella = pathlib.Path(temporanea)
        accettazioni(cartella, quanti)
        risultati(cartella, quanti)
        strumenti = installazione / "strumenti"
        stazione = ("--stazione", installazione)
        corse = (
            ("lumira-acc", *stazione), ("lumira-acc", *stazione, "--visivo"), ("lumira-acc", *stazione, "--json"),
            ("lumira-far",), ("lumira-far", "--csv"), ("lumira-far", "--json"), ("lumira-far", "--riepilogo"),
            ("lumira-far", *stazione, "--grafico", cartella / "grafico.svg"),
            ("lumira-far", *stazione, "--grafico", cartella / "grafico.png"),
        )
        righe = ["| what runs | time | memory |", "|---|---|---|"]
        for programma, *opzioni in corse:
            secondi, mega = misura(strumenti / programma, *opzioni, cartella)
            detto = " ".join([programma, *(getattr(o, "name", o) for o in opzioni if o not in stazione)])
            righe.append(f"| `{detto}` | {secondi:.1f} s | {mega:.0f} MB |")
    return "\n".join(righe) + "\n"


def main():
    righe = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    righe.add_argument("installazione", type=pathlib.Path)
    righe.add_argument("--file", type=int, default=10000)
    righe.add_argument("--scrivi", action="store_true")
    scelte = righe.parse_args()
    testo = tabella(scelte.installazione.resolve(), scelte.file)
    print(testo, end="")
    if scelte.scrivi:
        scrivi_sezione(FIGURE, INIZIO, FINE, testo)


if __name__ == "__main__":
    main()
