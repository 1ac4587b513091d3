"""The Windows installer on a machine that has nothing else, used by an ordinary user: installed, started, upgraded,
a vehicle and its page, removed."""

import os
import unittest

import carta
import operatore
from installatore import consegnato, rimuovi
from macchina import MacchinaUtente
from operatore import attendi
from veicolo import ProvaVeicolo, StazioneWindows


@unittest.skipUnless(os.geteuid() == 0, "solo root fa la macchina di un altro")
class MacchinaNuovaWindows(ProvaVeicolo):
    MACCHINA = MacchinaUtente
    ORDINARIO = True

    def setUp(self):
        super().setUp()
        self.prendi_stampante()
        self.macchina.ambiente |= self.stampante.ambiente
        self.installatore = self.macchina.ricevi(consegnato())

    def installa(self, *cartella):
        self.macchina.esegui(self.installatore, "/S", *cartella)

    def apri_e_chiudi(self, cartella):
        programma = self.macchina.avvia(cartella / "lumira.exe", cwd=cartella)
        self.addCleanup(operatore.ferma_processo, programma)
        attendi(lambda: self.finestre.mostra("lumira"), cosa="menu")
        self.esci_dal_menu(programma)

    def test_installata_aggiornata_porta_un_veicolo_stampa_la_sua_pagina_ed_e_rimossa(self):
        pagina = self.impara_la_stampa()
        atteso = self.stazione.risultato(self.NOME)
        cartella = self.macchina.disco / "stazione"

        self.installa(r"/D=C:\stazione")
        self.apri_e_chiudi(cartella)
        stazione = StazioneWindows(cartella)
        configurazione = stazione.ini.percorso.read_bytes()
        self.installa()
        self.assertEqual(stazione.ini.percorso.read_bytes(), configurazione)

        programma, menu = self.porta_sulla(stazione)
        carta.confronta(self, self.stampa(), pagina)
        self.esci_dal_risultato(programma, menu)
        self.uguale_salvo_gli_orari(stazione.risultato(self.NOME), atteso)
        self.assertEqual(stazione.contenuto(), [f"{self.NOME}.acc", f"{self.NOME}.far"])

        rimuovi(self.macchina, cartella)
        restano = [file.name for file in cartella.rglob("*") if file.is_file()]
        for nome in (f"{self.NOME}.far", "lumira.ini"):
            self.assertIn(nome, restano)
        self.assertNotIn("lumira.exe", restano)
