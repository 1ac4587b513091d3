#!/usr/bin/env python3
"""Draws the station's pictures from the vector sources in sorgenti/.

Run it again after a change of a source: python3 dati/disegna.py
Needs rsvg-convert and ImageMagick; on Debian: apt-get install librsvg2-bin imagemagick
"""

import pathlib
import shutil
import subprocess
import sys
import tempfile

DATI = pathlib.Path(__file__).resolve().parent
SORGENTI = DATI / "sorgenti"

# picture               source              width  options of the conversion
IMMAGINI = [
    ("splash_kp_net.jpg", "splash_kp_net.svg", 2560, ["-quality", "90"]),
    ("faro0.jpg",         "faro0.svg",         1600, ["-quality", "90"]),
    ("faro1.jpg",         "faro1.svg",         1600, ["-quality", "90"]),
    ("kp_logo.gif",       "kp_logo.svg",        240, ["-dither", "None", "-colors", "64"]),
    ("lumira.png",        "lumira.svg",         256, ["-define", "png:exclude-chunks=date,time"]),
]

ICONA = "lumira.ico"
LATI_ICONA = [16, 24, 32, 48, 64, 256]

PACCHETTI = {"rsvg-convert": "librsvg2-bin", "convert": "imagemagick"}


def rasterizza(sorgente, larghezza, cartella):
    """Draws a source as a PNG that many pixels wide and returns its path."""
    png = cartella / f"{sorgente.stem}_{larghezza}.png"
    subprocess.run(["rsvg-convert", "-w", str(larghezza), "-o", str(png), str(sorgente)], check=True)
    return png


def disegna(cartella):
    for nome, sorgente, larghezza, opzioni in IMMAGINI:
        png = rasterizza(SORGENTI / sorgente, larghezza, cartella)
        subprocess.run(["convert", str(png), "-strip", *opzioni, str(DATI / nome)], check=True)

    lati = [rasterizza(SORGENTI / "lumira.svg", lato, cartella) for lato in LATI_ICONA]
    subprocess.run(["convert", *map(str, lati), str(DATI / ICONA)], check=True)

    for nome in [immagine[0] for immagine in IMMAGINI] + [ICONA]:
        print(f"{nome:20} {(DATI / nome).stat().st_size:8} bytes")


def main():
    mancanti = [PACCHETTI[comando] for comando in PACCHETTI if shutil.which(comando) is None]
    if mancanti:
        sys.exit("missing: apt-get install " + " ".join(mancanti))
    with tempfile.TemporaryDirectory() as cartella:
        disegna(pathlib.Path(cartella))


if __name__ == "__main__":
    main()
