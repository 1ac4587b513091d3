"""With network folders the acceptance file is the network software's to remove."""

from prova import ProvaStazione, veicolo


class CartelleDiRete(ProvaStazione):
    def test_il_file_di_accettazione_resta_e_la_lista_lo_mostra_ancora(self):
        self.stazione.imposta("MCTC", "Modalita", "0")
        self.stazione.imposta("MCTC", "ReteRisultati", f"{self.stazione.percorso('altrove')}\\")
        self.stazione.percorso("altrove", "ESITO").mkdir(parents=True)
        self.stazione.imposta("VEICOLO", "Operatore", "Niccolò Forlì")
        self.stazione.accettazione("20000001")
        self.assertEqual(self.stazione.scambio.name, "ESITO")
        self.simula(veicolo(1))
        programma = self.avvia_al_menu()
        self.prova_veicolo(programma, "20000001", "ESITO REGOLARE")
        programma.premi("Esci")

        programma.premi("Prova proiettori")
        programma.attendi(lambda: programma.righe() == ["20000001.ACC\tAB123CD"], cosa="la riga nella lista")
        programma.premi("Annulla")
        self.esci(programma)
        self.assertEqual(self.stazione.contenuto(), ["20000001.acc", "20000001.far"])
        self.assertEqual(list(self.stazione.percorso("altrove", "ESITO").iterdir()), [])
        self.far_uguale("20000001", "regolare")

    def test_una_seconda_prova_dello_stesso_veicolo_sostituisce_il_risultato(self):
        self.stazione.imposta("MCTC", "Modalita", "0")
        self.stazione.imposta("VEICOLO", "Operatore", "Niccolò Forlì")
        self.stazione.accettazione("20000002")
        (self.stazione.scambio / "20000002.far").write_bytes(b"[Kandelo]\r\nEsito=I\r\n" * 200)
        self.simula(veicolo(1))
        programma = self.avvia_al_menu()
        self.prova_veicolo(programma, "20000002", "ESITO REGOLARE")
        programma.premi("Esci")
        self.esci(programma)
        self.far_uguale("20000002", "regolare")
