"""A line recorded by the bridge and played again: the same vehicle comes to the same result file."""

import operatore
from prova import ProvaStazione, QX5SIM, veicolo

# The first session ends with a damaged measure. In the second a reply is missing, one is late, one has noise
# around it, and the measure comes in two pieces.
PRIMA = "Guasto1=Misura;1;controllo"
SECONDA = "\n".join(
    (
        "Guasto1=Stato;2;silenzio",
        "Guasto2=Stato;3;ritardo;400",
        "Guasto3=Stato;4;rumore",
        "Guasto4=Misura;1;spezzata;150",
    )
)


class Registrazione(ProvaStazione):
    def setUp(self):
        super().setUp()
        self.stazione.imposta("MCTC", "Modalita", "1")
        self.stazione.imposta("VEICOLO", "Operatore", "Niccolò Forlì")
        self.registrazione = self.stazione.percorso("registrazione.txt")

    def qx5sim(self, nome, *opzioni):
        strumento = operatore.Strumento(QX5SIM, self.stazione, None, *opzioni, nome=nome)
        self.addCleanup(strumento.spegni)
        return strumento

    def registra(self, scenario):
        """@returns the instrument at the far end of a bridge, and the bridge."""
        strumento = operatore.Strumento(QX5SIM, self.stazione, scenario, porta="strumento")
        self.addCleanup(strumento.spegni)
        ponte = self.qx5sim("ponte", "--ponte", strumento.porta, "--registrazione", self.registrazione)
        return strumento, ponte

    def prova(self, programma, nome):
        """The vehicle in the two sessions, up to its result file. @returns its bytes."""
        self.stazione.accettazione(nome)
        self.porta_al_collegamento(programma, nome)
        programma.attendi_pulsante("Prova proiettori")
        self.prova_veicolo(programma, nome, "ESITO REGOLARE")
        programma.premi("Esci")
        programma.attendi_pulsante("Prova proiettori")
        return self.stazione.risultato(nome)

    def spegni(self, strumento):
        """@returns the status with which it ended."""
        strumento.processo.terminate()
        return strumento.processo.wait(10)

    def test_una_sessione_registrata_da_lo_stesso_far(self):
        strumento, ponte = self.registra(veicolo(1, altro=PRIMA) + veicolo(2, riposo=2, prova=3, altro=SECONDA))
        programma = self.avvia_al_menu()
        dal_vero = self.prova(programma, "80000001")
        self.assertEqual(self.spegni(ponte), 0)
        strumento.spegni()

        for nome, opzioni in (("tempi", []), ("doppio", ["--accelera", "2"]), ("svelto", ["--svelto"])):
            ripetuto = self.qx5sim(nome, "--riproduci", self.registrazione, *opzioni)
            self.uguale_salvo_gli_orari(self.prova(programma, "80000001"), dal_vero)
            self.assertIn("fine della registrazione", ripetuto.registro())
            self.assertNotIn("diverso", ripetuto.registro())
            self.assertEqual(self.spegni(ripetuto), 0)
        self.esci(programma)
