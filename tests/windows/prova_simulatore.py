"""qx5sim as a Windows program on a COM port, at the other end of a null-modem cable from the station: how a
technician trains without an instrument."""

import os
import pty
import select
import threading
import tty

from macchina import CONSEGNA, Macchina
from operatore import attendi, ferma_processo
from prova import ProvaStazione, veicolo


class CavoNullModem:
    """Two terminal devices, each of which hears what the other says."""

    def __init__(self):
        capi, prese = zip(pty.openpty(), pty.openpty())
        self._capi, self._prese = capi, prese
        for presa in prese:
            tty.setraw(presa)
        self.dispositivi = [os.ttyname(presa) for presa in prese]
        self._fine, self._avviso = os.pipe()
        self._filo = threading.Thread(target=self._porta)
        self._filo.start()

    def _porta(self):
        altro = dict(zip(self._capi, reversed(self._capi)))
        while self._fine not in (pronti := select.select([*self._capi, self._fine], [], [])[0]):
            for capo in pronti:
                os.write(altro[capo], os.read(capo, 4096))

    def stacca(self):
        os.write(self._avviso, b".")
        self._filo.join()
        for descrittore in (*self._capi, *self._prese, self._fine, self._avviso):
            os.close(descrittore)


class Simulatore(ProvaStazione):
    def test_la_stazione_prova_un_veicolo_con_lo_strumento_simulato_su_windows(self):
        cavo = CavoNullModem()
        self.addCleanup(cavo.stacca)
        porta_stazione, porta_strumento = cavo.dispositivi
        macchina = Macchina()
        self.addCleanup(macchina.chiudi)
        macchina.collega_porta(3, porta_strumento)
        scenario = self.stazione.percorso("scenario.ini")
        scenario.write_text(veicolo(1), encoding="cp1252")
        uscita = self.stazione.percorso("qx5sim.out")
        with open(uscita, "wb") as scritta:
            argomenti = ["--dispositivo", "COM3", Macchina.percorso(scenario)]
            simulatore = macchina.avvia(CONSEGNA / "qx5sim.exe", *argomenti, stdout=scritta)
        self.addCleanup(ferma_processo, simulatore)
        attendi(lambda: "pronto: COM3" in uscita.read_text(errors="replace"), cosa="qx5sim.exe pronto")

        (self.stazione.percorso("porte")).mkdir(exist_ok=True)
        self.stazione.percorso("porte", "COM1").symlink_to(porta_stazione)
        self.stazione.imposta("MCTC", "Modalita", "1")
        self.stazione.imposta("VEICOLO", "Operatore", "Niccolò Forlì")
        self.stazione.accettazione("70000002")
        programma = self.avvia_al_menu()
        self.prova_veicolo(programma, "70000002", "ESITO REGOLARE")
        programma.premi("Esci")
        self.esci(programma)
        self.far_uguale("70000002", "regolare")
