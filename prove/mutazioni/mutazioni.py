#!/usr/bin/python3
"""The mutation score: small changes in the sources, one at a time, that the tests have to see.

    mutazioni.py --campione 300 --seme 1             a random sample over all folders
    mutazioni.py --file core/limiti.cpp ...          all mutants of these sources
    mutazioni.py --campione 600 --seme 2 --scrivi    and the section of docs/affidabilita.md

A mutant is run against every test that executes its line, the one named after the source first, then the quickest,
until one fails, dies or takes five times as long. One that does not compile does not count. What is found out stays in
build/mutazioni, so that a run goes on where it was broken off, and asks again only what has changed. The survivors that
no test could tell from the original stand in senza_effetto.txt, with the reason.
"""

import argparse
import collections
import concurrent.futures
import hashlib
import json
import random
import shlex
import subprocess
import sys
import tempfile
import threading
import time
from pathlib import Path

import terreno
from mutanti import Mutante, mutanti_di

sys.path.append(str(terreno.RADICE / "attrezzi"))
from comandi import impronta, senza_precompilati  # noqa: E402
from copertura import copertura_cartelle  # noqa: E402
from sezione import scrivi_sezione  # noqa: E402

DOCUMENTO = terreno.RADICE / "docs/affidabilita.md"
SENZA_EFFETTO = Path(__file__).with_name("senza_effetto.txt")
CONTATORI = ("--coverage", "-fprofile-abs-path")


def opzioni(comando, senza):
    """A compile command without the compiler, the source, the object, and some options."""
    resto, giro = [], iter(comando[1:])
    for opzione in giro:
        if opzione in ("-o", "-c"):
            next(giro)
        elif opzione not in senza:
            resto.append(opzione)
    return resto


def leggi_mutanti(sorgente, comando):
    """All mutants of a source; clang reads it again only when it has changed, or what it includes, or the maker."""
    segno = impronta(terreno.RADICE / sorgente, [*comando, Path(__file__).with_name("mutanti.py").read_text()], {})
    saputo = terreno.CAMPO / "mutanti" / segno
    if not saputo.exists():
        argomenti = [*opzioni(senza_precompilati(comando), CONTATORI), f"-working-directory={terreno.COSTRUZIONE}"]
        fatti = mutanti_di(sorgente, terreno.ALBERO / sorgente, argomenti)
        saputo.parent.mkdir(parents=True, exist_ok=True)
        saputo.write_text(json.dumps([vars(m) for m in fatti]), encoding="utf-8")
    return [Mutante(**m) for m in json.loads(saputo.read_text(encoding="utf-8"))]


def leggi_senza_effetto():
    """{(source, function, before, after)} of the survivors that no test could see."""
    noti = set()
    for blocco in SENZA_EFFETTO.read_text(encoding="utf-8").split("\n\n"):
        righe = blocco.splitlines()
        if len(righe) >= 4 and righe[1].startswith("- ") and righe[2].startswith("+ "):
            sorgente, _, funzione = righe[0].partition(":")
            noti.add((sorgente, funzione.strip(), righe[1][2:], righe[2][2:]))
    return noti


class Giudizi:
    """What became of each mutant, kept on the disk; a judgement holds as long as the tests that made it."""

    def __init__(self):
        self.file = terreno.CAMPO / "esiti.json"
        self.noti = json.loads(self.file.read_text(encoding="utf-8")) if self.file.exists() else {}
        self.chiuso = threading.Lock()

    def cerca(self, segno, prove):
        detto = self.noti.get(segno)
        if detto is None:
            return None
        impronte = {p.nome: p.impronta for p in prove}
        if detto["esito"] == "survived":
            return detto if detto["prove"] == impronte else None
        return detto if all(impronte.get(nome) == era for nome, era in detto["prove"].items()) else None

    def tieni(self, segno, detto):
        with self.chiuso:
            self.noti[segno] = detto
            nuovo = self.file.with_suffix(".nuovo")
            nuovo.write_text(json.dumps(self.noti), encoding="utf-8")
            nuovo.replace(self.file)


def prove_che_vedono(mutante, testo, prove):
    """The tests that execute the mutant's lines, in the order in which they are asked. A line that has no code of its
    own, such as a table's, is seen by whoever executes anything of the source; of a source that is all tables, by
    whoever executes anything of its folder."""
    righe = set(range(mutante.riga, mutante.riga + testo.count(b"\n", mutante.inizio, mutante.fine) + 1))
    lettori = [p for p in prove if mutante.sorgente in p.righe]
    if righe & set().union(*(p.codice[mutante.sorgente] for p in lettori)):
        lettori = [p for p in lettori if righe & set(p.righe[mutante.sorgente])]
    if not lettori:
        cartella = mutante.sorgente.split("/")[0] + "/"
        lettori = [p for p in prove if any(s.startswith(cartella) for s in p.righe)]
    propria = "tst_" + Path(mutante.sorgente).stem.removesuffix("_posix")
    return sorted(lettori, key=lambda p: (not p.nome.startswith(propria), p.secondi))


def giudica(mutante, comando, prove, giudizi, massimo, termine):
    """@param massimo tests that one is asked; None: all that see it. @param termine when nobody is asked any more.
    @return what became of the mutant: esito (uncompiled, killed, survived), prove (those it rests on) and come; None
    when there was no time."""
    testo = (terreno.ALBERO / mutante.sorgente).read_bytes()
    mutato = mutante.testo(testo)
    segno = hashlib.sha256(shlex.join(comando).encode() + mutato).hexdigest()
    vedono = prove_che_vedono(mutante, testo, prove)[:massimo]
    detto = giudizi.cerca(segno, vedono)
    if detto is None and time.monotonic() < termine:
        detto = _prova_mutante(mutante, mutato, comando, vedono)
        giudizi.tieni(segno, detto)
    return detto


def _prova_mutante(mutante, mutato, comando, vedono):
    # What a test killed for its time has started may still write there.
    with tempfile.TemporaryDirectory(prefix="mutante", ignore_cleanup_errors=True) as cartella:
        sorgente = Path(cartella) / Path(mutante.sorgente).name
        sorgente.write_bytes(mutato)
        oggetto = sorgente.with_suffix(".o")
        compila = [comando[0], *opzioni(comando, ("-Werror",)), "-w", "-o", oggetto, "-c", sorgente]
        if subprocess.run(compila, cwd=terreno.COSTRUZIONE, capture_output=True).returncode != 0:
            return {"esito": "uncompiled", "prove": {}, "come": ""}
        for prova in vedono:
            programma = Path(cartella) / prova.nome
            if not prova.collega(oggetto, programma):
                continue  # the program's own main beside the test's: it does not execute it
            come = terreno.esegui(prova, programma, max(terreno.SECONDI_MINIMI, terreno.VOLTE * prova.secondi),
                                  Path(cartella) / "contatori")
            programma.unlink()
            if come:
                return {"esito": "killed", "prove": {prova.nome: prova.impronta}, "come": come}
    return {"esito": "survived", "prove": {p.nome: p.impronta for p in vedono}, "come": ""}


def giudica_tutti(mutanti, comandi, prove, scelti):
    """@return (mutant, what became of it), in the order in which it became known."""
    giudizi, fatti, termine = Giudizi(), [], time.monotonic() + 60 * scelti.minuti
    with concurrent.futures.ThreadPoolExecutor(scelti.mani) as mani:
        lavori = {mani.submit(giudica, m, comandi[m.sorgente], prove, giudizi, scelti.prove, termine): m for m in mutanti}
        for numero, lavoro in enumerate(concurrent.futures.as_completed(lavori), 1):
            mutante, detto = lavori[lavoro], lavoro.result()
            if detto is None:
                continue
            fatti.append((mutante, detto))
            if detto["esito"] == "survived":
                print(f"[{numero}/{len(lavori)}] {mutante.sorgente}:{mutante.riga}: {mutante.funzione} "
                      f"({len(detto['prove'])} tests)\n- {mutante.prima}\n+ {mutante.dopo}", flush=True)
    return fatti


def righe_tabella(fatti, senza_effetto, copertura):
    """The rows of the table, a folder each and all of them."""
    conti = collections.defaultdict(collections.Counter)
    for mutante, detto in fatti:
        esito = detto["esito"]
        if esito == "uncompiled":
            continue
        if esito == "survived" and mutante.chiave() in senza_effetto:
            esito = "without"
        for nome in (mutante.sorgente.split("/")[0], "all"):
            conti[nome].update([esito, "all"])
    for nome in sorted(conti, key=lambda n: (n == "all", n)):
        conto = conti[nome]
        contati = conto["all"] - conto["without"]
        punti = f"{100 * conto['killed'] / contati:.1f} %" if contati else "-"
        righe, rami = copertura[nome]
        yield (f"| {nome} | {conto['all']} | {conto['killed']} | {conto['survived']} | {conto['without']} | {punti} "
               f"| {righe:.1f} % | {rami:.1f} % |\n")


def main():
    argomenti = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    argomenti.add_argument("--campione", type=int)
    argomenti.add_argument("--seme", type=int, default=1)
    argomenti.add_argument("--file", nargs="+")
    argomenti.add_argument("--mani", type=int, default=terreno.MANI, help="mutants at a time")
    argomenti.add_argument("--prove", type=int, help="ask a mutant no more tests than these: quicker, and too strict")
    argomenti.add_argument("--minuti", type=float, default=float("inf"), help="what is not judged by then is left out")
    argomenti.add_argument("--scrivi", action="store_true")
    scelti = argomenti.parse_args()
    comandi, prove = terreno.prepara()
    mutanti = []
    with concurrent.futures.ProcessPoolExecutor(terreno.MANI) as mani:
        sorgenti = scelti.file or sorted(comandi)
        for fatti in mani.map(leggi_mutanti, sorgenti, [comandi[s] for s in sorgenti]):
            mutanti += fatti
    trovati = len(mutanti)
    if scelti.campione is not None and scelti.campione < trovati:
        mutanti = random.Random(scelti.seme).sample(mutanti, scelti.campione)
    print(f"{len(mutanti)} of {trovati} mutants", flush=True)
    fatti = giudica_tutti(mutanti, comandi, prove, scelti)
    tabella = "".join(righe_tabella(fatti, leggi_senza_effetto(), copertura_cartelle()))
    print(f"{len(fatti)} of {len(mutanti)} judged\n{tabella}")
    if scelti.scrivi:
        scartati = sum(detto["esito"] == "uncompiled" for _, detto in fatti)
        scrivi_sezione(DOCUMENTO, "<!-- mutazioni -->\n", "<!-- fine: mutazioni -->\n",
                       testo_sezione(sys.argv[1:], trovati, len(fatti), scartati) + tabella)


def testo_sezione(argomenti, trovati, giudicati, scartati):
    return f"""## Mutazioni

Written by `prove/mutazioni/mutazioni.py {' '.join(argomenti)}`. Small changes in the sources, one at a time: an operator, a
condition turned round, a constant, a statement that is gone, two arguments of a type in each other's place. {trovati} can
be made; of a random sample of {giudicati}, {scartati} do not compile and are not counted. A mutant is killed when a test that
executes its line fails, dies or takes five times as long; asked are the tests of `build/dev` but for those that start
another program and those that go through every form for minutes, and the end-to-end test of the program's start.
Without effect: a survivor that no test could tell from the original, named in `prove/mutazioni/senza_effetto.txt` with
the reason. Score: killed of those that have an effect. Lines and branches: what these tests execute of the source, by
gcovr, without the ways that only an exception takes.

| folder | mutants | killed | survived | without effect | score | lines | branches |
|---|---|---|---|---|---|---|---|
"""


if __name__ == "__main__":
    sys.exit(main())
