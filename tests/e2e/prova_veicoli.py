"""A morning with local folders: three vehicles, one after the other."""

from prova import ProvaStazione, REGOLARE, veicolo

# The dipped beam on the right too weak, each of the others just inside its limits.
SCARTATO_INTENSITA = ("0899OO", "0201OO", "0037OO", "1499OO")
# The dipped beam on the left too high and too far to the left.
SCARTATO_MIRA = ("0305AS", "0720OO", "0298OO", "0734OO")


class CartelleLocali(ProvaStazione):
    def setUp(self):
        super().setUp()
        self.stazione.imposta("MCTC", "Modalita", "1")
        self.stazione.imposta("VEICOLO", "Operatore", "Niccolò Forlì")

    def test_tre_veicoli_danno_i_tre_file_attesi_e_lasciano_la_lista(self):
        for numero, targa in ((1, "AA111AA"), (2, "BB222BB"), (3, "CC333CC")):
            self.stazione.accettazione(f"1000000{numero}", DatiLibrettoVeicolo__Targa=targa)
        self.simula(veicolo(1, REGOLARE) + veicolo(2, SCARTATO_INTENSITA) + veicolo(3, SCARTATO_MIRA))
        programma = self.avvia_al_menu()

        def altro_faro():
            programma.compila("Altezza faro (cm)", "72")
            programma.clicca("check box", "Fari simmetrici")

        self.prova_veicolo(programma, "10000001", "ESITO REGOLARE")
        self.assertNotIn("NO", programma.testi())
        programma.premi("Esci")

        self.prova_veicolo(programma, "10000002", "ESITO IRREGOLARE", altro_faro)
        self.assertEqual(programma.testi().count("SI"), 8)
        programma.premi("Esci")

        # Height and type of the lamp stay as they were entered for the vehicle before.
        self.prova_veicolo(programma, "10000003", "ESITO IRREGOLARE")
        self.assertEqual(programma.testi().count("NO"), 2)
        programma.premi("Esci")

        self.esci(programma)
        self.assertEqual(self.stazione.contenuto(), ["10000001.far", "10000002.far", "10000003.far"])
        self.far_uguale("10000001", "regolare")
        self.far_uguale("10000002", "intensita")
        self.far_uguale("10000003", "orientamento")
