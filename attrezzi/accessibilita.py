"""The accessibility bus, asked directly: what an assistive technology sees of a program at this moment.

Nothing is kept between two looks. A program gives the name of a widget that has gone to the next one, so that
whatever is remembered of it may be another's.
"""

from gi.repository import Gio, GLib

REGISTRO = "org.a11y.atspi.Registry"
RADICE = "/org/a11y/atspi/accessible/root"
RADICE_EVENTI = "/org/a11y/atspi/registry"
NESSUNO = "/org/a11y/atspi/null"  # stands where a child has no face of its own

ACCESSIBILE = "org.a11y.atspi.Accessible"
COMPONENTE = "org.a11y.atspi.Component"
TESTO = "org.a11y.atspi.Text"
TESTO_MODIFICABILE = "org.a11y.atspi.EditableText"
AZIONE = "org.a11y.atspi.Action"
TABELLA = "org.a11y.atspi.Table"
PROPRIETA = "org.freedesktop.DBus.Properties"

SULLO_SCHERMO = 0  # coordinates from the corner of the screen

ATTIVO, SPUNTATO, ABILITATO, FOCALIZZATO, VISIBILE = 1, 4, 8, 12, 25  # numbers of the states

ETICHETTATO = 2  # number of the relation
PASSWORD = 40  # number of the role

ATTESA = 5000  # milliseconds for an answer


class NonRisponde(Exception):
    """What was asked has gone, or has not what was asked for."""


class Bus:
    """The accessibility bus of a session."""

    def __init__(self, indirizzo_sessione):
        """@param indirizzo_sessione address of the session bus, which starts the other one."""
        sessione = self._collega(indirizzo_sessione)
        indirizzo = sessione.call_sync(
            "org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus", "GetAddress", None, None, 0, ATTESA, None
        )
        self._bus = self._collega(indirizzo.unpack()[0])

    @staticmethod
    def _collega(indirizzo):
        genere = Gio.DBusConnectionFlags
        collegamento = Gio.DBusConnection.new_for_address_sync(
            indirizzo, genere.AUTHENTICATION_CLIENT | genere.MESSAGE_BUS_CONNECTION, None, None
        )
        collegamento.set_exit_on_close(False)
        return collegamento

    def ascolta(self):
        """Asks for what a screen reader asks for: programs tell nothing that nobody wants to hear."""
        for evento in ("object:", "window:", "focus:"):
            argomenti = GLib.Variant("(sass)", (evento, [], ""))
            self.chiama(REGISTRO, RADICE_EVENTI, REGISTRO, "RegisterEvent", argomenti)

    def applicazioni(self):
        """The programs that can be seen."""
        return Elemento(self, REGISTRO, RADICE).figli()

    def processo(self, applicazione):
        """The id of the process behind a program."""
        return self.chiama(
            "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus",
            "GetConnectionUnixProcessID", GLib.Variant("(s)", (applicazione.padrone,)),
        )  # fmt: skip

    def chiama(self, padrone, percorso, interfaccia, metodo, argomenti=None):
        """Asks, and returns the answer.

        @throws NonRisponde when none comes.
        """
        try:
            risposta = self._bus.call_sync(padrone, percorso, interfaccia, metodo, argomenti, None, 0, ATTESA, None)
        except GLib.Error as errore:
            raise NonRisponde(errore.message) from None
        valori = risposta.unpack()
        return valori[0] if len(valori) == 1 else valori


class Elemento:
    """A window or a part of it. Each property is a question of its own; all raise NonRisponde."""

    def __init__(self, bus, padrone, percorso):
        self.padrone = padrone
        self._bus = bus
        self._percorso = percorso

    def figli(self):
        posti = self._chiama(ACCESSIBILE, "GetChildren")
        return [Elemento(self._bus, *posto) for posto in posti if posto[1] != NESSUNO]

    def discendenti(self):
        """All that it holds, in depth."""
        for figlio in self.figli():
            yield figlio
            yield from figlio.discendenti()

    @property
    def nome(self):
        return self._chiama(PROPRIETA, "Get", GLib.Variant("(ss)", (ACCESSIBILE, "Name")))

    @property
    def ruolo(self):
        # By its name a password box is like any other.
        if self._chiama(ACCESSIBILE, "GetRole") == PASSWORD:
            return "password text"
        return self._chiama(ACCESSIBILE, "GetRoleName")

    def ha(self, stato):
        parola, cifra = divmod(stato, 32)
        return bool(self._chiama(ACCESSIBILE, "GetState")[parola] >> cifra & 1)

    @property
    def rettangolo(self):
        """Left, top, width and height on the screen."""
        return self._chiama(COMPONENTE, "GetExtents", GLib.Variant("(u)", (SULLO_SCHERMO,)))

    @property
    def testo(self):
        """What stands in a text box."""
        return self._chiama(TESTO, "GetText", GLib.Variant("(ii)", (0, -1)))

    def etichette(self):
        """What it is labelled by."""
        relazioni = self._chiama(ACCESSIBILE, "GetRelationSet")
        return [Elemento(self._bus, *posto) for genere, posti in relazioni if genere == ETICHETTATO for posto in posti]

    def azioni(self):
        """Names of what can be done with it, in the order of their numbers."""
        quante = self._chiama(PROPRIETA, "Get", GLib.Variant("(ss)", (AZIONE, "NActions")))
        return [self._chiama(AZIONE, "GetName", GLib.Variant("(i)", (numero,))) for numero in range(quante)]

    def agisci(self, azione):
        """Does one of azioni(): Press, Toggle, SetFocus, ..."""
        numero = self.azioni().index(azione)
        if not self._chiama(AZIONE, "DoAction", GLib.Variant("(i)", (numero,))):
            raise NonRisponde(f"{azione}: rifiutata")

    def scegli_riga(self, numero):
        """Chooses a line of a list."""
        if not self._chiama(TABELLA, "AddRowSelection", GLib.Variant("(i)", (numero,))):
            raise NonRisponde(f"riga {numero}: rifiutata")

    def scrivi(self, testo):
        """Puts a text into a text box in place of what stands there."""
        if not self._chiama(TESTO_MODIFICABILE, "SetTextContents", GLib.Variant("(s)", (testo,))):
            raise NonRisponde(f"{testo}: rifiutato")

    def _chiama(self, interfaccia, metodo, argomenti=None):
        return self._bus.chiama(self.padrone, self._percorso, interfaccia, metodo, argomenti)
