"""The command-line tools as Windows programs, run from the folder they are delivered in: what they find, how they end,
and a chart that is drawn without a screen of anybody's."""

import json
import shutil
import struct
import subprocess

from macchina import CONSEGNA, TEMPO, ProvaMacchina
from prova import ATTESI

ROVINATO = b"[Dati]\r\n"


class Strumenti(ProvaMacchina):
    """The delivered station beside a folder with an acceptance file and a result."""

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.macchina.esegui("cmd", "/c", "exit", "0")  # its first program makes the machine's disk
        cls.stazione = cls.macchina.disco / "stazione"
        shutil.copytree(CONSEGNA, cls.stazione)
        cls.scambio = cls.macchina.disco / "scambio"
        cls.scambio.mkdir()
        cls.accettazione = cls.scambio / "10000001.acc"
        cls.risultato = cls.scambio / "10000002.far"

    def setUp(self):
        shutil.copy(self.stazione / "dati" / "ModelloAcc.acc", self.accettazione)
        shutil.copy(ATTESI / "regolare.far", self.risultato)

    def esegui(self, strumento, *argomenti, stato, lingua="IT"):
        """Runs a tool to its end, which has to be with this status. @returns what it wrote."""
        processo = self.macchina.avvia(
            self.stazione / f"{strumento}.exe", "--lingua", lingua, *argomenti,
            stdout=subprocess.PIPE, stderr=subprocess.PIPE,
        )  # fmt: skip
        uscita, errori = (testo.decode("utf-8", "replace") for testo in processo.communicate(timeout=TEMPO))
        self.assertEqual(processo.returncode, stato, uscita + errori)
        return uscita

    # --- all of them ---

    def test_l_aiuto_nelle_due_lingue(self):
        for strumento in ("lumira-acc", "lumira-far", "lumira-diagnosi", "lumira-password"):
            for lingua, uso in (("IT", "Uso: "), ("EN", "Usage: ")):
                with self.subTest(f"{strumento} {lingua}"):
                    aiuto = self.esegui(strumento, "--help", stato=0, lingua=lingua)
                    self.assertTrue(aiuto.startswith(uso + strumento), aiuto)

    # --- lumira-acc ---

    def test_accettazione_buona(self):
        (file,) = json.loads(self.esegui("lumira-acc", "--json", r"C:\scambio", stato=0))
        self.assertEqual((file["file"], file["esito"], file["rilievi"]), (r"C:\scambio\10000001.acc", "buona", []))

    def test_accettazione_guasta(self):
        self.accettazione.write_bytes(ROVINATO)
        (file,) = json.loads(self.esegui("lumira-acc", "--json", r"C:\scambio\10000001.acc", stato=1))
        self.assertNotEqual(file["rilievi"], [])

    def test_accettazione_che_non_ce(self):
        self.esegui("lumira-acc", r"C:\scambio\manca.acc", stato=2)

    # --- lumira-far ---

    def test_risultato_buono(self):
        (file,) = json.loads(self.esegui("lumira-far", "--json", r"C:\scambio", stato=0))
        self.assertEqual((file["file"], file["difetti"]), (r"C:\scambio\10000002.far", []))

    def test_risultato_guasto(self):
        self.risultato.write_bytes(ROVINATO)
        (file,) = json.loads(self.esegui("lumira-far", "--json", r"C:\scambio", stato=1))
        self.assertNotEqual(file["difetti"], [])

    def test_risultato_che_non_ce(self):
        self.esegui("lumira-far", r"C:\scambio\manca.far", stato=2)

    def test_grafico(self):
        grafico = self.scambio / "x.png"
        self.addCleanup(grafico.unlink, missing_ok=True)
        self.esegui("lumira-far", "--grafico", r"C:\scambio\x.png", r"C:\scambio", stato=0)
        byte = grafico.read_bytes()
        self.assertEqual(byte[:8], b"\x89PNG\r\n\x1a\n")
        self.assertGreater(min(struct.unpack(">II", byte[16:24])), 100)  # width and height

    # --- lumira-diagnosi ---

    def test_diagnosi_della_stazione_consegnata(self):
        """What hangs on the machine is as it is, and the status says it: the station itself is whole."""
        diagnosi = self.macchina.avvia(
            self.stazione / "lumira-diagnosi.exe", "--json", "--lingua", "IT", stdout=subprocess.PIPE
        )
        riscontri = json.loads(diagnosi.communicate(timeout=TEMPO)[0])["riscontri"]
        cattivi = [r for r in riscontri if r["grado"] != "ok"]
        self.assertEqual(diagnosi.returncode, 1 if cattivi else 0)
        della_stazione = ("programma", "configurazione", "testi")
        self.assertEqual([r for r in cattivi if r["materia"] in della_stazione], [])

    def test_diagnosi_di_una_stazione_guasta(self):
        libreria = self.stazione / "imageformats" / "qjpeg.dll"
        byte = libreria.read_bytes()
        self.addCleanup(libreria.write_bytes, byte)
        libreria.unlink()
        uscita = self.esegui("lumira-diagnosi", stato=1)
        self.assertIn(r"guasto  programma: manca imageformats\qjpeg.dll.", uscita)
        self.assertIn(r"guasto  programma: dati\faro0.jpg non è una figura", uscita)

    def test_diagnosi_senza_stazione(self):
        self.esegui("lumira-diagnosi", r"C:\scambio", stato=2)
