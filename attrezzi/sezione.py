"""The part of a document that a command writes anew: what stands between its two marks."""


def scrivi_sezione(documento, inizio, fine, testo):
    """Puts a text between two marks, in the place of what stood there; all the rest stays.

    @param documento path, of a document that has both marks, in this order.
    """
    prima, _, resto = documento.read_text(encoding="utf-8").partition(inizio)
    _, segno, dopo = resto.partition(fine)
    if not segno:
        raise SystemExit(f"{documento}: the marks {inizio.strip()} {fine.strip()} are not there")
    documento.write_text(prima + inizio + testo + fine + dopo, encoding="utf-8")
