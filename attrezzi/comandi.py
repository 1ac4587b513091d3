"""What the compilers are given for each source, for those who look at the sources one by one; and who remembers what
was found clean, because each look takes seconds."""

import concurrent.futures
import hashlib
import json
import math
import os
import re
import shlex
import time
from pathlib import Path

RADICE = Path(__file__).resolve().parents[1]
INCLUSIONE = re.compile(rb'^[ \t]*#[ \t]*include[ \t]*"([^"]+)"', re.M)
PRECOMPILATE = re.compile(r"/cmake_pch\.hxx(\.pch)?$")


def senza_precompilati(comando):
    """The command as it would be if every header were read where it is included: what a compiler has read before is of
    no use to another, and hides what a source forgets to include."""
    resto = []
    for opzione in comando:
        if PRECOMPILATE.search(opzione):
            # Clang has "-Xclang" before the option and before its file.
            while resto[-1] in ("-include", "-include-pch", "-Xclang"):
                resto.pop()
        elif opzione != "-Winvalid-pch":
            resto.append(opzione)
    return resto


def leggi_comandi():
    """{source: (build folder, command)}; the developer build comes first, the Windows one adds its own bodies."""
    comandi = {}
    for cartella in (RADICE / "build/dev", RADICE / "build/windows"):
        elenco = cartella / "compile_commands.json"
        for voce in json.loads(elenco.read_text(encoding="utf-8")) if elenco.exists() else []:
            sorgente = Path(voce["file"])
            # A build that was not configured since may still name what has gone.
            if sorgente.is_file() and not sorgente.is_relative_to(RADICE / "build"):
                comandi.setdefault(sorgente, (cartella, senza_precompilati(shlex.split(voce["command"]))))
    return comandi


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


def guarda_tutti(scelti, comandi, noti, puliti, guarda, minuti=math.inf):
    """Looks at sources side by side and prints what is complained of. A source that was clean is asked again only when
    it changes, or a header of ours that it reads, or the way it is judged.

    @param puliti folder with an empty file for each clean source, named after all that it depends on.
    @param guarda called with source, build folder and command, gives the complaints, empty when it is clean.
    @param minuti after which none is begun any more.
    @return how many sources have complaints.
    """
    puliti.mkdir(parents=True, exist_ok=True)
    for sorgente in scelti:
        file_inclusi(sorgente, noti)

    fine = time.monotonic() + 60 * minuti
    saltati = []

    def uno(sorgente):
        if time.monotonic() > fine:
            saltati.append(sorgente)
            return ""
        cartella, comando = comandi[sorgente]
        pulito = puliti / impronta(sorgente, comando, noti)
        lamento = "" if pulito.exists() else guarda(sorgente, cartella, comando)
        if not lamento:
            pulito.touch()
        return lamento

    guasti = 0
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as mani:
        for lamento in filter(None, mani.map(uno, scelti)):
            print(lamento, flush=True)
            guasti += 1
    print(f"{len(scelti) - len(saltati)} sources, {guasti} with complaints; {len(saltati)} not looked at")
    return guasti
