"""The Windows installer on a screen, page by page with the mouse, and with the station open."""

import operatore
from finestre import ProvaFinestre
from installatore import CHIAVE, IN_USO, ProvaInstallatore


class Pagine(ProvaFinestre, ProvaInstallatore):
    def apri(self, *argomenti):
        self.processo = self.macchina.avvia(self.installatore, *argomenti)
        self.addCleanup(operatore.ferma_processo, self.processo)

    def fine(self, pulsante):
        """@returns the status of the installer, ended by a button."""
        self.premi_finche(pulsante, lambda: self.processo.poll() is not None, "fine dell'installazione")
        return self.processo.returncode

    def fino_alla_cartella(self, *argomenti):
        self.apri(*argomenti)
        self.attendi_testo("Welcome")
        self.premi("&Next >", "Destination Folder")

    def test_le_pagine_dal_benvenuto_alla_fine(self):
        self.fino_alla_cartella()
        self.attendi_testo(r"C:\lumira")
        self.premi("&Next >", "Choose Start Menu Folder")
        self.premi("&Install", "&Finish")
        self.assertEqual(self.fine("&Finish"), 0)
        self.assertTrue((self.disco / "lumira" / "lumira.exe").is_file())

    def test_un_aggiornamento_propone_la_cartella_e_aspetta_che_la_stazione_si_chiuda(self):
        self.installa_in_stazione()
        prima = self.contenuto()
        (self.stazione / "lingue.ini").write_bytes(b"")
        programma = self.avvia_stazione(self.stazione)
        self.fino_alla_cartella()
        self.attendi_testo(r"C:\stazione")
        self.premi("&Next >", "Choose Start Menu Folder")
        self.premi("&Install", r"The station in C:\stazione is open")
        self.assertEqual(self.contenuto(), prima | {"lingue.ini": b""})
        operatore.ferma_processo(programma)
        self.premi("&Retry", "&Finish")
        self.assertEqual(self.fine("&Finish"), 0)
        self.assertEqual(self.contenuto(), prima)

    def test_da_solo_con_la_stazione_aperta_non_cambia_niente(self):
        self.installa_in_stazione()
        prima = self.contenuto()
        (self.stazione / "lingue.ini").write_bytes(b"")
        programma = self.avvia_stazione(self.stazione)
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
        self.avvia_stazione(self.stazione)
        self.fino_alla_cartella()
        self.premi("&Next >", "Choose Start Menu Folder")
        self.premi("&Install", r"The station in C:\stazione is open")
        self.assertEqual(self.fine("Cancel"), IN_USO)
        self.assertEqual(self.contenuto(), prima)

    def test_la_rimozione_dice_prima_cosa_resta(self):
        self.installa_in_stazione()
        prima = self.contenuto()
        self.processo = self.macchina.avvia(self.stazione / "Uninstall.exe", r"_?=C:\stazione")
        self.addCleanup(operatore.ferma_processo, self.processo)
        self.premi("&Uninstall", "The configuration (lumira.ini, with its copies)")
        self.assertEqual(self.fine("Cancel"), 1)
        self.assertEqual(self.contenuto(), prima)

    def test_sotto_i_programmi_chiede_prima_di_cambiare_i_diritti(self):
        self.fino_alla_cartella(r"/D=C:\Program", r"Files\lumira")
        self.premi("&Next >", "Choose Start Menu Folder")
        self.premi("&Install", r"cannot write in C:\Program Files\lumira")
        self.assertEqual(self.fine("&No"), 1)
        self.assertEqual(list((self.disco / "Program Files/lumira").glob("*")), [])


class Lingue(ProvaFinestre, ProvaInstallatore):
    """What is ours to say comes in the language of the system, as the pages around it do."""

    # Locale of the machine: the uninstaller's buttons, and what it says of what stays.
    DETTO = {
        "it_IT": ("&Disinstalla", "Annulla", "restano la configurazione (lumira.ini, con le sue copie)"),
        "fr_FR": ("&Désinstaller", "Annuler", "La configuration (lumira.ini, avec ses copies)"),
        "es_ES": ("&Desinstalar", "Cancelar", "La configuración (lumira.ini, con sus copias)"),
        "es_MX": ("&Desinstalar", "Cancelar", "La configuración (lumira.ini, con sus copias)"),
        "de_CH": ("&Deinstallieren", "Abbrechen", "Die Konfiguration (lumira.ini mit ihren Kopien)"),
        "nl_NL": ("&Verwijderen", "Annuleren", "The configuration (lumira.ini, with its copies)"),
    }

    def test_dice_cosa_resta_nella_lingua_del_sistema(self):
        self.addCleanup(self.macchina.imposta_lingua, "C.UTF-8")
        self.installa_in_stazione()
        for lingua, (disinstalla, annulla, testo) in self.DETTO.items():
            with self.subTest(lingua):
                self.macchina.imposta_lingua(f"{lingua}.UTF-8")
                processo = self.macchina.avvia(self.stazione / "Uninstall.exe", r"_?=C:\stazione")
                self.addCleanup(operatore.ferma_processo, processo)
                self.premi(disinstalla, testo)
                self.premi_finche(annulla, lambda p=processo: p.poll() is not None, "fine della rimozione")
                self.assertEqual(processo.returncode, 1)
