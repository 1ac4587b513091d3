"""A null-modem cable between a COM port of a Windows machine and this computer, or another of its ports."""

import os
import pty
import select
import threading
import tty


class CavoNullModem:
    """Two terminal devices, each of which hears what the other says."""

    def __init__(self):
        capi, prese = zip(pty.openpty(), pty.openpty())
        self._capi, self._prese = capi, prese
        for presa in prese:
            tty.setraw(presa)
        self.dispositivi = [os.ttyname(presa) for presa in prese]
        self._fine, self._avviso = os.pipe()
        self._filo = threading.Thread(target=self._porta, daemon=True)
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


def collega_cavo(macchina, numero, alla_fine):
    """Puts a cable into a COM port of a machine. @param alla_fine takes what has to be done when the test is over.

    @returns the far end, a device of this computer.
    """
    cavo = CavoNullModem()
    alla_fine(cavo.stacca)
    qui, la = cavo.dispositivi
    macchina.collega_porta(numero, la)
    return qui
