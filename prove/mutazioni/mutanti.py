"""Makes mutants of a source: copies of it with one small change, as a slip of the hand would be.

Clang says what is code: no comment, text, assertion or declaration is touched by mistake. It knows nothing of builds and
tests.
"""

import re
from dataclasses import dataclass

from clang import cindex
from clang.cindex import CursorKind as Genere

SCAMBI = {"==": "!=", "!=": "==", "<": "<=", "<=": "<", ">": ">=", ">=": ">", "&&": "||", "||": "&&", "+": "-",
          "-": "+", "*": "/", "/": "*", "%": "*", "&": "|", "|": "&", "^": "&", "<<": ">>", ">>": "<<", "+=": "-=",
          "-=": "+=", "*=": "/=", "/=": "*=", "|=": "&=", "&=": "|=", "^=": "|=", "<<=": ">>=", ">>=": "<<="}
SPECIE = {"==": "relation", "!=": "relation", "<": "relation", "<=": "relation", ">": "relation", ">=": "relation",
          "&&": "logic", "||": "logic"}
BINARI = (Genere.BINARY_OPERATOR, Genere.COMPOUND_ASSIGNMENT_OPERATOR)
CONDIZIONI = (Genere.IF_STMT, Genere.WHILE_STMT, Genere.DO_STMT, Genere.FOR_STMT)
BLOCCHI = (*CONDIZIONI, Genere.COMPOUND_STMT, Genere.CXX_FOR_RANGE_STMT, Genere.CASE_STMT, Genere.DEFAULT_STMT)
# What may go as a whole: an expression is one of these, under wrappings that have no name here.
AZIONI = (*BINARI, Genere.CALL_EXPR, Genere.UNARY_OPERATOR, Genere.UNEXPOSED_EXPR, Genere.BREAK_STMT,
          Genere.CONTINUE_STMT, Genere.CXX_DELETE_EXPR)
SALTATI = (Genere.STATIC_ASSERT, Genere.TYPE_REF, Genere.TEMPLATE_REF, Genere.STRING_LITERAL)
FUNZIONI = (Genere.FUNCTION_DECL, Genere.CXX_METHOD, Genere.CONSTRUCTOR, Genere.DESTRUCTOR, Genere.FUNCTION_TEMPLATE,
            Genere.CONVERSION_FUNCTION)
DI_DUE_UGUALI = ("min", "max")  # the same from either side: their arguments have no order
NIENTE = ("0", "false", "Falso", "{}", "nullptr", "std::nullopt", "QString()", "")
# Where numbers are lengths, fifteen to a pixel, and one more is the same pixel: those from 100 on change by a tenth.
DI_LUNGHEZZE = re.compile(r"toolkit/|\w+/(frm|dlg)\w+\.cpp$")
CARATTERI = {"": "char", "u": "char16_t", "U": "char32_t", "L": "wchar_t"}


@dataclass(frozen=True)
class Mutante:
    """One change. Where it stands is told by its function and the text, so that lines may move."""

    sorgente: str  # relative to the root
    specie: str  # relation, logic, arithmetic, negation, step, constant, statement, arguments
    inizio: int  # bytes of the source
    fine: int
    nuovo: str
    riga: int
    funzione: str
    prima: str  # the lines concerned, blanks drawn together
    dopo: str

    def testo(self, originale):
        """@return the source as bytes with the change in it."""
        return originale[: self.inizio] + self.nuovo.encode() + originale[self.fine :]

    def chiave(self):
        return self.sorgente, self.funzione, self.prima, self.dopo


class _Cercatore:
    def __init__(self, sorgente, percorso, testo, unita):
        self.sorgente, self.percorso, self.testo = sorgente, str(percorso), testo
        self.macro = [self._tratto(c) for c in unita.cursor.get_children()
                      if c.kind == Genere.MACRO_INSTANTIATION and self._qui(c)]
        self.trovati = {}

    def _qui(self, cursore):
        return cursore.location.file is not None and cursore.location.file.name == self.percorso

    @staticmethod
    def _tratto(cursore):
        return cursore.extent.start.offset, cursore.extent.end.offset

    def _brano(self, tratto):
        return self.testo[tratto[0] : tratto[1]].decode(errors="replace")  # what a macro made may end anywhere

    def _aggiungi(self, specie, inizio, fine, nuovo, funzione):
        # A macro may go whole with what holds it; nothing changes inside one.
        if fine <= inizio or any(a < fine and inizio < b and not (inizio <= a and b < fine) for a, b in self.macro):
            return
        capo = self.testo.rfind(b"\n", 0, inizio) + 1
        coda = self.testo.find(b"\n", fine)
        righe = self.testo[capo:inizio], self.testo[inizio:fine], self.testo[fine : coda if coda >= 0 else None]
        prima, dopo = (" ".join(b"".join(r).decode(errors="replace").split()) for r in (righe, (righe[0], nuovo.encode(), righe[2])))
        if prima != dopo:
            riga = self.testo.count(b"\n", 0, inizio) + 1
            mutante = Mutante(self.sorgente, specie, inizio, fine, nuovo, riga, funzione, prima, dopo)
            self.trovati.setdefault((inizio, fine, nuovo), mutante)

    def cammina(self, cursore, funzione):
        for figlio in cursore.get_children():
            if figlio.kind in SALTATI or not (self._qui(figlio) or figlio.kind == Genere.NAMESPACE):
                continue
            nome = figlio.spelling if figlio.kind in FUNZIONI else funzione
            self._guarda(figlio, nome)
            self.cammina(figlio, nome)

    def _guarda(self, cursore, funzione):
        figli = list(cursore.get_children())
        if cursore.kind in BINARI and len(figli) == 2:
            self._operatore(figli[0].extent.end.offset, figli[1].extent.start.offset, funzione)
        elif cursore.kind == Genere.UNARY_OPERATOR and figli:
            self._unario(cursore, figli[0], funzione)
        elif cursore.kind == Genere.CALL_EXPR:
            self._chiamata(cursore, funzione)
        elif cursore.kind == Genere.RETURN_STMT:
            self._ritorno(cursore, figli, funzione)
        elif cursore.kind == Genere.CONDITIONAL_OPERATOR and figli:
            self._nega(figli[0], funzione)
        else:
            self._costante(cursore, funzione)
        if cursore.kind in CONDIZIONI:
            self._condizione(cursore, figli, funzione)
        if cursore.kind in BLOCCHI:
            for figlio in figli[-1:] if cursore.kind == Genere.FOR_STMT else figli:
                self._azione(figlio, funzione)

    def _operatore(self, inizio, fine, funzione):
        """The operator between two operands; what stands there besides is blanks and brackets."""
        trovato = re.fullmatch(rb"[\s)]*([-+*/%&|^<>=!]+)[\s(]*", self.testo[inizio:fine])
        segno = trovato and trovato[1].decode()
        if segno in SCAMBI:
            dove = inizio + trovato.start(1)
            self._aggiungi(SPECIE.get(segno, "arithmetic"), dove, dove + len(segno), SCAMBI[segno], funzione)

    def _unario(self, cursore, operando, funzione):
        inizio, fine = self._tratto(cursore)
        a, b = self._tratto(operando)
        prima, dopo = self.testo[inizio:a].strip(b" ("), self.testo[b:fine].strip(b" )")
        for segno in ("++", "--"):
            altro = "--" if segno == "++" else "++"
            if prima == segno.encode():
                self._aggiungi("step", inizio, inizio + 2, altro, funzione)
            elif dopo == segno.encode():
                self._aggiungi("step", fine - 2, fine, altro, funzione)
        if prima in (b"!", b"-", b"~"):
            self._aggiungi("negation", inizio, inizio + 1, "", funzione)

    def _chiamata(self, cursore, funzione):
        if cursore.spelling.startswith("operator") or cursore.spelling in DI_DUE_UGUALI:
            return
        argomenti = list(cursore.get_arguments())
        for uno, altro in zip(argomenti, argomenti[1:]):
            if uno is None or altro is None or not (self._qui(uno) and self._qui(altro)):
                continue
            tratti = self._tratto(uno), self._tratto(altro)
            if uno.type.get_canonical().spelling.removeprefix("const ") == \
                    altro.type.get_canonical().spelling.removeprefix("const "):
                brani = [self._brano(t) for t in tratti]
                mezzo = self._brano((tratti[0][1], tratti[1][0]))
                if all(brani) and brani[0] != brani[1] and mezzo.strip() == ",":
                    self._aggiungi("arguments", tratti[0][0], tratti[1][1], brani[1] + mezzo + brani[0], funzione)

    def _ritorno(self, cursore, figli, funzione):
        if figli and self._brano(self._tratto(figli[0])) not in NIENTE:
            self._aggiungi("statement", *self._tratto(figli[0]), "{}", funzione)

    def _nega(self, condizione, funzione):
        """A condition the other way round; an equality has its operator for that."""
        inizio, fine = self._tratto(condizione)
        brano = self._brano((inizio, fine))
        if not brano.startswith("!") and not re.search("[=!]=", brano):
            self._aggiungi("negation", inizio, fine, f"!({brano})", funzione)

    def _condizione(self, cursore, figli, funzione):
        """Of a statement with a condition: the first expression in it, or the last."""
        if cursore.kind == Genere.DO_STMT:
            self._nega(figli[-1], funzione)
        elif cursore.kind != Genere.FOR_STMT:  # its comparison is an operator
            for condizione in [f for f in figli if f.kind.is_expression()][:1]:
                self._nega(condizione, funzione)

    def _azione(self, cursore, funzione):
        """A statement of a block, or the one of a branch: what ends in a semicolon, unlike a condition."""
        if cursore.kind == Genere.RETURN_STMT and not list(cursore.get_children()):
            self._aggiungi("statement", *self._tratto(cursore), "", funzione)
        if cursore.kind not in AZIONI:
            return
        inizio, fine = self._tratto(cursore)
        if self.testo[fine : fine + 1] == b";":
            self._aggiungi("statement", inizio, fine, "", funzione)

    def _costante(self, cursore, funzione):
        inizio, fine = self._tratto(cursore)
        brano = self._brano((inizio, fine))
        if cursore.kind == Genere.INTEGER_LITERAL and brano[:1].isdigit():
            passo = self._passo(brano)
            self._aggiungi("constant", inizio, fine, f"({brano} + {passo})", funzione)
            if brano.rstrip("uUlL") != "0":
                self._aggiungi("constant", inizio, fine, f"({brano} - {passo})", funzione)
        elif cursore.kind == Genere.FLOATING_LITERAL:
            self._aggiungi("constant", inizio, fine, f"({brano} + 1)", funzione)
        elif cursore.kind == Genere.CXX_BOOL_LITERAL_EXPR and brano in ("true", "false"):
            self._aggiungi("constant", inizio, fine, "false" if brano == "true" else "true", funzione)
        elif cursore.kind == Genere.CHARACTER_LITERAL and "'" in brano:
            tipo = CARATTERI.get(brano.split("'")[0])
            if tipo:
                self._aggiungi("constant", inizio, fine, f"{tipo}({brano} + 1)", funzione)
        elif cursore.kind == Genere.DECL_REF_EXPR and cursore.spelling.startswith("operator") and brano in SCAMBI:
            self._aggiungi(SPECIE.get(brano, "arithmetic"), inizio, fine, SCAMBI[brano], funzione)
        elif cursore.kind == Genere.DECL_REF_EXPR:
            self._enumeratore(cursore, inizio, fine, brano, funzione)

    def _passo(self, numero):
        lungo = DI_LUNGHEZZE.match(self.sorgente) and numero.isdecimal() and int(numero) >= 100
        return int(numero) // 10 if lungo else 1

    def _enumeratore(self, cursore, inizio, fine, brano, funzione):
        """The next of its enumeration, the first behind the last."""
        detto = cursore.referenced
        if detto is None or detto.kind != Genere.ENUM_CONSTANT_DECL or not brano.endswith(detto.spelling):
            return
        tutti = [c.spelling for c in detto.semantic_parent.get_children() if c.kind == Genere.ENUM_CONSTANT_DECL]
        altro = tutti[(tutti.index(detto.spelling) + 1) % len(tutti)]
        self._aggiungi("constant", inizio, fine, brano.removesuffix(detto.spelling) + altro, funzione)


def mutanti_di(sorgente, percorso, argomenti):
    """All mutants of a source, in its order.

    @param sorgente its name from the root. @param percorso where it stands.
    @param argomenti what a compiler is given for it, without the compiler, the source and the object.
    """
    opzioni = cindex.TranslationUnit.PARSE_DETAILED_PROCESSING_RECORD
    unita = cindex.Index.create().parse(str(percorso), [*argomenti, "-w", "-ferror-limit=0"], options=opzioni)
    gravi = [d for d in unita.diagnostics if d.severity >= cindex.Diagnostic.Error]
    if gravi:
        raise SystemExit(f"{percorso}: {gravi[0]}")
    with open(percorso, "rb") as file:
        cercatore = _Cercatore(sorgente, percorso, file.read(), unita)
    cercatore.cammina(unita.cursor, "")
    return sorted(cercatore.trovati.values(), key=lambda m: (m.inizio, m.fine, m.nuovo))
