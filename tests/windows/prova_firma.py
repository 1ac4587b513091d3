"""Signing: off as long as nobody says how, and then on every program of ours and on both ends of the installer. The
certificate is the test's own."""

import os
import shutil
import subprocess
import tempfile
from pathlib import Path

from macchina import CONSEGNA, COSTRUZIONE, RADICE, ProvaMacchina

FIRMA = RADICE / "packaging" / "windows" / "firma.sh"
TEMPO = 280  # seconds for a package


def esegui(*comando, **ambiente):
    fatto = subprocess.run(comando, env=os.environ | ambiente, capture_output=True, text=True, timeout=TEMPO)
    if fatto.returncode != 0:
        raise AssertionError(f"{comando}: {fatto.returncode}\n{fatto.stdout}{fatto.stderr}")


class Firma(ProvaMacchina):
    def setUp(self):
        for strumento in ("openssl", "osslsigncode"):
            if not shutil.which(strumento):
                self.skipTest(f"{strumento} non è installato")
        cartella = tempfile.TemporaryDirectory(prefix="firma-")
        self.addCleanup(cartella.cleanup)
        self.cartella = Path(cartella.name)
        self.chiave, self.certificato = self.cartella / "chiave.pem", self.cartella / "certificato.pem"

    def fa_certificato(self):
        esegui("openssl", "req", "-x509", "-newkey", "rsa:2048", "-nodes", "-days", "2", "-subj", "/CN=Prova",
               "-addext", "keyUsage=digitalSignature", "-addext", "extendedKeyUsage=codeSigning",
               "-keyout", self.chiave, "-out", self.certificato)  # fmt: skip
        return f"osslsigncode sign -certs {self.certificato} -key {self.chiave} -in {{}} -out {{}}.firmato"

    def firmato(self, programma):
        esegui("osslsigncode", "verify", "-CAfile", self.certificato, "-in", programma)

    def test_tutto_cio_che_e_nostro_e_firmato(self):
        esegui("cpack", "--config", COSTRUZIONE / "CPackConfig.cmake", "-G", "NSIS", "-B", self.cartella / "pacchetti",
               LUMIRA_FIRMA=self.fa_certificato())  # fmt: skip
        (installatore,) = (self.cartella / "pacchetti").glob("lumira-*-windows.exe")
        self.firmato(installatore)
        self.macchina.esegui(installatore, "/S", r"/D=C:\firmata")
        programmi = {programma.name: programma for programma in (self.macchina.disco / "firmata").glob("*.exe")}
        self.assertEqual(set(programmi), {"lumira.exe", "qx5sim.exe", "lumira-password.exe", "lumira-acc.exe",
                                           "lumira-far.exe", "lumira-diagnosi.exe", "Uninstall.exe"})
        for nome, programma in programmi.items():
            with self.subTest(nome):
                self.firmato(programma)

    def test_senza_comando_non_cambia_nulla(self):
        programma = Path(shutil.copy(CONSEGNA / "lumira.exe", self.cartella))
        prima = programma.read_bytes()
        esegui(FIRMA, programma, LUMIRA_FIRMA="")
        self.assertEqual(programma.read_bytes(), prima)

    def test_una_firma_che_non_riesce_ferma_la_consegna(self):
        programma = Path(shutil.copy(CONSEGNA / "lumira.exe", self.cartella))
        with self.assertRaises(AssertionError):
            esegui(FIRMA, programma, LUMIRA_FIRMA="false {}")
