#!/usr/bin/python3
"""A folder that behaves as disks and networks do on a bad day: slow, silent, full, read-only, gone.

What it holds lies in another folder. As a module it mounts and commands such a folder (Disco); as a program it is
the folder: disco.py MOUNT DIETRO COMANDI DIARIO. It needs root, /dev/fuse and the package python3-fuse.
"""

import ctypes
import errno
import json
import os
import sys
import time
from pathlib import Path


class Disco:
    """The folder as a test sees it. Commands hold until the next ones:

    ritardo   seconds until an answer, by call: {"opendir": 5}; "*" stands for every call
    muto      True: no call is answered before the next commands
    errore    name of the error that calls end with, by call: {"write": "ENOSPC"}
    posto     bytes that a write may bring a file to, before ENOSPC or the error of "write"
    voci      a listing gives so many entries and then the error of "readdir"
    """

    def __init__(self, punto, dietro):
        import operatore  # the program below has no need of it

        self.punto, self.dietro = Path(punto), Path(dietro)
        self.dietro.mkdir(parents=True, exist_ok=True)
        self.punto.mkdir(parents=True, exist_ok=True)
        self._comandi = self.dietro.with_name(self.dietro.name + ".comandi")
        self._diario = self.dietro.with_name(self.dietro.name + ".diario")
        self._ferma = operatore.ferma_processo
        self.comanda()
        self._diario.touch()
        self._processo = operatore.avvia_processo(
            [sys.executable, "-B", __file__, self.punto, self.dietro, self._comandi, self._diario]
        )
        operatore.attendi(lambda: os.path.ismount(self.punto), cosa=f"{self.punto} montata")

    def comanda(self, **comandi):
        nuovi = self._comandi.with_suffix(".nuovi")
        nuovi.write_text(json.dumps(comandi))
        nuovi.rename(self._comandi)

    def chiamate(self):
        """The calls answered so far: name, path, and when it came and was answered (time.monotonic)."""
        righe = (riga.split("\t") for riga in self._diario.read_text().splitlines())
        return [(nome, percorso, float(da), float(a)) for nome, percorso, da, a in righe]

    def smonta(self):
        self.comanda()
        ctypes.CDLL(None, use_errno=True).umount2(os.fsencode(self.punto), 2)  # detached, whoever stands in it
        self._ferma(self._processo)


def servi(punto, dietro, comandi, diario):
    import threading

    import fuse

    fuse.fuse_python_api = (0, 2)
    scrittura = threading.Lock()

    def comando(nome, altrimenti):
        with open(comandi, encoding="utf-8") as file:
            return json.load(file).get(nome, altrimenti)

    def annota(nome, percorso, da):
        with scrittura, open(diario, "a", encoding="utf-8") as file:
            file.write(f"{nome}\t{percorso}\t{da}\t{time.monotonic()}\n")

    def chiamata(procedura):
        """A call as the day lets it be: late, refused, or as it should be."""
        nome = procedura.__name__

        def svolgi(disco, percorso, *altri):
            da = time.monotonic()
            try:
                while comando("muto", False):
                    time.sleep(0.02)
                ritardi = comando("ritardo", {})
                time.sleep(ritardi.get(nome, ritardi.get("*", 0)))
                errori = comando("errore", {})
                errore = errori.get(nome, errori.get("*"))
                if errore and not (nome == "readdir" and comando("voci", None) is not None):
                    if not (nome == "write" and comando("posto", None) is not None):
                        return -getattr(errno, errore)
                return procedura(disco, dietro + percorso, *altri)
            except OSError as guasto:
                return -guasto.errno
            finally:
                annota(nome, percorso, da)

        return svolgi

    class Cartella(fuse.Fuse):
        @chiamata
        def getattr(self, percorso):
            return os.lstat(percorso)

        @chiamata
        def opendir(self, percorso):
            os.listdir(percorso)

        @chiamata
        def readdir(self, percorso, posto):
            nomi = [".", "..", *sorted(os.listdir(percorso))]
            voci = comando("voci", None)
            if voci is not None:
                if posto >= voci:
                    return -getattr(errno, comando("errore", {})["readdir"])
                nomi = nomi[:voci]
            return [fuse.Direntry(nome, offset=n + 1) for n, nome in enumerate(nomi)][posto:]

        @chiamata
        def open(self, percorso, modo):
            os.close(os.open(percorso, modo & ~os.O_CREAT))

        @chiamata
        def create(self, percorso, modo, diritti):
            os.close(os.open(percorso, modo | os.O_CREAT, diritti))

        @chiamata
        def read(self, percorso, quanti, posto):
            with open(percorso, "rb") as file:
                file.seek(posto)
                return file.read(quanti)

        @chiamata
        def write(self, percorso, byte, posto):
            massimo = comando("posto", None)
            if massimo is not None and posto + len(byte) > massimo:
                if posto >= massimo:
                    return -getattr(errno, comando("errore", {}).get("write", "ENOSPC"))
                byte = byte[: massimo - posto]
            with open(percorso, "r+b") as file:
                file.seek(posto)
                return file.write(byte)

        @chiamata
        def truncate(self, percorso, lungo):
            os.truncate(percorso, lungo)

        @chiamata
        def fsync(self, percorso, _solo_byte):
            pass

        @chiamata
        def flush(self, percorso):
            pass

        @chiamata
        def unlink(self, percorso):
            os.unlink(percorso)

        @chiamata
        def rename(self, percorso, nuovo):
            os.rename(percorso, dietro + nuovo)

        @chiamata
        def link(self, percorso, nuovo):
            os.link(percorso, dietro + nuovo)

        @chiamata
        def symlink(self, percorso, nuovo):
            os.symlink(percorso.removeprefix(dietro), dietro + nuovo)

        @chiamata
        def readlink(self, percorso):
            return os.readlink(percorso)

        @chiamata
        def mkdir(self, percorso, diritti):
            os.mkdir(percorso, diritti)

        @chiamata
        def rmdir(self, percorso):
            os.rmdir(percorso)

        @chiamata
        def chmod(self, percorso, diritti):
            os.chmod(percorso, diritti)

        @chiamata
        def chown(self, percorso, utente, gruppo):
            os.chown(percorso, utente, gruppo)

        @chiamata
        def utimens(self, percorso, accesso, scrittura_):
            os.utime(percorso)

    cartella = Cartella(dash_s_do="setsingle")
    cartella.multithreaded = True
    # What was answered holds for a second, as on a share. In the foreground: whoever started it ends it.
    opzioni = "attr_timeout=1,entry_timeout=1,negative_timeout=0,nonempty"
    cartella.parse([punto, "-f", "-o", opzioni], errex=1)
    cartella.main()


if __name__ == "__main__":
    servi(*sys.argv[1:])
