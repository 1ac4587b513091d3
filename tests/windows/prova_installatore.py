"""The Windows installer: what it lays down, what an upgrade and a removal leave alone."""

import re
import shutil
import struct

from macchina import COSTRUZIONE, RADICE, ProvaMacchina
from operatore import Profilo, attendi


class Installatore(ProvaMacchina):
    def setUp(self):
        (self.installatore,) = (COSTRUZIONE / "pacchetti").glob("lumira-*-windows.exe")
        self.stazione = self.macchina.disco / "stazione"
        self.addCleanup(shutil.rmtree, self.stazione, True)

    def installa(self):
        self.macchina.esegui(self.installatore, "/S", r"/D=C:\stazione")

    def rimuovi(self):
        self.macchina.esegui(self.stazione / "Uninstall.exe", "/S")
        # The uninstaller goes on in a copy of itself.
        attendi(lambda: not (self.stazione / "Uninstall.exe").exists(), cosa="fine della rimozione")

    def gruppo(self):
        """Names of the program group's entries."""
        menu = self.macchina.disco / "ProgramData/Microsoft/Windows/Start Menu/Programs/lumira"
        return sorted(voce.name for voce in menu.glob("*"))

    def test_la_stazione_e_completa_e_ha_il_suo_gruppo(self):
        self.installa()
        for nome in """lumira.exe lumira.ini lingue.ini lingueMCTC.ini dati/ModelloAcc.acc dati/faro0.jpg qx5sim.exe
                       lumira-password.exe Qt6Widgets.dll platforms/qwindows.dll imageformats/qjpeg.dll""".split():
            self.assertTrue((self.stazione / nome).is_file(), nome)
        self.assertIn("lumira.lnk", self.gruppo())

    def test_senza_una_cartella_scelta_va_dove_si_puo_scrivere(self):
        self.macchina.esegui(self.installatore, "/S")
        predefinita = self.macchina.disco / "lumira"
        self.assertTrue((predefinita / "lumira.ini").is_file())
        self.macchina.esegui(predefinita / "Uninstall.exe", "/S")
        attendi(lambda: not (predefinita / "Uninstall.exe").exists(), cosa="fine della rimozione")

    def test_un_aggiornamento_lascia_la_configurazione_e_rinnova_il_resto(self):
        self.installa()
        ini = Profilo(self.stazione / "lumira.ini")
        ini.imposta("LUMIRA", "Comm_NSerie", "987654")
        configurazione = ini.percorso.read_bytes()
        testi = (self.stazione / "lingue.ini").read_bytes()
        (self.stazione / "lingue.ini").write_bytes(b"")
        self.installa()
        self.assertEqual(ini.percorso.read_bytes(), configurazione)
        self.assertEqual((self.stazione / "lingue.ini").read_bytes(), testi)

    def test_la_rimozione_lascia_la_configurazione_e_lo_scambio(self):
        self.installa()
        scambio = self.stazione / "DIR_FAR"
        scambio.mkdir()
        (scambio / "10000001.far").touch()
        self.rimuovi()
        self.assertEqual(
            sorted(p.name for p in self.stazione.rglob("*") if p.is_file()), ["10000001.far", "lumira.ini"]
        )
        self.assertEqual(self.gruppo(), [])

    def test_il_programma_porta_versione_e_icona(self):
        contenuto = (COSTRUZIONE / "consegna" / "lumira.exe").read_bytes()
        versione = re.search(r"lumira-([0-9.]+)-windows", self.installatore.name).group(1)
        for testo in ("FileVersion", versione, "ProductName"):
            self.assertIn(testo.encode("utf-16-le"), contenuto)
        self.assertIn(b"PerMonitorV2", contenuto)
        icona = (RADICE / "dati" / "lumira.ico").read_bytes()
        misura, inizio = struct.unpack_from("<II", icona, 6 + 8)  # of its first picture
        self.assertIn(icona[inizio : inizio + misura], contenuto)
