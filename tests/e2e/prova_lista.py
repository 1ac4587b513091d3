"""The worklist: what it lets through, and what not."""

from operatore import resta
from prova import ProvaStazione

TARGA_ERRATA = "Sezione:[DatiLibrettoVeicolo] - Campo:Targa - Targa non valida"


class Lista(ProvaStazione):
    def apri_lista(self):
        programma = self.avvia_al_menu()
        programma.premi("Prova proiettori")
        programma.attendi(programma.righe, cosa="le righe della lista")
        return programma

    def nessuna_scelta_al_primo_esame(self, programma):
        """The folder is looked at 2 s after the opening for the first time, and the list built once more."""

        def niente_scelto():
            return programma.titolo() == "Prova proiettori" and programma.valore("Telaio") == ""

        resta(niente_scelto, 2.5, "nessuna scelta")
        self.assertFalse(programma.abilitato("Conferma"))

    def test_un_file_con_errori_mostra_il_rapporto_e_non_si_conferma(self):
        self.stazione.accettazione("60000001", DatiLibrettoVeicolo__Targa="AB")
        self.stazione.accettazione("60000002")
        programma = self.apri_lista()
        # A line chosen before that would be checked twice, and show its report twice.
        self.nessuna_scelta_al_primo_esame(programma)
        programma.scegli_riga("60000001.ACC")
        programma.attendi_testo("Il file non può essere usato per la prova. Anomalie trovate")
        self.assertTrue(programma.mostra(TARGA_ERRATA), programma.testi())
        programma.premi("Ok")

        programma.attendi_pulsante("Annulla")
        self.assertFalse(programma.abilitato("Conferma"))
        programma.clicca("push button", "Conferma")
        programma.tasto("Return")
        programma.scegli_riga("60000002.ACC")  # the worklist is still there to choose a clean file from
        programma.attendi_pulsante("Conferma")
        programma.premi("Annulla")
        self.esci(programma)
        self.assertEqual(self.stazione.contenuto(), ["60000001.acc", "60000002.acc"])

    def test_si_apre_senza_scelta_e_nessun_file_viene_controllato(self):
        self.stazione.accettazione("60000003", DatiLibrettoVeicolo__Targa="AB")
        self.nessuna_scelta_al_primo_esame(self.apri_lista())

    def test_un_file_che_arriva_compare_da_solo(self):
        self.stazione.accettazione("60000004")
        programma = self.apri_lista()
        programma.scegli_riga("60000004.ACC")
        programma.attendi_pulsante("Conferma")
        self.stazione.accettazione("60000005", DatiLibrettoVeicolo__Targa="ZZ999ZZ")
        righe = ["60000004.ACC\tAB123CD", "60000005.ACC\tZZ999ZZ"]
        programma.attendi(lambda: programma.righe() == righe, 10, "la nuova riga")
        programma.attendi_pulsante("Conferma")  # the line chosen before still is
