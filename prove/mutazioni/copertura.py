#!/usr/bin/python3
"""Line and branch coverage of the sources by the tests, folder by folder, from the counters of build/mutazioni.

    copertura.py                 the table
    copertura.py --righe FILE    the lines of a source that no test executes
"""

import collections
import json
import shutil
import subprocess
import sys

import terreno

SOMMA = terreno.CAMPO / "somma"


def somma_contatori():
    """Adds up the counters of all tests beside the notes of the compiler."""
    primo, *altri = sorted(d for d in (c / terreno.COSTRUZIONE.relative_to("/")
                                       for c in (terreno.CAMPO / "contatori").iterdir()) if d.is_dir())
    nuova = SOMMA.with_suffix(".nuova")
    shutil.rmtree(SOMMA, ignore_errors=True)
    shutil.copytree(primo, SOMMA, ignore=shutil.ignore_patterns("*.gcno"))
    for dati in altri:
        shutil.rmtree(nuova, ignore_errors=True)
        subprocess.run(["gcov-tool", "merge", SOMMA, dati, "-o", nuova], check=True, capture_output=True)
        shutil.rmtree(SOMMA)
        nuova.rename(SOMMA)
    for dato in SOMMA.rglob("*.gcda"):
        nota = dato.with_suffix(".gcno")
        shutil.copy(terreno.COSTRUZIONE / nota.relative_to(SOMMA), nota)


def leggi_copertura():
    """@return what gcovr tells of each source, in its own words."""
    somma_contatori()
    filtri = [opzione for c in terreno.CARTELLE for opzione in ("--filter", f"{terreno.ALBERO}/{c}/.*\\.cpp$")]
    uscita = subprocess.run(["gcovr", "--root", terreno.ALBERO, "--json", "--exclude-throw-branches", *filtri,
                             *(SOMMA / c for c in terreno.CARTELLE)],
                            cwd=terreno.COSTRUZIONE, check=True, capture_output=True, text=True).stdout
    return json.loads(uscita)["files"]


def copertura_cartelle():
    """{folder, or "all": (percent of lines, percent of branches)}."""
    conti = collections.defaultdict(lambda: [0, 0, 0, 0])
    for file in leggi_copertura():
        righe = [r for r in file["lines"] if not r.get("gcovr/noncode")]
        rami = [b for r in righe for b in r["branches"]]
        for nome in (file["file"].split("/")[0], "all"):
            aggiunta = (sum(r["count"] > 0 for r in righe), len(righe), sum(b["count"] > 0 for b in rami), len(rami))
            conti[nome] = [a + b for a, b in zip(conti[nome], aggiunta)]
    return {nome: (100 * a / b, 100 * c / d) for nome, (a, b, c, d) in conti.items()}


def main(argomenti):
    if argomenti[:1] == ["--righe"] and len(argomenti) == 2:
        for file in leggi_copertura():
            if file["file"] == argomenti[1]:
                print(*(r["line_number"] for r in file["lines"] if r["count"] == 0))
    elif not argomenti:
        for nome, (righe, rami) in sorted(copertura_cartelle().items(), key=lambda v: (v[0] == "all", v[0])):
            print(f"{nome:10} lines {righe:5.1f} %  branches {rami:5.1f} %")
    else:
        raise SystemExit(__doc__)


if __name__ == "__main__":
    main(sys.argv[1:])
