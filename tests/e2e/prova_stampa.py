"""The printed report: what comes out of the printer, and what the operator is told when nothing can."""

import contextlib
import io
import shutil
import tempfile
import time

import dimostrazione
from foglio import MM, Foglio
from operatore import attendi
from prova import ProvaStazione, veicolo
from stampante import Stampante

SENZA_STAMPANTE = "Nessuna stampante pronta"

SCARTO = 2 * MM  # points
TWIP = 20  # a point

# On the left too high and too far to the left, on the right too weak; the main beams are in order.
RECORD = ("0305AS", "0720OO", "0037OO", "0734OO")
IRREGOLARI = {"VertAnabSx", "OrizzAnabSx", "EsitoIllumLuxAnabDx"}


class Geometria:
    """Where things stand on a page, in twips."""

    def __init__(self, larghezza, altezza):
        self.W = larghezza * 197 // 200
        self.MX = self.W // 20
        self.MY = altezza // 20
        self.RH = altezza // 65
        self.CX = self.W // 2
        self.X0 = self.W - 5 * self.MX
        self.X1 = round(self.X0 + 4 * self.MX / 3)
        self.X2 = round(self.X0 + 8 * self.MX / 3)

    def y(self, riga):
        return riga * self.RH + self.MY


SINISTRA, CENTRO, DESTRA = range(3)


def testi_fissi(g):
    """What stands on every page of the delivered configuration: text, alignment, x, y. A text ends at its y."""
    yield "Officina di prova", CENTRO, g.CX, g.MY + 50 + g.RH
    yield "Via dell'Artigianato 1", CENTRO, g.CX, g.MY + 50 + 2 * g.RH
    yield "00100 Roma RM", CENTRO, g.CX, g.MY + 50 + 3 * g.RH
    yield "06 0000000", CENTRO, g.CX, g.MY + 50 + 4 * g.RH
    yield "www.officina.example", CENTRO, g.CX, g.MY + 50 + 5 * g.RH
    yield "Rapporto di prova dei proiettori", CENTRO, g.CX, g.y(9)
    yield "Dati dello strumento", SINISTRA, g.MX, g.y(11)
    yield "Dati del veicolo", SINISTRA, g.CX, g.y(11)
    strumento = (
        ("Marca:", "Marca di prova"),
        ("Modello:", "QX5"),
        ("N. omologazione:", "OM00000"),
        ("N. serie:", "000001"),
        ("Scadenza verifica:", "31/12/2027"),
    )
    for riga, (etichetta, valore) in enumerate(strumento, 13):
        yield f"{etichetta} {valore}", SINISTRA, g.MX, g.y(riga)
    for riga, etichetta in enumerate(("Marca:", "Modello:", "Targa:", "Telaio:", "Anno immatric.:"), 13):
        yield etichetta, SINISTRA, g.CX, g.y(riga)
    for base, titolo in ((20, "Proiettori anabbaglianti"), (32, "Proiettori abbaglianti")):
        yield titolo, SINISTRA, g.MX, g.y(base)
        yield "Reg.", CENTRO, g.X1, g.y(base + 1)
        yield "Irreg.", CENTRO, g.X2, g.y(base + 1)
        for i, voce in enumerate(("Orientamento verticale", "Orientamento orizzontale", "Illuminamento (lux)")):
            yield voce, SINISTRA, g.MX, g.y(base + 2 + 3 * i)
            yield "Destro", CENTRO, g.X0, g.y(base + 2 + 3 * i)
            yield "Sinistro", CENTRO, g.X0, g.y(base + 3 + 3 * i)
    yield "Asimmetrico", DESTRA, g.CX, g.y(20)
    yield "3700", DESTRA, g.CX, g.y(28)
    yield "30500", DESTRA, g.CX, g.y(29)
    yield "73400", DESTRA, g.CX, g.y(40)
    yield "72000", DESTRA, g.CX, g.y(41)
    yield f"Data: {time.strftime('%d-%m-%Y')}", SINISTRA, g.MX, g.y(47)
    yield "Operatore: Rossi Mario", SINISTRA, g.MX, g.y(49)
    yield "Firma:", SINISTRA, g.CX, g.y(49)


def segni(g):
    """The marks: key of the result, y."""
    for base, fascio in ((20, "Anab"), (32, "Abb")):
        for i, prefisso in enumerate(("Vert", "Orizz", "EsitoIllumLux")):
            yield f"{prefisso}{fascio}Dx", g.y(base + 3 + 3 * i) - 130
            yield f"{prefisso}{fascio}Sx", g.y(base + 4 + 3 * i) - 130


class Stampa(ProvaStazione):
    def setUp(self):
        super().setUp()
        for strumento in ("pdftotext", "pdfinfo"):
            if not shutil.which(strumento):
                self.skipTest(f"{strumento} non è installato (poppler-utils)")
        cartella = tempfile.TemporaryDirectory(prefix="stampante-")
        self.addCleanup(cartella.cleanup)
        self.stampante = Stampante(cartella.name)
        self.addCleanup(self.stampante.ferma)

    def apri_risultato(self):
        """A vehicle of the network's worklist, whose acceptance file outlives the test, up to its result."""
        self.stazione.imposta("MCTC", "Modalita", "0")
        self.stazione.accettazione("80000001", DatiLibrettoVeicolo__Targa="ZZ999ZZ")
        self.simula(veicolo(1, RECORD))
        programma = self.avvia_al_menu(**self.stampante.ambiente)
        self.prova_veicolo(programma, "80000001", "ESITO IRREGOLARE")
        return programma

    def stampa(self, programma, numero):
        programma.premi("Stampa")
        return Foglio(self.stampante.foglio(numero))

    def stampa_con_messaggio(self, programma):
        """Prints in vain: the message shows and goes, the result stays."""
        programma.premi("Stampa")
        programma.attendi_testo(SENZA_STAMPANTE)
        programma.attendi(lambda: not programma.mostra(SENZA_STAMPANTE), cosa="fine del messaggio")
        programma.attendi_testo("ESITO IRREGOLARE")
        self.assertTrue(programma.abilitato("Stampa"))

    def sta(self, foglio, testo, allineamento, x, y):
        """The text stands on the sheet where it should, to 2 mm."""
        posti = list(foglio.posti(testo))
        for sinistra, _, destra, fondo in posti:
            trovata = (sinistra, (sinistra + destra) / 2, destra)[allineamento]
            if abs(trovata - x / TWIP) <= SCARTO and abs(fondo - y / TWIP) <= SCARTO:
                return
        self.fail(f"{testo!r} non sta a {x / TWIP:.1f}, {y / TWIP:.1f}: {posti}\n{foglio.parole}")

    def pagina_giusta(self, foglio, larghezza, altezza):
        g = Geometria(larghezza, altezza)
        self.assertEqual(len(foglio.misure), 1)
        for misura, attesa in zip(foglio.misure[0], (larghezza, altezza)):
            self.assertAlmostEqual(misura, attesa / TWIP, delta=1)
        for testo, allineamento, x, y in testi_fissi(g):
            self.sta(foglio, testo, allineamento, x, y)
        self.assertEqual(len(list(foglio.posti("*"))), 12, foglio.parole)
        for chiave, y in segni(g):
            self.sta(foglio, "*", CENTRO, g.X2 if chiave in IRREGOLARI else g.X1, y)

    def test_due_stampe_uguali_tranne_l_ora_di_fine(self):
        programma = self.apri_risultato()
        prima = self.stampa(programma, 1)
        self.pagina_giusta(prima, 11906, 16838)
        self.assertIn("ZZ999ZZ", [parola for parola, _ in prima.parole])

        istante = time.strftime("%H:%M:%S")
        attendi(lambda: time.strftime("%H:%M:%S") > istante, cosa="il secondo dopo")
        seconda = self.stampa(programma, 2)
        diverse = [(a, b) for a, b in zip(prima.parole, seconda.parole) if a != b]
        self.assertEqual(len(prima.parole), len(seconda.parole))
        self.assertEqual(len(diverse), 1, diverse)
        (fine_prima, posto_prima), (fine_seconda, posto_seconda) = diverse[0]
        self.assertEqual(posto_prima, posto_seconda)
        self.assertRegex(fine_prima, r"^\d\d:\d\d:\d\d$")
        self.assertGreater(fine_seconda, fine_prima)
        # The end time ends at the right margin.
        g = Geometria(11906, 16838)
        self.assertAlmostEqual(posto_prima[2], (g.W - g.MX) / TWIP, delta=SCARTO)

        self.assertEqual(self.stampante.fogli(), 2)
        programma.premi("Esci")
        self.esci(programma)

    def test_la_pagina_segue_la_carta_della_coda(self):
        self.stampante.amministra("lpadmin", "-p", Stampante.CODA, "-o", "PageSize=Letter")
        programma = self.apri_risultato()
        self.pagina_giusta(self.stampa(programma, 1), 12240, 15840)

    def test_con_le_cartelle_locali_il_veicolo_resta_in_bianco(self):
        # The end of the test has taken the acceptance file away.
        self.stazione.imposta("MCTC", "Modalita", "1")
        self.stazione.imposta("VEICOLO", "Targa", "AA000AA")
        self.stazione.accettazione("80000002", DatiLibrettoVeicolo__Targa="ZZ999ZZ")
        self.simula(veicolo(1, RECORD))
        programma = self.avvia_al_menu(**self.stampante.ambiente)
        self.prova_veicolo(programma, "80000002", "ESITO IRREGOLARE")
        foglio = self.stampa(programma, 1)
        self.pagina_giusta(foglio, 11906, 16838)
        for targa in ("ZZ999ZZ", "AA000AA"):
            self.assertNotIn(targa, [parola for parola, _ in foglio.parole])

    def test_la_dimostrazione_mostra_il_veicolo_sul_rapporto(self):
        stazione = dimostrazione.prepara(self.stazione.cartella)
        self.addCleanup(dimostrazione.accendi_strumento(stazione).spegni)
        with contextlib.redirect_stdout(io.StringIO()):
            dimostrazione.porta_un_veicolo(stazione, self.schermo, self.stampante)
        foglio = Foglio(dimostrazione.rapporto(stazione))
        valori = next(iter(dimostrazione.VEICOLI.values()))
        g = Geometria(11906, 16838)
        righe = (("Marca:", "Fabbrica"), ("Modello:", "Tipo"), ("Targa:", "Targa"))
        for riga, (etichetta, chiave) in enumerate(righe, 13):
            self.sta(foglio, f"{etichetta} {valori[chiave]}", SINISTRA, g.CX, g.y(riga))

    def test_senza_coda_un_messaggio_e_il_risultato_resta(self):
        self.stampante.amministra("lpadmin", "-x", Stampante.CODA)
        self.stampa_con_messaggio(self.apri_risultato())

    def test_la_coda_che_rifiuta_da_un_messaggio_e_poi_stampa(self):
        self.stampante.amministra("cupsreject", Stampante.CODA)
        programma = self.apri_risultato()
        self.stampa_con_messaggio(programma)
        self.assertEqual(self.stampante.fogli(), 0)
        self.stampante.amministra("cupsaccept", Stampante.CODA)
        self.pagina_giusta(self.stampa(programma, 1), 11906, 16838)

    def test_con_il_gestore_spento_un_messaggio_e_il_risultato_resta(self):
        programma = self.apri_risultato()
        self.stampante.ferma()
        self.stampa_con_messaggio(programma)
        programma.premi("Esci")
        self.esci(programma)
