"""The Debian package: made, installed in a folder that stands for a machine, used, upgraded and removed."""

import gzip
import hashlib
import json
import os
import re
import shutil
import subprocess
import tempfile
import unittest
import xml.etree.ElementTree
from pathlib import Path

import operatore
from manuale_consegnato import capitoli_di_f1, difetti
from prova import ProvaStazione

CONTROLLO_DEBIAN = Path(__file__).resolve().parents[2] / "packaging/debian/controlla.sh"

COSTRUZIONE = Path(os.environ["LUMIRA_COSTRUZIONE"])


def esegui(*comando):
    fatto = subprocess.run([str(parte) for parte in comando], capture_output=True, text=True, timeout=120)
    if fatto.returncode != 0:
        raise AssertionError(f"{comando}: {fatto.stdout}{fatto.stderr}")
    return fatto.stdout


@unittest.skipUnless(shutil.which("dpkg-shlibdeps") and shutil.which("file"), "mancano dpkg-dev e file")
@unittest.skipUnless(os.geteuid() == 0, "dpkg installa solo da root")
class Pacchetto(ProvaStazione):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cartella = tempfile.TemporaryDirectory(prefix="pacchetto-")
        cls.addClassCleanup(cartella.cleanup)
        esegui("cpack", "--config", COSTRUZIONE / "CPackConfig.cmake", "-B", cartella.name)
        (cls.pacchetto,) = Path(cartella.name).glob("*.deb")

    def setUp(self):
        super().setUp()
        cartella = tempfile.TemporaryDirectory(prefix="macchina-")
        self.addCleanup(cartella.cleanup)
        self.macchina = Path(cartella.name)
        self.opt = self.macchina / "opt" / "lumira"
        base = self.macchina / "var" / "lib" / "dpkg"
        for parte in ("info", "updates"):
            (base / parte).mkdir(parents=True)
        (base / "status").touch()
        self.dpkg("--install", self.pacchetto)

    def dpkg(self, *azione):
        # What it depends on is on the real machine, not in the folder.
        return esegui("dpkg", f"--root={self.macchina}", "--force-script-chrootless", "--force-depends", *azione)

    def test_cio_da_cui_dipende_si_trova(self):
        piano = esegui("apt-get", "install", "--simulate", self.pacchetto)
        self.assertIn("Inst lumira ", piano)
        for parte in ("libqt6widgets6", "libqt6serialport6", "libcups2", "fonts-liberation"):
            self.assertIn(parte, esegui("dpkg-deb", "--field", self.pacchetto, "Depends"))

    def test_il_programma_installato_apre_il_menu(self):
        self.stazione = operatore.Stazione(self.opt)
        programma = self.avvia_al_menu()
        self.esci(programma)

    def test_la_voce_di_menu_trova_programma_e_icona(self):
        testo = (self.macchina / "usr/share/applications/lumira.desktop").read_text(encoding="utf-8")
        voce = dict(riga.split("=", 1) for riga in testo.splitlines() if "=" in riga)
        for chiave in ("Exec", "Path"):
            self.assertTrue((self.macchina / voce[chiave].lstrip("/")).exists(), chiave)
        self.assertTrue((self.macchina / f"usr/share/icons/hicolor/scalable/apps/{voce['Icon']}.svg").exists())

    def test_il_manuale_e_intero_e_si_trova(self):
        self.assertGreater(len(capitoli_di_f1()), 5)
        self.assertEqual(difetti(self.opt), [])
        for nome in ("manuale.html", "manuale.pdf"):
            dove = os.readlink(self.macchina / "usr/share/doc/lumira" / nome)
            self.assertTrue((self.macchina / dove.lstrip("/")).is_file(), nome)
        testo = (self.macchina / "usr/share/applications/lumira-manuale.desktop").read_text(encoding="utf-8")
        voce = dict(riga.split("=", 1) for riga in testo.splitlines() if "=" in riga)
        programma, pagina = voce["Exec"].split(" ")
        self.assertEqual((voce["Name"], programma), ("Manuale di lumira", "xdg-open"))
        self.assertTrue((self.macchina / pagina.lstrip("/")).is_file())
        self.assertIn(programma.split("-")[0], esegui("dpkg-deb", "--field", self.pacchetto, "Recommends"))

    def test_un_manuale_guasto_si_nota(self):
        manuale = self.opt / "manuale.html"
        intero = manuale.read_text(encoding="utf-8")
        for prima, dopo, difetto in (
            ("data:image/png;base64,i", "figure/menu.png", "figura assente: figure/menu.png"),
            ('id="impostazioni"', 'id="altro"', "capitolo assente: impostazioni"),
            ('href="#la-stampa"', 'href="#la-carta"', "rimando a niente: la-carta"),
            ('href="#la-stampa"', 'href="simulatore.md"', "fuori: simulatore.md"),
        ):
            manuale.write_text(intero.replace(prima, dopo, 1), encoding="utf-8")
            self.assertIn(difetto, difetti(self.opt))
        (self.opt / "manuale" / "verifica-periodica.html").unlink()
        self.assertIn("pagina di F1 assente: verifica-periodica", difetti(self.opt))

    def test_ogni_strumento_ha_il_suo_nome_e_la_sua_pagina(self):
        for nome in ("lumira-acc", "lumira-diagnosi", "lumira-far", "lumira-password", "qx5sim"):
            self.assertTrue((self.macchina / os.readlink(self.macchina / "usr/bin" / nome).lstrip("/")).is_file(), nome)
            pagina = gzip.decompress((self.macchina / f"usr/share/man/man1/{nome}.1.gz").read_bytes()).decode()
            self.assertTrue(pagina.startswith(f".TH {nome.upper()} 1"), nome)
            # Every option that the program tells is in its page.
            aiuto = esegui(self.macchina / os.readlink(self.macchina / "usr/bin" / nome).lstrip("/"), "--help")
            for opzione in re.findall(r"(?m)^ +(--[a-z-]+)", aiuto):
                self.assertIn(opzione.replace("-", "\\-"), pagina)

    def test_gli_strumenti_trovano_la_loro_stazione(self):
        # The template is a whole file by a name that no work order has.
        acc = subprocess.run([self.opt / "strumenti/lumira-acc", self.opt / "dati"], capture_output=True, text=True)
        self.assertEqual((acc.returncode, acc.stdout.count("non idoneo"), acc.stderr), (1, 1, ""))
        operatore.Profilo(self.opt / "lumira.ini").imposta("PARAMETRI", "LuxMinAnab", "4321")
        grafico = self.macchina / "grafico.svg"
        esegui(self.opt / "strumenti/lumira-far", "--grafico", grafico, self.opt / "dati")
        self.assertIn("minimo 4321", grafico.read_text(encoding="utf-8"))

    def test_i_documenti_stanno_dove_debian_li_cerca(self):
        documenti = self.macchina / "usr/share/doc/lumira"
        self.assertTrue((documenti / "copyright").read_text(encoding="utf-8").startswith("Format: "))
        versione = esegui("dpkg-deb", "--field", self.pacchetto, "Version").strip()
        modifiche = gzip.decompress((documenti / "changelog.gz").read_bytes()).decode()
        self.assertTrue(modifiche.startswith(f"lumira ({versione}) "), modifiche)
        self.assertIn(f"## {versione}", gzip.decompress((documenti / "NEWS.gz").read_bytes()).decode())
        for nome in ("elenco.json", "lumira.txt"):
            self.assertTrue((documenti / "licenze" / nome).is_file(), nome)

    def test_i_centri_software_conoscono_la_stazione(self):
        metainfo = self.macchina / "usr/share/metainfo/lumira.metainfo.xml"
        radice = xml.etree.ElementTree.parse(metainfo).getroot()
        versione = esegui("dpkg-deb", "--field", self.pacchetto, "Version").strip()
        self.assertEqual([r.get("version") for r in radice.iter("release")], [versione])
        self.assertTrue((self.macchina / "usr/share/applications" / radice.findtext("launchable")).is_file())
        provvisti = {b.text for b in radice.iter("binary")}
        self.assertEqual(provvisti, {p.name for p in (self.macchina / "usr/bin").iterdir()})
        if shutil.which("appstreamcli"):
            esito = subprocess.run(["appstreamcli", "validate", "--no-net", metainfo], capture_output=True, text=True)
            self.assertNotRegex(esito.stdout, r"(?m)^E: ")

    @unittest.skipUnless(shutil.which("lintian"), "lintian brings a hundred packages of its own")
    def test_il_controllore_di_debian_non_ha_da_dire(self):
        esito = subprocess.run([CONTROLLO_DEBIAN, self.pacchetto], capture_output=True, text=True)
        self.assertEqual((esito.returncode, esito.stdout), (0, ""), esito.stderr)

    def test_la_distinta_dice_ogni_file_con_la_sua_somma(self):
        nome = "usr/share/doc/lumira/distinta.spdx.json"
        distinta = json.loads((self.macchina / nome).read_text(encoding="utf-8"))
        self.assertEqual(distinta["spdxVersion"], "SPDX-2.3")
        portati = esegui("dpkg", f"--root={self.macchina}", "--listfiles", "lumira").split()
        percorsi = [self.macchina / p.lstrip("/") for p in portati]
        file = {str(p.relative_to(self.macchina)) for p in percorsi if p.is_file() and not p.is_symlink()}
        dette = {f["fileName"][2:]: f["checksums"][1]["checksumValue"] for f in distinta["files"]}
        vere = {f: hashlib.sha256((self.macchina / f).read_bytes()).hexdigest() for f in file - {nome}}
        self.assertEqual(dette, vere)
        # Whatever is referred to is there, under an identifier of its own.
        noti = [x["SPDXID"] for x in (distinta, *distinta["packages"], *distinta["files"])]
        self.assertEqual(len(noti), len(set(noti)))
        citati = {r[lato] for r in distinta["relationships"] for lato in ("spdxElementId", "relatedSpdxElement")}
        self.assertEqual(citati, set(noti))
        fuori = {licenza["licenseId"] for licenza in distinta["hasExtractedLicensingInfos"]}
        usate = {p["licenseDeclared"] for p in distinta["packages"]}
        self.assertEqual({licenza for licenza in usate if licenza.startswith("LicenseRef-")}, fuori)

    def test_lo_stesso_pacchetto_due_volte(self):
        fatti = []
        for _ in range(2):
            with tempfile.TemporaryDirectory(prefix="pacchetto-") as cartella:
                ambiente = os.environ | {"SOURCE_DATE_EPOCH": "1767225600"}
                configurazione = COSTRUZIONE / "CPackConfig.cmake"
                subprocess.run(["cpack", "--config", configurazione, "-B", cartella], env=ambiente, check=True,
                               stdout=subprocess.DEVNULL, timeout=120)
                (pacchetto,) = Path(cartella).glob("*.deb")
                fatti.append(pacchetto.read_bytes())
        self.assertEqual(*(hashlib.sha256(byte).hexdigest() for byte in fatti))

    def test_la_stazione_installata_e_intera_per_la_diagnosi(self):
        diagnosi = subprocess.run([self.opt / "strumenti/lumira-diagnosi", "--lingua", "IT", "--json"], text=True,
                                  capture_output=True)
        riscontri = [r for r in json.loads(diagnosi.stdout)["riscontri"] if r["materia"] in ("programma", "testi")]
        self.assertEqual([r for r in riscontri if r["grado"] != "ok"], [])
        self.assertTrue(riscontri[0]["trovato"].startswith("lumira "), riscontri)

    def test_la_configurazione_si_puo_scrivere_dagli_utenti(self):
        for percorso in (self.opt, self.opt / "lumira.ini"):
            stato = percorso.stat()
            self.assertEqual(percorso.group(), "users")
            self.assertTrue(stato.st_mode & 0o020, percorso)

    def test_un_aggiornamento_lascia_la_configurazione(self):
        ini = operatore.Profilo(self.opt / "lumira.ini")
        ini.imposta("LUMIRA", "Comm_NSerie", "987654")
        (self.opt / "lingue.ini").write_bytes(b"")
        self.dpkg("--install", self.pacchetto)
        self.assertEqual(ini.valore("LUMIRA", "Comm_NSerie"), "987654")
        self.assertNotEqual((self.opt / "lingue.ini").read_bytes(), b"")

    def test_un_aggiornamento_tiene_la_copia_del_giorno(self):
        self.assertEqual(self.copie(), [])  # nothing came before the first installation
        ini = operatore.Profilo(self.opt / "lumira.ini")
        ini.imposta("LUMIRA", "Comm_NSerie", "prima")
        prima = (self.opt / "lumira.ini").read_bytes()
        self.dpkg("--install", self.pacchetto)
        (copia,) = self.copie()
        self.assertRegex(copia.name, r"^lumira\.ini\.\d{4}-\d\d-\d\d$")
        self.assertEqual(copia.read_bytes(), prima)
        # The second update of a day leaves the copy of the first.
        ini.imposta("LUMIRA", "Comm_NSerie", "dopo")
        self.dpkg("--install", self.pacchetto)
        if self.copie() == [copia]:  # no midnight passed
            self.assertEqual(copia.read_bytes(), prima)

    def copie(self):
        return sorted(self.opt.glob("lumira.ini.*"))

    def test_la_rimozione_dice_cosa_resta_e_la_cancellazione_porta_via_le_copie(self):
        self.dpkg("--install", self.pacchetto)
        self.assertEqual(len(self.copie()), 1)
        uscita = self.dpkg("--remove", "lumira")
        self.assertIn("restano la configurazione", uscita)
        self.assertEqual(len(self.copie()), 1)
        self.assertNotIn("restano", self.dpkg("--purge", "lumira"))
        self.assertEqual(self.copie(), [])

    def test_la_rimozione_lascia_la_configurazione_e_lo_scambio(self):
        scambio = self.opt / "scambio"
        scambio.mkdir()
        (scambio / "10000001.far").touch()
        self.dpkg("--remove", "lumira")
        self.assertEqual(sorted(p.name for p in self.opt.rglob("*") if p.is_file()), ["10000001.far", "lumira.ini"])
        self.dpkg("--purge", "lumira")
        self.assertEqual([p.name for p in self.opt.rglob("*") if p.is_file()], ["10000001.far"])
