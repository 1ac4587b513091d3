"""The version resource of a Windows program, read from its file."""

import struct
from pathlib import Path

TIPO_VERSIONE = 16
_CARTELLA = 0x80000000  # bit of an entry that leads to a folder of entries


class Proprieta:
    """.lingua of the resource, .traduzioni (language, code page), .versione of the file, and .testi by their block,
    which is named after a language and a code page."""

    def __init__(self, percorso):
        self._byte = Path(percorso).read_bytes()
        self.lingua, inizio = self._trova()
        nome, valore, figli = self._blocco(inizio)[:3]
        if nome != "VS_VERSION_INFO":
            raise ValueError(nome)
        maggiore, minore = struct.unpack_from("<II", valore, 8)
        self.versione = tuple(parte for meta in (maggiore, minore) for parte in (meta >> 16, meta & 0xFFFF))
        parti = {nome: figli for nome, _, figli, _ in figli}
        self.traduzioni = [struct.unpack("<HH", valore) for _, valore, _, _ in parti["VarFileInfo"]]
        self.testi = {
            blocco: {chiave: valore.decode("utf-16-le").rstrip("\0") for chiave, valore, _, _ in righe}
            for blocco, _, righe, _ in parti["StringFileInfo"]
        }

    def _trova(self):
        """@returns the language and the place in the file of the only version resource."""
        (testa,) = struct.unpack_from("<I", self._byte, 0x3C)
        sezioni, opzionale = struct.unpack_from("<H12xH", self._byte, testa + 6)
        for numero in range(sezioni):
            nome, indirizzo, posto = struct.unpack_from(
                "<8s4xI4xI", self._byte, testa + 24 + opzionale + 40 * numero
            )
            if nome.rstrip(b"\0") == b".rsrc":
                break
        else:
            raise ValueError("no resources")
        tipo = dict(self._voci(posto, 0))[TIPO_VERSIONE]
        ((_, nome),) = self._voci(posto, tipo)
        ((lingua, dati),) = self._voci(posto, nome)
        return lingua, struct.unpack_from("<I", self._byte, posto + dati)[0] - indirizzo + posto

    def _voci(self, risorse, cartella):
        """Number and place of each entry of a folder of resources."""
        nomi, numeri = struct.unpack_from("<12xHH", self._byte, risorse + cartella)
        for i in range(nomi, nomi + numeri):
            voce, posto = struct.unpack_from("<II", self._byte, risorse + cartella + 16 + 8 * i)
            yield voce, posto & ~_CARTELLA

    def _blocco(self, inizio):
        """@returns name, value, blocks inside, end."""
        lunghezza, misura, testo = struct.unpack_from("<HHH", self._byte, inizio)
        fine = posto = inizio + 6
        while self._byte[fine : fine + 2] != b"\0\0":
            fine += 2
        nome = self._byte[posto:fine].decode("utf-16-le")
        posto = self._allinea(inizio, fine + 2)
        valore = self._byte[posto : posto + misura * (2 if testo else 1)]
        posto = self._allinea(inizio, posto + len(valore))
        figli = []
        while posto < inizio + lunghezza:
            figli.append(self._blocco(posto))
            posto = self._allinea(inizio, figli[-1][3])
        return nome, valore, figli, inizio + lunghezza

    @staticmethod
    def _allinea(inizio, posto):
        # Blocks stand at multiples of four bytes, and so does the first of all.
        return inizio + (posto - inizio + 3) // 4 * 4
