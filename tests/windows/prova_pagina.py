"""The printed page of the Windows program next to that of Debian, on every kind of queue: the same words and lines
in the same places. Both print on one scheduler of the test's own."""

import os
import subprocess
import tempfile
from pathlib import Path

import carta
import operatore
from macchina import COSTRUZIONE, RADICE, Macchina, ProvaMacchina
from stampante import Stampante

NOSTRO = RADICE / "build" / "dev" / "tests" / "windows" / "stampa_confronto"
LORO = COSTRUZIONE / "tests" / "windows" / "stampa_confronto.exe"
PPD = Path("/usr/share/ppd/cupsfilters/Generic-PDF_Printer-PDF.ppd")

# Queues: name, what is otherwise in the printer's description, its paper, lying on its side. The description as it
# is has margins of 18 and 36 points.
MARGINI = '*ImageableArea A4/A4: "18 36 577 806"'
MISURE = '*PaperDimension A4/A4: "595 842"'
PROPRIA = {
    f"{parola} A4/A4:": f'{parola} Foglio/Foglio: "{valore}"\n{parola} A4/A4:'
    for parola, valore in (
        ("*PageSize", "<</PageSize[560 780]/ImagingBBox null>>setpagedevice"),
        ("*PageRegion", "<</PageSize[560 780]/ImagingBBox null>>setpagedevice"),
        ("*ImageableArea", "18 36 540 740"),
        ("*PaperDimension", "560 780"),
    )
}
CODE = [
    ("A4 con i margini", {}, "A4", False),
    ("A4 senza margini", {MARGINI: '*ImageableArea A4/A4: "0 0 595 842"'}, "A4", False),
    ("A4 con margini larghi", {MARGINI: '*ImageableArea A4/A4: "70 90 500 700"'}, "A4", False),
    ("A4 più grande di un millimetro scarso", {MISURE: '*PaperDimension A4/A4: "597 843"'}, "A4", False),
    ("Letter con i margini", {}, "Letter", False),
    ("carta di misure sue", PROPRIA, "Foglio", False),
    # The last ones: what a machine has set for a queue outlives the queue.
    ("A4 coricato", {}, "A4", True),
    ("Letter coricato", {}, "Letter", True),
]

ORIENTAMENTO = 44  # place in a printer's settings
CORICATO = 2


class Pagina(ProvaMacchina):
    maxDiff = None

    @classmethod
    def setUpClass(cls):
        schermo = operatore.SchermoVirtuale()
        cls.addClassCleanup(schermo.chiudi)
        cls.macchina = Macchina(schermo.ambiente)
        cls.addClassCleanup(cls.macchina.chiudi)

    def setUp(self):
        cartella = tempfile.TemporaryDirectory(prefix="stampante-")
        self.addCleanup(cartella.cleanup)
        self.cartella = Path(cartella.name)
        self.stampante = Stampante(cartella.name)
        self.addCleanup(self.stampante.ferma)
        self.macchina.ambiente |= self.stampante.ambiente

    def su_debian(self):
        """@returns what the print system tells and whether the page was taken."""
        ambiente = os.environ | self.stampante.ambiente | {"QT_QPA_PLATFORM": "offscreen", "LC_ALL": "C.UTF-8"}
        comando = [NOSTRO, RADICE / "impianto"]
        fatto = subprocess.run(comando, env=ambiente, capture_output=True, text=True, timeout=operatore.ATTESA * 2)
        return fatto.stdout.splitlines()

    def su_windows(self):
        return self.macchina.esegui(LORO, Macchina.percorso(RADICE / "impianto")).splitlines()

    def coda(self, cambiata, carta_coda):
        """Makes the queue anew, of a printer that is otherwise."""
        descrizione = PPD.read_text()
        for prima, dopo in cambiata.items():
            self.assertIn(prima, descrizione)
            descrizione = descrizione.replace(prima, dopo)
        ppd = self.cartella / "stampante.ppd"
        ppd.write_text(descrizione)
        self.stampante.amministra("lpadmin", "-p", Stampante.CODA, "-P", ppd, "-o", f"PageSize={carta_coda}")
        self.macchina.spegni()  # it asks the queues at its start

    def corica(self):
        """Has the machine's settings of the queue say that its sheets lie on their side."""
        chiave = rf"HKLM\System\CurrentControlSet\Control\Print\Printers\{Stampante.CODA}"
        letto = self.macchina.esegui("reg", "query", chiave, "/v", "Default DevMode")
        byte = bytearray.fromhex(letto.split()[-1])
        byte[ORIENTAMENTO] = CORICATO
        self.macchina.esegui(
            "reg", "add", chiave, "/v", "Default DevMode", "/t", "REG_BINARY", "/d", byte.hex(), "/f"
        )

    def test_la_pagina_sta_dove_sta_su_debian(self):
        foglio = 0
        for nome, cambiata, carta_coda, coricato in CODE:
            with self.subTest(nome):
                self.coda(cambiata, carta_coda)
                if coricato:
                    self.corica()
                self.assertEqual(self.su_windows(), self.su_debian())
                carta.confronta(self, self.stampante.foglio(foglio + 1), self.stampante.foglio(foglio + 2))
            foglio = self.stampante.fogli()

    def test_stampa_sulla_predefinita_di_molte(self):
        for nome in ("Altra", "Zeta"):
            self.stampante.amministra("lpadmin", "-p", nome, "-E", "-v", "file:/dev/null", "-P", PPD)
        self.macchina.spegni()
        racconto = self.su_windows()
        self.assertEqual(
            racconto,
            ["coda Altra 12240 15840", "coda Rapporto 11906 16838", "coda Zeta 12240 15840", "predefinita Rapporto",
             "stampata 1"],
        )  # fmt: skip
        self.assertEqual(racconto, self.su_debian())
        carta.confronta(self, self.stampante.foglio(1), self.stampante.foglio(2))

    def test_senza_code_non_stampa(self):
        self.stampante.amministra("lpadmin", "-x", Stampante.CODA)
        self.macchina.spegni()
        self.assertEqual(self.su_windows(), ["predefinita -", "stampata 0"])
        self.assertEqual(self.stampante.fogli(), 0)
