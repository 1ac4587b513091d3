#!/usr/bin/env python3
"""Lays a zip out anew so that the same files give the same bytes: in the order of their names, not in that in which a
disk lists them, each with one date, that of SOURCE_DATE_EPOCH, or its own where that is not set.

    packaging/ordina_zip.py FILE.zip
"""
import os
import sys
import time
import zipfile
from pathlib import Path

PRIMA_DATA = (1980, 1, 1, 0, 0, 0)  # a zip knows none before


def data_unica():
    """@return the date of every entry; None for its own."""
    istante = os.environ.get("SOURCE_DATE_EPOCH")
    return max(time.gmtime(int(istante))[:6], PRIMA_DATA) if istante else None


def copia(voce, byte, uscita):
    nuova = zipfile.ZipInfo(voce.filename, data_unica() or voce.date_time)
    nuova.create_system, nuova.external_attr = voce.create_system, voce.external_attr
    uscita.writestr(nuova, byte, None if voce.is_dir() else zipfile.ZIP_DEFLATED, 9)


def main(percorso):
    nuovo = percorso.with_suffix(".nuovo")
    with zipfile.ZipFile(percorso) as ingresso, zipfile.ZipFile(nuovo, "w") as uscita:
        for voce in sorted(ingresso.infolist(), key=lambda v: v.filename):
            copia(voce, ingresso.read(voce), uscita)
    nuovo.replace(percorso)


if __name__ == "__main__":
    if len(sys.argv) != 2:
        raise SystemExit(__doc__)
    main(Path(sys.argv[1]))
