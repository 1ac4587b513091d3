#!/usr/bin/env python3
"""Bill of materials of a packed station: SPDX 2.3 in JSON, every file with its checksums, every work with its licence.

    packaging/distinta.py SISTEMA VERSIONE CARTELLA FILE
SISTEMA    windows or debian: which rows of licenze/elenco.json count
VERSIONE   the program's
CARTELLA   what goes into the package, as it is laid out there
FILE       the bill; below CARTELLA it is left out of itself

The same files give the same bill: its date is SOURCE_DATE_EPOCH, where that is set.
"""
import datetime
import fnmatch
import hashlib
import json
import os
import pathlib
import sys
import time
import uuid

RADICE = pathlib.Path(__file__).resolve().parents[1]
ELENCO = RADICE / "licenze" / "elenco.json"
TESTI = RADICE / "licenze" / "testi"
LICENZA_PROGRAMMA = "NOASSERTION"  # until its owner chooses one
PROGRAMMA = "SPDXRef-lumira"
DOCUMENTO = "SPDXRef-DOCUMENT"


def leggi_elenco(sistema):
    """The works of others on a system, in the order of the list."""
    return [voce for voce in json.loads(ELENCO.read_text(encoding="utf-8")) if voce["sistema"] == sistema]


def si_trova(voce, nome):
    """Whether a work is, or lies in, a file of the package."""
    return any(fnmatch.fnmatchcase(nome, schema) for schema in voce["file"])


def identifica(tipo, testo):
    """An identifier of SPDX: letters, digits, point and hyphen alone."""
    return f"SPDXRef-{tipo}-{hashlib.sha256(testo.encode()).hexdigest()[:16]}"


def descrivi_file(nome, byte):
    return {
        "SPDXID": identifica("file", nome),
        "fileName": f"./{nome}",
        "checksums": [
            {"algorithm": "SHA1", "checksumValue": hashlib.sha1(byte).hexdigest()},
            {"algorithm": "SHA256", "checksumValue": hashlib.sha256(byte).hexdigest()},
        ],
        "licenseConcluded": "NOASSERTION",
        "licenseInfoInFiles": ["NOASSERTION"],
        "copyrightText": "NOASSERTION",
    }


def leggi_file(cartella, uscita):
    """Every file of a package, described, in the order of their names. A link stands for a file that is there."""
    percorsi = [p for p in cartella.rglob("*") if p.is_file() and not p.is_symlink() and p != uscita]
    nomi = sorted((p.relative_to(cartella).as_posix(), p) for p in percorsi)
    return [descrivi_file(nome, percorso.read_bytes()) for nome, percorso in nomi]


def descrivi_programma(versione, file):
    somme = sorted(f["checksums"][0]["checksumValue"] for f in file)
    return {
        "SPDXID": PROGRAMMA,
        "name": "lumira",
        "versionInfo": versione,
        "downloadLocation": "NOASSERTION",
        "filesAnalyzed": True,
        "packageVerificationCode": {"packageVerificationCodeValue": hashlib.sha1("".join(somme).encode()).hexdigest()},
        "licenseConcluded": LICENZA_PROGRAMMA,
        "licenseInfoFromFiles": ["NOASSERTION"],
        "licenseDeclared": LICENZA_PROGRAMMA,
        "copyrightText": "NOASSERTION",
    }


def descrivi_opera(voce):
    return {
        "SPDXID": identifica("opera", voce["nome"]),
        "name": voce["nome"],
        "versionInfo": voce["versione"],
        "downloadLocation": "NOASSERTION",
        "sourceInfo": f"Debian 12 source package {voce['sorgente']}",
        "filesAnalyzed": False,
        "licenseConcluded": voce["licenza"],
        "licenseDeclared": voce["licenza"],
        "copyrightText": "NOASSERTION",
    }


def lega(da, come, a):
    return {"spdxElementId": da, "relationshipType": come, "relatedSpdxElement": a}


def lega_tutto(elenco, file):
    legami = [lega(DOCUMENTO, "DESCRIBES", PROGRAMMA)]
    legami += [lega(PROGRAMMA, "CONTAINS", f["SPDXID"]) for f in file]
    for voce in elenco:
        opera = identifica("opera", voce["nome"])
        if "parte_di" in voce:
            legami.append(lega(identifica("opera", voce["parte_di"]), "CONTAINS", opera))
        else:
            legami.append(lega(PROGRAMMA, "DEPENDS_ON", opera))
        # fileName begins with "./".
        legami += [lega(opera, "CONTAINS", f["SPDXID"]) for f in file if si_trova(voce, f["fileName"][2:])]
    return legami


def licenze_fuori_lista(elenco):
    """Licences that SPDX has no identifier for, with their words."""
    fuori = {}
    for voce in elenco:
        if voce["licenza"].startswith("LicenseRef-"):
            testi = [(TESTI / nome).read_text(encoding="utf-8") for nome in voce["testi"]]
            fuori.setdefault(voce["licenza"], []).extend(testi or ["/usr/share/doc/*/copyright"])
    return [{"licenseId": nome, "extractedText": "\n".join(testi)} for nome, testi in sorted(fuori.items())]


def fai_distinta(sistema, versione, cartella, uscita, istante):
    """@param istante seconds since 1970. @returns the document."""
    elenco = leggi_elenco(sistema)
    file = leggi_file(cartella, uscita)
    programma = descrivi_programma(versione, file)
    codice = programma["packageVerificationCode"]["packageVerificationCodeValue"]
    creato = datetime.datetime.fromtimestamp(istante, datetime.timezone.utc)
    return {
        "spdxVersion": "SPDX-2.3",
        "dataLicense": "CC0-1.0",
        "SPDXID": DOCUMENTO,
        "name": f"lumira-{versione}-{sistema}",
        "documentNamespace": f"urn:uuid:{uuid.uuid5(uuid.NAMESPACE_OID, f'{sistema} {versione} {codice}')}",
        "creationInfo": {
            "created": creato.strftime("%Y-%m-%dT%H:%M:%SZ"),
            "creators": ["Tool: distinta.py"],
        },
        "packages": [programma, *(descrivi_opera(voce) for voce in elenco)],
        "files": file,
        "hasExtractedLicensingInfos": licenze_fuori_lista(elenco),
        "relationships": lega_tutto(elenco, file),
    }


def main(argomenti):
    if len(argomenti) != 4 or argomenti[0] not in ("windows", "debian"):
        sys.exit(__doc__)
    sistema, versione, cartella, uscita = argomenti
    istante = int(os.environ.get("SOURCE_DATE_EPOCH") or time.time())
    distinta = fai_distinta(sistema, versione, pathlib.Path(cartella), pathlib.Path(uscita), istante)
    pathlib.Path(uscita).write_text(json.dumps(distinta, ensure_ascii=False, indent=1) + "\n", encoding="utf-8")


if __name__ == "__main__":
    main(sys.argv[1:])
