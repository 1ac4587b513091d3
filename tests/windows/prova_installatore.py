"""The Windows installer by itself: what it lays down and where, what an upgrade and a removal leave alone."""

import re
import struct
import subprocess

from installatore import CHIAVE, DISINSTALLAZIONE, ProvaInstallatore
from macchina import COSTRUZIONE, RADICE
from manuale_consegnato import difetti
from operatore import Profilo


class Installatore(ProvaInstallatore):
    def test_la_stazione_e_completa_e_ha_il_suo_gruppo(self):
        self.installa_in_stazione()
        for nome in """lumira.exe lumira.ini lingue.ini lingueMCTC.ini dati/ModelloAcc.acc dati/faro0.jpg qx5sim.exe
                       qx5finestra.dll lumira-password.exe lumira-acc.exe lumira-far.exe lumira-diagnosi.exe Qt6Widgets.dll
                       platforms/qwindows.dll imageformats/qjpeg.dll""".split():
            self.assertTrue((self.stazione / nome).is_file(), nome)
        self.assertIn("lumira.lnk", self.gruppo())
        self.assertEqual(difetti(self.stazione), [])
        self.assertIn("Manuale di lumira.lnk", self.gruppo())
        collegamento = (self.menu / "Manuale di lumira.lnk").read_bytes()
        self.assertIn(rb"C:\stazione\manuale.html", collegamento)

    def test_senza_una_cartella_scelta_va_dove_si_puo_scrivere(self):
        self.installa()
        self.assertTrue((self.disco / "lumira" / "lumira.ini").is_file())

    def configura(self):
        """Every key of the configuration gets a value of the workshop's own.

        @returns the bytes of the file.
        """
        ini = self.stazione / "lumira.ini"
        numeri = iter(range(1000))
        chiave = re.compile(rb"(?m)^([^;\[=\r\n]+)=[^\r\n]*")
        byte = chiave.sub(lambda m: m[1] + b"=officina %d" % next(numeri), ini.read_bytes())
        self.assertGreater(next(numeri), 50)
        ini.write_bytes(byte)
        return byte

    def test_un_aggiornamento_lascia_la_configurazione_e_rinnova_il_resto(self):
        self.installa_in_stazione()
        configurazione = self.configura()
        testi = (self.stazione / "lingue.ini").read_bytes()
        (self.stazione / "lingue.ini").write_bytes(b"")
        self.installa()
        self.assertEqual((self.stazione / "lumira.ini").read_bytes(), configurazione)
        self.assertEqual((self.stazione / "lingue.ini").read_bytes(), testi)

        # It went where the station is: there is no second one, and menu and uninstaller belong to the one.
        self.assertFalse((self.disco / "lumira").exists())
        self.assertEqual(self.registrato(CHIAVE, None), r"C:\stazione")
        self.assertEqual(self.registrato(DISINSTALLAZIONE, "UninstallString"), r'"C:\stazione\Uninstall.exe"')
        self.assertIn(rb"C:\stazione\lumira.exe", (self.menu / "lumira.lnk").read_bytes())

    def test_un_aggiornamento_tiene_la_copia_del_giorno(self):
        self.installa_in_stazione()
        self.assertEqual(self.copie(), [])  # nothing came before the first installation
        configurazione = self.configura()
        self.installa()
        (copia,) = self.copie()
        self.assertRegex(copia.name, r"^lumira\.ini\.\d{4}-\d\d-\d\d$")
        self.assertEqual(copia.read_bytes(), configurazione)
        # The second update of a day leaves the copy of the first.
        (self.stazione / "lumira.ini").write_bytes(b"[LUMIRA]\r\nComm_NSerie=dopo\r\n")
        self.installa()
        if self.copie() == [copia]:  # no midnight passed
            self.assertEqual(copia.read_bytes(), configurazione)
        self.rimuovi()
        self.assertTrue(copia.is_file())

    def copie(self):
        return sorted(self.stazione.glob("lumira.ini.*"))

    def test_sopra_una_1_0_nella_sua_cartella(self):
        # What the installer of 1.0 left behind, file by file and key by key.
        for nome in ("lumira.exe", "Qt6Core.dll", "lingue.ini", "Uninstall.exe"):
            self.stazione.mkdir(exist_ok=True)
            (self.stazione / nome).write_bytes(b"1.0")
        (self.stazione / "lumira.ini").write_bytes(b"[LUMIRA]\r\nComm_NSerie=987654\r\n")
        for chiave, nome, valore in (
            (CHIAVE, None, r"C:\stazione"),
            (CHIAVE, "Start Menu Folder", "lumira"),
            (DISINSTALLAZIONE, "DisplayVersion", "1.0.0"),
            (DISINSTALLAZIONE, "UninstallString", r'"C:\stazione\Uninstall.exe"'),
        ):
            self.macchina.esegui("reg", "add", chiave, *(["/v", nome] if nome else ["/ve"]), "/d", valore, "/f")
        self.installa()
        self.assertFalse((self.disco / "lumira").exists())
        for nome in ("lumira.exe", "Qt6Core.dll", "lingue.ini", "Uninstall.exe"):
            self.assertGreater((self.stazione / nome).stat().st_size, 3, nome)
        self.assertEqual(Profilo(self.stazione / "lumira.ini").valore("LUMIRA", "Comm_NSerie"), "987654")

    def test_la_cartella_chiesta_vince_su_quella_di_prima(self):
        self.installa_in_stazione()
        self.installa(r"/D=C:\lumira")
        self.assertTrue((self.disco / "lumira" / "lumira.exe").is_file())
        self.assertEqual(self.registrato(CHIAVE, None), r"C:\lumira")

    def test_sotto_i_programmi_da_agli_utenti_il_diritto_di_scrivere(self):
        for cartella, concessi in ((r"C:\stazione", 0), (r"C:\Program Files\lumira", 1)):
            chiamate = self.chiamate_a_icacls(f"/D={cartella}")
            self.assertEqual(len(chiamate), concessi, cartella)
        self.assertIn(r'"C:\\Program Files\\lumira" "/grant" "*S-1-5-32-545:(OI)(CI)M"', chiamate[0])

    def chiamate_a_icacls(self, cartella):
        """Installs by itself.

        @returns what the program for the rights was called with. Wine has it in name alone: all it does is tell.
        """
        normale = self.macchina.ambiente["WINEDEBUG"]
        self.macchina.spegni()
        self.macchina.ambiente["WINEDEBUG"] = "fixme+all"
        try:
            uscita = self.macchina.esegui(self.installatore, "/S", *cartella.split(" "), stderr=subprocess.STDOUT)
        finally:
            self.macchina.spegni()
            self.macchina.ambiente["WINEDEBUG"] = normale
        return re.findall(r"icacls:main stub: (.*)", uscita)

    def test_la_rimozione_lascia_la_configurazione_e_lo_scambio(self):
        self.installa_in_stazione()
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
