"""lumira-diagnosi as a Windows program: its look at the COM ports, at the instrument at the far end of one, and at folders
that its user has no rights to. Not at a port that is taken: Wine opens it for a second program too."""

import json
import os
import shutil
import subprocess
import unittest

from cavo import collega_cavo
from macchina import CONSEGNA, TEMPO, MacchinaUtente, ProvaMacchina
from operatore import Profilo, attendi, avvia_processo, ferma_processo
from prova import QX5SIM


def guarda(macchina, stazione, materia, *opzioni):
    """@returns [(grade, what was found)] of one matter."""
    diagnosi = macchina.avvia(
        stazione / "lumira-diagnosi.exe", "--json", "--lingua", "IT", *opzioni, stdout=subprocess.PIPE
    )
    uscita = diagnosi.communicate(timeout=TEMPO)[0]
    return [(r["grado"], r["trovato"]) for r in json.loads(uscita)["riscontri"] if r["materia"] == materia]


class Diagnosi(ProvaMacchina):
    """A station on COM3, and a second port, COM5, to which nothing is plugged."""

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.stazione = cls.macchina.disco / "stazione"
        cls.lontani = {numero: collega_cavo(cls.macchina, numero, cls.addClassCleanup) for numero in (3, 5)}
        shutil.copytree(CONSEGNA, cls.stazione)

    def setUp(self):
        self.configura("Num", "3")

    def configura(self, chiave, valore):
        Profilo(self.stazione / "lumira.ini").imposta("COMM", chiave, valore)

    def strumento_su(self, numero):
        simulatore = avvia_processo(
            [QX5SIM, "--dispositivo", self.lontani[numero]], stdout=subprocess.PIPE, stderr=subprocess.STDOUT
        )
        self.addCleanup(simulatore.stdout.close)
        self.addCleanup(ferma_processo, simulatore)
        attendi(lambda: b"pronto: " in simulatore.stdout.readline(), cosa="lo strumento in linea")

    def guarda(self, materia, *opzioni):
        return guarda(self.macchina, self.stazione, materia, *opzioni)

    def test_strumento_che_risponde(self):
        self.strumento_su(3)
        self.assertIn(("ok", "COM3, la porta della stazione, si apre a 9600,N,8,1"), self.guarda("porte"))
        self.assertEqual(self.guarda("strumento"), [("ok", "risponde su COM3 a 9600,N,8,1, a riposo")])

    def test_strumento_muto(self):
        self.assertEqual(self.guarda("strumento"), [("guasto", "su COM3 non risponde nessuno")])

    def test_strumento_su_un_altra_porta(self):
        self.strumento_su(5)
        self.assertEqual(
            self.guarda("strumento", "--cerca"),
            [
                ("guasto", "risponde su COM5 a 9600,N,8,1, e la stazione lo cerca su COM3 9600,N,8,1"),
                ("avviso", "Strumenti Prova QX5, serie 000042: lumira.ini ha la serie 000001"),
                ("ok", "verifica periodica valida fino al 30/06/2030"),
            ],
        )

    def test_porta_assente(self):
        self.configura("Num", "77")
        self.assertIn(("guasto", "COM77, la porta della stazione, non c'è"), self.guarda("porte"))

    def test_formato_che_non_esiste(self):
        self.configura("DataBit", "9")
        self.addCleanup(self.configura, "DataBit", "8")
        self.assertIn(("guasto", "COM3 si apre, ma 9600,N,9,1 non è un formato"), self.guarda("porte"))


@unittest.skipUnless(os.geteuid() == 0, "solo root fa la macchina di un altro")
class DiagnosiSenzaDiritti(unittest.TestCase):
    """A station and its exchange folder are root's, the machine is an ordinary user's. Wine takes the rights from the file
    system below it. It opens a folder that is only read for whoever asks to add a file (tst_scrivibile_win32 has
    that question): there the writing tells."""

    @classmethod
    def setUpClass(cls):
        cls.macchina = MacchinaUtente(os.environ)
        cls.addClassCleanup(cls.macchina.chiudi)
        cls.macchina.esegui("cmd", "/c", "exit")  # it makes its own drives
        cls.stazione = cls.macchina.disco / "stazione"
        cls.scambio = cls.macchina.disco / "scambio" / "DIR_FAR"
        cls.scambio.mkdir(parents=True)
        shutil.copytree(CONSEGNA, cls.stazione)
        Profilo(cls.stazione / "lumira.ini").imposta("MCTC", "DirDati", "C:\\scambio\\")

    def con_diritti(self, modo, *opzioni):
        self.scambio.chmod(modo)
        return guarda(self.macchina, self.stazione, "cartelle", *opzioni)

    def test_cartella_che_si_puo_scrivere(self):
        self.assertIn(("ok", "in C:\\scambio\\DIR_FAR si può scrivere (provato)"), self.con_diritti(0o777, "--scrivi"))
        self.assertEqual(os.listdir(self.scambio), [])

    def test_cartella_che_si_puo_solo_leggere(self):
        self.assertIn(("guasto", "in C:\\scambio\\DIR_FAR non si può scrivere"), self.con_diritti(0o555, "--scrivi"))

    def test_cartella_che_non_si_puo_leggere(self):
        self.assertEqual(self.con_diritti(0o711), [("guasto", "C:\\scambio\\DIR_FAR non si può elencare")])

    def test_configurazione_che_si_puo_solo_leggere(self):
        detto = guarda(self.macchina, self.stazione, "configurazione")
        self.assertIn(("avviso", "lumira.ini non si può scrivere: ogni modifica andrà persa"), detto)
