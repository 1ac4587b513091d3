"""A vehicle tested through the accessibility bus alone, as an assistive technology does: no mouse and no key."""

from accessibilita import FOCALIZZATO
from prova import ProvaStazione, veicolo


class Assistenza(ProvaStazione):
    def premi(self, programma, nome):
        programma.attendi_pulsante(nome).agisci("Press")

    def premi_verso(self, programma, nome, prossimo):
        """The worklist takes its buttons away while it looks at a file: a press in that moment is refused."""

        def arrivato():
            if programma.abilitato(prossimo):
                return True
            if programma.abilitato(nome):
                self.premi(programma, nome)
            return False

        programma.attendi(arrivato, cosa=f"pulsante {prossimo} dopo {nome}")

    def lista(self, programma):
        return programma.attendi(lambda: programma.elementi("list"), cosa="la lista")[0]

    def test_un_veicolo_dal_menu_al_risultato_e_ritorno(self):
        self.stazione.accettazione("90000001")
        self.stazione.accettazione("90000002", DatiLibrettoVeicolo__Fabbrica="ALTRA FABBRICA")
        self.simula(veicolo(1))
        programma = self.avvia_al_menu()
        self.premi(programma, "Prova proiettori")
        programma.attendi(lambda: len(programma.righe()) == 2, cosa="le due righe")
        riga = programma.righe().index("90000002.ACC\tAB123CD")
        self.lista(programma).scegli_riga(riga)
        programma.attendi(lambda: programma.valore("Fabbrica / marca") == "ALTRA FABBRICA", cosa="la scheda del veicolo")
        self.premi_verso(programma, "Conferma", "Avvia")

        casella = programma.attendi(lambda: programma.pronto("text", "Altezza faro (cm)"), cosa="altezza")
        casella.agisci("SetFocus")
        programma.attendi(lambda: casella.ha(FOCALIZZATO), cosa="la casella ha il fuoco")
        casella.scrivi("70")
        programma.attendi(lambda: programma.valore("Altezza faro (cm)") == "70", cosa="altezza scritta")
        self.premi(programma, "Avvia")
        programma.attendi_testo("ESITO REGOLARE")
        self.premi(programma, "Esci")
        programma.attendi_pulsante("Prova proiettori")
        self.assertIn("90000002.far", self.stazione.contenuto())
        self.assertEqual(self.stazione.ini.valore("IMPOSTAZIONI", "AltezzaFaro"), "70")
        self.premi(programma, "Esci")
        self.assertEqual(programma.attendi_fine(), 0)
