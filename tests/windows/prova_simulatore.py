"""qx5sim as a Windows program on a COM port, at the other end of a null-modem cable from the station: how a
technician trains without an instrument, and how the line of a real one is recorded and played again."""

import os
import subprocess

from cavo import CavoNullModem, collega_cavo
from finestre import ProvaFinestre
from macchina import CONSEGNA, Macchina
from operatore import attendi, avvia_processo, ferma_processo
from prova import ProvaStazione, QX5SIM, veicolo


class Simulatore(ProvaStazione):
    def setUp(self):
        super().setUp()
        self.macchina = Macchina()
        self.addCleanup(self.macchina.chiudi)
        self.stazione.imposta("MCTC", "Modalita", "1")
        self.stazione.imposta("VEICOLO", "Operatore", "Niccolò Forlì")

    def cavo(self, numero):
        return collega_cavo(self.macchina, numero, self.addCleanup)

    def qx5sim_windows(self, nome, porta, *argomenti):
        """Starts qx5sim.exe and waits until it has the port."""
        uscita = self.stazione.percorso(f"{nome}.out")
        with open(uscita, "wb") as scritta:
            simulatore = self.macchina.avvia(
                CONSEGNA / "qx5sim.exe", "--lingua", "IT", "--dispositivo", porta, *argomenti, stdout=scritta
            )
        self.addCleanup(ferma_processo, simulatore)
        attendi(lambda: f"pronto: {porta}" in uscita.read_text(errors="replace"), cosa="qx5sim.exe pronto")
        return simulatore, uscita

    def collega_stazione(self, dispositivo):
        self.stazione.percorso("porte").mkdir(exist_ok=True)
        self.stazione.percorso("porte", "COM1").symlink_to(dispositivo)

    def prova(self, programma, nome):
        self.stazione.accettazione(nome)
        self.prova_veicolo(programma, nome, "ESITO REGOLARE")
        programma.premi("Esci")
        programma.attendi_pulsante("Prova proiettori")

    def test_la_stazione_prova_un_veicolo_con_lo_strumento_simulato_su_windows(self):
        self.collega_stazione(self.cavo(3))
        scenario = self.stazione.percorso("scenario.ini")
        scenario.write_text(veicolo(1), encoding="cp1252")
        self.qx5sim_windows("qx5sim", "COM3", Macchina.percorso(scenario))
        programma = self.avvia_al_menu()
        self.prova(programma, "70000002")
        self.esci(programma)
        self.far_uguale("70000002", "regolare")

    def test_il_ponte_su_windows_registra_cio_che_poi_si_ripete(self):
        self.collega_stazione(self.cavo(3))
        strumento = self.cavo(4)
        scenario = self.stazione.percorso("scenario.ini")
        scenario.write_text(veicolo(1, altro="Guasto1=Stato;2;rumore"), encoding="cp1252")
        vero = avvia_processo([QX5SIM, "--dispositivo", strumento, scenario], stdout=subprocess.DEVNULL)
        self.addCleanup(ferma_processo, vero)
        registrazione = self.stazione.percorso("registrazione.txt")
        ponte, _ = self.qx5sim_windows(
            "ponte", "COM3", "--ponte", "COM4", "--registrazione", Macchina.percorso(registrazione)
        )
        programma = self.avvia_al_menu()
        self.prova(programma, "70000003")
        self.far_uguale("70000003", "regolare")
        ferma_processo(ponte)
        self.macchina.spegni()

        _, uscita = self.qx5sim_windows("ripetuto", "COM3", "--riproduci", Macchina.percorso(registrazione), "--svelto")
        self.prova(programma, "70000003")
        self.far_uguale("70000003", "regolare")
        self.assertIn("fine della registrazione", uscita.read_text(encoding="utf-8", errors="replace"))
        self.assertNotIn("diverso", uscita.read_text(encoding="utf-8", errors="replace"))
        self.esci(programma)

    def test_un_adattatore_tolto_finisce_il_ponte(self):
        stazione = self.cavo(3)
        adattatore = CavoNullModem()
        self.macchina.collega_porta(4, adattatore.dispositivi[0])
        registrazione = self.stazione.percorso("registrazione.txt")
        ponte, _ = self.qx5sim_windows(
            "ponte", "COM3", "--ponte", "COM4", "--registrazione", Macchina.percorso(registrazione)
        )
        porta = os.open(stazione, os.O_RDWR | os.O_NOCTTY)
        self.addCleanup(os.close, porta)
        os.write(porta, bytes.fromhex("02 41 42 43 10 36 03"))
        attendi(lambda: "10 36 03" in registrazione.read_text(), cosa="il comando registrato")
        adattatore.stacca()
        self.assertEqual(ponte.wait(30), 2)
        self.assertTrue(registrazione.read_text(encoding="utf-8").endswith("COM4: il dispositivo non c'è più\n"))


    def test_parla_la_lingua_chiesta_e_ne_dice_gli_errori(self):
        for lingua, atteso in (("IT", "serve una porta"), ("EN", "a port is needed")):
            qx5sim = self.macchina.avvia(
                CONSEGNA / "qx5sim.exe", "--lingua", lingua, stdout=subprocess.DEVNULL, stderr=subprocess.PIPE
            )
            _, errori = qx5sim.communicate(timeout=60)
            self.assertEqual(qx5sim.returncode, 1)
            self.assertIn(f"qx5sim: {atteso}: --dispositivo COMn", errori.decode("utf-8", "replace"))


class FinestraSimulatore(ProvaFinestre):
    def test_la_finestra_di_chi_insegna_si_apre_su_windows(self):
        cavo = CavoNullModem()
        self.addCleanup(cavo.stacca)
        self.macchina.collega_porta(3, cavo.dispositivi[0])
        argomenti = ["--finestra", "--lingua", "DE", "--dispositivo", "COM3"]
        simulatore = self.macchina.avvia(CONSEGNA / "qx5sim.exe", *argomenti)
        self.addCleanup(ferma_processo, simulatore)
        self.attendi_testo("Simuliertes Prüfgerät QX5 · COM3")
