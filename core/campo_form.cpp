// The rows of a table of fields against the profile files. It knows no control.
#include "core/campo_form.h"

#include "core/modGeneral.h"

void Campi_Azzera(TabellaCampi tabella, qint16 ultimaRiga)
{
    for (qint16 riga = 0; riga <= ultimaRiga; ++riga) {
        CampoForm vuoto;
        vuoto.List = tabella[static_cast<size_t>(riga)].List;
        tabella[static_cast<size_t>(riga)] = vuoto;
    }
}

void Campo_Chiave(CampoForm &campo, const ChiaveIni &chiave)
{
    campo.File = gFileIni;
    campo.Section = chiave.Sezione.toString();
    campo.Key = chiave.Nome.toString();
}

void Campo_Leggi(CampoForm &campo)
{
    campo.Value.clear();
    if (!campo.Key.isEmpty())
        Leggi_Ini(campo.File, campo.Section, campo.Key, campo.Value);
}

void Campi_Salva(TabellaCampi tabella, qint16 ultimaRiga)
{
    for (const CampoForm &campo : tabella.first(static_cast<size_t>(ultimaRiga + 1))) {
        if (campo.Dirty && !campo.Section.isEmpty())
            Scrivi_Ini(gFileIni, campo.Section, campo.Key, campo.Value);
    }
}

QString Campo_Formato(const QString &valore, qint16 formato)
{
    const auto pezzi = [&valore](QChar separatore) {
        return valore.left(2) + separatore + valore.mid(2, 2) + separatore + valore.mid(4);
    };
    if (formato == 0 && valore.size() == 8)
        return pezzi(u'/');
    if (formato == 1 && valore.size() == 6)
        return pezzi(u'.');
    return valore;
}
