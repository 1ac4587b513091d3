#!/usr/bin/python3
"""The manual as a workshop gets it, from docs/manuale.md, with other documents behind it.

    attrezzi/manuale.py MANUALE.md [APPENDICE.md ...] CARTELLA

A document behind it is one more chapter. CARTELLA gets manuale.html, one file with its pictures inside; manuale.pdf, the same for paper; and the folder
manuale with a small page for each chapter that goes on to the chapter's anchor, for who can open a file but not
hand an anchor to the browser. Needs cmark-gfm and weasyprint.
"""

import base64
import html
import os
import re
import subprocess
import sys
from pathlib import Path

STILE = """
body { max-width: 50rem; margin: 0 auto; padding: 1rem; font: 1rem/1.5 "Liberation Sans", Arial, sans-serif; color: #1c1c1c; }
h1, h2, h3 { line-height: 1.2; break-after: avoid; }
h2 { margin-top: 2.5rem; border-bottom: 1px solid #999; }
nav ul { padding-left: 1.2rem; }
a { color: #0b4a8f; }
:target { background: #fff3c4; }
img { max-width: 100%; border: 1px solid #999; break-inside: avoid; }
table { border-collapse: collapse; width: 100%; overflow-wrap: break-word; }
th, td { border: 1px solid #999; padding: 0.25rem 0.5rem; text-align: left; vertical-align: top; }
tr { break-inside: avoid; }
code, pre { font: 0.9em "Liberation Mono", "Courier New", monospace; }
pre { background: #f2f2f2; padding: 0.5rem; white-space: pre-wrap; overflow-wrap: anywhere; break-inside: avoid; }
@media print {
  body { max-width: none; padding: 0; font-size: 10pt; }
  a { color: inherit; text-decoration: none; }
  img { max-height: 9cm; max-width: 70%; }
}
@page { size: A4; margin: 2cm; @bottom-center { content: counter(page) " / " counter(pages); font: 9pt "Liberation Sans", sans-serif; } }
"""

PAGINA = """<!DOCTYPE html>
<html lang="it">
<head>
<meta charset="utf-8">
<meta name="viewport" content="width=device-width">
<title>{titolo}</title>
<style>{stile}</style>
</head>
<body>
{corpo}
</body>
</html>
"""

RIMANDO = """<!DOCTYPE html>
<html lang="it">
<head>
<meta charset="utf-8">
<meta http-equiv="refresh" content="0; url=../manuale.html#{ancora}">
<title>{titolo}</title>
</head>
<body><a href="../manuale.html#{ancora}">{titolo}</a></body>
</html>
"""


def ancora(titolo):
    """The anchor of a heading, as the links of the text write it: small letters, hyphens, no other signs."""
    return re.sub(r"[^\w -]", "", titolo.lower()).replace(" ", "-")


def testo(frammento):
    """What a piece of a page reads, without its tags."""
    return html.unescape(re.sub(r"<[^>]+>", "", frammento))


def metti_ancore(corpo):
    """Gives every heading its anchor.

    @returns the page and its headings: level, anchor, text.
    """
    titoli = []

    def intesta(trovato):
        livello, dentro = trovato.groups()
        titoli.append((int(livello), ancora(testo(dentro)), testo(dentro)))
        return f'<h{livello} id="{titoli[-1][1]}">{dentro}</h{livello}>'

    return re.sub(r"<h([1-6])>(.*?)</h\1>", intesta, corpo), titoli


def metti_figure(corpo, cartella):
    """Puts the bytes of every picture in the place of its name. @param cartella where their names begin."""

    def figura(trovato):
        byte = base64.b64encode((cartella / html.unescape(trovato[1])).read_bytes()).decode()
        return f'src="data:image/png;base64,{byte}"'

    return re.sub(r'src="([^"]*\.png)"', figura, corpo)


def togli_rimandi_fuori(corpo):
    """A link to a file that does not travel along becomes its words."""
    return re.sub(r'<a href="(?!#|https?:)[^"]*">(.*?)</a>', r"\1", corpo)


def indice(titoli):
    """The list of the chapters, to be put before the first of them."""
    voci = "\n".join(f'<li><a href="#{a}">{html.escape(t)}</a></li>' for livello, a, t in titoli if livello == 2)
    return f"<nav>\n<ul>\n{voci}\n</ul>\n</nav>\n"


def pagina_di(sorgente):
    comando = ["cmark-gfm", "--extension", "table", sorgente]
    return subprocess.run(comando, check=True, capture_output=True, encoding="utf-8").stdout


def in_fondo(corpo):
    """A document as a chapter: its headings a level lower."""
    return re.sub(r"<(/?)h([1-5])>", lambda trovato: f"<{trovato[1]}h{int(trovato[2]) + 1}>", corpo)


def unisci(sorgenti):
    """@returns the page of all, the first with its title, the others a chapter each; their names lead there."""
    corpo, *altri = map(pagina_di, sorgenti)
    for sorgente, altro in zip(sorgenti[1:], altri):
        titolo = testo(re.search(r"<h1>(.*?)</h1>", altro)[1])
        corpo = corpo.replace(f'href="{sorgente.name}"', f'href="#{ancora(titolo)}"') + in_fondo(altro)
    return corpo


def componi(sorgenti):
    """@returns the page and its headings."""
    corpo, titoli = metti_ancore(togli_rimandi_fuori(metti_figure(unisci(sorgenti), sorgenti[0].parent)))
    corpo = corpo.replace("<h2", indice(titoli) + "<h2", 1)
    return PAGINA.format(titolo=html.escape(titoli[0][2]), stile=STILE, corpo=corpo), titoli


def main(sorgenti, cartella):
    pagina, titoli = componi(sorgenti)
    rimandi = cartella / "manuale"
    rimandi.mkdir(parents=True, exist_ok=True)
    for vecchio in rimandi.glob("*.html"):
        vecchio.unlink()
    for _, nome, titolo in titoli[1:]:
        rimando = RIMANDO.format(ancora=nome, titolo=html.escape(titolo))
        (rimandi / f"{nome}.html").write_text(rimando, encoding="utf-8")
    (cartella / "manuale.html").write_text(pagina, encoding="utf-8")
    # The fonts inside bear a date; without one from outside it is always the same.
    ambiente = {"SOURCE_DATE_EPOCH": "0"} | os.environ
    comando = ["weasyprint", "--quiet", cartella / "manuale.html", cartella / "manuale.pdf"]
    subprocess.run(comando, check=True, env=ambiente)


if __name__ == "__main__":
    if len(sys.argv) < 3:
        sys.exit(__doc__)
    *documenti, uscita = map(Path, sys.argv[1:])
    main(documenti, uscita)
