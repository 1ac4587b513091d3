// Any password put into any lumira.ini, and any stored text read as one: what is kept is read back, what is
// refused changes nothing. Input: a line with the password (UTF-8), then the file.
#include "core/modGeneral.h"
#include "core/modStr.h"
#include "core/pwd_cifra.h"
#include "fuzz/comune.h"
#include "fuzz/valori_profilo.h"
#include "platform/codifica.h"
#include "strumenti/password_ini.h"

#include <QFile>

namespace {

/// What the scrambling allows, reckoned anew: each character one byte that is no command and is raised to 255
/// at most.
bool Si_Conserva(const QString &password)
{
    for (qsizetype i = 0; i < password.size(); ++i) {
        const QByteArray byte = Testo_InAnsi(QString(password[i]));
        if (Testo_DaAnsi(byte) != password[i] || password[i].category() == QChar::Other_Control ||
            static_cast<quint8>(byte[0]) + 4 * (i + 1) > 255)
            return false;
    }
    return !password.isEmpty();
}

QByteArray Byte_DelFile(const QString &percorso)
{
    QFile file(QString(percorso).replace(u'\\', u'/'));
    Pretendi(file.open(QIODevice::ReadOnly), "the file is there");
    return file.readAll();
}

/// A stored text that was made by hand: an error, or a password that is stored as that text.
void Prova_Decifra(const QString &cifrato)
{
    QString password;
    if (!Esegui({NumeroErrore::Overflow}, [&] { password = Pwd_Decifra(cifrato); }))
        return;
    QByteArray byte = Testo_InAnsi(password);
    for (qsizetype i = 0; i < byte.size(); ++i)
        byte[i] = static_cast<char>(byte[i] + 4 * (i + 1));
    Pretendi(byte == Testo_InAnsi(cifrato), "a password is four times its place below its text");
}

void Prova_Scritta(const QString &ini, const QByteArray &prima, const QString &password)
{
    auto attesi = Valori_Profilo(prima);
    const auto valori = Valori_Profilo(Byte_DelFile(ini));
    const QString sezione = Nome_DaConfrontare(SezioneImpostazioni.toString());
    for (const ChiaveIni &chiave : {ChiavePassword, ChiavePassword2}) {
        const QString nome = Nome_DaConfrontare(chiave.Nome.toString());
        const QString valore = valori.value(sezione).value(nome).value_or(QString());
        Pretendi(Pwd_Decifra(valore) == password, "the station reads the password that was written");
        attesi[sezione].insert(nome, valore);
    }
    Pretendi(valori == attesi, "every other value of the file stays");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *dati, size_t quanti)
{
    QByteArray byte = Byte_Di(dati, quanti);
    const QByteArray riga = Taglia_Riga(byte);
    const QString password = QString::fromUtf8(riga);
    Prova_Decifra(Testo_DaAnsi(riga));

    QString cifrato, errore;
    const bool cifrata = Pwd_Cifra(password, cifrato, errore);
    Pretendi(cifrata == Si_Conserva(password), "a password is refused for a character that is not kept");
    Pretendi(cifrata == errore.isEmpty(), "what is refused has its words");
    Pretendi(!cifrata || Pwd_Decifra(cifrato) == password, "a password that is kept comes back");

    const QString ini = File_Con(QStringLiteral("lumira.ini"), byte);
    if (!Ini_Adatto(ini, errore))
        return 0;
    QString copia;
    const EsitoPassword esito = Password_Scrivi(ini, password, copia, errore);
    Pretendi(esito == (cifrata ? EsitoPassword::Scritta : EsitoPassword::PasswordRifiutata),
             "a good password is written");
    if (esito == EsitoPassword::Scritta) {
        Pretendi(Byte_DelFile(copia) == byte, "the copy is the file as it was");
        Prova_Scritta(ini, byte, password);
        QFile::remove(copia);
    } else {
        Pretendi(copia.isEmpty() && Byte_DelFile(ini) == byte, "a refusal changes nothing");
    }
    return 0;
}
