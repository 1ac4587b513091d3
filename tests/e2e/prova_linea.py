"""What may befall in mid session: the line goes away, the power goes away."""

import signal

from operatore import resta
from prova import ProvaStazione, veicolo

A_LUNGO = 50000  # polls: longer than any test


class InMezzoAllaProva(ProvaStazione):
    def setUp(self):
        super().setUp()
        self.stazione.imposta("VEICOLO", "Operatore", "Niccolò Forlì")
        self.stazione.accettazione("40000001")

    def test_una_linea_che_cade_non_perde_niente(self):
        strumento = self.simula(veicolo(1, riposo=2, prova=3, altro="Guasto1=Stato;4;riaggancio;500"))
        programma = self.avvia_al_menu()
        self.porta_al_collegamento(programma, "40000001")
        programma.attendi(lambda: "linea staccata" in strumento.registro(), cosa="la linea cade")
        porta = self.stazione.percorso("porte", "COM1")
        programma.attendi(porta.exists, cosa="la linea è tornata")

        self.assertTrue(programma.in_collegamento())
        self.assertEqual(self.stazione.contenuto(), ["40000001.acc"])
        programma.premi("Interrompi")
        programma.attendi_pulsante("Prova proiettori")
        self.assertEqual(self.stazione.contenuto(), ["40000001.acc"])

        self.prova_veicolo(programma, "40000001", "ESITO REGOLARE")
        programma.premi("Esci")
        self.esci(programma)
        self.assertEqual(self.stazione.contenuto(), ["40000001.far"])
        self.far_uguale("40000001", "regolare")

    def test_un_adattatore_tolto_e_rimesso_non_perde_niente(self):
        strumento = self.simula(veicolo(1, riposo=A_LUNGO))
        programma = self.avvia_al_menu()
        self.porta_al_collegamento(programma, "40000001")
        programma.attendi_testo("Attesa dati...")
        strumento.spegni()
        self.assertTrue(programma.in_collegamento())
        programma.premi("Interrompi")
        programma.attendi_pulsante("Prova proiettori")

        # A port without a device: the session does not begin, and the operator breaks it off.
        porta = self.stazione.percorso("porte", "COM1")
        porta.symlink_to(self.stazione.percorso("adattatore"))
        self.porta_al_collegamento(programma, "40000001")
        programma.attendi_testo("COM1 non si è aperta")
        programma.attendi_testo("controllare cavo e porta")
        programma.attendi_testo("COM1: chiusa")
        programma.premi("Interrompi")
        programma.attendi_pulsante("Prova proiettori")
        self.assertEqual(self.stazione.contenuto(), ["40000001.acc"])

        self.simula(veicolo(1))
        self.prova_veicolo(programma, "40000001", "ESITO REGOLARE")
        programma.premi("Esci")
        self.esci(programma)
        self.far_uguale("40000001", "regolare")

    def test_da_una_linea_guasta_si_esce_chiudendo_un_riquadro(self):
        guasto = "Guasto1=Stato;*;lunga;4096"
        strumento = self.simula(veicolo(1, riposo=A_LUNGO, altro=guasto))
        programma = self.avvia_al_menu()
        for esci in (lambda: programma.tasto("Escape"), lambda: programma.premi("Interrompi")):
            programma.premi("Prova proiettori")
            programma.scegli_riga("40000001.ACC")
            programma.premi_verso("Conferma", "Avvia")
            programma.premi("Avvia")
            programma.attendi_testo("Err Rs232")
            programma.premi("OK")
            programma.attendi(programma.in_collegamento, cosa="la finestra di collegamento è libera")
            esci()
            programma.attendi_pulsante("Prova proiettori")
            resta(lambda: self.senza_riquadri(programma), 3, "il menu senza riquadri")
        strumento.spegni()

        self.simula(veicolo(1))
        self.prova_veicolo(programma, "40000001", "ESITO REGOLARE")
        resta(lambda: self.senza_riquadri(programma), 3, "l'esito senza riquadri")
        programma.premi("Esci")
        self.esci(programma)
        self.far_uguale("40000001", "regolare")

    @staticmethod
    def senza_riquadri(programma):
        return "Err Rs232" not in [finestra.nome for finestra in programma.guarda(programma.finestre) or []]

    def test_un_programma_ucciso_lascia_intatta_la_configurazione(self):
        strumento = self.simula(veicolo(1, riposo=A_LUNGO))
        programma = self.avvia_al_menu()
        cartella = self.file_della_stazione()
        configurazione = self.stazione.ini.percorso.read_bytes()
        self.porta_al_collegamento(programma, "40000001")
        programma.attendi_testo("Attesa dati...")
        programma.uccidi()
        self.assertEqual(programma.processo.returncode, -signal.SIGKILL)
        self.assertEqual(self.stazione.ini.percorso.read_bytes(), configurazione)
        self.assertEqual(self.file_della_stazione(), cartella)
        strumento.spegni()

        self.simula(veicolo(1))
        programma = self.avvia_al_menu()
        self.prova_veicolo(programma, "40000001", "ESITO REGOLARE")
        programma.premi("Esci")
        self.esci(programma)
        self.far_uguale("40000001", "regolare")

    def file_della_stazione(self):
        return sorted(str(voce) for voce in self.stazione.cartella.rglob("*"))
