"""What the workshop's PC and the configuration change on the way of a vehicle."""

from operatore import resta
from prova import ProvaStazione, veicolo


class Opzioni(ProvaStazione):
    def setUp(self):
        super().setUp()
        self.stazione.accettazione("50000001")

    def test_con_la_virgola_decimale_il_risultato_mostra_la_virgola(self):
        self.simula(veicolo(1, ("0123OO", "0612OO", "0250OO", "0598OO")))
        programma = self.avvia_al_menu(LC_ALL="it_IT.UTF-8")
        self.prova_veicolo(
            programma, "50000001", "ESITO REGOLARE", lambda: programma.compila("Altezza faro (cm)", "6,5")
        )
        testi = programma.testi()
        self.assertEqual([t for t in testi if t[:1].isdigit()], ["25", "12,3", "59,8", "61,2"])
        self.assertEqual(programma.valore("Altezza faro (cm)"), "6,5")
        programma.premi("Esci")
        programma.attendi_pulsante("Prova proiettori")
        far = self.stazione.risultato("50000001").decode("cp1252").split("\r\n")
        self.assertIn("AltezzaAnab=#6,5", far)
        self.assertIn("IllumLuxAnabSx=12300", far)
        self.esci(programma)

    def test_con_il_punto_decimale_il_risultato_mostra_il_punto(self):
        self.simula(veicolo(1, ("0123OO", "0612OO", "0250OO", "0598OO")))
        programma = self.avvia_al_menu(LC_ALL="en_GB.UTF-8")
        self.prova_veicolo(programma, "50000001", "ESITO REGOLARE")
        self.assertEqual([t for t in programma.testi() if t[:1].isdigit()], ["25", "12.3", "59.8", "61.2"])

    def test_con_debug_il_collegamento_resta_fino_al_pulsante(self):
        self.stazione.imposta("GENERAL", "Debug", "1")
        self.simula(veicolo(1))
        programma = self.avvia_al_menu()
        self.porta_al_collegamento(programma, "50000001")
        programma.attendi(lambda: "O3=O" in programma.righe(), cosa="ultima riga della misura")
        # Without Debug it goes after 2 s.
        resta(programma.in_collegamento, 3, "finestra di collegamento")
        misure = "L0=243 V0=O O0=# L1=612 V1=O O1=O L2=251 V2=O O2=O L3=598 V3=# O3=O"
        self.assertEqual(programma.righe(), misure.split())
        self.assertEqual(self.stazione.contenuto(), ["50000001.acc"])
        programma.premi("Interrompi")
        programma.attendi_testo("ESITO REGOLARE")
        self.assertEqual(self.stazione.contenuto(), ["50000001.far"])

    def test_senza_file_di_accettazione_si_scrive_il_veicolo_a_mano(self):
        self.stazione.imposta("MCTC", "IniFile", "0")
        self.simula(veicolo(1))
        programma = self.avvia_al_menu()
        programma.premi("Prova proiettori")
        programma.compila("Targa", "ZZ999ZZ")
        programma.premi("Avvia")
        programma.attendi_testo("ESITO REGOLARE")
        programma.premi("Esci")
        programma.attendi_pulsante("Prova proiettori")
        self.assertEqual(self.stazione.contenuto(), ["50000001.acc"])
        self.assertEqual(self.stazione.ini.valore("VEICOLO", "Targa"), "ZZ999ZZ")
        self.esci(programma)
