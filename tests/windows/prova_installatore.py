"""The Windows installer: what it lays down and where, what an upgrade and a removal leave alone, what it asks."""

import re
import shutil
import struct
import subprocess
from typing import NamedTuple

import operatore
from macchina import COSTRUZIONE, RADICE, Macchina, ProvaMacchina
from operatore import Profilo, attendi

ELENCO = COSTRUZIONE / "tests" / "windows" / "elenco_finestre.exe"
IN_USO = 3  # status of a run that found the station open
TEMPO = 120  # seconds for a window: the machine unpacks a whole station meanwhile

CHIAVE = r"HKLM\Software\lumira\lumira"
DISINSTALLAZIONE = r"HKLM\Software\Microsoft\Windows\CurrentVersion\Uninstall\lumira"


class Controllo(NamedTuple):
    """A window or a control that shows."""

    x: int
    y: int
    larghezza: int
    altezza: int
    testo: str


class ProvaInstallatore(ProvaMacchina):
    def setUp(self):
        (self.installatore,) = (COSTRUZIONE / "pacchetti").glob("lumira-*-windows.exe")
        self.disco = self.macchina.disco
        self.stazione = self.disco / "stazione"
        self.addCleanup(self.sgombera)

    def sgombera(self):
        """Leaves the machine as if nothing had been installed on it."""
        for cartella in ("stazione", "lumira", "Program Files/lumira"):
            shutil.rmtree(self.disco / cartella, True)
        for chiave in (CHIAVE, DISINSTALLAZIONE):
            processo = self.macchina.avvia("reg", "delete", chiave, "/f")
            processo.wait(TEMPO)

    def installa(self, *argomenti, **opzioni):
        # The folder is the last argument and stands without quotes: its words come one by one.
        self.macchina.esegui(self.installatore, "/S", *argomenti, **opzioni)

    def installa_in_stazione(self):
        self.installa(r"/D=C:\stazione")

    def rimuovi(self):
        self.macchina.esegui(self.stazione / "Uninstall.exe", "/S")
        # The uninstaller goes on in a copy of itself.
        attendi(lambda: not (self.stazione / "Uninstall.exe").exists(), TEMPO, "fine della rimozione")

    def registrato(self, chiave, nome):
        """A text of the registry; None is the key's own."""
        return self.macchina.esegui("reg", "query", chiave, *(["/v", nome] if nome else ["/ve"])).split("REG_SZ")[1].strip()

    @property
    def menu(self):
        return self.disco / "ProgramData/Microsoft/Windows/Start Menu/Programs/lumira"

    def gruppo(self):
        """Names of the program group's entries."""
        return sorted(voce.name for voce in self.menu.glob("*"))

    def contenuto(self):
        """Every file of the station with its bytes."""
        return {str(f.relative_to(self.stazione)): f.read_bytes() for f in self.stazione.rglob("*") if f.is_file()}


class Installatore(ProvaInstallatore):
    def test_la_stazione_e_completa_e_ha_il_suo_gruppo(self):
        self.installa_in_stazione()
        for nome in """lumira.exe lumira.ini lingue.ini lingueMCTC.ini dati/ModelloAcc.acc dati/faro0.jpg qx5sim.exe
                       lumira-password.exe Qt6Widgets.dll platforms/qwindows.dll imageformats/qjpeg.dll""".split():
            self.assertTrue((self.stazione / nome).is_file(), nome)
        self.assertIn("lumira.lnk", self.gruppo())

    def test_senza_una_cartella_scelta_va_dove_si_puo_scrivere(self):
        self.installa()
        self.assertTrue((self.disco / "lumira" / "lumira.ini").is_file())

    def configura(self):
        """Every key of the configuration gets a value of the workshop's own.

        @returns the bytes of the file.
        """
        ini = self.stazione / "lumira.ini"
        numeri = iter(range(1000))
        byte = re.sub(rb"(?m)^([^;\[=\r\n]+)=[^\r\n]*", lambda m: m[1] + b"=officina %d" % next(numeri), ini.read_bytes())
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
        self.assertIn(r"C:\stazione\lumira.exe".encode("utf-16-le"), (self.menu / "lumira.lnk").read_bytes())

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
        """Silently installs; what was asked of the program for the rights, which Wine has in name alone: it only tells
        what it was called with."""
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


class SulloSchermo(ProvaInstallatore):
    """The installer on a screen, page by page with the mouse."""

    @classmethod
    def setUpClass(cls):
        cls.schermo = operatore.SchermoVirtuale()
        cls.addClassCleanup(cls.schermo.chiudi)
        cls.macchina = Macchina(cls.schermo.ambiente)
        cls.addClassCleanup(cls.macchina.chiudi)

    def avvia_stazione(self):
        """The station, open on its menu."""
        programma = self.macchina.avvia(self.stazione / "lumira.exe", cwd=self.stazione)
        self.addCleanup(operatore.ferma_processo, programma)
        self.attendi_testo("lumira")
        return programma

    def apri(self):
        self.processo = self.macchina.avvia(self.installatore)
        self.addCleanup(operatore.ferma_processo, self.processo)

    def controlli(self):
        righe = self.macchina.esegui(ELENCO).splitlines()
        campi = [riga.split(" ", 4) for riga in righe if riga.count(" ") >= 4]
        return [Controllo(*(int(numero) for numero in riga[:4]), riga[4]) for riga in campi]

    def mostra(self, testo):
        return any(testo in c.testo for c in self.controlli())

    def attendi_schermo(self, condizione, cosa):
        """Waits as attendi() does; a failure tells what the screen showed."""
        try:
            return attendi(condizione, TEMPO, cosa)
        except operatore.AttesaScaduta as errore:
            mostrati = "\n".join(str(c) for c in self.controlli())
            raise AssertionError(f"{errore}\n{mostrati}") from None

    def attendi_testo(self, testo):
        """Waits for a window or control whose text holds this."""
        self.attendi_schermo(lambda: self.mostra(testo), testo)

    def clicca(self, pulsante):
        for c in self.controlli():
            if c.testo == pulsante:
                self.schermo.clicca(c.x + c.larghezza // 2, c.y + c.altezza // 2)

    def premi_finche(self, pulsante, condizione, cosa):
        """Clicks as often as it takes: a window that has just come may lose a click."""

        def premi_o_guarda():
            return condizione() or self.clicca(pulsante)

        self.attendi_schermo(premi_o_guarda, cosa)

    def premi(self, pulsante, fino_a):
        """Clicks a button that leads to a text."""
        self.premi_finche(pulsante, lambda: self.mostra(fino_a), fino_a)

    def fine(self, pulsante="&Finish"):
        """@returns the status of the installer, ended by a button."""
        self.premi_finche(pulsante, lambda: self.processo.poll() is not None, "fine dell'installazione")
        return self.processo.returncode

    def fino_alla_cartella(self):
        self.apri()
        self.attendi_testo("Welcome")
        self.premi("&Next >", "Destination Folder")

    def test_le_pagine_dal_benvenuto_alla_fine(self):
        self.fino_alla_cartella()
        self.attendi_testo(r"C:\lumira")
        self.premi("&Next >", "Choose Start Menu Folder")
        self.premi("&Install", "&Finish")
        self.assertEqual(self.fine(), 0)
        self.assertTrue((self.disco / "lumira" / "lumira.exe").is_file())

    def test_un_aggiornamento_propone_la_cartella_e_aspetta_che_la_stazione_si_chiuda(self):
        self.installa_in_stazione()
        prima = self.contenuto()
        (self.stazione / "lingue.ini").write_bytes(b"")
        programma = self.avvia_stazione()
        self.fino_alla_cartella()
        self.attendi_testo(r"C:\stazione")
        self.premi("&Next >", "Choose Start Menu Folder")
        self.premi("&Install", r"The station in C:\stazione is open")
        self.assertEqual(self.contenuto(), prima | {"lingue.ini": b""})
        operatore.ferma_processo(programma)
        self.premi("&Retry", "&Finish")
        self.assertEqual(self.fine(), 0)
        self.assertEqual(self.contenuto(), prima)

    def test_da_solo_con_la_stazione_aperta_non_cambia_niente(self):
        self.installa_in_stazione()
        prima = self.contenuto()
        (self.stazione / "lingue.ini").write_bytes(b"")
        programma = self.avvia_stazione()
        self.installa(stato=IN_USO)
        self.macchina.esegui(self.stazione / "Uninstall.exe", "/S", r"_?=C:\stazione", stato=IN_USO)
        self.assertEqual(self.contenuto(), prima | {"lingue.ini": b""})
        self.assertEqual(self.registrato(CHIAVE, None), r"C:\stazione")
        operatore.ferma_processo(programma)
        self.installa()
        self.assertEqual(self.contenuto(), prima)

    def test_chi_annulla_con_la_stazione_aperta_la_tiene_com_era(self):
        self.installa_in_stazione()
        prima = self.contenuto()
        self.avvia_stazione()
        self.fino_alla_cartella()
        self.premi("&Next >", "Choose Start Menu Folder")
        self.premi("&Install", r"The station in C:\stazione is open")
        self.assertEqual(self.fine("&Cancel"), IN_USO)
        self.assertEqual(self.contenuto(), prima)
