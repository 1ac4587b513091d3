#!/usr/bin/python3
"""Makes docs/figure/rapporto.png: the report as a printer lays it out, printed by the installed program.

usage: figura_rapporto.py COSTRUZIONE [USCITA [LINGUA [CARTA]]]
       e.g. figura_rapporto.py build/release /tmp/report.png EN Letter
"""

import subprocess
import sys
import tempfile
from pathlib import Path

import operatore
import stampante

RADICE = Path(__file__).resolve().parent.parent

PUNTI_POLLICE = 100
VEICOLO = "20000001"
SCENARIO = "tre_veicoli.ini"

# Ids of the buttons on the way, in lingueMCTC.ini.
PROVA, CONFERMA, AVVIA, STAMPA = "002", "107", "113", "098"


def stampa(costruzione, cartella, lingua, carta):
    """One vehicle from the worklist to its printed report.

    @returns the path of the PDF.
    """
    installazione = cartella / "lumira"
    subprocess.run(["cmake", "--install", costruzione, "--prefix", installazione], check=True, stdout=subprocess.DEVNULL)
    stazione = operatore.Stazione(installazione)
    stazione.imposta("IMPOSTAZIONI", "Lingua", lingua)
    stazione.imposta("MCTC", "Modalita", "0")  # the acceptance file stays, and the vehicle is on the page
    stazione.accettazione(VEICOLO, DatiLibrettoVeicolo__Targa="AB123CD")
    testi = operatore.Profilo(stazione.percorso("lingueMCTC.ini"))
    coda = stampante.Stampante(cartella / "stampante")
    schermo = operatore.SchermoVirtuale()
    simulatore = stazione.percorso("simulatore")
    strumento = operatore.Strumento(simulatore / "qx5sim", stazione, simulatore / "scenari" / SCENARIO)
    try:
        coda.amministra("lpadmin", "-p", coda.CODA, "-o", f"PageSize={carta}")
        programma = operatore.Programma(stazione, schermo, **coda.ambiente)
        programma.premi(testi.valore(lingua, PROVA))
        programma.scegli_riga(f"{VEICOLO}.ACC")
        programma.premi_verso(testi.valore(lingua, CONFERMA), testi.valore(lingua, AVVIA))
        programma.premi(testi.valore(lingua, AVVIA))
        programma.premi(testi.valore(lingua, STAMPA))
        foglio = coda.foglio(1)
        programma.chiudi()
        return foglio
    finally:
        strumento.spegni()
        schermo.chiudi()
        coda.ferma()


def main(argomenti):
    if not 1 <= len(argomenti) <= 4:
        sys.exit(__doc__)
    scelte = [RADICE / "docs" / "figure" / "rapporto.png", "IT", "A4"]
    uscita, lingua, carta = argomenti[1:] + scelte[len(argomenti) - 1 :]
    with tempfile.TemporaryDirectory(prefix="rapporto-") as cartella:
        foglio = stampa(Path(argomenti[0]).resolve(), Path(cartella), lingua, carta)
        immagine = Path(cartella) / "rapporto"
        comando = ["pdftoppm", "-png", "-gray", "-singlefile", "-r", str(PUNTI_POLLICE), foglio, immagine]
        subprocess.run([str(parte) for parte in comando], check=True)
        Path(uscita).write_bytes(immagine.with_suffix(".png").read_bytes())
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
