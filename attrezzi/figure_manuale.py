#!/usr/bin/python3
"""Makes the pictures of docs/manuale.md and docs/simulatore.md: the installed programs on a virtual screen, the station
with a simulated instrument.

usage: figure_manuale.py INSTALLAZIONE [USCITA]
       e.g. figure_manuale.py /srv/stazione
"""

import os
import subprocess
import sys
import tempfile
from pathlib import Path

import operatore

RADICE = Path(__file__).resolve().parent.parent

COLORI = 256

SCENARIO = """[VEICOLO1]
Riposo=1
Prova=20
AnabSx=0243O#
AbbSx=0612OO
AnabDx=0251OO
AbbDx=0598#O
[VEICOLO2]
Riposo=1
Prova=1
AnabSx=0305AS
AbbSx=0720OO
AnabDx=0037OO
AbbDx=0734OO
[VEICOLO3]
Riposo=1
Prova=1
AnabSx=0243OO
AbbSx=0612OO
AnabDx=0251OO
AbbDx=0598OO
"""

BUONI = ("30000001", "30000002", "30000004")
ERRATO = "30000003"

# The window of the simulated instrument fills the picture, and a vehicle out of order is in the middle of its test.
FINESTRA = (980, 660)
ESERCITAZIONE = """[VEICOLO1]
Riposo=1
Prova=20
AnabSx=0305AS
AbbSx=0720OO
AnabDx=0037OO
AbbDx=0734OO
"""
INTERROGAZIONE = bytes.fromhex("02 41 42 43 10 36 03")
INTERROGAZIONI = 4

CARTELLE = ("DirDati", "DirRisultati")
CARTELLA_MOSTRATA = "C:\\lumira\\"  # as a workshop reads it; that of the pictures is a passing one


class Figure:
    """The program and the folder that its pictures go to."""

    def __init__(self, programma, uscita):
        self.programma = programma
        self.uscita = uscita

    def scatta(self, nome):
        percorso = self.programma.schermata(self.uscita / f"{nome}.png")
        subprocess.run(["convert", percorso, "+dither", "-colors", str(COLORI), "-strip", percorso], check=True)

    def menu(self):
        self.programma.attendi_pulsante("Prova proiettori")

    def amministrazione(self):
        programma = self.programma
        programma.attendi_testo("in attesa")
        self.scatta("menu")
        programma.premi("Informazioni")
        programma.attendi_testo("Assistenza stazione")
        self.scatta("informazioni")
        programma.premi("Ok")
        self.menu()
        programma.premi("Anagrafica officina")
        programma.attendi_pulsante("Annulla")
        self.scatta("anagrafica")
        programma.premi("Annulla")
        self.menu()
        programma.premi("Verifica periodica")
        programma.attendi(lambda: programma.elementi("password text"), cosa="password")
        self.scatta("password")
        programma.schermo.scrivi("lumira")
        programma.attendi_pulsante("Default")
        self.scatta("verifica")
        programma.premi("Annulla")

    def impostazioni(self):
        programma = self.programma
        programma.premi("Impostazioni")
        programma.attendi_pulsante("Ok")
        self.scatta("impostazioni")
        programma.tasto("F12")
        programma.attendi_testo("Livelli dei controlli")
        self.scatta("livelli")
        programma.premi("Annulla")
        programma.attendi_pulsante("Verifica periodica")
        programma.premi("Ok")

    def file_errato(self):
        programma = self.programma
        programma.premi("Prova proiettori")
        programma.scegli_riga(f"{ERRATO}.ACC")
        programma.attendi_testo("Anomalie trovate")
        self.scatta("lista_errata")
        programma.premi_verso("Ok", "Annulla")
        programma.premi("Annulla")
        self.menu()

    def veicolo(self, nome, per_via=()):
        """One vehicle to its session. @param per_via names of the pictures on the way, or none."""
        programma = self.programma
        programma.premi("Prova proiettori")
        programma.scegli_riga(f"{nome}.ACC")
        programma.attendi_pulsante("Conferma")
        for figura in per_via[:1]:
            self.scatta(figura)
        programma.premi_verso("Conferma", "Avvia")
        for figura in per_via[1:2]:
            self.scatta(figura)
        programma.premi("Avvia")
        for figura in per_via[2:]:
            programma.attendi_testo("Attesa dati...")
            self.scatta(figura)

    def esito(self, verdetto, figura):
        self.programma.attendi_testo(verdetto)
        self.scatta(figura)
        self.programma.premi("Esci")

    def prove(self):
        self.file_errato()
        self.veicolo(BUONI[0], ("lista", "veicolo", "collegamento"))
        self.esito("ESITO REGOLARE", "esito_regolare")
        self.menu()
        self.veicolo(BUONI[1])
        self.esito("ESITO IRREGOLARE", "esito_irregolare")

    def debug(self):
        """A session that stays open, with its traffic."""
        programma = self.programma
        self.veicolo(BUONI[2])
        programma.attendi_testo("Scambio con lo strumento completato")
        self.scatta("debug")
        programma.premi("Interrompi")
        programma.attendi_testo("ESITO REGOLARE")
        programma.premi("Esci")


def giro(stazione, uscita, passi, **valori):
    """One run of the program, from its menu to its end.

    @param passi what of Figure to do. @param valori Sezione__Chiave="value", for this run.
    """
    prima = {nome: stazione.ini.valore(*nome.split("__")) for nome in valori}
    schermo = operatore.SchermoVirtuale()
    try:
        for nome, valore in valori.items():
            stazione.imposta(*nome.split("__"), valore)
        programma = operatore.Programma(stazione, schermo, LC_ALL="it_IT.UTF-8")
        try:
            figure = Figure(programma, uscita)
            figure.menu()
            passi(figure)
            figure.menu()
            programma.premi("Esci")
            programma.attendi_fine()
        finally:
            programma.chiudi()
    finally:
        schermo.chiudi()
    for nome, valore in prima.items():
        stazione.imposta(*nome.split("__"), valore)


def interroga(porta):
    """Asks the instrument for its state, as a station does."""
    linea = os.open(porta, os.O_RDWR | os.O_NOCTTY)
    try:
        for _ in range(INTERROGAZIONI):
            os.write(linea, INTERROGAZIONE)
            risposta = b""
            while not risposta.endswith(b"\x03"):
                risposta += os.read(linea, 100)
    finally:
        os.close(linea)


def esercitazione(stazione, uscita, lingua="IT"):
    """The window of whoever teaches. @param lingua as qx5sim spells it."""
    scenario = stazione.percorso("esercitazione.ini")
    scenario.write_text(ESERCITAZIONE, encoding="cp1252")
    porta = stazione.percorso("porte", "COM2")
    comando = [stazione.percorso("simulatore", "qx5sim"), "--finestra", "--lingua", lingua, "--collega", porta]
    comando += ["--registro", stazione.percorso("esercitazione.log"), "--seme", "5", scenario]
    schermo = operatore.SchermoVirtuale(*FINESTRA)
    try:
        programma = operatore.Programma(stazione, schermo, comando=comando)
        try:
            programma.attendi(lambda: "pronto:" in programma.diario(), cosa="qx5sim pronto")
            interroga(porta)
            programma.attendi(lambda: programma.nomi("radio button"), cosa="finestra")
            operatore.resta(programma.vivo, 1, "la finestra, con l'ultima trama")
            Figure(programma, uscita).scatta("esercitazione")
        finally:
            programma.chiudi()
    finally:
        schermo.chiudi()


def main(argomenti):
    if not 1 <= len(argomenti) <= 2:
        raise SystemExit(__doc__)
    uscita = Path(argomenti[1]) if len(argomenti) > 1 else RADICE / "docs" / "figure"
    with tempfile.TemporaryDirectory(prefix="figure-") as cartella:
        stazione = operatore.Stazione(Path(cartella) / "lumira", argomenti[0])
        for nome in BUONI:
            stazione.accettazione(nome)
        stazione.accettazione(ERRATO, DatiLibrettoVeicolo__Targa="AB")
        strumento = operatore.Strumento(stazione.percorso("simulatore", "qx5sim"), stazione, SCENARIO)
        try:
            giro(stazione, uscita, Figure.amministrazione)
            giro(stazione, uscita, Figure.impostazioni, **{f"MCTC__{nome}": CARTELLA_MOSTRATA for nome in CARTELLE})
            giro(stazione, uscita, Figure.prove)
            giro(stazione, uscita, Figure.debug, GENERAL__Debug="1")
        finally:
            strumento.spegni()
        esercitazione(stazione, uscita)


if __name__ == "__main__":
    main(sys.argv[1:])
