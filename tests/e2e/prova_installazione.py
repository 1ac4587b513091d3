"""What cmake --install lays out, and what it leaves alone."""

import os
import subprocess
import tempfile
import unittest
from pathlib import Path

CONSEGNATI = """
    lumira lumira.ini lingue.ini lingueMCTC.ini
    dati/splash_kp_net.jpg dati/kp_logo.gif dati/faro0.jpg dati/faro1.jpg dati/ModelloAcc.acc
""".split()


def installa(cartella, **ambiente):
    comando = ["cmake", "--install", os.environ["LUMIRA_COSTRUZIONE"], "--prefix", str(cartella)]
    subprocess.run(comando, check=True, capture_output=True, env=os.environ | ambiente)


class Installazione(unittest.TestCase):
    def setUp(self):
        temporanea = tempfile.TemporaryDirectory(prefix="installazione-")
        self.addCleanup(temporanea.cleanup)
        self.cartella = Path(temporanea.name) / "stazione"

    def test_la_cartella_ha_tutto_quello_che_la_stazione_legge(self):
        installa(self.cartella)
        for nome in CONSEGNATI:
            self.assertTrue((self.cartella / nome).is_file(), nome)
        self.assertTrue(os.access(self.cartella / "lumira", os.X_OK))
        self.assertFalse((self.cartella / "dati" / "sorgenti").exists())

    def test_i_file_di_profilo_sono_quelli_del_pc_di_officina(self):
        installa(self.cartella)
        for nome in ("lumira.ini", "lingue.ini", "lingueMCTC.ini", "dati/ModelloAcc.acc"):
            contenuto = (self.cartella / nome).read_bytes()
            self.assertEqual(contenuto.count(b"\n"), contenuto.count(b"\r\n"), nome)
            with self.assertRaises(UnicodeDecodeError, msg=nome):
                contenuto.decode("utf-8")
            contenuto.decode("cp1252")

    def test_una_seconda_installazione_lascia_lumira_ini_e_rinnova_il_resto(self):
        self.seconda_installazione(self.cartella)

    def test_lo_stesso_sotto_destdir(self):
        radice = self.cartella.parent / "pacchetto"
        self.cartella = Path("/opt/lumira")
        self.seconda_installazione(radice / "opt" / "lumira", DESTDIR=str(radice))

    def seconda_installazione(self, dove, **ambiente):
        installa(self.cartella, **ambiente)
        dell_officina = b"[GENERAL]\r\nUser=Officina Niccol\xf2\r\n"
        (dove / "lumira.ini").write_bytes(dell_officina)
        testi = (dove / "lingue.ini").read_bytes()
        (dove / "lingue.ini").unlink()
        installa(self.cartella, **ambiente)
        self.assertEqual((dove / "lumira.ini").read_bytes(), dell_officina)
        self.assertEqual((dove / "lingue.ini").read_bytes(), testi)

        (dove / "lumira.ini").unlink()
        installa(self.cartella, **ambiente)
        self.assertIn(b"[PARAMETRI]", (dove / "lumira.ini").read_bytes())
