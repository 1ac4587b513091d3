// The state of the run and its readings through the profile calls. It knows no form and no module above it.
#include "core/modGeneral.h"

#include "platform/codifica.h"
#include "platform/elenco.h"
#include "platform/localita.h"
#include "platform/percorsi.h"
#include "platform/profilo.h"

#include <QFile>
#include <QSet>

#include <limits>

qint32 gScreenW = 0, gScreenH = 0;
Flag gDebug = Falso;
QString gAppPath, gFileIni, gDirImmagini, gDirModelli, gFileLingue, gFileLingueMctc;
QString gUser, gLogoFile, gSplashFile, gLingua;
Flag gIniFile = Falso, gEsce = Falso, gControlloVisivo = Falso, gAllarmeAcustico = Falso;
Flag gAlimentazione = Falso, gAltezzaFaroAuto = Falso, gModalita = Falso;
QString gDirAcc, gDirFar, gFileModelloAcc;
QStringList gTabMctc;

QStringList gTabLingua;
QString gPwdCorrente;
qint16 gTipoProva = 0;
double gAltezzaFaro = 0;
QString gFileAcc;
Flag gCaricamento = Falso;

namespace {

/// Characters that a profile read offers, the closing NUL included.
constexpr int LUNGHEZZA_VALORE = 500;

/// The longest file whose length a result holds, in bytes.
constexpr qint64 LUNGHEZZA_MASSIMA = std::numeric_limits<qint32>::max();

/// Keys of lumira.ini whose last value could not be written.
QSet<QString> chiavi_perse;

} // namespace

Flag Leggi_Ini(const QString &file, const QString &sezione, const QString &chiave, QString &valore)
{
    valore = Profilo_Leggi(sezione, chiave, QString(), LUNGHEZZA_VALORE, file);
    return Flag_Da(!valore.isEmpty());
}

QString Valore_Ini(const QString &file, const QString &sezione, const QString &chiave)
{
    QString valore;
    Leggi_Ini(file, sezione, chiave, valore);
    return valore;
}

Flag Scrivi_Ini(const QString &file, const QString &sezione, const QString &chiave, const QString &valore)
{
    const bool scritto = Profilo_Scrivi(sezione, chiave, valore, file);
    if (file == gFileIni) {
        const QString nome = sezione + u'/' + chiave;
        if (scritto)
            chiavi_perse.remove(nome);
        else
            chiavi_perse.insert(nome);
    }
    return Flag_Da(scritto);
}

bool Scrittura_Persa()
{
    return !chiavi_perse.isEmpty();
}

Flag Leggi_Ini(const QString &file, const ChiaveIni &chiave, QString &valore)
{
    return Leggi_Ini(file, chiave.Sezione.toString(), chiave.Nome.toString(), valore);
}
QString Valore_Ini(const QString &file, const ChiaveIni &chiave)
{
    return Valore_Ini(file, chiave.Sezione.toString(), chiave.Nome.toString());
}
Flag Scrivi_Ini(const QString &file, const ChiaveIni &chiave, const QString &valore)
{
    return Scrivi_Ini(file, chiave.Sezione.toString(), chiave.Nome.toString(), valore);
}

Flag File_Presente(const QString &percorso, qint16 attributo)
{
    return Flag_Da(!Cartella_Elenca(percorso, attributo).isEmpty());
}

QString Locale_Info(qint32 tipo)
{
    const quint32 locale = Locale_Utente();
    QByteArray testo;
    // The buffer has the size of the date separator whatever is asked for: a text of one or two characters,
    // which is all that the one caller needs.
    const qint32 lunghezza = Locale_Dato(locale, LOCALE_SEPARATORE_DATA, testo, 0);
    testo = QByteArray(lunghezza, '\0');
    Locale_Dato(locale, tipo, testo, lunghezza);
    const qsizetype nul = testo.indexOf('\0');
    return nul < 0 ? QString() : Testo_DaAnsi(testo.first(nul));
}

qint32 File_Leggi(const QString &percorso, QString &testo)
{
    QFile file(Percorso_Nativo(percorso));
    if (!file.open(QIODevice::ReadOnly) || file.size() == 0 || file.size() > LUNGHEZZA_MASSIMA)
        return -1;
    const QByteArray byte = file.readAll();
    if (file.error() != QFileDevice::NoError)
        return -1;
    testo += Testo_DaAnsi(byte);
    return Intero32(byte.size());
}

QString Lingua_Id(qint16 id)
{
    return QString::number(id).rightJustified(3, u'0');
}

void Carica_Lingua(const QString &file, qint16 ultimo, QStringList &tabella)
{
    const ProfiloFermo testi(file);
    tabella.resize(ultimo + 1);
    for (qint16 id = 0; id <= ultimo; ++id)
        Leggi_Ini(file, gLingua, Lingua_Id(id), tabella[id]);
}

QString Testo_Mctc(TestoMctc id)
{
    return id <= ULTIMO_TESTO_MCTC ? gTabMctc.value(id) : Valore_Ini(gFileLingueMctc, gLingua, Lingua_Id(id));
}
QString Testo_Lingua(TestoLingua id)
{
    return gTabLingua.value(id);
}

void Imposta_Cartelle()
{
    const auto cartella = [](const ChiaveIni &locale, const ChiaveIni &rete) {
        return Valore_Ini(gFileIni, gModalita ? locale : rete) +
               (gModalita ? QStringLiteral("DIR_FAR\\") : QStringLiteral("ESITO\\"));
    };
    gDirAcc = cartella(ChiaveLocaleDati, ChiaveReteDati);
    gDirFar = cartella(ChiaveLocaleRisultati, ChiaveReteRisultati);
    gFileModelloAcc = gDirModelli + QStringLiteral("ModelloAcc.acc");
}
