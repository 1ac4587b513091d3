"""The manual as it lies beside a delivered station: what a reader would miss in it."""

import base64
import re
import subprocess
from pathlib import Path

RADICE = Path(__file__).resolve().parents[2]


def capitoli_di_f1():
    """Anchors that the help key opens, as the program knows them."""
    return sorted(set(re.findall(r'\{u"\w+", +u"([^"]+)"', (RADICE / "app/manuale.h").read_text(encoding="utf-8"))))


def difetti(stazione):
    """@param stazione folder with manuale.html, manuale.pdf and manuale. @returns a line for each fault."""
    pagina = (stazione / "manuale.html").read_text(encoding="utf-8")
    stampa = subprocess.run(
        ["pdftotext", "-raw", stazione / "manuale.pdf", "-"], check=True, capture_output=True, encoding="utf-8"
    ).stdout
    sorgente, simulatore = ((RADICE / "docs" / f).read_text(encoding="utf-8") for f in ("manuale.md", "simulatore.md"))
    ancore = re.findall(r'<h[1-6] id="([^"]+)"', pagina)
    trovati = []

    for figura in re.findall(r"!\[[^\]]*\]\(([^)]+)\)", sorgente):
        byte = base64.b64encode((RADICE / "docs" / figura).read_bytes()).decode()
        if f'src="data:image/png;base64,{byte}"' not in pagina:
            trovati.append(f"figura assente: {figura}")
    # Nothing of it lies elsewhere.
    trovati += [f"fuori: {f}" for f in re.findall(r'src="(?!data:)([^"]*)"', pagina)]
    trovati += [f"fuori: {f}" for f in re.findall(r'href="(?!#)([^"]*)"', pagina)]
    trovati += [f"rimando a niente: {a}" for a in re.findall(r'href="#([^"]*)"', pagina) if a not in ancore]

    # The simulator's document is the last chapter, its own chapters are below it.
    capitolo = simulatore.splitlines()[0].removeprefix("# ")
    for titolo in [capitolo, *re.findall(r"(?m)^## (.*)$", sorgente + simulatore)]:
        if titolo not in stampa:
            trovati.append(f"non si stampa: {titolo}")
    for ancora in capitoli_di_f1():
        rimando = stazione / "manuale" / f"{ancora}.html"
        if ancore.count(ancora) != 1:
            trovati.append(f"capitolo assente: {ancora}")
        if not rimando.is_file() or f"../manuale.html#{ancora}" not in rimando.read_text(encoding="utf-8"):
            trovati.append(f"pagina di F1 assente: {ancora}")
    return trovati
