"""What the technician does: read the instrument, change the operator, verify, push back, unlock the limits."""

from prova import ProvaStazione, veicolo

IDENTITA = """[DATI]
Comm_Modello=QX5-B
Comm_Marca=Fabbrica Due
Comm_NOmologazione=OM-777
Comm_NSerie=S-42
Comm_ScadRevisione=15/06/2027
Operatore=Bianchi Anna
[TARATURA]
""" + "".join(f"{nome}={valore}\n" for nome, valore in zip(
    ("MaxManopola", "MinManopola", "S1", "S2", "S3", "S4", "S5", "S6", "S7", "S8"), range(901, 911)))

CHIAVI_STRUMENTO = ("Comm_Modello", "Comm_Marca", "Comm_NOmologazione", "Comm_NSerie", "Comm_ScadRevisione")


class Amministrazione(ProvaStazione):
    def strumento(self):
        """What the configuration holds of the instrument's identity."""
        return [self.stazione.ini.valore("LUMIRA", chiave) for chiave in CHIAVI_STRUMENTO]

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
        self.simula("[GENERALE]\n" + IDENTITA)
        programma = self.apri_setup()
        self.scegli(programma, "QX5", "QX5")
        programma.attendi(lambda: programma.valore("Modello strumento") == "QX5-B", cosa="modello letto")
        self.assertEqual(self.strumento(), ["QX5-B", "Fabbrica Due", "OM-777", "S-42", "15/06/2027"])
        self.assertEqual(self.stazione.ini.valore("VEICOLO", "Operatore"), "Bianchi Anna")
        self.assertEqual(self.stazione.ini.valore("CALIBRAZIONE_COM", "MaxManopola"), "901")
        self.assertEqual(self.stazione.ini.valore("CALIBRAZIONE_COM", "S8"), "910")

    def test_un_operatore_cambiato_arriva_allo_strumento(self):
        strumento = self.simula("[GENERALE]\n")
        programma = self.apri_setup()
        programma.compila("Operatore", "Verdi Luca")
        programma.premi("Ok")
        programma.attendi(lambda: "Verdi Luca" in strumento.registro(), cosa="operatore nello strumento")
        programma.attendi_pulsante("Prova proiettori")
        self.assertEqual(self.stazione.ini.valore("VEICOLO", "Operatore"), "Verdi Luca")

    def test_i_limiti_si_aprono_solo_con_la_password_e_contano_subito(self):
        self.stazione.accettazione("70000001")
        self.simula(veicolo(1))
        programma = self.apri_setup()
        programma.clicca("check box", "Sblocca limiti")
        self.password(programma, "sbagliata")
        programma.attendi_pulsante("Verifica periodica")
        programma.clicca("text", "Intensità min (lux)")
        programma.schermo.scrivi("9")
        self.assertEqual(programma.valore("Intensità min (lux)"), "3750")

        programma.clicca("check box", "Sblocca limiti")
        self.password(programma, "lumira")
        programma.attendi_pulsante("Verifica periodica")
        programma.compila("Intensità min (lux)", "24400")
        programma.premi("Ok")
        programma.attendi_pulsante("Prova proiettori")
        self.assertEqual(self.stazione.ini.valore("PARAMETRI", "LuxMinAnab"), "24400")
        # The left dipped beam gives 24300: regular until a moment ago.
        self.prova_veicolo(programma, "70000001", "ESITO IRREGOLARE")

    def test_la_lingua_cambia_subito_anche_nel_menu_e_resta_solo_col_salvataggio(self):
        programma = self.apri_setup()
        self.scegli(programma, "Italiano", "English")
        programma.attendi_pulsante("Periodic verification")
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
        strumento = self.simula("[GENERALE]\n")
        programma = self.apri_verifica()
        self.alla_verifica(programma, "Numero di serie", "NUOVO-1")
        programma.attendi_pulsante("Prova proiettori")
        self.assertEqual(self.strumento()[3], "NUOVO-1")
        self.assertIn("NUOVO-1", strumento.registro())

    def test_una_verifica_che_fallisce_fra_le_due_scritture_lascia_la_configurazione(self):
        prima = self.stazione.ini.percorso.read_bytes()
        strumento = self.simula("[GENERALE]\n[GUASTI]\nGuasto1=ScriviDati2;1;controllo\n")
        programma = self.apri_verifica()
        self.alla_verifica(programma, "Numero di serie", "NUOVO-2")
        programma.attendi_pulsante("Prova proiettori")
        self.assertIn("NUOVO-2", strumento.registro())
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
        programma.attendi(lambda: "4711" in strumento.registro(), cosa="taratura nello strumento")
        programma.attendi_pulsante("Default")
        programma.premi("Annulla")
        self.esci(programma)
