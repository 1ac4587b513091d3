"""How the program starts, and when it does not."""

import time

from operatore import attendi
from prova import ProvaStazione


class Avvio(ProvaStazione):
    def test_un_secondo_avvio_non_mostra_niente_e_finisce_subito(self):
        primo = self.avvia_al_menu()
        secondo = self.avvia()

        def finito():
            self.assertEqual(secondo.finestre(), [])
            return not secondo.vivo()

        attendi(finito, 10, "fine del secondo avvio")
        self.assertEqual(secondo.processo.returncode, 0)
        self.assertEqual(secondo.diario(), "")
        self.assertTrue(primo.abilitato("Prova proiettori"))
        self.esci(primo)

        # The first one gone, the next start is a first one again.
        self.esci(self.avvia_al_menu())

    def test_senza_lumira_ini_un_messaggio_a_tempo_e_fine(self):
        self.file_mancante("lumira.ini")

    def test_senza_lingue_ini_un_messaggio_a_tempo_e_fine(self):
        self.file_mancante("lingue.ini")

    def file_mancante(self, nome):
        self.stazione.percorso(nome).unlink()
        programma = self.avvia()
        programma.attendi_testo("Setup File not Found")
        inizio = time.monotonic()
        testo = next(t for t in programma.testi() if "not Found" in t)
        self.assertTrue(testo.endswith(f"\\{nome})"), testo)
        self.assertEqual(programma.nomi("push button"), [])
        self.assertEqual(programma.attendi_fine(10), 0)
        self.assertAlmostEqual(time.monotonic() - inizio, 2, delta=1)
        self.assertFalse(self.stazione.percorso(nome).exists())

    def test_senza_i_testi_delle_finestre_parte_con_le_scritte_vuote(self):
        self.stazione.percorso("lingueMCTC.ini").unlink()
        programma = self.avvia()
        programma.attendi(lambda: len(programma.nomi("push button")) == 8, cosa="gli otto pulsanti")
        self.assertEqual(set(programma.nomi("push button")), {""})
        programma.clicca_su(programma.elementi("push button")[-1])  # the way out is the last of the menu
        self.assertEqual(programma.attendi_fine(), 0)
