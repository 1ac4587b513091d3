"""Drives an installed station the way an operator does: a folder, a screen, a program, an instrument.

It knows what can be seen, clicked, typed and read in files; it must know nothing of the program's inside.
"""

import ctypes
import os
import shutil
import signal
import subprocess
import tempfile
import time
from pathlib import Path

from accessibilita import ABILITATO, ATTIVO, SPUNTATO, VISIBILE, Bus, NonRisponde

PAUSA = 0.05  # seconds between two looks at a condition
ATTIMO = 1  # longer than a list takes to be built anew on a busy machine, shorter than what must not happen stays
ATTESA = 30  # seconds: far more than anything takes, so that a slow machine fails no test
RIPROVA = 3  # seconds until an operator clicks again

# Runs a command without the powers of root: it is refused what anybody is refused, and keeps its place on the buses
# of the screen.
SENZA_POTERI = ["setpriv", "--bounding-set=-all", "--inh-caps=-all"] if os.geteuid() == 0 else []

# An ordinary user, of the group of the machine's people and of that of its serial ports.
UTENTE, GRUPPO, GRUPPO_PORTE = 65534, 100, 20

# Runs a command as that user; only root can. Who becomes another is forgotten by whoever started him, and says
# himself that he does not outlive it.
COME_UTENTE = ["setpriv", f"--reuid={UTENTE}", f"--regid={GRUPPO}", f"--groups={GRUPPO_PORTE}", "--pdeathsig=TERM"]

PR_SET_PDEATHSIG = 1
_libc = ctypes.CDLL(None)


class AttesaScaduta(AssertionError):
    """What was waited for did not come in time."""


def attendi(condizione, secondi=ATTESA, cosa="la condizione"):
    """Looks again and again until the condition holds; returns its value.

    @throws AttesaScaduta when it does not hold in time.
    """
    termine = time.monotonic() + secondi
    while not (valore := condizione()):
        if time.monotonic() > termine:
            raise AttesaScaduta(f"dopo {secondi} s: {cosa}")
        time.sleep(PAUSA)
    return valore


def resta(condizione, secondi, cosa="la condizione"):
    """Looks on for the whole time: the condition must not go away. For what must not happen and would stay: a message,
    a form closed. A look that falls into a list being built anew sees nothing, so that one look alone says nothing."""
    termine = time.monotonic() + secondi
    while time.monotonic() < termine:
        try:
            attendi(condizione, ATTIMO, cosa)
        except AttesaScaduta as errore:
            raise AssertionError(f"non resta per {secondi} s: {cosa}") from errore
        time.sleep(PAUSA)


def _muori_col_padre():
    # A test run that is cut short leaves no process behind.
    _libc.prctl(PR_SET_PDEATHSIG, signal.SIGTERM)


def avvia_processo(comando, **opzioni):
    """Starts a process that does not outlive this one."""
    opzioni.setdefault("stdin", subprocess.DEVNULL)
    return subprocess.Popen([str(parte) for parte in comando], preexec_fn=_muori_col_padre, **opzioni)


def ferma_processo(processo, secondi=10):
    """Ends a process that this one started, by its id, whatever state it is in."""
    if processo.poll() is None:
        processo.terminate()
        try:
            processo.wait(secondi)
        except subprocess.TimeoutExpired:
            processo.kill()
    processo.wait()


# --- files ----------------------------------------------------------------------------------------------------


class Profilo:
    """A profile file of the workshop's PC: Windows-1252, CRLF. Only the lines that are set change."""

    def __init__(self, percorso):
        self.percorso = Path(percorso)

    def imposta(self, sezione, chiave, valore):
        """Sets a key that the file has.

        @throws KeyError when it has none: a slip of the pen, not a case for a new line.
        """
        righe = self._righe()
        righe[self._posto(righe, sezione, chiave)] = f"{chiave}={valore}"
        self.percorso.write_bytes("\r\n".join(righe).encode("cp1252"))

    def valore(self, sezione, chiave):
        righe = self._righe()
        return righe[self._posto(righe, sezione, chiave)].partition("=")[2]

    def _righe(self):
        return self.percorso.read_bytes().decode("cp1252").split("\r\n")

    @staticmethod
    def _posto(righe, sezione, chiave):
        corrente = None
        for posto, riga in enumerate(righe):
            if riga.startswith("["):
                corrente = riga.strip("[]")
            elif corrente == sezione and riga.partition("=")[0] == chiave:
                return posto
        raise KeyError(f"[{sezione}] {chiave}")


class Stazione:
    """A station folder: a copy of an installation, with exchange folders inside."""

    def __init__(self, cartella, installazione=None):
        """@param installazione what to copy from; None when the folder is an installation already."""
        self.cartella = Path(cartella)
        if installazione is not None:
            shutil.copytree(installazione, self.cartella)
        self.ini = Profilo(self.cartella / "lumira.ini")
        for cartella in ("DIR_FAR", "ESITO"):
            self.percorso("scambio", cartella).mkdir(parents=True, exist_ok=True)
        # The program adds DIR_FAR\ or ESITO\ to these, without a separator of its own.
        for chiave in ("DirDati", "DirRisultati", "ReteDati", "ReteRisultati"):
            self.imposta("MCTC", chiave, f"{self.nome_cartella(self.percorso('scambio'))}\\")

    @staticmethod
    def nome_cartella(percorso):
        """The name that a folder has in the configuration."""
        return percorso

    def percorso(self, *nomi):
        return self.cartella.joinpath(*nomi)

    def imposta(self, sezione, chiave, valore):
        self.ini.imposta(sezione, chiave, valore)

    @property
    def scambio(self):
        """The exchange folder that the configuration names."""
        locale = self.ini.valore("MCTC", "Modalita") == "1"
        return self.percorso("scambio", "DIR_FAR" if locale else "ESITO")

    def accettazione(self, nome, **valori):
        """Drops an acceptance file as the network software does: the template with other values.

        @param valori Sezione__Chiave="value".
        """
        # Under its final name only when it is whole: a half-written one would be checked as it stands.
        nascente = Profilo(self.percorso(f"{nome}.nascente"))
        shutil.copyfile(self.percorso("dati", "ModelloAcc.acc"), nascente.percorso)
        for chiave, valore in valori.items():
            nascente.imposta(*chiave.split("__"), valore)
        nascente.percorso.rename(self.scambio / f"{nome}.acc")

    def contenuto(self):
        """Names in the exchange folder, sorted."""
        return sorted(voce.name for voce in self.scambio.iterdir())

    def risultato(self, nome):
        return (self.scambio / f"{nome}.far").read_bytes()


# --- the instrument -------------------------------------------------------------------------------------------


class Strumento:
    """qx5sim on a pseudo terminal, linked as a port of a station. Whoever reads its log reads it in Italian."""

    def __init__(self, qx5sim, stazione, scenario, *opzioni, porta="COM1", nome="qx5sim"):
        """
        @param scenario text of a scenario, or the path of a scenario file; None for none.
        @param nome of the files that hold its log and what it writes.
        """
        if scenario is not None and not isinstance(scenario, Path):
            testo, scenario = scenario, stazione.percorso("scenario.ini")
            scenario.write_text(testo, encoding="cp1252")
        self._registro = stazione.percorso(f"{nome}.log")
        self._uscita = stazione.percorso(f"{nome}.out")
        self.porta = stazione.percorso("porte", porta)
        argomenti = ["--lingua", "IT", "--collega", self.porta, "--registro", self._registro, *opzioni]
        with open(self._uscita, "wb") as uscita:
            self.processo = avvia_processo(
                [qx5sim, *argomenti, *([scenario] if scenario is not None else [])],
                stdout=uscita,
                stderr=subprocess.STDOUT,
            )
        attendi(self._pronto, cosa="qx5sim pronto")

    def _pronto(self):
        if self.processo.poll() is not None:
            raise AssertionError(f"qx5sim: {self._uscita.read_text()}")
        return "pronto:" in self._uscita.read_text()

    def registro(self):
        return self._registro.read_text(encoding="utf-8")

    def spegni(self):
        ferma_processo(self.processo)


# --- the screen -----------------------------------------------------------------------------------------------


class SchermoVirtuale:
    """A display and a session bus of their own."""

    def __init__(self, larghezza=1024, altezza=768):
        self.cartella = Path(tempfile.mkdtemp(prefix="schermo-"))
        self._processi = []
        self.ambiente = {
            "PATH": os.environ.get("PATH", "/usr/bin:/bin"),
            "HOME": str(self.cartella),
            "XDG_RUNTIME_DIR": str(self.cartella),
            "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1",
            "LC_ALL": "C.UTF-8",
        }
        for nome in ("TZ", "TMPDIR", "GCOV_PREFIX"):  # the last: where the counters of a counted program go
            if nome in os.environ:
                self.ambiente[nome] = os.environ[nome]
        self._avvia_video(larghezza, altezza)
        self._avvia_bus()
        self.accessibilita = Bus(self.ambiente["DBUS_SESSION_BUS_ADDRESS"])

    def _avvia_video(self, larghezza, altezza):
        lettura, scrittura = os.pipe()
        # The server finds a free number by itself. Without -noreset it would start anew whenever its last
        # client leaves, and each xdotool is one.
        self._avvia(
            ["Xvfb", "-displayfd", scrittura, "-screen", "0", f"{larghezza}x{altezza}x24"]
            + ["-nolisten", "tcp", "-noreset", "-fbdir", self.cartella],  # its pixels lie there (spettatore.py)
            pass_fds=[scrittura],
        )
        os.close(scrittura)
        with os.fdopen(lettura) as tubo:
            numero = tubo.readline().strip()
        if not numero:
            raise RuntimeError(f"Xvfb non parte: {self.diario()}")
        self.ambiente["DISPLAY"] = f":{numero}"

    def _avvia_bus(self):
        bus = self._avvia(["dbus-daemon", "--session", "--nofork", "--print-address=1"], stdout=subprocess.PIPE)
        indirizzo = bus.stdout.readline().decode().strip()
        bus.stdout.close()
        if not indirizzo:
            raise RuntimeError(f"dbus-daemon non parte: {self.diario()}")
        self.ambiente["DBUS_SESSION_BUS_ADDRESS"] = indirizzo

    def _avvia(self, comando, stdout=None, **opzioni):
        with open(self.cartella / "diario", "ab") as diario:
            processo = avvia_processo(
                comando, env=self.ambiente, stdout=stdout or diario, stderr=diario, **opzioni
            )
        self._processi.append(processo)
        return processo

    def diario(self):
        """What display and bus had to say."""
        return (self.cartella / "diario").read_text(errors="replace")

    def esegui(self, *comando):
        subprocess.run([str(parte) for parte in comando], env=self.ambiente, check=True, timeout=60)

    def clicca(self, x, y):
        self.esegui("xdotool", "mousemove", x, y, "click", "1")

    def tasto(self, *tasti):
        """Presses keys by their names: Return, Escape, ctrl+a."""
        self.esegui("xdotool", "key", *tasti)

    def scrivi(self, testo):
        self.esegui("xdotool", "type", "--delay", "20", testo)

    def schermata(self, percorso):
        """Takes a picture of the whole screen.

        @returns the path of the PNG.
        """
        percorso = Path(percorso)
        percorso.parent.mkdir(parents=True, exist_ok=True)
        self.esegui("import", "-window", "root", percorso)
        return percorso

    def chiudi(self):
        # The bus first: what lives on it ends with it, in good order.
        for processo in reversed(self._processi):
            ferma_processo(processo)
        shutil.rmtree(self.cartella, ignore_errors=True)


# --- the program ----------------------------------------------------------------------------------------------


class Programma:
    """A program with windows, by default that of the station, running on a virtual display."""

    SCHERMATE = os.environ.get("LUMIRA_SCHERMATE")  # where a wait that failed leaves its picture

    def __init__(self, stazione, schermo, *davanti, comando=None, **ambiente):
        """
        @param davanti command that runs the program, if it is not run by itself.
        @param comando another program and its arguments.
        """
        self.schermo = schermo
        comando = [stazione.percorso("lumira")] if comando is None else comando
        self._diario = stazione.percorso(f"{Path(comando[0]).name}.out")
        self._applicazione = None
        with open(self._diario, "wb") as diario:
            self.processo = avvia_processo(
                [*davanti, *comando],
                cwd=stazione.cartella,
                env=schermo.ambiente | ambiente,
                stdout=diario,
                stderr=subprocess.STDOUT,
            )

    # What is seen.

    def vivo(self):
        return self.processo.poll() is None

    def diario(self):
        """What the program wrote on its standard output and error."""
        return self._diario.read_text(errors="replace")

    def finestre(self):
        """The windows that show, in the order of their making."""
        applicazione = self._trova_applicazione()
        return [f for f in applicazione.figli() if f.ha(VISIBILE)] if applicazione else []

    def finestra(self):
        """The window that has the keyboard, or None."""
        return next((f for f in self.finestre() if f.ha(ATTIVO)), None)

    def titolo(self):
        return self.guarda(lambda: (finestra := self.finestra()) and finestra.nome)

    def elementi(self, ruolo):
        """What shows of one role in the window that has the keyboard."""
        return [e for e in self._tutti(ruolo) if e.ha(VISIBILE)]

    def nomi(self, ruolo):
        """Names of what shows of one role in the window that has the keyboard."""
        return self.guarda(lambda: [e.nome for e in self.elementi(ruolo)]) or []

    def testi(self):
        """The texts of the labels in the window that has the keyboard."""
        return self.nomi("label")

    def righe(self):
        """The lines of the lists in the window that has the keyboard, also those scrolled out of sight."""
        return self.guarda(lambda: [e.nome for e in self._tutti("list item")]) or []

    def valore(self, nome):
        """What stands in a text box, or None when there is no such box."""
        return self.guarda(lambda: (casella := self._elemento("text", nome)) and casella.testo)

    def spuntata(self, nome):
        """True when a check box is ticked, None when there is no such box."""
        return self.guarda(lambda: (casella := self._elemento("check box", nome)) and casella.ha(SPUNTATO))

    def abilitato(self, nome):
        """True when the window that has the keyboard shows this button and it can be pressed."""
        return bool(self.guarda(lambda: self.pronto("push button", nome)))

    def in_qualche_finestra(self, ruolo, nome):
        """True when any window has it, also one that stands behind."""

        def presente():
            return any(e.ruolo == ruolo and e.nome == nome for f in self.finestre() for e in f.discendenti())

        return bool(self.guarda(presente))

    def mostra(self, testo):
        """True when the title, a label or a list of the window that has the keyboard holds this text: a long message
        is a list, and bears all of it as its name."""
        return any(testo in t for t in [self.titolo() or "", *self.testi(), *self.nomi("list")])

    def in_collegamento(self):
        """True when the link form has the keyboard: it alone has the traffic of the line."""
        return {"TX", "RX"} <= set(self.testi())

    # What is waited for.

    def attendi(self, condizione, secondi=ATTESA, cosa="la condizione"):
        """Waits as attendi() does; a failure tells what the screen showed, and ends at once with the program."""

        def guarda():
            valore = self.guarda(condizione)
            if not valore and not self.vivo():
                raise AttesaScaduta(f"{cosa}: il programma è finito ({self.processo.returncode})\n{self.diario()}")
            return valore

        try:
            return attendi(guarda, secondi, cosa)
        except AttesaScaduta as errore:
            raise AttesaScaduta(f"{errore}\n{self.descrizione()}") from None

    def attendi_pulsante(self, nome, secondi=ATTESA):
        return self.attendi(lambda: self.pronto("push button", nome), secondi, f"pulsante {nome}")

    def attendi_testo(self, testo, secondi=ATTESA):
        self.attendi(lambda: self.mostra(testo), secondi, f"testo {testo}")

    def attendi_fine(self, secondi=ATTESA):
        """Waits for the program to end.

        @returns its exit status.
        """
        attendi(lambda: not self.vivo(), secondi, "fine del programma")
        return self.processo.returncode

    # What is done.

    def premi(self, nome):
        """Clicks a button of the window that has the keyboard, as soon as it can be pressed."""
        self.clicca_su(self.attendi_pulsante(nome))

    def premi_verso(self, nome, prossimo):
        """Clicks a button that leads to a window with another button, as often as it takes. The worklist takes
        its buttons away while it looks at a file: a click in that moment is lost, and an operator clicks again."""
        self.premi(nome)
        ripremi = time.monotonic() + RIPROVA

        def arrivato():
            nonlocal ripremi
            if time.monotonic() > ripremi and self.abilitato(nome):
                self.premi(nome)
                ripremi = time.monotonic() + RIPROVA
            return self.abilitato(prossimo)

        self.attendi(arrivato, cosa=f"pulsante {prossimo} dopo {nome}")

    def clicca(self, ruolo, nome):
        """Clicks whatever shows, also what is disabled."""
        self.clicca_su(self.attendi(lambda: self._elemento(ruolo, nome), cosa=f"{ruolo} {nome}"))

    def clicca_su(self, elemento):
        """Clicks the middle of what elementi() found."""
        self.schermo.clicca(*self.centro(elemento))

    @staticmethod
    def centro(elemento):
        x, y, larghezza, altezza = elemento.rettangolo
        return x + larghezza // 2, y + altezza // 2

    def scegli_riga(self, inizio):
        """Clicks the line of a list that begins so."""

        def riga():
            return next((e for e in self.elementi("list item") if e.nome.startswith(inizio)), None)

        self.clicca_su(self.attendi(riga, cosa=f"riga {inizio}"))

    def compila(self, nome, testo):
        """Clicks a text box and types over what stands in it."""
        self.clicca_su(self.attendi(lambda: self.pronto("text", nome), cosa=f"casella {nome}"))
        self.tasto("ctrl+a")
        self.schermo.scrivi(testo)
        self.attendi(lambda: self.valore(nome) == testo, cosa=f"{nome} = {testo}")

    def tasto(self, *tasti):
        self.schermo.tasto(*tasti)

    def schermata(self, percorso):
        return self.schermo.schermata(percorso)

    def uccidi(self):
        """A power cut, as far as the program is concerned."""
        self.processo.kill()
        self.processo.wait()

    def chiudi(self):
        ferma_processo(self.processo)

    # The accessibility bus.

    def descrizione(self):
        """All that shows, for the report of a failure."""
        righe = [f"lumira: {'viva' if self.vivo() else self.processo.returncode} {self.diario()}".rstrip()]
        for finestra in self.guarda(self.finestre) or []:
            righe += self.guarda(lambda: self._descrivi(finestra)) or ["  una finestra se ne va"]
        if self.SCHERMATE:
            percorso = Path(self.SCHERMATE) / f"{os.getpid()}-{time.monotonic_ns()}.png"
            righe.append(f"  schermata: {self.schermata(percorso)}")
        return "\n".join(righe)

    def guarda(self, procedura):
        """A look at what may go away while it is looked at: what has gone is not there."""
        try:
            return procedura()
        except NonRisponde:
            return None

    def _trova_applicazione(self):
        if self._applicazione is None:
            bus = self.schermo.accessibilita
            for applicazione in bus.applicazioni():
                if bus.processo(applicazione) == self.processo.pid:
                    self._applicazione = applicazione
        return self._applicazione

    @staticmethod
    def _descrivi(finestra):
        righe = [f"  finestra {finestra.nome!r}{' *' if finestra.ha(ATTIVO) else ''}"]
        for elemento in finestra.discendenti():
            if elemento.ha(VISIBILE):
                spento = "" if elemento.ha(ABILITATO) else " (spento)"
                righe.append(f"    {elemento.ruolo} {elemento.nome!r}{spento}")
        return righe

    def _tutti(self, ruolo):
        finestra = self.finestra()
        return [e for e in finestra.discendenti() if e.ruolo == ruolo] if finestra else []

    def _elemento(self, ruolo, nome):
        return next((e for e in self.elementi(ruolo) if e.nome == nome), None)

    def pronto(self, ruolo, nome):
        elemento = self._elemento(ruolo, nome)
        return elemento if elemento and elemento.ha(ABILITATO) else None
