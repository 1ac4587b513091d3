"""The delivered Windows program makes the result file that the Debian program makes."""

from veicolo import ProvaVeicolo


class Veicolo(ProvaVeicolo):
    def prepara(self, stazione):
        super().prepara(stazione)
        stazione.imposta("IMPOSTAZIONI", "AltezzaFaro", self.altezza)

    def come_su_debian(self, lingua, altezza):
        """@param altezza of the headlamp, as the language writes it."""
        self.altezza = altezza
        self.macchina.imposta_lingua(lingua)
        self.impara_l_uscita(self.impara_il_veicolo(LC_ALL=lingua))
        atteso = self.stazione.risultato(self.NOME)
        self.assertIn(f"AltezzaAnab=#{altezza}\r\n".encode("cp1252"), atteso)
        self.esci_dal_risultato(*self.porta_su_windows())
        self.uguale_salvo_gli_orari(self.stazione.risultato(self.NOME), atteso)
        self.assertEqual(self.stazione.contenuto(), [f"{self.NOME}.acc", f"{self.NOME}.far"])

    def test_un_veicolo_dalla_lista_al_risultato_come_su_debian(self):
        self.come_su_debian("C.UTF-8", "72.5")

    def test_lo_stesso_dove_la_virgola_separa_i_decimali(self):
        self.come_su_debian("it_IT.UTF-8", "72,5")
