"""The delivered Windows program makes the result file that the Debian program makes."""

from veicolo import ProvaVeicolo


class Veicolo(ProvaVeicolo):
    def test_un_veicolo_dalla_lista_al_risultato_come_su_debian(self):
        self.impara_l_uscita(self.impara_il_veicolo())
        atteso = self.stazione.risultato(self.NOME)
        self.esci_dal_risultato(*self.porta_su_windows())
        self.uguale_salvo_gli_orari(self.stazione.risultato(self.NOME), atteso)
        self.assertEqual(self.stazione.contenuto(), [f"{self.NOME}.acc", f"{self.NOME}.far"])
