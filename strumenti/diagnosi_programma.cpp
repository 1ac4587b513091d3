// The delivered files: by table, and by the bill they came with where there is one. What stands in them is
// other looks' business, but the program's version.
#include "strumenti/diagnosi.h"

#include "core/modFs.h"
#include "core/modGeneral.h"
#include "core/parole.h"
#include "core/versione.h"
#include "platform/percorsi.h"
#include "strumenti/distinta.h"
#include "strumenti/stazione_strumento.h"

#include <QFile>
#include <QFileInfo>
#include <QStringList>

namespace {

struct FileConsegnato
{
    QStringView Nome; ///< in the station's folder
    Grado SeManca;
};

// clang-format off
/// The station ends at a picture that it opens and does not find; of the logo it knows no more than the name.
constexpr FileConsegnato FILE_CONSEGNATI[] = {
    {u"lumira.ini",               Grado::Guasto},
    {u"lingue.ini",               Grado::Guasto},
    {u"lingueMCTC.ini",           Grado::Guasto},
    {u"dati\\ModelloAcc.acc",     Grado::Guasto},
    {u"dati\\faro0.jpg",          Grado::Guasto},
    {u"dati\\faro1.jpg",          Grado::Guasto},
    {u"dati\\kp_logo.gif",        Grado::Avviso},
    {u"dati\\splash_kp_net.jpg",  Grado::Avviso},
};
/// What a program for Windows loads beside itself when it opens a window and a picture.
constexpr FileConsegnato FILE_WINDOWS[] = {
    {u"platforms\\qwindows.dll",  Grado::Guasto},
    {u"imageformats\\qjpeg.dll",  Grado::Guasto},
};
// clang-format on

/// The pictures that every station opens.
constexpr QStringView FIGURE[] = {u"faro0.jpg", u"faro1.jpg"};

constexpr Parole PRESENTI = {u"%1 file necessari, ci sono tutti", u"%1 files needed, all there"};
constexpr Parole COME_CONSEGNATI = {u"%1 file consegnati, tutti interi", u"%1 delivered files, all whole"};
constexpr Parole DIVERSO = {u"%1 non è quello consegnato", u"%1 is not the delivered one"};
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
constexpr Parole ALTRA_VERSIONE = {u"%1 è della versione %2, e questo strumento della %3",
                                   u"%1 is of version %2, and this tool of %3"};
constexpr Parole SENZA_VERSIONE = {u"%1 non dice la sua versione; quella di questo strumento è la %2",
                                   u"%1 does not tell its version; that of this tool is %2"};

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

/// @param versione found in the program; empty for none.
void Guarda_Versione(Riscontri &riscontri, const QString &nome, const QString &versione)
{
    const QString nostra = Versione_Programma();
    if (versione.isEmpty())
        Trovato_Avviso(riscontri, Materia::Programma, In_Parole(SENZA_VERSIONE).arg(nome, nostra),
                       In_Parole(REINSTALLARE));
    else if (versione != nostra)
        Trovato_Avviso(riscontri, Materia::Programma, In_Parole(ALTRA_VERSIONE).arg(nome, versione, nostra),
                       In_Parole(REINSTALLARE));
    else
        Trovato_Buono(riscontri, Materia::Programma, In_Parole(VERSIONE).arg(versione));
}

/// @return false when it does not start.
bool Guarda_Programma(Riscontri &riscontri)
{
    const QString nome = Nome_Programma();
    QString rimedio;
    QByteArray byte;
    const QString difetto = Difetto_Di(nome, rimedio, byte);
    if (!difetto.isEmpty()) {
        Trovato_Guasto(riscontri, Materia::Programma, difetto, rimedio);
        return false;
    }
    if (!QFileInfo(Percorso_Nativo(gAppPath + nome)).isExecutable()) {
        Trovato_Guasto(riscontri, Materia::Programma, In_Parole(NON_ESEGUIBILE).arg(nome),
                       In_Parole(DARE_ESECUZIONE));
        return false;
    }
    Guarda_Versione(riscontri, nome, Versione_Di(byte));
    return true;
}

/// @return the files that have to be there, in the order of the table.
QList<FileConsegnato> File_Necessari()
{
    QList<FileConsegnato> necessari;
    const QStringList figure = Figure_Necessarie();
    for (FileConsegnato file : FILE_CONSEGNATI) {
        if (figure.contains(Fs_Nome(file.Nome.toString())))
            file.SeManca = Grado::Guasto;
        necessari.append(file);
    }
    if (Nome_Programma().endsWith(QStringLiteral(".exe"), Qt::CaseInsensitive))
        necessari.append({std::begin(FILE_WINDOWS), std::end(FILE_WINDOWS)});
    return necessari;
}

/// Programs and libraries are nobody's to change; a text or a picture may be the workshop's own.
Grado Grado_Di(const QString &nome)
{
    const bool codice =
        nome == Nome_Programma() || nome.endsWith(QStringLiteral(".dll"), Qt::CaseInsensitive);
    return codice ? Grado::Guasto : Grado::Avviso;
}

/// @param difettosi files of which something wrong has been told.
void Guarda_Distinta(Riscontri &riscontri, const QStringList &difettosi)
{
    const Distinta distinta = Distinta_Leggi();
    const qsizetype prima = riscontri.size();
    QStringList nomi = distinta.keys();
    nomi.sort(Qt::CaseInsensitive);
    for (const QString &nome : std::as_const(nomi)) {
        if (difettosi.contains(nome))
            continue;
        QString rimedio;
        QByteArray byte;
        QString difetto = Difetto_Di(nome, rimedio, byte);
        if (difetto.isEmpty() && Somma_Di(byte) == distinta[nome])
            continue;
        if (difetto.isEmpty())
            difetto = In_Parole(DIVERSO).arg(nome);
        riscontri.append({Materia::Programma, Grado_Di(nome), difetto, rimedio});
    }
    if (!distinta.isEmpty() && riscontri.size() == prima && difettosi.isEmpty())
        Trovato_Buono(riscontri, Materia::Programma, In_Parole(COME_CONSEGNATI).arg(distinta.size()));
}

} // namespace

QString Programma_Stazione()
{
    return gAppPath + Nome_Programma();
}

QStringList Figure_Necessarie()
{
    QStringList figure;
    for (const QStringView figura : FIGURE)
        figure.append(figura.toString());
    if (!gSplashFile.isEmpty())
        figure.append(gSplashFile);
    return figure;
}

void Diagnosi_Programma(Riscontri &riscontri)
{
    QStringList difettosi;
    if (!Guarda_Programma(riscontri))
        difettosi.append(Nome_Programma());
    const QList<FileConsegnato> necessari = File_Necessari();
    const qsizetype prima = riscontri.size();
    for (const FileConsegnato &file : necessari) {
        QString rimedio;
        QByteArray byte;
        const QString difetto = Difetto_Di(file.Nome.toString(), rimedio, byte);
        if (difetto.isEmpty())
            continue;
        riscontri.append({Materia::Programma, file.SeManca, difetto, rimedio});
        difettosi.append(file.Nome.toString());
    }
    if (riscontri.size() == prima)
        Trovato_Buono(riscontri, Materia::Programma, In_Parole(PRESENTI).arg(necessari.size()));
    Guarda_Distinta(riscontri, difettosi);
}
