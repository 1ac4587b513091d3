"""Our own body of the profile calls against those of Windows, as far as Wine stands in for them: thousands of
random small files, the same requests to both, answers and files compared byte for byte.

Windows is the contract. The shapes in which Wine is known to be otherwise are not made here, each by name:

asked for: blanks other than spaces round a name, a key that begins with ";", an empty section, letters beyond
A to Z in another case, a quoted value that just fills the buffer;
in a file: a head without "]" or with two of them, a byte order mark;
in a file that is written to, because Wine writes it anew: blank lines, indentation, LF and CR line ends, text behind a
head, spaces round "=", comments behind the last key of a section, a last line without its end.
"""

import random
import subprocess
import tempfile
from pathlib import Path

from macchina import COSTRUZIONE, RADICE, Macchina, ProvaMacchina

NOSTRO = RADICE / "build" / "dev" / "tests" / "windows" / "profilo_confronto"
LORO = COSTRUZIONE / "tests" / "windows" / "profilo_confronto.exe"

SEME = 20261121
FILE = 3000  # of each kind

NOMI = ["A", "a", "Bb", "bB", "MCTC", "Mctc", "Unità", "x y", "1", "a.b", "A-"]
VALORI = ["", "1", "valore", "due parole", "a=b", "[x]", ";no", "perché", '"', "'", "\"\"", "''", '"in due"', "'uno'",
          '"a', "a'", "\"'a'\"", "\x80\xa4\xff", "a;b", "1,5", "0" * 300, "a\tb", "C:\\DIR\\"]  # fmt: skip
BIANCHI = ["", "", "", " ", "  ", "\t", " \t "]
SPAZI = ["", "", "", " ", "  "]
FINI = ["\r\n", "\r\n", "\r\n", "\n", "\r", "\r\r\n"]


def altra_grafia(caso, testo):
    """The same name, as somebody else would spell it."""
    return "".join(c.swapcase() if c.isascii() and caso.random() < 0.3 else c for c in testo)


def riga_da_leggere(caso):
    b = [caso.choice(BIANCHI) for _ in range(4)]
    nome, valore = caso.choice(NOMI), caso.choice(VALORI)
    return caso.choice(
        [
            f"{b[0]}[{b[1]}{nome}{b[2]}]{caso.choice(['', '', ' ', ' coda'])}",
            f"{b[0]}{nome}{b[1]}={b[2]}{valore}{b[3]}",
            f"{nome}={valore}",
            f"{b[0]}{nome}",
            f"={valore}",
            f";{nome}={valore}",
            "",
            "   ",
            "testo senza uguale",
        ]
    )


def file_da_leggere(caso):
    righe = [riga_da_leggere(caso) + caso.choice(FINI) for _ in range(caso.randrange(25))]
    testo = "".join(righe)
    return testo.rstrip("\r\n") if caso.random() < 0.3 else testo


def file_da_scrivere(caso):
    righe = []
    for sezione in caso.sample(NOMI, caso.randrange(5)):
        righe.append(f"[{sezione}]")
        if caso.random() < 0.3:
            righe.append("; nota")
        for _ in range(caso.randrange(1, 6)):
            nome = caso.choice(NOMI)
            righe.append(nome if caso.random() < 0.1 else f"{nome}={caso.choice(VALORI).strip()}")
    return "".join(f"{riga}\r\n" for riga in righe)


def esadecimale(testo):
    return testo.encode("latin-1").hex() or "-"


# A trace of every allocation and a long memory of what is freed make of a minute three.
SENZA_TRACCE = {"ASAN_OPTIONS": "detect_leaks=0:malloc_context_size=1:quarantine_size_mb=1"}


class Richieste:
    """Files and what is asked of them."""

    def __init__(self):
        self.caso = random.Random(SEME)
        self.file = {}
        self.righe = []

    def aggiungi(self, contenuto):
        nome = f"{len(self.file)}.ini"
        self.file[nome] = contenuto.encode("latin-1")
        return nome

    def leggi(self, nome):
        s, c = (nome_chiesto(self.caso) for _ in range(2))
        self.righe.append(f"L {nome} {esadecimale(s)} {esadecimale(c)}")

    def scrivi(self, nome):
        s, c = (altra_grafia(self.caso, self.caso.choice(NOMI)) for _ in range(2))
        valore = self.caso.choice(VALORI).strip()
        self.righe.append(f"S {nome} {esadecimale(s)} {esadecimale(c)} {esadecimale(valore)}")


def nome_chiesto(caso):
    return caso.choice(SPAZI) + altra_grafia(caso, caso.choice(NOMI)) + caso.choice(SPAZI)


def raccogli():
    richieste = Richieste()
    for _ in range(FILE):
        nome = richieste.aggiungi(file_da_leggere(richieste.caso))
        for _ in range(6):
            richieste.leggi(nome)
        nome = richieste.aggiungi(file_da_scrivere(richieste.caso))
        for _ in range(4):
            richieste.scrivi(nome)
            richieste.leggi(nome)
    return richieste


class Profilo(ProvaMacchina):
    maxDiff = None

    def test_migliaia_di_file_a_caso_come_windows(self):
        richieste = raccogli()
        nostre, nostri_file = self.rispondi(richieste, lambda cartella: [NOSTRO, cartella])
        loro, loro_file = self.rispondi(
            richieste, lambda cartella: [*self.macchina.comando(LORO), Macchina.percorso(cartella)]
        )
        diverse = [
            (riga, richieste.file[riga.split()[1]], nostra, sua)
            for riga, nostra, sua in zip(richieste.righe, nostre, loro, strict=True)
            if nostra != sua
        ]
        self.assertEqual(diverse[:5], [], f"{len(diverse)} risposte diverse")
        diversi = [
            (richieste.file[nome], nostri_file[nome], loro_file[nome])
            for nome in richieste.file
            if nostri_file[nome] != loro_file[nome]
        ]
        self.assertEqual(diversi[:5], [], f"{len(diversi)} file diversi")

    def rispondi(self, richieste, comando):
        """@returns the answers of one body, and the files as it left them."""
        # In memory: our own writes wait for the disk, twice each.
        with tempfile.TemporaryDirectory(prefix="profili-", dir="/dev/shm") as cartella:
            for nome, contenuto in richieste.file.items():
                (Path(cartella) / nome).write_bytes(contenuto)
            risposte = subprocess.run(
                [str(parte) for parte in comando(cartella)],
                input="".join(f"{riga}\n" for riga in richieste.righe).encode(),
                stdout=subprocess.PIPE,
                stderr=subprocess.DEVNULL,
                env=self.macchina.ambiente | SENZA_TRACCE,
                check=True,
                timeout=300,
            ).stdout
            dopo = {nome: (Path(cartella) / nome).read_bytes() for nome in richieste.file}
            return risposte.decode().split(), dopo
