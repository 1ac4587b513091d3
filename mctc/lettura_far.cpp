// The lines against the keys in their order, and the values against the forms of their rows.
#include "mctc/lettura_far.h"

#include "mctc/far.h"
#include "mctc/regole_valore.h"
#include "platform/file.h"
#include "platform/numeri.h"

#include <QHash>
#include <QLocale>

#include <algorithm>

namespace {

/// The form of a row's value.
enum class FormaFar : quint8
{
    Testo,
    Versione,
    Data, ///< DDMMYYYY
    Ora,  ///< HHMMSS
    Altezza,
    Tipo,
    Verdetto,
    Lux,
    Vuoto,
};

// clang-format off
constexpr FormaFar FORME[] = {
    FormaFar::Testo,    // FarMarca
    FormaFar::Testo,    // FarTipo
    FormaFar::Testo,    // FarNumOmologa
    FormaFar::Testo,    // FarNumSerie
    FormaFar::Versione, // FarNumVersioneSoftware
    FormaFar::Data,     // FarDataScadenza
    FormaFar::Altezza,  // FarAltezzaAnab
    FormaFar::Tipo,     // FarTipoAnab
    FormaFar::Verdetto, // FarVertAnabDx
    FormaFar::Verdetto, // FarVertAnabSx
    FormaFar::Verdetto, // FarVertAbbDx
    FormaFar::Verdetto, // FarVertAbbSx
    FormaFar::Verdetto, // FarOrizzAnabDx
    FormaFar::Verdetto, // FarOrizzAnabSx
    FormaFar::Verdetto, // FarOrizzAbbDx
    FormaFar::Verdetto, // FarOrizzAbbSx
    FormaFar::Lux,      // FarIllumLuxAnabDx
    FormaFar::Lux,      // FarIllumLuxAnabSx
    FormaFar::Lux,      // FarIllumLuxAbbDx
    FormaFar::Lux,      // FarIllumLuxAbbSx
    FormaFar::Verdetto, // FarEsitoIllumLuxAnabDx
    FormaFar::Verdetto, // FarEsitoIllumLuxAnabSx
    FormaFar::Verdetto, // FarEsitoIllumLuxAbbDx
    FormaFar::Verdetto, // FarEsitoIllumLuxAbbSx
    FormaFar::Verdetto, // FarEsito
    FormaFar::Vuoto,    // FarCodErrore: of a completed test, and no other is written
    FormaFar::Data,     // FarDataMisura
    FormaFar::Ora,      // FarInizioMisura
    FormaFar::Ora,      // FarFineMisura
    FormaFar::Testo,    // FarOperatore
};
// clang-format on

static_assert(std::size(FORME) == RIGHE_FAR);

/// What a beam that was never measured has in the file.
constexpr qint32 LUX_MAI_MISURATO = -100;

bool Cifre(const QString &valore, qsizetype quante)
{
    return valore.size() == quante &&
           std::all_of(valore.cbegin(), valore.cend(), [](QChar c) { return c >= u'0' && c <= u'9'; });
}

bool E_Data(const QString &valore)
{
    return Cifre(valore, 8) && Data_Valida(Numero_Pezzo(valore.mid(4)), Numero_Pezzo(valore.mid(2, 2)),
                                           Numero_Pezzo(valore.left(2)));
}

/// A mark and a number, with the decimal separator of the station that wrote it: not of this one.
bool E_Altezza(const QString &valore)
{
    bool numero = false;
    QLocale::c().toDouble(valore.mid(1).replace(u',', u'.'), &numero);
    return valore.startsWith(u'#') && numero;
}

bool E_Lux(const QString &valore)
{
    bool numero = false;
    const qint32 lux = valore.toInt(&numero);
    return numero && valore == QString::number(lux) && (lux >= 0 || lux == LUX_MAI_MISURATO);
}

bool In_Forma(const QString &valore, FormaFar forma)
{
    switch (forma) {
    case FormaFar::Testo:
        break;
    case FormaFar::Versione:
        return valore == FAR_VERSIONE;
    case FormaFar::Data:
        return E_Data(valore);
    case FormaFar::Ora:
        return Cifre(valore, LUNGHEZZA_ORA) && Ora_PezziFuori(valore) == 0;
    case FormaFar::Altezza:
        return E_Altezza(valore);
    case FormaFar::Tipo:
        return valore == FAR_SIMMETRICO || valore == FAR_ASIMMETRICO;
    case FormaFar::Verdetto:
        return valore == FAR_REGOLARE || valore == FAR_IRREGOLARE;
    case FormaFar::Lux:
        return E_Lux(valore);
    case FormaFar::Vuoto:
        return valore.isEmpty();
    }
    return true;
}

/// The line of a row in a file that has them all: the head stands before them.
qint32 Riga_Attesa(size_t riga)
{
    return static_cast<qint32>(riga) + 2;
}

QHash<QString, size_t> Righe_PerChiave()
{
    QHash<QString, size_t> righe;
    for (size_t i = 0; i < RIGHE_FAR; ++i)
        righe.insert(Far_Chiave(static_cast<RigaFar>(i)), i);
    return righe;
}

/// The reading of one file: what it has found so far.
class Lettura
{
public:
    void Riga(const QString &riga)
    {
        static const QHash<QString, size_t> RIGHE = Righe_PerChiave();
        ++m_numero;
        if (m_numero == 1) {
            if (riga != TESTA_FAR)
                Aggiungi(m_numero, ErroreFar::Testa, riga);
            return;
        }
        const qsizetype uguale = riga.indexOf(u'=');
        const auto trovata = RIGHE.constFind(riga.left(std::max<qsizetype>(0, uguale)));
        if (trovata == RIGHE.cend())
            Aggiungi(m_numero, ErroreFar::Estranea, riga);
        else
            Voce(*trovata, riga, riga.mid(uguale + 1));
    }
    void FineRiga(const QString &riga) { Aggiungi(m_numero, ErroreFar::FineRiga, riga); }

    FarLetto Fine()
    {
        if (m_numero == 0)
            Aggiungi(1, ErroreFar::Testa, QString());
        for (size_t i = 0; i < RIGHE_FAR; ++i) {
            VoceFar &voce = m_letto.Righe[i];
            voce.Chiave = Far_Chiave(static_cast<RigaFar>(i));
            if (m_dove[i] == 0)
                Aggiungi(Riga_Attesa(i), ErroreFar::Mancante, voce.Chiave);
        }
        Confronta_Verdetti();
        std::stable_sort(m_letto.Difetti.begin(), m_letto.Difetti.end(),
                         [](const DifettoFar &a, const DifettoFar &b) { return a.Riga < b.Riga; });
        return m_letto;
    }

private:
    void Voce(size_t quale, const QString &riga, const QString &valore)
    {
        if (m_dove[quale] != 0) {
            Aggiungi(m_numero, ErroreFar::Doppia, Far_Chiave(static_cast<RigaFar>(quale)));
            return;
        }
        if (quale < m_ultima)
            Aggiungi(m_numero, ErroreFar::FuoriPosto, riga);
        if (!In_Forma(valore, FORME[quale]))
            Aggiungi(m_numero, ErroreFar::Valore, riga);
        m_ultima = std::max(m_ultima, quale);
        m_dove[quale] = m_numero;
        m_letto.Righe[quale].Valore = valore;
    }

    /// Only where all of them stand: a missing row has its own word.
    void Confronta_Verdetti()
    {
        const QString esito = m_letto.Righe[FarEsito].Valore;
        const bool tutti = std::all_of(FAR_DECISIVE.begin(), FAR_DECISIVE.end(),
                                       [this](RigaFar riga) { return m_dove[riga] != 0; });
        if (tutti && !esito.isEmpty() && (esito == FAR_REGOLARE) != Far_Regolare(m_letto.Righe))
            Aggiungi(m_dove[FarEsito], ErroreFar::Incoerente, Far_Chiave(FarEsito) + u'=' + esito);
    }

    void Aggiungi(qint32 numero, ErroreFar errore, const QString &testo)
    {
        m_letto.Difetti.append({numero, errore, testo});
    }

    FarLetto m_letto;
    std::array<qint32, RIGHE_FAR> m_dove{}; // line of each row; 0: not there
    size_t m_ultima = 0;                    // the last row, in their order, that has come
    qint32 m_numero = 0;                    // of the line
};

} // namespace

FarLetto Far_Leggi(const QString &percorso)
{
    FileRighe righe(percorso);
    Lettura lettura;
    while (!righe.Fine()) {
        const QString riga = righe.Leggi();
        lettura.Riga(riga);
        if (!righe.ConCrLf())
            lettura.FineRiga(riga);
    }
    return lettura.Fine();
}
