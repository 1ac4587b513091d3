#!/usr/bin/env python3
"""clang-tidy, with the configuration of .clang-tidy, on sources of the house.

    attrezzi/tidy.py FILE ...      these; for a header a source that reads it
    attrezzi/tidy.py --tutti       every source that is built: half an hour
    attrezzi/tidy.py --recenti M   as many of them as M minutes allow, those first that were changed last

It reads what the compilers are given: build/dev has to be built, and for the bodies of Windows build/windows; without
that they are passed over. A source that was clean is asked again only when it changes, or a header of ours that it
reads, or the way it is judged: each takes seconds.
"""
import json
import shlex
import subprocess
import sys

from comandi import RADICE, guarda_tutti, leggi_comandi, scegli

PULITI = RADICE / "build/tidy"


def argomenti_sistema(comando):
    """Where the cross compiler has its library: clang finds the headers of C by itself, those of C++ not."""
    if "mingw" not in comando[0]:
        return []
    cartella = subprocess.run([comando[0], "-print-file-name=include/c++"], capture_output=True, text=True,
                              check=True).stdout.strip()
    return [f"--extra-arg=-isystem{cartella}", f"--extra-arg=-isystem{cartella}/x86_64-w64-mingw32"]


def scrivi_elenchi(comandi):
    """What clang-tidy reads the commands from, beside the folders of what is clean: build/dev has those for GCC."""
    voci = {}
    for sorgente, (cartella, comando) in comandi.items():
        voce = {"directory": str(cartella), "command": shlex.join(comando), "file": str(sorgente)}
        voci.setdefault(cartella.name, []).append(voce)
    for nome, elenco in voci.items():
        (PULITI / nome).mkdir(parents=True, exist_ok=True)
        (PULITI / nome / "compile_commands.json").write_text(json.dumps(elenco), encoding="utf-8")


def guarda(sorgente, cartella, comando):
    """@return what clang-tidy complains of, empty when the source is clean."""
    fatto = subprocess.run(["clang-tidy", "--quiet", "-p", PULITI / cartella.name, *argomenti_sistema(comando),
                            sorgente], cwd=RADICE, capture_output=True, text=True, errors="replace")
    return "" if fatto.returncode == 0 else fatto.stdout or fatto.stderr


def dal_piu_recente(sorgenti):
    """By the last commit that touched a source, or its header."""
    detto = subprocess.run(["git", "-c", "safe.directory=*", "log", "--format=", "--name-only"], cwd=RADICE,
                           capture_output=True, text=True, check=True).stdout
    posti = {}
    for posto, nome in enumerate(detto.splitlines()):
        posti.setdefault((RADICE / nome).with_suffix(""), posto)
    return sorted(sorgenti, key=lambda sorgente: (posti.get(sorgente.with_suffix(""), -1), sorgente))


def main(argomenti):
    if not argomenti or argomenti == ["--recenti"]:
        raise SystemExit(__doc__)
    comandi, noti = leggi_comandi(), {}
    scrivi_elenchi(comandi)
    if argomenti[0] == "--recenti":
        guasti = guarda_tutti(dal_piu_recente(comandi), comandi, noti, PULITI, guarda, minuti=float(argomenti[1]))
    else:
        scelti = sorted(comandi if argomenti == ["--tutti"] else scegli(argomenti, comandi, noti))
        guasti = guarda_tutti(scelti, comandi, noti, PULITI, guarda)
    return 1 if guasti else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
