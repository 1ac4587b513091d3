"""Arial and Courier New for a Qt without a display.

Such a Qt has no type but the files of one folder, and knows no family that stands for another: asked for Arial
it takes the first family there, and every text is measured wrong. Liberation has the widths of both: its files are
lent under their names.
"""
import pathlib
import struct

LIBERATION = pathlib.Path("/usr/share/fonts/truetype/liberation")
FAMIGLIE = (("LiberationSans", "Arial"), ("LiberationMono", "Courier New"))
FAMIGLIA = 1  # the number of a family's name in the table of names
MACINTOSH = 1  # the platform whose names are no UTF-16


def inizio_nomi(dati):
    """@return where the table of names begins."""
    quante = struct.unpack_from(">H", dati, 4)[0]
    tabelle = (struct.unpack_from(">4sIII", dati, 12 + 16 * i) for i in range(quante))
    return next(inizio for nome, _, inizio, _ in tabelle if nome == b"name")


def rinomina(dati, famiglia):
    """Writes another family's name over the one of a TrueType file; it must not be longer."""
    inizio = inizio_nomi(dati)
    _, quanti, testi = struct.unpack_from(">3H", dati, inizio)
    for voce in range(inizio + 6, inizio + 6 + 12 * quanti, 12):
        piattaforma, _, _, quale, _, dove = struct.unpack_from(">6H", dati, voce)
        if quale == FAMIGLIA:
            nome = famiglia.encode("mac_roman" if piattaforma == MACINTOSH else "utf-16-be")
            struct.pack_into(">H", dati, voce + 8, len(nome))
            posto = inizio + testi + dove
            dati[posto:posto + len(nome)] = nome


def presta(cartella):
    """Fills a folder with the files of both families."""
    cartella.mkdir(parents=True, exist_ok=True)
    for prefisso, famiglia in FAMIGLIE:
        for file in LIBERATION.glob(f"{prefisso}-*.ttf"):
            dati = bytearray(file.read_bytes())
            rinomina(dati, famiglia)
            (cartella / file.name).write_bytes(dati)
