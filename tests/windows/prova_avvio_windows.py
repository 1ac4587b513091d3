"""How the Windows program starts where it cannot keep its configuration."""

import shutil
import tempfile
from pathlib import Path

from finestre import ProvaFinestre
from macchina import CONSEGNA
from operatore import SENZA_POTERI

AVVISO = "Avviso"  # title of the program's messages


class AvvioWindows(ProvaFinestre):
    DAVANTI = SENZA_POTERI

    def setUp(self):
        cartella = tempfile.TemporaryDirectory(prefix="stazione-")
        self.addCleanup(cartella.cleanup)
        self.stazione = Path(cartella.name) / "lumira"
        shutil.copytree(CONSEGNA, self.stazione)
        self.ini = self.stazione / "lumira.ini"

    def test_con_il_file_di_sola_lettura_lo_dice_e_lavora(self):
        self.ini.chmod(0o444)  # to the machine, the attribute
        prima = self.ini.read_bytes()
        programma = self.avvia_stazione(self.stazione)
        self.attendi_testo(AVVISO)
        self.schermo.tasto("Return")
        self.attendi_schermo(lambda: not self.mostra(AVVISO), "messaggio chiuso")
        self.assertIsNone(programma.poll())
        self.assertEqual(self.ini.read_bytes(), prima)

    def test_dove_si_scrive_non_dice_niente(self):
        programma = self.avvia_stazione(self.stazione)
        self.resta_senza(AVVISO, 3)
        self.assertIsNone(programma.poll())
