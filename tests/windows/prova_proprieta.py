"""The properties that the explorer shows of the programs, and their signing."""

import re
import unittest

from macchina import CONSEGNA, COSTRUZIONE
from proprieta import Proprieta

ITALIANO = 0x0410
UNICODE = 1200
DESCRIZIONI = {
    "lumira": "Stazione di prova dei proiettori",
    "qx5sim": "Simulatore dello strumento QX5",
    "lumira-password": "Cifratura della password della stazione",
    "lumira-acc": "Controllo dei file di accettazione",
    "lumira-far": "Lettura dei file di risultato",
    "lumira-diagnosi": "Diagnosi della stazione",
}


def configurato(variabile):
    cache = (COSTRUZIONE / "CMakeCache.txt").read_text(encoding="utf-8")
    return re.search(rf"(?m)^{variabile}:\w+=(.*)$", cache).group(1)


class Programmi(unittest.TestCase):
    maxDiff = None

    def test_ogni_programma_nostro_dice_di_chi_e(self):
        versione = configurato("CMAKE_PROJECT_VERSION")
        for nome, descrizione in DESCRIZIONI.items():
            with self.subTest(nome):
                proprieta = Proprieta(CONSEGNA / f"{nome}.exe")
                self.assertEqual(proprieta.lingua, ITALIANO)
                self.assertEqual(proprieta.traduzioni, [(ITALIANO, UNICODE)])
                self.assertEqual(".".join(map(str, proprieta.versione)), f"{versione}.0")
                self.assertEqual(
                    proprieta.testi,
                    {
                        "041004B0": {
                            "CompanyName": configurato("LUMIRA_DITTA"),
                            "FileDescription": descrizione,
                            "FileVersion": versione,
                            "InternalName": nome,
                            "LegalCopyright": configurato("LUMIRA_COPYRIGHT"),
                            "OriginalFilename": f"{nome}.exe",
                            "ProductName": "lumira",
                            "ProductVersion": versione,
                        }
                    },
                )

    def test_nessun_programma_nostro_resta_senza(self):
        self.assertEqual({programma.stem for programma in CONSEGNA.glob("*.exe")}, set(DESCRIZIONI))
