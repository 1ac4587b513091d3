#!/usr/bin/python3
"""Measures what the operator feels, each beside a yardstick, and puts the ratios into docs/prestazioni.md and the three
that matter most into README.md.

    attrezzi/confronta.py INSTALLATION [--misure DIR] [--windows DIR] [--giri N] [--scrivi]

INSTALLATION is a station folder as `cmake --install build/release` lays it out; --misure names the folder of the
yardsticks, by default build/release/bench; --windows a delivered Windows station (its yardsticks in
build/windows/bench), which starts under Wine beside the rest. Yardstick and station run in turn on one screen, N
times (default 7): a figure by itself says more of the machine than of the program. Without --scrivi the table is
printed only. lumira-confronta, where it has been built, adds its own lines.
"""

import argparse
import contextlib
import json
import os
import shutil
import statistics
import subprocess
import tempfile
import time
from pathlib import Path

from operatore import Stazione, SchermoVirtuale, Strumento, avvia_processo, ferma_processo
from sezione import scrivi_sezione
from spettatore import Spettatore, aperti, attendi, memoria, processore
from stampante import Stampante

RADICE = Path(__file__).resolve().parents[1]
WINE = RADICE / "packaging/windows/wine.sh"
FIGURE = RADICE / "docs/prestazioni.md"
LEGGIMI = RADICE / "README.md"
# What an operator waits for many times a day, in his words.
SENTITE = {
    ("start to the painted menu", "plain menu, same picture"): "start, until the menu is there",
    ("end of the link to the verdict", ""): "from the end of the link to the verdict on the screen",
    ("key of the print button to the page in the queue", ""): "from the print button to the page in the queue",
}
INIZIO = "<!-- attrezzi/confronta.py: da qui -->\n"
FINE = "<!-- attrezzi/confronta.py: fin qui -->\n"

SCHERMO = (1920, 1080)
IMMAGINE = "dati/splash_kp_net.jpg"
CODA_LAVORO = "Send-Document successful-ok"  # the scheduler's account of a sheet that it has taken
FERMA = 20  # seconds that the worklist is watched
SCENARIO = "[VEICOLO1]\nRiposo=1\nProva=1\nAnabSx=0243O#\nAbbSx=0612OO\nAnabDx=0251OO\nAbbDx=0598#O\n"


def misura(nome, unita, aim, nostra, metro=(), metro_nome=""):
    """One line of the table, in the form in which lumira-confronta prints its own too. @param aim None for a ratio that
    only says what stands behind another line."""
    return {
        "nome": nome, "unita": unita, "aim": aim, "nostra": list(nostra), "metro": list(metro), "metro_nome": metro_nome
    }  # fmt: skip


# --- the starts -----------------------------------------------------------------------------------------------


class Prova:
    """What runs on the screen: a command, where, and what it took each time."""

    def __init__(self, *comando, **opzioni):
        self._comando = comando
        self._opzioni = {"stdout": subprocess.DEVNULL, "stderr": subprocess.DEVNULL} | opzioni
        self.secondi, self.processore, self.memoria = [], [], []

    def esegui(self, schermo, conta=True):
        """Starts it and waits for its picture. @param conta the figures of this run count."""
        occhi = Spettatore(schermo)
        occhi.attendi_quiete()
        # The picture and the first row of buttons; the lines of the state are looked up once the menu is there.
        punti = [*occhi.punti(0.05, 0.5), *occhi.punti(0.75, 0.78, righe=2)]
        prima = occhi.guarda(punti)
        processo = avvia_processo(self._comando, **self._opzioni)
        inizio = time.monotonic()
        try:
            quadro = occhi.attendi_quadro(punti, processo, prima)
            if conta:
                self.conta(processo, quadro.istante - inizio, quadro.processore)
        finally:
            ferma_processo(processo)

    def conta(self, processo, secondi, lavorati):
        """What is kept of a start, while its picture stands."""
        self.secondi.append(secondi)
        self.processore.append(lavorati)
        self.memoria.append(memoria(processo))


def misura_avvii(stazione, schermo, metri, giri):
    ambiente = {"env": schermo.ambiente}
    finestra = Prova(metri / "metro-finestra", **ambiente)
    menu = Prova(metri / "metro-menu", stazione.percorso(IMMAGINE), **ambiente)
    nostra = Prova(stazione.percorso("lumira"), **ambiente)
    for giro in range(giri + 1):  # the first warms the machine's caches
        for prova in (finestra, menu, nostra):
            prova.esegui(schermo, giro > 0)
    for prova, nome, aim in ((finestra, "bare Qt window", 1.5), (menu, "plain menu, same picture", 0.8)):
        yield misura("start to the painted menu", "s", aim, nostra.secondi, prova.secondi, nome)
        yield misura("processor of that start", "s", aim, nostra.processore, prova.processore, nome)
    yield misura("resident memory at the menu", "MB", 1.3, nostra.memoria, finestra.memoria, "bare Qt window")


def misura_avvii_wine(consegna, schermo, giri):
    with tempfile.TemporaryDirectory(prefix="macchina-", ignore_cleanup_errors=True) as cartella:
        ambiente = schermo.ambiente | {"WINEPREFIX": f"{cartella}/wine"}
        stazione = Stazione(f"{cartella}/lumira", consegna)
        # In the same folder, it has the same libraries.
        metro = shutil.copy(RADICE / "build/windows/bench/metro/metro-finestra.exe", stazione.cartella)
        finestra = Prova(WINE, metro, env=ambiente)
        nostra = Prova(WINE, stazione.percorso("lumira.exe"), env=ambiente)
        subprocess.run([WINE, "wineboot"], env=ambiente, check=True, capture_output=True)
        subprocess.run(["wineserver", "-p"], env=ambiente, check=True)  # no start has to start Wine itself
        try:
            for giro in range(giri + 1):
                for prova in (finestra, nostra):
                    prova.esegui(schermo, giro > 0)
        finally:
            subprocess.run(["wineserver", "-k"], env=ambiente, check=False)
    yield misura("start under Wine to the painted menu", "s", 1.5, nostra.secondi, finestra.secondi, "bare Qt window")


# --- a vehicle ------------------------------------------------------------------------------------------------


class Banco:
    """A station at work, with its instrument, led by the keyboard alone."""

    def __init__(self, stazione, schermo, **ambiente):
        self._schermo = schermo
        self._occhi = Spettatore(schermo)
        self._strumento = Strumento(stazione.percorso("simulatore/qx5sim"), stazione, SCENARIO)
        self._porta = os.path.realpath(self._strumento.porta)
        self.processo = avvia_processo([stazione.percorso("lumira")], env=schermo.ambiente | ambiente)
        self.attendi_quadro()

    def attendi_quadro(self):
        return self._occhi.attendi_quadro(self._occhi.punti(), self.processo)

    def tasto(self, tasto):
        """Presses a key that changes the screen, and waits for the change."""
        prima = self._occhi.guarda(list(self._occhi.punti()))
        self._schermo.tasto(tasto)
        self._occhi.attendi_quadro(self._occhi.punti(), self.processo, prima)

    def attendi_quiete(self):
        self._occhi.attendi_quiete()

    def porta_al_collegamento(self):
        """The first vehicle of the list, from the menu to the link form."""
        for tasto in ("Return", "Down", "Return"):
            self.tasto(tasto)
        self._schermo.tasto("Return")

    def porta_al_risultato(self, alla_fine=lambda: None):
        """A vehicle from the menu to its verdict.

        @param alla_fine what happens at the end of the link.
        @returns seconds from the end of the link, which closes its port with the form, to the verdict, and how many
            of them the program worked.
        """
        self.porta_al_collegamento()
        attendi(lambda: self._porta in aperti(self.processo), "the port is not opened")
        chiusa = attendi(lambda: self._porta not in aperti(self.processo), "the port is not closed")
        alla_fine()
        lavorato = processore(self.processo)
        # The verdict and its table; a button gets the mark of the keyboard when the window system says so.
        verdetto = self._occhi.attendi_quadro(self._occhi.punti(0.02, 0.4), self.processo)
        return verdetto.istante - chiusa, verdetto.processore - lavorato

    def chiudi(self):
        ferma_processo(self.processo)
        self._strumento.spegni()


class Metro:
    """A plain program that runs already and opens a second window over the whole screen when it is asked to."""

    def __init__(self, programma, modo, schermo):
        self._occhi = Spettatore(schermo)
        self.processo = avvia_processo([programma, modo], stdin=subprocess.PIPE, env=schermo.ambiente)
        self._occhi.attendi_quadro(self._occhi.punti(), self.processo)

    def _chiedi(self):
        self.processo.stdin.write(b"x")
        self.processo.stdin.flush()

    def apri(self):
        """Opens the window and closes it again. @returns seconds to its picture, and how many of them it worked."""
        inizio, lavorato = time.monotonic(), processore(self.processo)
        self._chiedi()
        quadro = self._occhi.attendi_quadro(self._occhi.punti(0.02, 0.4), self.processo)
        self._chiedi()
        self._occhi.attendi_quadro(self._occhi.punti(), self.processo)
        return quadro.istante - inizio, quadro.processore - lavorato

    def chiudi(self):
        ferma_processo(self.processo)


def misura_verdetti(stazione, metri, giri, accessibile):
    """The station and its yardsticks in turn, each on a screen of its own: all of them cover it."""
    with contextlib.ExitStack() as fine:
        schermi = [fine.enter_context(acceso(accessibile)) for _ in range(3)]
        banco = Banco(stazione, schermi[0])
        fine.callback(banco.chiudi)
        fogli = []
        for modo, schermo in zip(("nudo", "scritto"), schermi[1:]):
            fogli.append(Metro(metri / "metro-esito", modo, schermo))
            fine.callback(fogli[-1].chiudi)
        tempi = []
        for giro in range(giri + 1):
            di_tutti = [banco.porta_al_risultato(), *(foglio.apri() for foglio in fogli)]
            banco.tasto("Escape")
            if giro > 0:  # the first finds no letter drawn before
                tempi.append(di_tutti)
    nome = ", accessibility on" if accessibile else ""
    for i, che in enumerate(("end of the link to the verdict", "processor of that")):
        nostra, nuda, scritta = ([1000 * uno[i] for uno in di_uno] for di_uno in zip(*tempi))
        yield misura(f"{che}{nome}", "ms", 10, nostra)
        yield misura(f"{che}{nome}", "ms", None, nostra, nuda, "bare second window")
        yield misura(f"{che}{nome}", "ms", None, nostra, scritta, "plain second window, as many words")


def misura_stampa(stazione, schermo, giri):
    with tempfile.TemporaryDirectory(prefix="stampante-") as cartella, contextlib.ExitStack() as fine:
        stampante = Stampante(cartella)
        fine.callback(stampante.ferma)
        banco = Banco(stazione, schermo, **stampante.ambiente)
        fine.callback(banco.chiudi)
        accessi = stampante.lavoro / "accessi.log"

        def secondi_di(manda):
            """Hands a sheet over. @returns seconds until the scheduler has noted the whole of it."""
            prima = accessi.read_text().count(CODA_LAVORO)
            inizio = time.monotonic()
            manda()
            secondi = attendi(lambda: accessi.read_text().count(CODA_LAVORO) > prima, "the sheet does not come") - inizio
            time.sleep(1)  # its filters work on
            return secondi

        banco.porta_al_risultato()
        secondi_di(lambda: schermo.tasto("Return"))  # the sheet that the yardstick hands over too
        foglio = stampante.foglio(1)
        comando, ambiente = ["lp", "-d", stampante.CODA, foglio], os.environ | stampante.ambiente
        nostra, metro = [], []
        for _ in range(giri):
            nostra.append(1000 * secondi_di(lambda: schermo.tasto("Return")))
            metro.append(1000 * secondi_di(lambda: subprocess.run(comando, env=ambiente, check=True, capture_output=True)))
    nome = "key of the print button to the page in the queue"
    yield misura(nome, "ms", 150, nostra)
    yield misura(nome, "ms", None, nostra, metro, "lp, the same page ready")


def misura_lista(stazione, schermo):
    modello = stazione.percorso("dati/ModelloAcc.acc")
    for n in range(1000):
        shutil.copyfile(modello, stazione.scambio / f"{10000000 + n}.acc")
    banco = Banco(stazione, schermo)
    try:
        banco.tasto("Return")
        time.sleep(5)  # the plates are read
        inizio = processore(banco.processo)
        time.sleep(FERMA)
        parte = (processore(banco.processo) - inizio) / FERMA
    finally:
        banco.chiudi()
    yield misura("worklist of 1,000 files, open and idle", "% of a core", 0.5, [100 * parte])


# --- the table ------------------------------------------------------------------------------------------------


def misure_in_processo(programma, giri):
    """What lumira-confronta measures, as long as it is there."""
    if not programma.exists():
        return []
    ambiente = os.environ | {"QT_QPA_PLATFORM": "offscreen"}
    comando = [programma, "--json", "--giri", str(giri)]
    uscita = subprocess.run(comando, check=True, capture_output=True, env=ambiente)
    return json.loads(uscita.stdout)


@contextlib.contextmanager
def acceso(accessibile=False):
    """A screen, with the accessibility of a desktop on which nobody has asked for it, or with somebody who
    hears all of it."""
    schermo = SchermoVirtuale(*SCHERMO)
    if accessibile:
        schermo.accessibilita.ascolta()
    else:
        del schermo.ambiente["QT_LINUX_ACCESSIBILITY_ALWAYS_ON"]
    try:
        yield schermo
    finally:
        schermo.chiudi()


@contextlib.contextmanager
def stazione_nuova(installazione):
    with tempfile.TemporaryDirectory(prefix="stazione-") as cartella:
        stazione = Stazione(Path(cartella) / "lumira", installazione)
        stazione.imposta("MCTC", "Modalita", "0")  # the acceptance file outlives its test
        stazione.accettazione("12345678")
        yield stazione


def misura_tutto(scelte):
    with stazione_nuova(scelte.installazione) as stazione:
        with acceso() as schermo:
            yield from misura_avvii(stazione, schermo, scelte.misure / "metro", scelte.giri)
            if scelte.windows:
                yield from misura_avvii_wine(scelte.windows, schermo, scelte.giri)
            yield from misura_stampa(stazione, schermo, scelte.giri)
        for accessibile in (False, True):
            yield from misura_verdetti(stazione, scelte.misure / "metro", scelte.giri, accessibile)
        with acceso() as schermo:
            yield from misura_lista(stazione, schermo)
    yield from misure_in_processo(scelte.misure / "lumira-confronta", scelte.giri)


def cifre(valori):
    """Least, middle and greatest, to three figures."""
    return " / ".join(f"{v:.3g}" for v in (min(valori), statistics.median(valori), max(valori)))


def valore(m, quale):
    """@param quale of several values the one that stands for them. @returns the ratio, or the value itself."""
    return quale(m["nostra"]) / (quale(m["metro"]) if m["metro"] else 1)


def riga(m):
    metro = f"{cifre(m['metro'])} ({m['metro_nome']})" if m["metro"] else "none"
    medio, minimo = valore(m, statistics.median), valore(m, min)
    if m["aim"] is None:
        aim, esito = "none", ""
    else:
        aim, esito = f"{m['aim']:g}", "reached" if medio <= m["aim"] else "no"
    misurata = f"{m['nome']}, {m['unita']}"
    return f"| {misurata} | {cifre(m['nostra'])} | {metro} | {medio:.3g} ({minimo:.3g}) | {aim} | {esito} |"


def in_breve(m):
    """A line of README.md, empty for what is not SENTITE."""
    nome = SENTITE.get((m["nome"], m["metro_nome"]))
    if not nome:
        return ""
    accanto = f", {valore(m, statistics.median):.2g} of a plain Qt program's" if m["metro"] else ""
    return f"| {nome} | {statistics.median(m['nostra']):.3g} {m['unita']}{accanto} |\n"


def testa():
    """What the figures depend on, and the head of their table."""
    return (
        f"{time.strftime('%Y-%m-%d')}, {os.cpu_count()} processors, {os.getloadavg()[0]:.0f} programs at work on them "
        "besides. Of the least values the ratio stands in brackets.\n\n"
        "| what is felt | ours: least / middle / greatest | yardstick | ratio or value | aim | |\n|---|---|---|---|---|---|\n"
    )


def main():
    righe = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    righe.add_argument("installazione", type=Path)
    righe.add_argument("--misure", type=Path, default=RADICE / "build/release/bench")
    righe.add_argument("--windows", type=Path)
    righe.add_argument("--giri", type=int, default=7)
    righe.add_argument("--scrivi", action="store_true")
    scelte = righe.parse_args()
    testo, breve = testa(), "| what an operator waits for | |\n|---|---|\n"
    for m in misura_tutto(scelte):
        testo += riga(m) + "\n"
        breve += in_breve(m)
        print(riga(m), flush=True)
    if scelte.scrivi:
        scrivi_sezione(FIGURE, INIZIO, FINE, testo)
        scrivi_sezione(LEGGIMI, INIZIO, FINE, breve)


if __name__ == "__main__":
    main()
