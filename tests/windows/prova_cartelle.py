"""The station in any folder of a Windows machine, whatever code page the machine is set to."""

import shutil
import tempfile
import time
from pathlib import Path

import operatore
from a_memoria import Finestre
from macchina import CONSEGNA, COSTRUZIONE, Macchina, ProvaMacchina
from operatore import attendi

PROFILO = COSTRUZIONE / "tests" / "platform" / "tst_profilo.exe"

# The machine's language by its code page. 1252 has no name for the second and the third folder, 1250 none for the
# first, 65001 has all; on 65001 and 932 an accented letter of the station is no character by itself.
PAGINE = {
    "1252": "it_IT.UTF-8",
    "1250": "pl_PL.UTF-8",
    "1251": "ru_RU.UTF-8",
    "932": "ja_JP.UTF-8",
    "65001": "hi_IN.UTF-8",
}
CARTELLE = ["Stazione è più", "Łódź", "Станция"]
AVVISO = "Avviso"  # title of the program's messages
RIPOSO = 3  # seconds without a change: the menu is whole, also on a busy machine


class Cartelle(ProvaMacchina):
    @classmethod
    def setUpClass(cls):
        cls.schermo = operatore.SchermoVirtuale()
        cls.addClassCleanup(cls.schermo.chiudi)
        cls.macchina = Macchina(cls.schermo.ambiente)
        cls.addClassCleanup(cls.macchina.chiudi)
        cls.finestre = Finestre(cls.schermo)
        cls.macchina.esegui("cmd", "/c", "ver")  # makes the machine's disk

    def stazione(self, *nomi):
        """A station in a folder of the machine's disk."""
        cartella = self.macchina.disco.joinpath(*nomi)
        self.addCleanup(shutil.rmtree, self.macchina.disco / nomi[0])
        shutil.copytree(CONSEGNA, cartella)
        return cartella

    def avvia(self, stazione):
        programma = self.macchina.avvia(stazione / "lumira.exe", cwd=stazione)
        self.addCleanup(operatore.ferma_processo, programma)
        return programma

    def schermata(self):
        with tempfile.TemporaryDirectory() as cartella:
            return self.schermo.schermata(Path(cartella) / "schermo.ppm").read_bytes()

    def ferma(self, programma):
        self.macchina.spegni()
        operatore.ferma_processo(programma)
        attendi(lambda: not self.finestre.visibili(), cosa="schermo vuoto")

    def menu(self, stazione, modello=None):
        """The screen with a station's menu: as soon as it is the expected one, or when it has come to rest.

        @returns the screen.
        """
        programma = self.avvia(stazione)
        attendi(lambda: self.finestre.mostra("lumira"), cosa="menu")
        ultima, cambiata = None, time.monotonic()

        def ferma_o_attesa():
            nonlocal ultima, cambiata
            prima, ultima = ultima, self.schermata()
            if ultima != prima:
                cambiata = time.monotonic()
            return ultima == modello if modello else time.monotonic() - cambiata > RIPOSO

        try:
            attendi(ferma_o_attesa, cosa=f"menu di {stazione.name}")
        finally:
            self.ferma(programma)
        return ultima

    def test_il_menu_e_lo_stesso_in_ogni_cartella_con_ogni_pagina(self):
        modello = self.menu(self.stazione("stazione"))
        muta = self.stazione("muta")
        (muta / "lingueMCTC.ini").unlink()
        self.assertNotEqual(self.menu(muta), modello)
        stazioni = [self.stazione(cartella) for cartella in CARTELLE]
        for pagina, lingua in PAGINE.items():
            self.macchina.imposta_lingua(lingua)
            for stazione in stazioni:
                with self.subTest(pagina=pagina, cartella=stazione.name):
                    self.menu(stazione, modello)

    def test_i_valori_accentati_restano_con_ogni_pagina(self):
        for pagina, lingua in PAGINE.items():
            self.macchina.imposta_lingua(lingua)
            with self.subTest(pagina=pagina):
                self.macchina.esegui(PROFILO, "cartellaDiQualsiasiNome", "ogniByteDellaPagina")

    def test_dove_le_chiamate_non_servono_il_profilo_e_quello_di_sempre(self):
        self.macchina.imposta_lingua(PAGINE["65001"])
        self.macchina.esegui(PROFILO)  # whole: nothing of it is Wine's

    def test_una_cartella_troppo_profonda_ha_un_messaggio_e_non_un_errore(self):
        # The path of lumira.ini has 259 characters, then 260, then more; that of the acceptance template is longer.
        for profondita in (245, 246, 270):
            with self.subTest(profondita=profondita):
                nomi = [str(profondita), "p" * 80, "q" * 80]
                nomi.append("r" * (profondita - len("\\".join(nomi)) - 1))
                programma = self.avvia(self.stazione(*nomi))
                attendi(self.finestre.visibili, cosa="messaggio")
                attendi(lambda: programma.poll() is not None, cosa="fine del programma")
                self.assertEqual(programma.returncode, 0)

    def test_una_cartella_di_scambio_troppo_profonda_ha_un_messaggio_e_la_stazione_lavora(self):
        stazione = self.stazione("stazione")
        ini = operatore.Profilo(stazione / "lumira.ini")
        ini.imposta("MCTC", "Modalita", "1")
        ini.imposta("MCTC", "DirDati", "C:\\" + "d" * 240 + "\\")
        programma = self.avvia(stazione)
        attendi(lambda: self.finestre.mostra(AVVISO), cosa="messaggio")
        self.schermo.tasto("Return")
        attendi(lambda: not self.finestre.mostra(AVVISO), cosa="messaggio chiuso")
        attendi(lambda: self.finestre.mostra("lumira"), cosa="menu")
        self.assertIsNone(programma.poll())
        self.ferma(programma)
