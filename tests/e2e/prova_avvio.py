"""How the program starts, and when it does not."""

import os
import shutil
import time

from operatore import SENZA_POTERI, attendi
from prova import ProvaStazione

AVVISO = "Le modifiche alle impostazioni andranno perse"


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

    def test_dove_la_configurazione_non_si_scrive_lo_dice_e_lavora(self):
        self.stazione.cartella.chmod(0o555)
        self.addCleanup(self.stazione.cartella.chmod, 0o755)
        programma = self.avviso(AVVISO)
        self.assertTrue(programma.mostra("\\lumira.ini)"), programma.testi())
        programma.premi("Ok")
        programma.premi("Informazioni")
        programma.attendi_testo("Informazioni")
        programma.premi("Ok")
        self.esci(programma)

    def test_un_file_di_un_altro_anche_in_unaltra_lingua_o_senza_il_testo(self):
        self.stazione.imposta("IMPOSTAZIONI", "Lingua", "EN")
        ini = self.stazione.percorso("lumira.ini")
        if os.geteuid() == 0:
            shutil.chown(ini, "nobody")
        ini.chmod(0o444)
        prima = ini.read_bytes()
        self.congeda(self.avviso("Changes to the settings will be lost"))

        testi = self.stazione.percorso("lingueMCTC.ini")
        testi.write_bytes(b"\r\n".join(r for r in testi.read_bytes().split(b"\r\n") if not r.startswith(b"160=")))
        self.congeda(self.avviso("Setup File not Writable"))
        self.assertEqual(ini.read_bytes(), prima)

    def test_dopo_laggiornamento_di_una_stazione_aperta_non_ne_parte_una_seconda(self):
        programma = self.avvia_al_menu()
        # As a package does: the new file beside the old one, then in its place.
        nuovo = self.stazione.percorso("lumira.dpkg-new")
        shutil.copy2(self.stazione.percorso("lumira"), nuovo)
        nuovo.rename(self.stazione.percorso("lumira"))
        self.assertEqual(self.avvia().attendi_fine(10), 0)
        self.esci(programma)

    def avviso(self, testo):
        """A start that ends in a warning."""
        programma = self.avvia(*SENZA_POTERI)
        programma.attendi_testo(testo)
        return programma

    def congeda(self, programma):
        """From the warning to the end of the program."""
        programma.premi("Ok")
        programma.premi("Exit")
        self.assertEqual(programma.attendi_fine(), 0)

    def test_senza_i_testi_delle_finestre_parte_con_le_scritte_vuote(self):
        self.stazione.percorso("lingueMCTC.ini").unlink()
        programma = self.avvia()
        programma.attendi(lambda: len(programma.nomi("push button")) == 8, cosa="gli otto pulsanti")
        self.assertEqual(set(programma.nomi("push button")), {""})
        programma.clicca_su(programma.elementi("push button")[-1])  # the way out is the last of the menu
        self.assertEqual(programma.attendi_fine(), 0)
