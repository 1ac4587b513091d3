"""The instrument is off. A file of its own: half a minute of waiting goes by beside the other tests."""

import time

from prova import ProvaStazione

SPENTO = "[GUASTI]\nGuasto1=*;*;silenzio\n"


class StrumentoSpento(ProvaStazione):
    def test_finisce_dopo_ventotto_secondi_senza_risultato(self):
        self.stazione.accettazione("30000001")
        strumento = self.simula(SPENTO)
        programma = self.avvia_al_menu()
        self.porta_al_collegamento(programma, "30000001")
        inizio = time.monotonic()
        programma.attendi_testo("COM1: in attesa")
        programma.attendi_testo("Nessuna risposta")
        programma.attendi_testo("Lo strumento non risponde: controllare accensione e cavo", secondi=40)
        muto = time.monotonic() - inizio
        programma.attendi(lambda: programma.abilitato("Prova proiettori"), secondi=10, cosa="menu")
        fine = time.monotonic() - inizio
        programma.attendi_testo("Lo strumento non risponde")  # on the menu now, for a minute

        # 24.2 s and 4 s more; the looks at the screen and a busy machine take their share.
        self.assertAlmostEqual(muto, 24.2, delta=1.5)
        self.assertAlmostEqual(fine, 28.2, delta=1.5)
        self.assertEqual(strumento.registro().count(" Stato"), 12)  # one frame and eleven times again
        self.assertEqual(self.stazione.contenuto(), ["30000001.acc"])
        self.esci(programma)
