#include "tests/comuni/stazione_prova.h"

#include "core/modGeneral.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace {

void Copia_Cartella(const QString &da, const QString &a)
{
    QDir().mkpath(a);
    const QFileInfoList file = QDir(da).entryInfoList(QDir::Files);
    for (const QFileInfo &voce : file)
        QFile::copy(voce.filePath(), a + u'/' + voce.fileName());
}

} // namespace

StazioneProva::StazioneProva()
{
    const QString sorgente = QStringLiteral(LUMIRA_SORGENTE);
    Copia_Cartella(sorgente + QStringLiteral("/impianto"), m_cartella.path());
    Copia_Cartella(sorgente + QStringLiteral("/dati"), m_cartella.filePath(QStringLiteral("dati")));
    QDir().mkpath(m_cartella.filePath(QStringLiteral("DIR_FAR")));

    gAppPath = m_cartella.path().replace(u'/', u'\\') + u'\\';
    gFileIni = gAppPath + QStringLiteral("lumira.ini");
    gDirImmagini = gDirModelli = gAppPath + QStringLiteral("dati\\");
    gFileLingue = gAppPath + QStringLiteral("lingue.ini");
    gFileLingueMctc = gAppPath + QStringLiteral("lingueMCTC.ini");
    gLingua = QStringLiteral("IT");
    gDebug = Falso;
    gModalita = Vero;
    gIniFile = Vero;
    gEsce = gControlloVisivo = gAllarmeAcustico = gAlimentazione = gAltezzaFaroAuto = Falso;
    gTipoProva = 0;
    gFileAcc.clear();
    gCaricamento = Falso;
    for (const char16_t *chiave : {u"DirDati", u"DirRisultati", u"ReteDati", u"ReteRisultati"})
        Imposta(QStringLiteral("MCTC"), QString::fromUtf16(chiave), gAppPath);
    Imposta_Cartelle();
    Carica_Lingua(gFileLingueMctc, ULTIMO_TESTO_MCTC, gTabMctc);
    Carica_Lingua(gFileLingue, ULTIMO_TESTO_LINGUA, gTabLingua);
}

QString StazioneProva::Percorso(const QString &nome) const
{
    return gAppPath + nome;
}

QString StazioneProva::Nativo(const QString &nome) const
{
    return m_cartella.filePath(QString(nome).replace(u'\\', u'/'));
}

void StazioneProva::Scrivi(const QString &nome, const QByteArray &byte) const
{
    QDir().mkpath(QFileInfo(Nativo(nome)).path());
    QFile file(Nativo(nome));
    if (!file.open(QIODevice::WriteOnly) || file.write(byte) != byte.size())
        qFatal("cannot write %s", qPrintable(nome));
}

QByteArray StazioneProva::Leggi(const QString &nome) const
{
    QFile file(Nativo(nome));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void StazioneProva::Imposta(const QString &sezione, const QString &chiave, const QString &valore) const
{
    Scrivi_Ini(gFileIni, sezione, chiave, valore);
}

QString StazioneProva::Accettazione(const QString &nome) const
{
    const QString nuovo = QStringLiteral("DIR_FAR\\") + nome;
    Scrivi(nuovo, Leggi(QStringLiteral("dati\\ModelloAcc.acc")));
    return Percorso(nuovo);
}
