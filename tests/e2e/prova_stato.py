"""What the station tells by itself: its state on the menu, why there is no list, and a plate among hundreds."""

import shutil

from prova import ProvaStazione

VUOTA = "Nessun veicolo da scegliere: la cartella delle accettazioni è vuota"
MANCANTE = "Nessun veicolo da scegliere: la cartella delle accettazioni manca o non si raggiunge"


class Stato(ProvaStazione):
    def test_una_targa_fra_trecento_con_quattro_caratteri(self):
        for i in range(300):
            targa = f"{'ABCDEFGHJK'[i % 10]}{'LMNPRSTVWX'[i // 10 % 10]}{100 + i}ZZ"
            self.stazione.accettazione(f"7{i:07}", DatiLibrettoVeicolo__Targa=targa)
        programma = self.avvia_al_menu()
        programma.attendi_testo("Cartella: 300 in attesa")
        programma.premi("Prova proiettori")
        programma.attendi(lambda: len(programma.righe()) == 300, 30, "le righe della lista")
        programma.schermo.scrivi("r347")  # the 248th of the list
        programma.attendi_testo("Cerca: R347")
        programma.attendi_pulsante("Conferma")
        programma.attendi_testo("HR347ZZ")
        programma.premi_verso("Conferma", "Avvia")
        programma.attendi_testo("HR347ZZ")
        programma.premi("Esci")
        self.esci(programma)

    def test_cartella_vuota_detta_dove_serve(self):
        programma = self.avvia_al_menu()
        programma.attendi_testo("Cartella: nessun veicolo")
        programma.premi_verso("Prova proiettori", "Avvia")
        programma.attendi_testo(VUOTA)
        programma.premi("Esci")
        # A vehicle has come meanwhile: the menu knows.
        self.stazione.accettazione("71000001")
        programma.attendi_testo("Cartella: 1 in attesa", 60)
        self.esci(programma)

    def test_cartella_mancante_detta_sul_menu_e_sul_modulo(self):
        shutil.rmtree(self.stazione.scambio)
        programma = self.avvia_al_menu()
        programma.attendi(lambda: programma.mostra("Cartella assente o non raggiungibile"), cosa="l'avviso")
        programma.premi_verso("Prova proiettori", "Avvia")
        programma.attendi(lambda: programma.mostra(MANCANTE), cosa="il motivo")
        programma.premi("Esci")
        self.esci(programma)

    def test_verifica_scaduta_e_porta_assente_dette_sul_menu(self):
        self.stazione.imposta("LUMIRA", "Comm_ScadRevisione", "31/12/2020")
        self.stazione.imposta("COMM", "Num", "19")
        programma = self.avvia_al_menu()
        programma.attendi(lambda: programma.mostra("VERIFICA SCADUTA il 31/12/2020"), cosa="la scadenza")
        self.assertTrue(programma.mostra("Porta COM19 assente"), programma.testi())
        self.assertTrue(programma.mostra("lumira "), programma.testi())
        self.esci(programma)
