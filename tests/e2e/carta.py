"""A sheet that came out of the same printer from two systems: what has to be in the same place."""

import re
import subprocess

from foglio import MM, Foglio

SCARTO = 2 * MM
PUNTI = 288  # an inch: a line of the frame is two pixels wide
LINEA = 60  # points: longer than anything in a letter
ORA = re.compile(r"^\d\d:\d\d:\d\d$")
SCURO = 224  # of 255: a thin line may lie between two rows of pixels


def ricuci(parole):
    """Words of letters that stand apart. Wine's PostScript driver gives a widened type its widths alone: the
    letters keep their shape, and a reader takes every gap between them for a blank."""
    ricucite = []
    for parola, (sinistra, cima, destra, fondo) in parole:
        if ricucite:
            testo, (s, c, d, f) = ricucite[-1]
            if (c, f) == (cima, fondo) and abs(sinistra - d) < (f - c) / 5:
                ricucite[-1] = (testo + parola, (s, c, destra, f))
                continue
        ricucite.append((parola, (sinistra, cima, destra, fondo)))
    return ricucite


def linee(percorso):
    """The straight lines of a sheet, in points: left, top, right, bottom."""
    pgm = subprocess.run(
        ["pdftoppm", "-gray", "-r", str(PUNTI), percorso], check=True, capture_output=True
    ).stdout
    _, misure, _, pixel = pgm.split(b"\n", 3)
    larghezza, altezza = map(int, misure.split())
    righe = [pixel[y * larghezza : (y + 1) * larghezza] for y in range(altezza)]
    colonne = [pixel[x::larghezza] for x in range(larghezza)]
    punti = 72 / PUNTI
    for y, inizio, fine in _tratti(righe):
        yield tuple(valore * punti for valore in (inizio, y, fine, y))
    for x, inizio, fine in _tratti(colonne):
        yield tuple(valore * punti for valore in (x, inizio, x, fine))


def _tratti(file):
    """Dark runs in rows of pixels: row, first, last. Of neighbouring rows, which are one line, the first."""
    scuro = bytes(1 if valore < SCURO else 0 for valore in range(256))
    minimo = b"\x01" * (LINEA * PUNTI // 72)
    precedente = -2
    for numero, pixel in enumerate(file):
        pixel = pixel.translate(scuro)
        inizio = pixel.find(minimo)
        if inizio < 0:
            continue
        if numero > precedente + 1:
            yield numero, inizio, (pixel + b"\x00").find(b"\x00", inizio)
        precedente = numero


def confronta(prova, trovato, atteso):
    """Fails unless two sheets have the same words and lines in the same places, to 2 mm; times are any times."""
    fogli = Foglio(trovato), Foglio(atteso)
    for uno, altro in zip(*(foglio.misure[0] for foglio in fogli)):
        prova.assertAlmostEqual(uno, altro, delta=1)
    prova.assertEqual([len(foglio.misure) for foglio in fogli], [1, 1])
    accoppia(prova, *(ricuci(foglio.parole) for foglio in fogli))
    cornice = [[("linea", posto) for posto in linee(percorso)] for percorso in (trovato, atteso)]
    prova.assertEqual(len(cornice[1]), 4, cornice)
    accoppia(prova, *cornice)


def accoppia(prova, trovati, attesi):
    """Each text in its place, and none is left over."""
    restano = [(uguale(testo), posto) for testo, posto in trovati]
    for testo, posto in attesi:
        trovato = next((r for r in restano if r[0] == uguale(testo) and vicini(r[1], posto)), None)
        prova.assertIsNotNone(trovato, f"{testo!r} non sta a {posto}: {restano}")
        restano.remove(trovato)
    prova.assertEqual(restano, [])


def uguale(testo):
    """A word as both write it: a hyphen is a soft one where its glyph is the same, a time is any time."""
    return ORA.sub("ora", testo.replace("\xad", "-"))


def vicini(uno, altro):
    return all(abs(a - b) <= SCARTO for a, b in zip(uno, altro))
