"""A desktop as a workshop's PC may have one: a window manager, and a panel along the lower edge that stays above
ordinary windows and keeps its place free of them.
"""

import subprocess

from operatore import SchermoVirtuale, attendi

PANNELLO = 100  # pixels: as high as the lower buttons of every form, so that a click on them tells
COLORE = "#335577"  # of the panel, and of nothing that the station shows

# The panel holds nothing but a clock; what it is there for is its place. A panel stands above ordinary windows
# by itself; one that asks to be above all others, too, could not be told from a window manager at fault.
TINT2 = f"""
rounded = 0
border_width = 0
background_color = {COLORE} 100
panel_background_id = 1
panel_items = C
panel_monitor = all
panel_position = bottom center horizontal
panel_size = 100% {PANNELLO}
panel_layer = normal
panel_dock = 0
strut_policy = follow_size
time1_format = %H:%M
"""

GESTORI = {"openbox": ["openbox"], "xfwm4": ["xfwm4", "--compositor=off"]}


class Scrivania(SchermoVirtuale):
    """A display with a window manager and a panel."""

    def __init__(self, gestore):
        """@param gestore name of the window manager, one of GESTORI."""
        super().__init__()
        self._avvia(GESTORI[gestore])
        attendi(lambda: "#" in self.proprieta("-root", "_NET_SUPPORTING_WM_CHECK"), cosa=gestore)
        configurazione = self.cartella / "tint2rc"
        configurazione.write_text(TINT2)
        self._avvia(["tint2", "-c", configurazione])
        self.larghezza, self.altezza = 1024, 768
        libera = f"0, 0, {self.larghezza}, {self.altezza - PANNELLO}"
        attendi(lambda: libera in self.proprieta("-root", "_NET_WORKAREA"), cosa="il posto del pannello")
        attendi(self.pannello_scoperto, cosa="il pannello")

    def leggi(self, *comando):
        """What a command says."""
        return subprocess.run(
            [str(parte) for parte in comando], env=self.ambiente, capture_output=True, timeout=60
        ).stdout.decode()

    def proprieta(self, *argomenti):
        return self.leggi("xprop", *argomenti)

    def finestra_attiva(self):
        """Number of the window that the window manager gave the keyboard to; empty when none has it."""
        return self.leggi("xdotool", "getactivewindow").strip()

    def pannello_scoperto(self):
        """True when the panel can be seen."""
        posto = f"1x1+5+{self.altezza - 5}"
        angolo = self.leggi("import", "-window", "root", "-crop", posto, "-depth", "8", "txt:-")
        return COLORE in angolo

    def intera(self, finestra):
        """True when the window has the full-screen state, covers the screen, and lies over the panel."""
        schermo = (0, 0, self.larghezza, self.altezza)
        stato = self.proprieta("-id", finestra, "_NET_WM_STATE")
        return (
            "_NET_WM_STATE_FULLSCREEN" in stato
            and self.posto(finestra) == schermo
            and not self.pannello_scoperto()
        )

    def posto(self, finestra):
        """Left, top, width and height of a window on the screen, without its frame, in pixels."""
        righe = (riga.partition(":") for riga in self.leggi("xwininfo", "-id", finestra).splitlines())
        valori = {nome.strip(): valore for nome, _, valore in righe}
        nomi = ("Absolute upper-left X", "Absolute upper-left Y", "Width", "Height")
        return tuple(int(valori[nome]) for nome in nomi)
