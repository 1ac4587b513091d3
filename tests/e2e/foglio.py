"""What stands on a printed sheet, as a reader of PDF files sees it."""

import html
import re
import subprocess

MM = 72 / 25.4  # points


class Foglio:
    """A printed sheet: its size and its words, in points from the upper left corner."""

    PAROLA = re.compile(r'<word xMin="(.*?)" yMin="(.*?)" xMax="(.*?)" yMax="(.*?)">(.*?)</word>')

    def __init__(self, percorso):
        testo = subprocess.run(
            ["pdftotext", "-bbox", percorso, "-"], check=True, capture_output=True, text=True
        ).stdout
        self.misure = [(float(w), float(h)) for w, h in re.findall(r'<page width="(.*?)" height="(.*?)">', testo)]
        self.parole = [(html.unescape(p[4]), tuple(map(float, p[:4]))) for p in self.PAROLA.findall(testo)]

    def posti(self, testo):
        """The places of a text, one word after the other on one line: left, top, right, bottom."""
        cercate = testo.split(" ")
        for inizio in range(len(self.parole) - len(cercate) + 1):
            trovate = self.parole[inizio : inizio + len(cercate)]
            posti = [posto for _, posto in trovate]
            if [parola for parola, _ in trovate] == cercate and max(p[1] for p in posti) < min(p[3] for p in posti):
                yield posti[0][0], posti[0][1], posti[-1][2], posti[-1][3]
