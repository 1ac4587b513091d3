"""The Windows installer on a screen, page by page with the mouse, and with the station open."""

from typing import NamedTuple

import operatore
from installatore import CHIAVE, IN_USO, TEMPO, ProvaInstallatore
from macchina import COSTRUZIONE, Macchina
from operatore import attendi

ELENCO = COSTRUZIONE / "tests" / "windows" / "elenco_finestre.exe"


class Controllo(NamedTuple):
    """A window or a control that shows."""

    x: int
    y: int
    larghezza: int
    altezza: int
    testo: str


class SulloSchermo(ProvaInstallatore):
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

    def fine(self, pulsante):
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
        self.assertEqual(self.fine("&Finish"), 0)
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
        self.assertEqual(self.fine("&Finish"), 0)
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
        self.assertEqual(self.fine("Cancel"), IN_USO)
        self.assertEqual(self.contenuto(), prima)
