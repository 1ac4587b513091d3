// The delivered files by table. What stands in them is other looks' business, but the program's version.
#include "strumenti/diagnosi.h"

#include "core/modGeneral.h"
#include "core/versione.h"
#include "platform/percorsi.h"
#include "strumenti/parole.h"
#include "strumenti/stazione_strumento.h"

#include <QFile>
#include <QFileInfo>

namespace {

struct FileConsegnato
{
    QStringView Nome; ///< in the station's folder
    Grado SeManca;
};

/// Without the pictures the station works: it shows a blank in their place.
// clang-format off
constexpr FileConsegnato FILE_CONSEGNATI[] = {
    {u"lumira.ini",               Grado::Guasto},
    {u"lingue.ini",               Grado::Guasto},
    {u"lingueMCTC.ini",           Grado::Guasto},
    {u"dati\\ModelloAcc.acc",     Grado::Guasto},
    {u"dati\\faro0.jpg",          Grado::Avviso},
    {u"dati\\faro1.jpg",          Grado::Avviso},
    {u"dati\\kp_logo.gif",        Grado::Avviso},
    {u"dati\\splash_kp_net.jpg",  Grado::Avviso},
};
// clang-format on

constexpr Parole INTERI = {u"%1 file consegnati, tutti interi", u"%1 delivered files, all whole"};
constexpr Parole MANCA = {u"manca %1", u"%1 is missing"};
constexpr Parole VUOTO = {u"%1 è vuoto", u"%1 is empty"};
constexpr Parole ILLEGGIBILE = {u"%1 non si può leggere", u"%1 cannot be read"};
constexpr Parole REINSTALLARE = {u"installare di nuovo la stazione: la configurazione resta",
                                 u"install the station again: its configuration stays"};
constexpr Parole RIPRISTINARE = {u"rimettere la copia di lumira.ini, o quella consegnata",
                                 u"put the copy of lumira.ini back, or the delivered one"};
constexpr Parole DARE_LETTURA = {u"dare all'utente il diritto di leggerlo", u"let the user read it"};
constexpr Parole NON_ESEGUIBILE = {u"%1 non si può eseguire", u"%1 cannot be run"};
constexpr Parole DARE_ESECUZIONE = {u"dare all'utente il diritto di eseguirlo", u"let the user run it"};
constexpr Parole VERSIONE = {u"lumira %1", u"lumira %1"};
constexpr Parole ALTRA_VERSIONE = {u"%1 non è della versione %2, quella di questo strumento",
                                   u"%1 is not of version %2, which this tool is of"};

/// @param[out] rimedio what to do then. @param[out] byte the file's. @return what is wrong with it; empty
/// when it is whole.
QString Difetto_Di(const QString &nome, QString &rimedio, QByteArray &byte)
{
    QFile file(Percorso_Nativo(gAppPath + nome));
    rimedio = In_Parole(gFileIni == gAppPath + nome ? RIPRISTINARE : REINSTALLARE);
    if (!file.exists())
        return In_Parole(MANCA).arg(nome);
    if (!file.open(QIODevice::ReadOnly)) {
        rimedio = In_Parole(DARE_LETTURA);
        return In_Parole(ILLEGGIBILE).arg(nome);
    }
    byte = file.readAll();
    return byte.isEmpty() ? In_Parole(VUOTO).arg(nome) : QString();
}

/// True when the version stands in the program as it does in this one: a text of the compiler's, which
/// nothing else in the file is likely to hold.
bool Ha_Versione(const QByteArray &programma)
{
    const QString versione = Versione_Programma();
    return programma.contains(
        QByteArray(reinterpret_cast<const char *>(versione.utf16()), versione.size() * qsizetype{2}));
}

void Guarda_Programma(Riscontri &riscontri)
{
    const QString nome = Nome_Programma();
    QString rimedio;
    QByteArray byte;
    const QString difetto = Difetto_Di(nome, rimedio, byte);
    if (!difetto.isEmpty())
        Trovato_Guasto(riscontri, Materia::Programma, difetto, rimedio);
    else if (!QFileInfo(Percorso_Nativo(gAppPath + nome)).isExecutable())
        Trovato_Guasto(riscontri, Materia::Programma, In_Parole(NON_ESEGUIBILE).arg(nome),
                       In_Parole(DARE_ESECUZIONE));
    else if (!Ha_Versione(byte))
        Trovato_Avviso(riscontri, Materia::Programma,
                       In_Parole(ALTRA_VERSIONE).arg(nome, Versione_Programma()), In_Parole(REINSTALLARE));
    else
        Trovato_Buono(riscontri, Materia::Programma, In_Parole(VERSIONE).arg(Versione_Programma()));
}

} // namespace

QString Programma_Stazione()
{
    return gAppPath + Nome_Programma();
}

void Diagnosi_Programma(Riscontri &riscontri)
{
    Guarda_Programma(riscontri);
    const qsizetype prima = riscontri.size();
    for (const FileConsegnato &file : FILE_CONSEGNATI) {
        QString rimedio;
        QByteArray byte;
        const QString difetto = Difetto_Di(file.Nome.toString(), rimedio, byte);
        if (!difetto.isEmpty())
            riscontri.append({Materia::Programma, file.SeManca, difetto, rimedio});
    }
    if (riscontri.size() == prima)
        Trovato_Buono(riscontri, Materia::Programma, In_Parole(INTERI).arg(std::size(FILE_CONSEGNATI)));
}
