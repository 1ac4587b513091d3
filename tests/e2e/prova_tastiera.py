"""The program without a mouse, and what a person who does not see the screen is told of it."""

import os
import shutil
import tempfile
import time
from pathlib import Path

from accessibilita import FOCALIZZATO, VISIBILE
from operatore import RIPROVA, resta
from prova import ProvaStazione, veicolo
from stampante import Stampante

MUTO = "[GENERALE]\n[GUASTI]\nGuasto1=Stato;*;silenzio\n"
MESSAGGIO = "Il file non può essere usato per la prova"

# What only holds other parts, or is drawn for the eye beside a text that says the same.
CONTENITORI = {"filler", "panel", "scroll pane", "scroll bar", "image", "viewport"}


class Tastiera(ProvaStazione):
    def fuoco(self, programma):
        """Role and name of what has the keyboard, or None."""

        def guarda():
            finestra = programma.finestra()
            elementi = finestra.discendenti() if finestra else []
            return next(((e.ruolo, e.nome) for e in elementi if e.ha(FOCALIZZATO) and e.ha(VISIBILE)), None)

        return programma.guarda(guarda)

    def tab_fino_a(self, programma, ruolo, nome, tasto="Tab"):
        """Presses a key until a control has the keyboard; each press waits for the one before."""
        visti = []
        while (ora := programma.attendi(lambda: self.fuoco(programma), cosa="il fuoco")) != (ruolo, nome):
            self.assertNotIn(ora, visti, f"{tasto} gira senza arrivare a {nome}: {visti}")
            visti.append(ora)
            programma.tasto(tasto)
            programma.attendi(lambda: self.fuoco(programma) not in (None, ora), cosa=f"{tasto} dopo {ora}")

    def tasto_verso(self, programma, tasto, nome, prossimo):
        """Presses a key that stands for a button, again when the press fell in a moment without the button."""
        programma.attendi_pulsante(nome)
        programma.tasto(tasto)
        ripremi = time.monotonic() + RIPROVA

        def arrivato():
            nonlocal ripremi
            if time.monotonic() > ripremi and programma.abilitato(nome):
                programma.tasto(tasto)
                ripremi = time.monotonic() + RIPROVA
            return programma.abilitato(prossimo)

        programma.attendi(arrivato, cosa=f"pulsante {prossimo} dopo {tasto}")

    def apri(self, programma, voce):
        """From the menu, wherever the keyboard stands, to what an entry opens."""
        programma.attendi_pulsante("Prova proiettori")
        self.tab_fino_a(programma, "push button", voce)
        programma.tasto("Return")

    def test_f1_apre_il_manuale_al_capitolo_della_finestra(self):
        cartella = tempfile.TemporaryDirectory(prefix="pagine-")
        self.addCleanup(cartella.cleanup)
        aperte = Path(cartella.name) / "aperte"
        apre = Path(cartella.name) / "xdg-open"  # what the system opens a page with
        apre.write_text(f'#!/bin/sh\necho "$@" >>"{aperte}"\n')
        apre.chmod(0o755)

        def chiede(ancora):
            programma.tasto("F1")
            pagina = (self.stazione.cartella / "manuale" / f"{ancora}.html").as_uri()
            programma.attendi(lambda: aperte.exists() and aperte.read_text().splitlines()[-1:] == [pagina], cosa=pagina)

        self.stazione.accettazione("12345678")
        self.simula(MUTO)
        programma = self.avvia_al_menu(PATH=f"{cartella.name}:{os.environ['PATH']}")
        chiede("che-cosa-dice-il-menu")
        self.apri(programma, "Impostazioni")
        programma.attendi_pulsante("Ok")
        chiede("impostazioni")
        programma.premi("Ok")
        self.porta_al_collegamento(programma, "12345678")
        chiede("i-messaggi-e-che-cosa-fare")
        programma.premi("Interrompi")
        programma.attendi_pulsante("Prova proiettori")
        self.assertEqual(len(aperte.read_text().splitlines()), 3)

    def test_f1_senza_manuale_non_fa_niente(self):
        shutil.rmtree(self.stazione.cartella / "manuale")
        (self.stazione.cartella / "manuale.html").unlink()
        programma = self.avvia_al_menu()
        titolo = programma.titolo()
        programma.tasto("F1")
        resta(lambda: programma.titolo() == titolo, 1, "la finestra di prima")
        self.esci(programma)

    def test_una_prova_intera_stampa_compresa(self):
        cartella = tempfile.TemporaryDirectory(prefix="stampante-")
        self.addCleanup(cartella.cleanup)
        stampante = Stampante(cartella.name)
        self.addCleanup(stampante.ferma)
        self.stazione.accettazione("91000001")
        self.stazione.accettazione("91000002", DatiLibrettoVeicolo__Fabbrica="ALTRA FABBRICA")
        self.simula(veicolo(1))
        programma = self.avvia_al_menu(**stampante.ambiente)
        self.apri(programma, "Prova proiettori")

        programma.attendi(lambda: len(programma.righe()) == 2, cosa="le due righe")
        righe = programma.righe()  # in the order of the folder
        for _ in range(1 + righe.index("91000002.ACC\tAB123CD")):
            programma.attendi_pulsante("Annulla")
            programma.tasto("Down")
        programma.attendi(
            lambda: programma.valore("Fabbrica / marca") == "ALTRA FABBRICA", cosa="la scheda del veicolo"
        )
        self.tasto_verso(programma, "Return", "Conferma", "Avvia")

        self.tab_fino_a(programma, "text", "Altezza faro (cm)")
        programma.tasto("ctrl+a")
        programma.schermo.scrivi("70")
        programma.attendi(lambda: programma.valore("Altezza faro (cm)") == "70", cosa="altezza scritta")
        programma.tasto("Return")
        programma.attendi_testo("ESITO REGOLARE")
        self.assertEqual(self.fuoco(programma), ("push button", "Stampa"))
        programma.tasto("Return")
        stampante.foglio(1)
        self.tab_fino_a(programma, "push button", "Esci")
        programma.tasto("Return")

        programma.attendi_pulsante("Prova proiettori")
        self.assertIn("91000002.far", self.stazione.contenuto())
        self.assertEqual(self.stazione.ini.valore("IMPOSTAZIONI", "AltezzaFaro"), "70")
        self.apri(programma, "Esci")
        self.assertEqual(programma.attendi_fine(), 0)

    # --- names ------------------------------------------------------------------------------------------------

    def senza_nome(self, programma, form):
        """Controls of the window that has the keyboard which a screen reader could not call by a name."""

        def guarda():
            finestra = programma.finestra()
            if finestra is None:
                return None
            righe = []
            for elemento in finestra.discendenti():
                ruolo = elemento.ruolo
                if not elemento.ha(VISIBILE) or ruolo in CONTENITORI:
                    continue
                # The name of a list that drops down is its entry: what it is for stands in its label.
                nomi = [e.nome for e in elemento.etichette()] if ruolo == "combo box" else [elemento.nome]
                # A label without a text shows nothing; a box without a name shows what nobody can tell.
                if not ruolo or (not any(nomi) and ruolo != "label"):
                    righe.append(f"{form}: {ruolo or 'senza ruolo'} a {elemento.rettangolo}")
            return [righe]

        return programma.attendi(guarda, cosa=f"i controlli di {form}")[0]

    def test_ogni_controllo_di_ogni_finestra_ha_nome_e_ruolo(self):
        self.stazione.accettazione("92000001", DatiLibrettoVeicolo__Targa="AB")
        self.stazione.accettazione("92000002")
        strumento = self.simula(MUTO)
        programma = self.avvia_al_menu()
        mancanti = self.senza_nome(programma, "menu")

        def guarda(form):
            mancanti.extend(self.senza_nome(programma, form))

        programma.premi("Informazioni")
        programma.attendi_testo("Informazioni")
        guarda("informazioni")
        programma.premi("Ok")

        self.apri(programma, "Anagrafica officina")
        programma.attendi_pulsante("Ok")
        guarda("anagrafica")
        programma.tasto("Escape")

        self.apri(programma, "Verifica periodica")
        programma.attendi(lambda: programma.elementi("password text"), cosa="password")
        guarda("password")
        programma.schermo.scrivi("lumira")
        programma.attendi_pulsante("Default")
        guarda("verifica periodica")
        programma.tasto("Escape")

        self.apri(programma, "Impostazioni")
        programma.attendi_pulsante("Ok")
        guarda("impostazioni")
        programma.tasto("F12")
        programma.attendi_testo("Livelli dei controlli")
        guarda("livelli dei controlli")
        programma.tasto("Escape")
        programma.attendi_pulsante("Verifica periodica")
        programma.premi("Ok")

        self.apri(programma, "Prova proiettori")
        # The list is built once more 2 s after the opening: a line chosen before shows its report twice.
        resta(lambda: programma.titolo() in ("lumira", "Prova proiettori"), 2.5, "nessun messaggio")
        programma.scegli_riga("92000001.ACC")
        programma.attendi_testo(MESSAGGIO)
        guarda("messaggio")
        programma.premi_verso("Ok", "Annulla")
        guarda("lista")
        programma.scegli_riga("92000002.ACC")
        programma.premi_verso("Conferma", "Avvia")
        guarda("veicolo")
        programma.premi("Avvia")
        programma.attendi_pulsante("Interrompi")
        guarda("collegamento")
        programma.tasto("Escape")

        strumento.spegni()
        self.simula(veicolo(1))
        self.prova_veicolo(programma, "92000002", "ESITO REGOLARE")
        guarda("esito")
        self.assertEqual(mancanti, [], "\n".join(mancanti))
