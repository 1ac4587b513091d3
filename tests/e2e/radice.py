"""A bare machine in a folder: what is essential to the system and what one package depends on, as this machine has it,
and nothing else. Nothing is fetched: the packages' own lists say what to take."""

import os
import re
import shutil
import stat
import subprocess
from pathlib import Path

from operatore import COME_UTENTE

# Lends folders, two by two, to the command behind them; nobody but the command sees that they are there.
PRESTA = 'while [ "$1" != -- ]; do mount --bind "$1" "$2"; shift 2; done; shift; exec "$@"'


def _esegui(*comando):
    return subprocess.run([str(parte) for parte in comando], capture_output=True, text=True, check=True).stdout


class Radice:
    """@throws KeyError when something is depended on that this machine does not have."""

    def __init__(self, cartella, pacchetto):
        self.cartella = Path(cartella)
        nomi = self._servono(_esegui("dpkg-deb", "--field", pacchetto, "Depends"))
        self.cartella.mkdir()
        for nome in ("bin", "sbin", "lib", "lib64"):
            self.percorso(nome).symlink_to(f"usr/{nome}")
        for nome in ("tmp", "proc", "dev", "var/lib/dpkg/info", "var/lib/dpkg/updates", "usr/lib64"):
            self.percorso(nome).mkdir(parents=True, exist_ok=True)
        self.percorso("tmp").chmod(0o1777)
        for nome in ("null", "urandom"):  # nothing is mounted there: a folder that is left is only a folder
            os.mknod(self.percorso(f"dev/{nome}"), 0o666 | stat.S_IFCHR, os.stat(f"/dev/{nome}").st_rdev)
            self.percorso(f"dev/{nome}").chmod(0o666)
        for riga in _esegui("dpkg-query", "--listfiles", *nomi).splitlines():
            self._porta(riga)
        for nome in ("etc/passwd", "etc/group"):
            shutil.copy2(f"/{nome}", self.percorso(nome))
        # Installed for dpkg too, which then looks into the dependencies in earnest.
        self.percorso("var/lib/dpkg/status").write_text(_esegui("dpkg-query", "--status", *nomi))
        for nome in nomi:
            (self.percorso("var/lib/dpkg/info") / f"{nome}.list").touch()
        self.esegui("ldconfig")

    def percorso(self, nome):
        return self.cartella / nome.lstrip("/")

    def comando_utente(self, *comando, prestiti=()):
        """What runs a command there as an ordinary user.

        @param prestiti (folder of this machine, its name there): lent for as long as the command runs.
        """
        comando = ["chroot", self.cartella, *COME_UTENTE, *comando]
        if not prestiti:
            return comando
        posti = []
        for qui, la in prestiti:
            self.percorso(la).mkdir(parents=True, exist_ok=True)
            posti += [qui, self.percorso(la)]
        return ["unshare", "--mount", "sh", "-ec", PRESTA, "sh", *posti, "--", *comando]

    def esegui(self, *comando):
        """Runs a command there as root. @throws AssertionError when its status is not 0."""
        intero = ["chroot", *(str(parte) for parte in (self.cartella, *comando))]
        fatto = subprocess.run(intero, capture_output=True, text=True, timeout=120)
        if fatto.returncode != 0:
            raise AssertionError(f"{comando}: {fatto.stdout}{fatto.stderr}")
        return fatto.stdout

    def _porta(self, nome):
        qui, la = Path(nome), self.percorso(nome)
        if qui.is_dir() and not qui.is_symlink():
            la.mkdir(parents=True, exist_ok=True)
        elif os.path.lexists(qui) and not os.path.lexists(la):
            la.parent.mkdir(parents=True, exist_ok=True)
            self._copia(qui, la)

    @staticmethod
    def _copia(qui, la):
        """Programs and libraries are not changed there: they need no bytes of their own."""
        try:
            if not qui.is_relative_to("/usr"):
                raise OSError
            os.link(qui, la, follow_symlinks=False)
        except OSError:
            shutil.copy2(qui, la, follow_symlinks=False)

    @staticmethod
    def _servono(dipendenze):
        """Names of the essential packages, of those in a list of dependencies, and of all that these need."""
        formato = r"${Package}\t${Essential}\t${Pre-Depends}, ${Depends}\t${Provides}\t${db:Status-Status}\n"
        noti, forniti, attesa = {}, {}, [dipendenze]
        for riga in _esegui("dpkg-query", "--show", f"--showformat={formato}").splitlines():
            nome, essenziale, suoi, fornisce, stato = riga.split("\t")
            if stato != "installed":
                continue
            noti[nome] = suoi
            for fornito in Radice._nomi(fornisce):
                forniti.setdefault(fornito, nome)
            if essenziale == "yes":
                attesa.append(nome)
        trovati = set()
        while attesa:
            for gruppo in filter(str.strip, attesa.pop().split(",")):
                scelte = [n if n in noti else forniti.get(n) for n in Radice._nomi(gruppo.replace("|", ","))]
                scelto = next(filter(None, scelte), None)
                if scelto is None:
                    raise KeyError(gruppo)
                if scelto not in trovati:
                    trovati.add(scelto)
                    attesa.append(noti[scelto])
        return sorted(trovati)

    @staticmethod
    def _nomi(elenco):
        """Names of a list of packages, without versions and architectures."""
        return [re.split(r"[ (:]", pezzo.strip())[0] for pezzo in elenco.split(",") if pezzo.strip()]
