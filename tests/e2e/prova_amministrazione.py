"""What the technician does: read the instrument, change the operator, verify, push back, unlock the limits."""

from operatore import Profilo, resta
from prova import ProvaStazione, veicolo

CHIAVI_STRUMENTO = ("Comm_Modello", "Comm_Marca", "Comm_NOmologazione", "Comm_NSerie", "Comm_ScadRevisione")
CHIAVI_TARATURA = ("MaxManopola", "MinManopola", "S1", "S2", "S3", "S4", "S5", "S6", "S7", "S8")

IDENTITA = """[DATI]
Comm_Modello=QX5-B
Comm_Marca=Fabbrica Due
Comm_NOmologazione=OM-777
Comm_NSerie=S-42
Comm_ScadRevisione=15/06/2027
Operatore=Bianchi Anna
[TARATURA]
""" + "".join(f"{chiave}={valore}\n" for chiave, valore in zip(CHIAVI_TARATURA, range(901, 911)))


class Amministrazione(ProvaStazione):
    def simula(self, scenario):
        """An instrument with a memory: a file that is there once the station has written."""
        self.memoria = Profilo(self.stazione.percorso("memoria.ini"))
        return super().simula(scenario, "--stato", self.memoria.percorso)

    def identita(self):
        """What the station holds of the instrument's identity."""
        return [self.stazione.ini.valore("LUMIRA", chiave) for chiave in CHIAVI_STRUMENTO]

    def operatore(self):
        return self.stazione.ini.valore("VEICOLO", "Operatore")

    def taratura(self):
        """What the station holds of the instrument's calibration."""
        return [self.stazione.ini.valore("CALIBRAZIONE_COM", chiave) for chiave in CHIAVI_TARATURA]

    def conservati(self, sezione, chiavi):
        """What the instrument keeps of what it was told."""
        return [self.memoria.valore(sezione, chiave).strip('"') for chiave in chiavi]

    def apri_setup(self):
        programma = self.avvia_al_menu()
        programma.premi("Impostazioni")
        programma.attendi_pulsante("Ok")
        return programma

    def scegli(self, programma, presente, voce):
        """Opens the list that shows one entry, with the mouse, and clicks another."""
        programma.clicca("combo box", presente)
        sinistra = self.sinistra(programma, "combo box", presente)
        # The entries of a list that is closed are told to be in the corner of the screen.
        programma.attendi(lambda: self.sinistra(programma, "list item", voce) >= sinistra, cosa=f"elenco con {voce}")
        programma.scegli_riga(voce)

    def sinistra(self, programma, ruolo, nome):
        elemento = next(e for e in programma.elementi(ruolo) if e.nome == nome)
        return elemento.rettangolo[0]

    def password(self, programma, testo):
        programma.attendi(lambda: programma.elementi("password text"), cosa="password")
        programma.schermo.scrivi(testo)

    def apri_verifica(self):
        programma = self.avvia_al_menu()
        programma.premi("Verifica periodica")
        self.password(programma, "lumira")
        programma.attendi_pulsante("Default")
        return programma

    def alla_verifica(self, programma, nome, testo):
        programma.compila(nome, testo)
        programma.premi("Ok")

    # --- setup ------------------------------------------------------------------------------------------------

    def test_lo_strumento_letto_riempie_una_configurazione_vuota(self):
        for chiave in CHIAVI_STRUMENTO:
            self.stazione.imposta("LUMIRA", chiave, "")
        self.stazione.imposta("VEICOLO", "Operatore", "")
        for chiave in CHIAVI_TARATURA:
            self.stazione.imposta("CALIBRAZIONE_COM", chiave, "")
        self.simula("[GENERALE]\n" + IDENTITA)
        programma = self.apri_setup()
        self.scegli(programma, "QX5", "QX5")
        programma.attendi(lambda: programma.valore("Modello strumento") == "QX5-B", cosa="modello letto")
        self.assertEqual(self.identita(), ["QX5-B", "Fabbrica Due", "OM-777", "S-42", "15/06/2027"])
        self.assertEqual(self.operatore(), "Bianchi Anna")
        self.assertEqual(self.taratura(), [str(valore) for valore in range(901, 911)])

    def test_un_operatore_cambiato_arriva_allo_strumento(self):
        self.simula("[GENERALE]\n" + IDENTITA)
        programma = self.apri_setup()
        programma.compila("Operatore", "Verdi Luca")
        programma.premi("Ok")
        programma.attendi_pulsante("Prova proiettori")
        self.assertEqual(self.operatore(), "Verdi Luca")
        self.assertEqual(self.conservati("DATI", CHIAVI_STRUMENTO), self.identita())
        self.assertEqual(self.conservati("DATI", ["Operatore"]), ["Verdi Luca"])

    def test_i_limiti_si_aprono_solo_con_la_password_e_contano_subito(self):
        self.stazione.accettazione("70000001")
        self.simula(veicolo(1))
        programma = self.apri_setup()
        programma.clicca("check box", "Sblocca limiti")
        self.password(programma, "sbagliata")
        programma.attendi_pulsante("Verifica periodica")
        limite = "Illuminamento min (lux)"
        programma.clicca("text", limite)
        programma.schermo.scrivi("9")

        def chiusi():
            return programma.valore(limite) == "3750" and programma.spuntata("Sblocca limiti") is False

        resta(chiusi, 1, "limiti chiusi")

        programma.clicca("check box", "Sblocca limiti")
        self.password(programma, "lumira")
        programma.attendi_pulsante("Verifica periodica")
        programma.compila(limite, "24400")
        programma.premi("Ok")
        programma.attendi_pulsante("Prova proiettori")
        self.assertEqual(self.stazione.ini.valore("PARAMETRI", "LuxMinAnab"), "24400")
        # The left dipped beam gives 24300: regular until a moment ago.
        self.prova_veicolo(programma, "70000001", "ESITO IRREGOLARE")

    def test_la_lingua_cambia_subito_anche_nel_menu_e_resta_solo_col_salvataggio(self):
        programma = self.apri_setup()
        self.scegli(programma, "Italiano", "English")
        programma.attendi_pulsante("Periodic verification")
        programma.attendi(
            lambda: programma.in_qualche_finestra("push button", "Headlamp test"), cosa="menu in inglese"
        )
        self.assertEqual(self.stazione.ini.valore("IMPOSTAZIONI", "Lingua"), "IT")
        programma.premi("Ok")
        programma.attendi_pulsante("Headlamp test")
        self.assertEqual(self.stazione.ini.valore("IMPOSTAZIONI", "Lingua"), "en")

    def test_una_cartella_che_non_esiste_non_viene_salvata(self):
        prima = self.stazione.ini.percorso.read_bytes()
        programma = self.apri_setup()
        programma.compila("Cartella accettazioni", "C:/non/esiste")
        programma.premi("Ok")
        programma.attendi_pulsante("Prova proiettori")
        self.assertEqual(self.stazione.ini.percorso.read_bytes(), prima)

    # --- periodic verification --------------------------------------------------------------------------------

    def test_una_verifica_riuscita_aggiorna_strumento_e_configurazione(self):
        self.simula("[GENERALE]\n" + IDENTITA)
        programma = self.apri_verifica()
        self.alla_verifica(programma, "Numero di serie", "NUOVO-1")
        programma.attendi_pulsante("Prova proiettori")
        self.assertEqual(self.identita()[3], "NUOVO-1")
        self.assertEqual(self.conservati("DATI", CHIAVI_STRUMENTO), self.identita())
        # No operator goes out with a verification: the instrument was told of none.
        self.assertRaises(KeyError, self.conservati, "DATI", ["Operatore"])

    def test_una_verifica_che_fallisce_fra_le_due_scritture_lascia_la_configurazione(self):
        prima = self.stazione.ini.percorso.read_bytes()
        self.simula("[GENERALE]\n[GUASTI]\nGuasto1=ScriviDati2;1;controllo\n")
        programma = self.apri_verifica()
        self.alla_verifica(programma, "Numero di serie", "NUOVO-2")
        programma.attendi_pulsante("Prova proiettori")
        self.assertEqual(self.conservati("DATI", ["Comm_NSerie"]), ["NUOVO-2"])
        self.assertEqual(self.stazione.ini.percorso.read_bytes(), prima)

    def test_una_verifica_interrotta_col_pulsante_lascia_la_configurazione(self):
        prima = self.stazione.ini.percorso.read_bytes()
        self.simula("[GENERALE]\n[GUASTI]\nGuasto1=Stato;*;silenzio\n")
        programma = self.apri_verifica()
        self.alla_verifica(programma, "Numero di serie", "NUOVO-3")
        programma.premi("Interrompi")
        programma.attendi_pulsante("Prova proiettori")
        self.assertEqual(self.stazione.ini.percorso.read_bytes(), prima)

    def test_default_rimanda_allo_strumento_cio_che_la_stazione_conserva(self):
        self.stazione.imposta("CALIBRAZIONE_COM", "S8", "4711")
        strumento = self.simula("[GENERALE]\n" + IDENTITA)
        programma = self.apri_verifica()
        programma.premi("Default")
        programma.attendi(lambda: "ScriviTaratura" in strumento.registro(), cosa="ultima scrittura")
        programma.attendi_pulsante("Default")
        self.assertEqual(self.conservati("DATI", CHIAVI_STRUMENTO), self.identita())
        self.assertEqual(self.conservati("DATI", ["Operatore"]), [self.operatore()])
        self.assertEqual(self.conservati("TARATURA", CHIAVI_TARATURA), self.taratura())
        self.assertEqual(self.taratura()[-1], "4711")
        programma.premi("Annulla")
        self.esci(programma)
