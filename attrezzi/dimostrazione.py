#!/usr/bin/python3
"""The demonstration station: an installation with three vehicles in its worklist and a simulated instrument.

usage: dimostrazione.py operatore|virtuale CARTELLA

operatore   opens it on the display at hand and leaves it to the operator until the program ends
virtuale    carries the first vehicle to its result on a virtual display, takes pictures on the way, prints the
            report on a queue of its own, and ends
"""

import shutil
import sys
import tempfile
import unittest
from pathlib import Path

import operatore
import stampante

SCENARIO = "tre_veicoli.ini"

VEICOLI = {
    "10000001": {"Targa": "AA111AA", "Fabbrica": "FABBRICA DI PROVA", "Tipo": "BERLINA 1.6"},
    "10000002": {"Targa": "BB222BB", "Fabbrica": "FABBRICA DI PROVA", "Tipo": "FURGONE 2.0"},
    "10000003": {"Targa": "CC333CC", "Fabbrica": "ALTRA FABBRICA", "Tipo": "UTILITARIA 1.2"},
}


def prepara(cartella):
    """Makes a fresh installation, or that of the last time, ready for a demonstration."""
    stazione = operatore.Stazione(cartella)
    # The network's folders: with local ones the acceptance file is gone before the report is printed, and the
    # vehicle is blank on it.
    stazione.imposta("MCTC", "Modalita", "0")
    stazione.imposta("MCTC", "IniFile", "1")
    for resto in stazione.scambio.iterdir():
        resto.unlink()
    for nome, valori in VEICOLI.items():
        stazione.accettazione(nome, **{f"DatiLibrettoVeicolo__{chiave}": v for chiave, v in valori.items()})
    return stazione


def accendi_strumento(stazione):
    simulatore = stazione.percorso("simulatore")
    return operatore.Strumento(simulatore / "qx5sim", stazione, simulatore / "scenari" / SCENARIO)


def lascia_all_operatore(stazione):
    print(f"Stazione: {stazione.cartella}\nVeicoli in lista: {', '.join(VEICOLI)}", flush=True)
    programma = operatore.avvia_processo([stazione.percorso("lumira")], cwd=stazione.cartella)
    return programma.wait()


def porta_un_veicolo(stazione, schermo, stampa):
    """One vehicle through the real windows, up to its printed report.

    @param stampa the print queue, or None.
    @returns the verdict on the screen.
    """
    nome = next(iter(VEICOLI))
    ambiente = stampa.ambiente if stampa else {}
    programma = operatore.Programma(stazione, schermo, LC_ALL="it_IT.UTF-8", **ambiente)
    schermate = stazione.percorso("schermate")

    def schermata(numero, cosa):
        programma.schermata(schermate / f"{numero}-{cosa}.png")

    programma.attendi_pulsante("Prova proiettori")
    schermata(1, "menu")
    programma.premi("Prova proiettori")
    programma.scegli_riga(f"{nome}.ACC")
    programma.attendi_pulsante("Conferma")
    schermata(2, "lista")
    programma.premi_verso("Conferma", "Avvia")
    schermata(3, "veicolo")
    programma.premi("Avvia")
    programma.attendi_testo("Attesa dati...")
    schermata(4, "collegamento")
    programma.attendi(lambda: (programma.titolo() or "").startswith("ESITO"), cosa="schermata dell'esito")
    verdetto = programma.titolo()
    schermata(5, "esito")
    if stampa:
        programma.premi("Stampa")
        shutil.copyfile(stampa.foglio(1), rapporto(stazione))
    programma.premi("Esci")
    programma.attendi_pulsante("Prova proiettori")
    programma.premi("Esci")
    if programma.attendi_fine() != 0:
        raise SystemExit(f"lumira: {programma.diario()}")

    risultato = stazione.scambio / f"{nome}.far"
    print(f"\n{risultato}:\n{risultato.read_bytes().decode('cp1252')}")
    print("Schermate:")
    for percorso in sorted(schermate.iterdir()):
        print(f"  {percorso}")
    return verdetto


def rapporto(stazione):
    return stazione.percorso("rapporto.pdf")


def accendi_stampante(cartella):
    """@returns a print queue of its own, or None, with the reason on the terminal, where none can be had."""
    try:
        return stampante.Stampante(cartella)
    except unittest.SkipTest as motivo:
        print(f"Senza stampa: {motivo}")
        return None


def recita(stazione):
    rapporto(stazione).unlink(missing_ok=True)
    with tempfile.TemporaryDirectory(prefix="stampante-") as cartella:
        stampa = accendi_stampante(cartella)
        schermo = operatore.SchermoVirtuale()
        try:
            verdetto = porta_un_veicolo(stazione, schermo, stampa)
        finally:
            schermo.chiudi()
            if stampa:
                stampa.ferma()
    if stampa:
        print(f"Rapporto stampato:\n  {rapporto(stazione)}")
    print(f"\nVerdetto: {verdetto}")
    return 0


MODI = {"operatore": lascia_all_operatore, "virtuale": recita}


def main(argomenti):
    if len(argomenti) != 2 or argomenti[0] not in MODI:
        raise SystemExit(__doc__)
    stazione = prepara(Path(argomenti[1]).resolve())
    strumento = accendi_strumento(stazione)
    try:
        return MODI[argomenti[0]](stazione)
    finally:
        strumento.spegni()


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
