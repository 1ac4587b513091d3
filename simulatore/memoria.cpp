// The blocks of texts with their factory values, in the state file over the scenario. It knows no frame.
#include "simulatore/memoria.h"

#include "platform/profilo.h"

#include <span>

namespace {

constexpr int MISURA_TESTO = 4096;

struct DefTesto
{
    const char16_t *chiave;
    const char16_t *fabbrica;
};

struct DefBlocco
{
    const char16_t *sezione;
    std::span<const DefTesto> testi;
};

// The keys are those that the station uses for the same texts in its own file, so that the two are compared
// at a glance. The order is that of the line.
// clang-format off
constexpr DefTesto TESTI_DATI[] = {
    {u"Comm_Modello",       u"QX5"},
    {u"Comm_Marca",         u"Strumenti Prova"},
    {u"Comm_NOmologazione", u"OM00123"},
    {u"Comm_NSerie",        u"000042"},
    {u"Comm_ScadRevisione", u"30/06/2030"},
    {u"Operatore",          u"Rossi Mario"},
};
constexpr DefTesto TESTI_TARATURA[] = {
    {u"MaxManopola", u"1012"},
    {u"MinManopola", u"8"},
    {u"S1",          u"101"},
    {u"S2",          u"102"},
    {u"S3",          u"103"},
    {u"S4",          u"104"},
    {u"S5",          u"105"},
    {u"S6",          u"106"},
    {u"S7",          u"107"},
    {u"S8",          u"108"},
};
constexpr DefBlocco BLOCCHI[] = {
    {u"DATI",     TESTI_DATI},
    {u"TARATURA", TESTI_TARATURA},
};
// clang-format on

const DefBlocco &Blocco_Def(Blocco blocco)
{
    return BLOCCHI[static_cast<size_t>(blocco)];
}

/// A text as one line of the state file. The quotes keep blanks and quotes of the text itself; a control
/// character would break the line.
QString Testo_PerStato(QString testo)
{
    for (QChar &carattere : testo) {
        if (carattere < u' ')
            carattere = u'?';
    }
    return u'"' + testo + u'"';
}

} // namespace

QStringList Memoria::Leggi(Blocco blocco) const
{
    const DefBlocco &def = Blocco_Def(blocco);
    const QString sezione = QString::fromUtf16(def.sezione);
    QStringList testi;
    for (const DefTesto &testo : def.testi) {
        const QString chiave = QString::fromUtf16(testo.chiave);
        const QString iniziale =
            Profilo_Leggi(sezione, chiave, QString::fromUtf16(testo.fabbrica), MISURA_TESTO, m_fileScenario);
        testi.append(Profilo_Leggi(sezione, chiave, iniziale, MISURA_TESTO, m_fileStato));
    }
    return testi;
}

bool Memoria::Scrivi(Blocco blocco, qsizetype indice, const QString &testo) const
{
    const DefBlocco &def = Blocco_Def(blocco);
    return Profilo_Scrivi(QString::fromUtf16(def.sezione),
                          QString::fromUtf16(def.testi[static_cast<size_t>(indice)].chiave),
                          Testo_PerStato(testo), m_fileStato);
}
