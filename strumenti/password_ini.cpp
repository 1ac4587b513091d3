// The copy, the two keys, the reading back and the way back when something fails. It asks nobody.
#include "strumenti/password_ini.h"

#include "core/modGeneral.h"
#include "core/modStr.h"
#include "core/parole.h"
#include "core/pwd_cifra.h"
#include "platform/errore_esecuzione.h"
#include "platform/file.h"
#include "platform/orologio.h"
#include "platform/percorsi.h"

#include <QFile>
#include <QSaveFile>

#include <algorithm>

namespace {

constexpr ChiaveIni CHIAVI[] = {ChiavePassword, ChiavePassword2};

constexpr Parole ALTRO_FILE = {u"in %1 manca la sezione [%2]: non è il lumira.ini di una stazione",
                               u"%1 has no section [%2]: it is not the lumira.ini of a station"};
constexpr Parole MANCA = {u"%1 non c'è", u"%1 is not there"};
constexpr Parole ILLEGGIBILE = {u"%1 non si può leggere", u"%1 cannot be read"};
constexpr Parole SENZA_COPIA = {u"la copia di %1 non si può fare: la password resta quella di prima",
                                u"%1 cannot be copied: the password stays what it was"};
constexpr Parole NON_SCRITTO = {u"%1 non si può scrivere: resta com'era",
                                u"%1 cannot be written: it stays as it was"};
constexpr Parole MEZZO_SCRITTO = {u"%1 non si può scrivere: com'era sta in %2",
                                  u"%1 cannot be written: what it was stands in %2"};

bool Testa_Di(const QString &riga, QStringView sezione)
{
    const QString spoglia = riga.trimmed();
    return spoglia.startsWith(u'[') &&
           spoglia.mid(1, spoglia.indexOf(u']') - 1).trimmed().compare(sezione, Qt::CaseInsensitive) == 0;
}

QByteArray Byte_Di(const QString &nativo)
{
    QFile file(nativo);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// @return the path of the copy, empty when it cannot be made. A second one of the same second has its
/// number.
QString Copia_Datata(const QString &nativo)
{
    const QString base =
        nativo + u'.' + Orologio_Corrente().Adesso().toString(QStringLiteral("yyyyMMdd-HHmmss"));
    QString copia = base;
    for (int volta = 2; QFile::exists(copia); ++volta)
        copia = base + u'-' + QString::number(volta);
    return QFile::copy(nativo, copia) ? copia : QString();
}

/// Puts the bytes of the copy back, if they are not there any more.
bool Rimetti(const QString &nativo, const QString &copia)
{
    const QByteArray byte = Byte_Di(copia);
    if (Byte_Di(nativo) == byte)
        return true;
    QSaveFile file(nativo);
    return file.open(QIODevice::WriteOnly) && file.write(byte) == byte.size() && file.commit();
}

/// @return true when the station, asking for either key, gets the password.
bool Scrivi_E_Rileggi(const QString &file, const QString &cifrato, const QString &password)
{
    return std::all_of(std::begin(CHIAVI), std::end(CHIAVI), [&](const ChiaveIni &chiave) {
        QString letto;
        return Scrivi_Ini(file, chiave, cifrato) && Leggi_Ini(file, chiave, letto) && letto == cifrato &&
               Pwd_Decifra(letto) == password;
    });
}

} // namespace

bool Ini_Adatto(const QString &file, QString &errore)
{
    try {
        FileRighe righe(file);
        while (!righe.Fine()) {
            if (Testa_Di(righe.Leggi(), SezioneImpostazioni))
                return true;
        }
        errore = In_Parole(ALTRO_FILE).arg(file, SezioneImpostazioni);
    } catch (const ErroreEsecuzione &guasto) {
        const bool manca = guasto.Numero() == static_cast<int>(NumeroErrore::FileNonTrovato);
        errore = In_Parole(manca ? MANCA : ILLEGGIBILE).arg(file);
    }
    return false;
}

EsitoPassword Password_Scrivi(const QString &file, const QString &password, QString &copia, QString &errore)
{
    copia.clear();
    QString cifrato;
    if (!Pwd_Cifra(password, cifrato, errore))
        return EsitoPassword::PasswordRifiutata;

    const QString nativo = Percorso_Nativo(file);
    copia = Copia_Datata(nativo);
    if (copia.isEmpty()) {
        errore = In_Parole(SENZA_COPIA).arg(file);
        return EsitoPassword::FileRifiutato;
    }
    if (Scrivi_E_Rileggi(file, cifrato, password))
        return EsitoPassword::Scritta;
    if (Rimetti(nativo, copia)) {
        QFile::remove(copia);
        copia.clear();
        errore = In_Parole(NON_SCRITTO).arg(file);
    } else {
        errore = In_Parole(MEZZO_SCRITTO).arg(file, copia);
    }
    return EsitoPassword::FileRifiutato;
}
