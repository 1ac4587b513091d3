#!/usr/bin/python3
"""The maker of mutants on small sources whose mutants are known."""

import sys
import tempfile
import unittest
from pathlib import Path

sys.path.append(str(Path(__file__).resolve().parents[2] / "prove/mutazioni"))
from mutanti import mutanti_di  # noqa: E402

TESTA = """struct Testo { bool operator==(const Testo &) const; };
#define MISURA(a) ((a) + 1)
enum Colore { Rosso, Verde };
void fai(int a, int b);
void fai(Colore c);
int leggi();
"""


class TestMutanti(unittest.TestCase):
    def setUp(self):
        cartella = tempfile.TemporaryDirectory()
        self.addCleanup(cartella.cleanup)
        self.percorso = Path(cartella.name) / "piccolo.cpp"

    def fatti(self, corpo, nome="core/piccolo.cpp"):
        self.percorso.write_text(TESTA + corpo, encoding="utf-8")
        return mutanti_di(nome, self.percorso, ["-std=c++20"])

    def verifica(self, corpo, attesi, **nome):
        """@param attesi (kind, the line concerned as the mutant has it)"""
        self.assertEqual(sorted((m.specie, m.dopo) for m in self.fatti(corpo, **nome)), sorted(attesi))

    def test_operatori(self):
        self.verifica("bool f(int a, int b) { return a < b && a + b == 7; }", [
            ("statement", "bool f(int a, int b) { return {}; }"),
            ("relation", "bool f(int a, int b) { return a <= b && a + b == 7; }"),
            ("logic", "bool f(int a, int b) { return a < b || a + b == 7; }"),
            ("arithmetic", "bool f(int a, int b) { return a < b && a - b == 7; }"),
            ("relation", "bool f(int a, int b) { return a < b && a + b != 7; }"),
            ("constant", "bool f(int a, int b) { return a < b && a + b == (7 + 1); }"),
            ("constant", "bool f(int a, int b) { return a < b && a + b == (7 - 1); }")])

    def test_operatoriDiClasse(self):
        self.verifica("bool f(Testo a, Testo b) { return a == b; }", [
            ("statement", "bool f(Testo a, Testo b) { return {}; }"),
            ("relation", "bool f(Testo a, Testo b) { return a != b; }")])
        self.verifica("bool f(Testo a, Testo b)\n{\nreturn a !=\nb;\n}", [
            ("statement", "return {};"), ("relation", "return a ==")])

    def test_passiENegazioni(self):
        self.verifica("void f(int a, bool b)\n{\n++a;\na--;\na -= leggi();\nb = !b;\na = -a;\n}", [
            ("statement", ";"), ("step", "--a;"), ("statement", ";"), ("step", "a++;"),
            ("statement", ";"), ("arithmetic", "a += leggi();"),
            ("statement", ";"), ("negation", "b = b;"), ("statement", ";"), ("negation", "a = a;")])

    def test_condizioni(self):
        self.verifica("void f(bool b)\n{\nif (b)\nfai(Rosso);\nwhile (b)\nbreak;\ndo {\n} while (b);\n}", [
            ("negation", "if (!(b))"), ("statement", ";"), ("constant", "fai(Verde);"), ("negation", "while (!(b))"),
            ("statement", ";"), ("negation", "} while (!(b));")])

    def test_unUguaglianzaSiNegaUnaVolta(self):
        self.verifica("void f(int a)\n{\nif (a == a)\nreturn;\n}",
                      [("relation", "if (a != a)"), ("statement", ";")])

    def test_cicli(self):
        self.verifica("void f(int b)\n{\nfor (int a = 0; a < b; ++a)\nleggi();\n}", [
            ("constant", "for (int a = (0 + 1); a < b; ++a)"), ("relation", "for (int a = 0; a <= b; ++a)"),
            ("step", "for (int a = 0; a < b; --a)"), ("statement", ";")])

    def test_argomenti(self):
        self.verifica("void f(int a, int b, Colore c)\n{\nfai(a, b);\nfai(a, a);\nfai(c);\n}", [
            ("statement", ";"), ("arguments", "fai(b, a);"), ("statement", ";"), ("statement", ";")])

    def test_ilMinoreÈLoStessoDaOgniLato(self):
        self.verifica("int min(int a, int b);\nint f(int a, int b)\n{\nreturn min(a, b);\n}", [("statement", "return {};")])

    def test_costanti(self):
        self.verifica("const bool SI = true;\nconst char16_t VIRGOLA = u',';\nconst double PI = 3.14;", [
            ("constant", "const bool SI = false;"), ("constant", "const char16_t VIRGOLA = char16_t(u',' + 1);"),
            ("constant", "const double PI = (3.14 + 1);")])

    def test_lunghezze(self):
        """A twip is less than a pixel: where numbers are lengths, a large one changes by what can be seen."""
        for nome, passo in (("setup/frmPiccolo.cpp", 34), ("toolkit/piccolo.cpp", 34), ("core/piccolo.cpp", 1)):
            self.verifica("const int ALTA = 340;", [("constant", f"const int ALTA = (340 + {passo});"),
                                                    ("constant", f"const int ALTA = (340 - {passo});")], nome=nome)
        self.verifica("const int BORDO = 2;", [("constant", "const int BORDO = (2 + 1);"),
                                               ("constant", "const int BORDO = (2 - 1);")], nome="setup/frmPiccolo.cpp")

    def test_enumeratori(self):
        """The one behind the last is the first."""
        self.verifica("Colore f() { return Verde; }", [
            ("statement", "Colore f() { return {}; }"), ("constant", "Colore f() { return Rosso; }")])

    def test_ciòCheNonÈCodice(self):
        self.verifica('// a < b\nstatic_assert(1 < 2);\nconst char *T = "a < b"; /* 1 */\nint p(int a);', [])

    def test_dentroUnaMacroNienteCambia(self):
        self.verifica("void f(int a)\n{\nfai(MISURA(a + 2), 3);\n}", [
            ("statement", ";"), ("constant", "fai(MISURA(a + 2), (3 + 1));"),
            ("constant", "fai(MISURA(a + 2), (3 - 1));"), ("arguments", "fai(3, MISURA(a + 2));")])

    def test_ciòCheTornaNienteNonCambiaInNiente(self):
        self.verifica("Testo f() { return {}; }\nenum Flag { Falso };\nFlag h() { return Falso; }\nint g() { return 0; }", [("constant", "int g() { return (0 + 1); }")])

    def test_dove(self):
        """A change is found again by its function and text; the copy differs in it alone."""
        mutante, = self.fatti("int f()\n{\n    return  0; // zero\n}\n")
        self.assertEqual(mutante.chiave(), ("core/piccolo.cpp", "f", "return 0; // zero", "return (0 + 1); // zero"))
        self.assertEqual(mutante.riga, TESTA.count("\n") + 3)
        self.assertEqual(mutante.testo(self.percorso.read_bytes()),
                         self.percorso.read_bytes().replace(b"return  0;", b"return  (0 + 1);"))

    def test_unSorgenteErratoNonPassaInSilenzio(self):
        with self.assertRaises(SystemExit):
            self.fatti("int f() { return mancante; }")


if __name__ == "__main__":
    unittest.main()
