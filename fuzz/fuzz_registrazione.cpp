// Any bytes as the record of a line: what is read stands when it is written and read again, and an instrument
// that plays it says all of it to a station that says the same again.
#include "fuzz/comune.h"
#include "simulatore/registrazione.h"
#include "simulatore/riproduzione.h"
#include "simulatore/trama.h"

namespace {

QByteArray Registrazione_Testo(const Registrazione &registrazione)
{
    QString testo = QStringLiteral("qx5sim registrazione 1\n");
    if (!registrazione.far.isEmpty())
        testo += QStringLiteral("far ") + registrazione.far + u'\n';
    for (const BranoLinea &brano : registrazione.brani)
        testo += Brano_Testo(brano) + u'\n';
    return testo.toUtf8();
}

/// What somebody says in the record, from the first whole command on or from its start.
QByteArray Detto(const Registrazione &registrazione, Voce voce, bool dalPrimoComando)
{
    AssemblatoreComandi comandi;
    bool comando = !dalPrimoComando;
    QByteArray byte;
    for (const BranoLinea &brano : registrazione.brani) {
        if (brano.voce == Voce::Stazione) {
            for (const char b : brano.byte)
                comando = comandi.Aggiungi(b) || comando;
        }
        if (brano.voce == voce && comando)
            byte += brano.byte;
    }
    return byte;
}

void Prova_Riproduzione(const Registrazione &registrazione)
{
    Riproduzione strumento(registrazione, 0, [](const QString &) {});
    QByteArray risposte;
    for (const Invio &invio : strumento.Ricevi(Detto(registrazione, Voce::Stazione, false))) {
        Pretendi(invio.ritardo == 0, "a quick replay waits for nothing");
        risposte += invio.byte;
    }
    Pretendi(!strumento.Diversa(), "a record is not different from itself");
    Pretendi(strumento.Finita(), "a station that says all of it comes to the end");
    Pretendi(risposte == Detto(registrazione, Voce::Strumento, true), "the instrument says all of it");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *dati, size_t quanti)
{
    const QString percorso =
        File_Con(QStringLiteral("riga %1 al 50%2.txt"), Byte_Di(dati, quanti)).replace(u'\\', u'/');
    Registrazione registrazione;
    registrazione.far = QStringLiteral("in vigore");
    const QStringList errori = Registrazione_Leggi(percorso, registrazione);
    for (const QString &errore : errori)
        Pretendi(errore.startsWith(percorso), "an error names its file");
    if (!errori.isEmpty()) {
        Pretendi(registrazione.far == u"in vigore" && registrazione.brani.isEmpty(),
                 "an error leaves the record alone");
        return 0;
    }

    qint64 ms = 0;
    for (const BranoLinea &brano : registrazione.brani) {
        Pretendi(brano.ms >= ms && !brano.byte.isEmpty(), "time goes on, and somebody says something");
        ms = brano.ms;
    }
    const QByteArray testo = Registrazione_Testo(registrazione);
    Registrazione ancora;
    Pretendi(Registrazione_Leggi(File_Con(QStringLiteral("scritta.txt"), testo).replace(u'\\', u'/'), ancora)
                 .isEmpty(),
             "a record that is written out is read again");
    Pretendi(Registrazione_Testo(ancora) == testo, "it is the same record");
    Prova_Riproduzione(registrazione);
    return 0;
}
