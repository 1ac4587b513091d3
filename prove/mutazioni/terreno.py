"""The ground that mutants stand on: a copy of the tree, built for it alone, and which test executes which line.

The start of the program is executed by no unit test: one end-to-end test, on an installation of the copy, is asked too.

One build serves both: -O0 without symbols links in a tenth of a second, and its counters (gcov) tell the lines. The
sources of the copy are never touched after that: a mutant is compiled beside it.
"""

import concurrent.futures
import hashlib
import json
import os
import resource
import shlex
import shutil
import signal
import subprocess
import sys
import tempfile
import time
from pathlib import Path

RADICE = Path(__file__).resolve().parents[2]
CAMPO = RADICE / "build/mutazioni"
ALBERO = CAMPO / "albero"
COSTRUZIONE = CAMPO / "costruzione"
CARTELLE = ("app", "core", "dialogs", "link", "mctc", "platform", "report", "setup", "toolkit")
MANI = 2  # mutants, or tests, at a time: tests count seconds

# What these execute is a program that they start, which a mutant is not linked into.
PROGRAMMI_ALTRUI = ("tst_lumira_", "tst_strumenti_posix", "tst_qx5sim", "tst_su_ogni_schermo")
# Minutes each, for looks at every form and for long days: left out, so that the score may be too low.
LUNGHE = ("tst_schermate", "tst_leggibile", "tst_senza_mouse", "tst_resistenza", "tst_operatore")
MEMORIA = 4 << 30  # bytes: a loop that lost its end must not take the machine
FILE_MASSIMO = 8 << 30  # bytes: some tests make a file with a hole
VOLTE = 5  # a test that takes so many times its own time hangs
SECONDI_MINIMI = 10


def aggiorna_albero():
    """Copies what git would keep of the working tree; a file of the same bytes keeps its time, so that nothing is
    built again for it."""
    elenco = subprocess.run(["git", "-c", "safe.directory=*", "ls-files", "-co", "--exclude-standard", "-z"],
                            cwd=RADICE, capture_output=True, check=True).stdout
    nomi = {os.fsdecode(n) for n in elenco.split(b"\0") if n and (RADICE / os.fsdecode(n)).is_file()}
    for vecchio in [p for p in ALBERO.rglob("*") if p.is_file() and str(p.relative_to(ALBERO)) not in nomi]:
        vecchio.unlink()
    for nome in nomi:
        origine, copia = RADICE / nome, ALBERO / nome
        if not copia.is_file() or copia.read_bytes() != origine.read_bytes():
            copia.parent.mkdir(parents=True, exist_ok=True)
            shutil.copy(origine, copia)


def costruisci():
    """Brings the copy and its build up to date."""
    ALBERO.mkdir(parents=True, exist_ok=True)
    aggiorna_albero()
    if not (COSTRUZIONE / "build.ninja").exists():
        subprocess.run(["cmake", "-G", "Ninja", "-S", ALBERO, "-B", COSTRUZIONE, "-DCMAKE_BUILD_TYPE=Debug",
                        "-DCMAKE_CXX_FLAGS_DEBUG=-O0 --coverage -fprofile-abs-path", "-DCMAKE_CXX_COMPILER_LAUNCHER=",
                        "-DCMAKE_EXE_LINKER_FLAGS=-fuse-ld=lld"],
                       check=True, stdout=subprocess.DEVNULL)
    subprocess.run(["ninja", "-C", COSTRUZIONE, f"-j{MANI}", "all"], check=True, stdout=subprocess.DEVNULL)


def comandi_sorgenti():
    """{source relative to the root: its compile command, a list}, of the folders that are mutated."""
    voci = json.loads((COSTRUZIONE / "compile_commands.json").read_text(encoding="utf-8"))
    comandi = {}
    for voce in voci:
        sorgente = Path(voce["file"])
        if sorgente.is_relative_to(ALBERO) and sorgente.relative_to(ALBERO).parts[0] in CARTELLE:
            comandi[str(sorgente.relative_to(ALBERO))] = shlex.split(voce["command"])
    return comandi


class Prova:
    """A test program of the build."""

    def __init__(self, nome, programma):
        self.nome = nome
        self.programma = Path(programma)
        self.impronta = hashlib.sha256(self.programma.read_bytes()).hexdigest()
        self.secondi = 0.0
        self.righe = {}  # {source: the lines that it executes}
        self.codice = {}  # {source: the lines that have code}
        self._collega = None

    def comando(self, programma, cartella):
        """@param programma the test itself, or one linked with a mutant. @param cartella of its own.
        @return how it is run, and what its environment has besides."""
        return [programma], {"QT_QPA_PLATFORM": "offscreen"}

    def collega(self, oggetto, uscita):
        """Links the program with one object before the libraries, which then have no need for their own of it; or in
        the place of the program's own.

        @param oggetto has the name of its source, but for the ending.
        @return whether it links."""
        if self._collega is None:
            bersaglio = str(self.programma.relative_to(COSTRUZIONE))
            passi = subprocess.run(["ninja", "-C", COSTRUZIONE, "-t", "commands", "-s", bersaglio], check=True,
                                   capture_output=True, text=True).stdout.splitlines()
            comando = passi[-1].removeprefix(": && ").removesuffix(" && :")
            self._collega = shlex.split(comando)
        comando = list(self._collega)
        dove = comando.index("-o")
        comando[dove + 1] = str(uscita)
        proprio = f"{oggetto.stem}.cpp.o"
        comando = [str(oggetto) if Path(parte).name == proprio else parte for parte in comando]
        if str(oggetto) not in comando:
            comando.insert(dove, str(oggetto))
        return subprocess.run(comando, cwd=COSTRUZIONE, capture_output=True).returncode == 0


class ProvaInstallata(Prova):
    """An end-to-end test of the installed program, by its file in tests/e2e."""

    INSTALLAZIONE = CAMPO / "installazione"

    def __init__(self, nome):
        super().__init__(nome, COSTRUZIONE / "app/lumira")

    def comando(self, programma, cartella):
        copia = Path(cartella) / "installazione"
        shutil.copytree(self.INSTALLAZIONE, copia)
        shutil.copy(programma, copia / "lumira")
        return ([sys.executable, "-B", ALBERO / "tests/e2e/esegui.py", "--qui", f"{self.nome}.py"],
                {"LUMIRA_INSTALLAZIONE": str(copia), "LUMIRA_COSTRUZIONE": str(COSTRUZIONE)})


def installa():
    """What the end-to-end test starts from."""
    shutil.rmtree(ProvaInstallata.INSTALLAZIONE, ignore_errors=True)
    subprocess.run(["cmake", "--install", COSTRUZIONE, "--prefix", ProvaInstallata.INSTALLAZIONE], check=True,
                   stdout=subprocess.DEVNULL)


def prove_costruite():
    """The tests of the build that mutants can be linked into, as CTest has them, and the one of the start."""
    elenco = json.loads(subprocess.run(["ctest", "--test-dir", COSTRUZIONE, "--show-only=json-v1"], check=True,
                                       capture_output=True, text=True).stdout)
    prove = [Prova(t["name"], t["command"][0]) for t in elenco["tests"]
             if Path(t["command"][0]).is_relative_to(COSTRUZIONE) and not t["name"].startswith((*PROGRAMMI_ALTRUI, *LUNGHE))]
    return [*prove, ProvaInstallata("prova_avvio")]


def _limiti():
    resource.setrlimit(resource.RLIMIT_AS, (MEMORIA, MEMORIA))
    resource.setrlimit(resource.RLIMIT_FSIZE, (FILE_MASSIMO, FILE_MASSIMO))
    resource.setrlimit(resource.RLIMIT_CORE, (0, 0))


def esegui(prova, programma, secondi, contatori):
    """Runs a test in a folder and a session of its own until its first failure.

    @param programma its own, or one linked with a mutant.
    @param secondi what it may take before it counts as hung.
    @param contatori folder for the counters of gcov.
    @return whether it passed, as a word that tells how it failed when not, or "".
    """
    with tempfile.TemporaryDirectory(prefix="mutante") as cartella:
        os.chmod(cartella, 0o755)  # some tests lay down the rights of root
        comando, altro = prova.comando(programma, cartella)
        ambiente = os.environ | altro | {"LC_ALL": "C.UTF-8", "TMPDIR": cartella, "HOME": cartella,
                                         "GCOV_PREFIX": str(contatori)}
        processo = subprocess.Popen(comando, cwd=cartella, env=ambiente, stdin=subprocess.DEVNULL,
                                    stdout=subprocess.PIPE, stderr=subprocess.STDOUT, start_new_session=True,
                                    preexec_fn=_limiti)
        guardia = concurrent.futures.ThreadPoolExecutor(1)
        esito = guardia.submit(_leggi_esito, processo)
        try:
            return esito.result(timeout=secondi)
        except concurrent.futures.TimeoutError:
            return "hangs"
        finally:
            try:
                os.killpg(processo.pid, signal.SIGKILL)
            except ProcessLookupError:
                pass
            processo.wait()
            guardia.shutdown()


def _leggi_esito(processo):
    for riga in processo.stdout:
        if riga.startswith((b"FAIL!", b"XPASS")):
            return "fails"
    stato = processo.wait()
    return "" if stato == 0 else "ends by a signal" if stato < 0 else "fails"


def _leggi_contatori(contatori):
    """What the counters in a folder tell of the sources that are mutated.

    @return {source: lines executed}, {source: lines that have code}.
    """
    specchio = contatori / COSTRUZIONE.relative_to("/")
    dati = [d for cartella in CARTELLE for d in (specchio / cartella).rglob("*.gcda")]
    for dato in dati:
        nota = dato.with_suffix(".gcno")
        nota.unlink(missing_ok=True)
        nota.symlink_to(COSTRUZIONE / nota.relative_to(specchio))
    righe, codice = {}, {}
    if not dati:
        return righe, codice
    uscita = subprocess.run(["gcov", "--json-format", "--stdout", *map(str, dati)], cwd=contatori,
                            capture_output=True, text=True, check=True).stdout
    for unita in filter(None, uscita.splitlines()):
        for file in json.loads(unita)["files"]:
            percorso = Path(file["file"])
            if percorso.suffix == ".cpp" and percorso.is_relative_to(ALBERO):
                nome = str(percorso.relative_to(ALBERO))
                viste = [r["line_number"] for r in file["lines"] if r["count"] > 0]
                if viste:
                    righe[nome] = viste
                    codice[nome] = [r["line_number"] for r in file["lines"]]
    return righe, codice


def osserva(prova):
    """Runs a test unchanged and keeps what it takes and executes, under the print of its program."""
    saputo = CAMPO / "visto" / f"{prova.nome}.json"
    if saputo.exists():
        detto = json.loads(saputo.read_text(encoding="utf-8"))
        if detto["impronta"] == prova.impronta:
            prova.secondi, prova.righe, prova.codice = detto["secondi"], detto["righe"], detto["codice"]
            return
    contatori = CAMPO / "contatori" / prova.nome
    shutil.rmtree(contatori, ignore_errors=True)
    contatori.mkdir(parents=True)
    inizio = time.monotonic()
    difetto = esegui(prova, prova.programma, 600, contatori)
    prova.secondi = time.monotonic() - inizio
    if difetto:
        raise SystemExit(f"{prova.nome} {difetto} without any mutant")
    prova.righe, prova.codice = _leggi_contatori(contatori)
    saputo.parent.mkdir(parents=True, exist_ok=True)
    detto = {nome: getattr(prova, nome) for nome in ("impronta", "secondi", "righe", "codice")}
    saputo.write_text(json.dumps(detto), encoding="utf-8")


def prepara():
    """@return the compile commands of the sources and the tests, each with what it takes and sees."""
    costruisci()
    installa()
    prove = prove_costruite()
    with concurrent.futures.ThreadPoolExecutor(MANI) as mani:
        list(mani.map(osserva, prove))
    print(f"{len(prove)} tests, {sum(p.secondi for p in prove):.0f} s", file=sys.stderr)
    return comandi_sorgenti(), [p for p in prove if p.righe]
