#!/usr/bin/env python3
"""clang-tidy, with the configuration of .clang-tidy, on sources of the house.

    attrezzi/tidy.py FILE ...      these; for a header a source that reads it
    attrezzi/tidy.py --tutti       every source that is built

It reads what the compilers are given: build/dev has to be built, and for the bodies of Windows build/windows; without
that they are passed over. A source that was clean is asked again only when it changes, or a header of ours that it
reads, or the way it is judged: each takes seconds.
"""
import concurrent.futures
import hashlib
import json
import os
import re
import shlex
import subprocess
import sys
from pathlib import Path

RADICE = Path(__file__).resolve().parents[1]
PULITI = RADICE / "build/tidy"  # an empty file for each clean source, named after all that it depends on
INCLUSIONE = re.compile(rb'^[ \t]*#[ \t]*include[ \t]*"([^"]+)"', re.M)


def file_inclusi(percorso, noti):
    """All files of the house that a file reads, itself among them. @param noti what has been found out already."""
    if percorso not in noti:
        inclusi = noti[percorso] = {percorso}
        for nome in INCLUSIONE.findall(percorso.read_bytes()):
            for cartella in (RADICE, percorso.parent):
                vicino = (cartella / os.fsdecode(nome)).resolve()
                if vicino.is_file() and vicino.is_relative_to(RADICE):
                    inclusi |= file_inclusi(vicino, noti)
                    break
    return noti[percorso]


def argomenti_sistema(comando):
    """Where the cross compiler has its library: clang finds the headers of C by itself, those of C++ not."""
    if "mingw" not in comando[0]:
        return []
    cartella = subprocess.run([comando[0], "-print-file-name=include/c++"], capture_output=True, text=True,
                              check=True).stdout.strip()
    return [f"--extra-arg=-isystem{cartella}", f"--extra-arg=-isystem{cartella}/x86_64-w64-mingw32"]


def leggi_comandi():
    """{source: (build folder, command)}; the developer build comes first, the Windows one adds its own bodies."""
    comandi = {}
    for cartella in (RADICE / "build/dev", RADICE / "build/windows"):
        elenco = cartella / "compile_commands.json"
        for voce in json.loads(elenco.read_text(encoding="utf-8")) if elenco.exists() else []:
            sorgente = Path(voce["file"])
            if not sorgente.is_relative_to(RADICE / "build"):
                comandi.setdefault(sorgente, (cartella, shlex.split(voce["command"])))
    return comandi


def scegli(file, comandi, noti):
    """@return the sources to look at for these files."""
    scelti = set()
    for percorso in (Path(uno).resolve() for uno in file):
        lettori = [s for s in comandi if percorso in file_inclusi(s, noti)]
        corpo = [s for s in lettori if s == percorso or s.stem == percorso.stem]
        scelti.update(corpo or lettori[:1])
    return scelti


def impronta(sorgente, comando, noti):
    """What the judgement of a source depends on."""
    giudizio = hashlib.sha256(shlex.join(comando).encode())
    configurazioni = [c / ".clang-tidy" for c in sorgente.parents if (c / ".clang-tidy").is_file()]
    for percorso in sorted(file_inclusi(sorgente, noti)) + configurazioni:
        giudizio.update(os.fsencode(percorso) + b"\0" + percorso.read_bytes())
    return giudizio.hexdigest()


def guarda(sorgente, cartella, comando, noti):
    """@return what clang-tidy complains of, empty when the source is clean."""
    pulito = PULITI / impronta(sorgente, comando, noti)
    if pulito.exists():
        return ""
    fatto = subprocess.run(["clang-tidy", "--quiet", "-p", cartella, *argomenti_sistema(comando), sorgente],
                           cwd=RADICE, capture_output=True, text=True, errors="replace")
    if fatto.returncode == 0:
        pulito.touch()
        return ""
    return fatto.stdout or fatto.stderr


def main(argomenti):
    if not argomenti:
        raise SystemExit(__doc__)
    comandi, noti = leggi_comandi(), {}
    scelti = sorted(comandi if argomenti == ["--tutti"] else scegli(argomenti, comandi, noti))
    PULITI.mkdir(parents=True, exist_ok=True)
    for sorgente in scelti:
        file_inclusi(sorgente, noti)
    guasti = 0
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as mani:
        for lamento in filter(None, mani.map(lambda s: guarda(s, *comandi[s], noti), scelti)):
            print(lamento, flush=True)
            guasti += 1
    print(f"{len(scelti)} sources, {guasti} with complaints")
    return 1 if guasti else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
