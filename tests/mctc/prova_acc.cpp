#include "tests/mctc/prova_acc.h"

#include "core/modGeneral.h"
#include "mctc/campi_acc.h"
#include "mctc/modMctc.h"

namespace {

/// Where a section's lines stand in the bytes of a file, from its head to the next.
struct Tratto
{
    qsizetype da;
    qsizetype a;
};

Tratto Tratto_Di(const QByteArray &byte, const QByteArray &sezione)
{
    const qsizetype da = byte.indexOf('[' + sezione + "]\r\n");
    if (da < 0)
        qFatal("no section %s in the template", sezione.constData());
    const qsizetype dopo = byte.indexOf("\r\n[", da);
    return {da, dopo < 0 ? byte.size() : dopo + 2};
}

} // namespace

ProvaAcc::ProvaAcc() : m_buono(Stazione.Leggi(QStringLiteral("dati\\ModelloAcc.acc")))
{
    Campi_Azzera(gCampiAcc, ULTIMA_RIGA_ACC);
    Campi_ImpostaAcc();
    for (qint16 id = 94; id <= 97; ++id)
        gTabMctc[id] = QStringLiteral("testo %1").arg(id);
}

QByteArray ProvaAcc::Con(const QByteArray &sezione, const QByteArray &chiave, const QByteArray &valore) const
{
    return Al_Posto(sezione, chiave + '=', chiave + '=' + valore + "\r\n");
}

QByteArray ProvaAcc::Al_Posto(const QByteArray &sezione, const QByteArray &inizioRiga,
                              const QByteArray &righe) const
{
    const Tratto tratto = Tratto_Di(m_buono, sezione);
    const qsizetype inizio = m_buono.indexOf("\r\n" + inizioRiga, tratto.da) + 2;
    if (inizio < 2 || inizio >= tratto.a)
        qFatal("no line %s in section %s of the template", inizioRiga.constData(), sezione.constData());
    const qsizetype fine = m_buono.indexOf("\r\n", inizio) + 2;
    return QByteArray(m_buono).replace(inizio, fine - inizio, righe);
}

QByteArray ProvaAcc::Senza(const QByteArray &sezione) const
{
    const Tratto tratto = Tratto_Di(m_buono, sezione);
    return QByteArray(m_buono).remove(tratto.da, tratto.a - tratto.da);
}

QString ProvaAcc::Scrivi(const QByteArray &byte, const QString &nome) const
{
    const QString file = QStringLiteral("DIR_FAR\\") + nome;
    Stazione.Scrivi(file, byte);
    return Stazione.Percorso(file);
}

qint16 ProvaAcc::Controlla(const QByteArray &byte, const QString &nome)
{
    Percorso = Scrivi(byte, nome);
    Acc_Apri(Percorso);
    return Acc_Controlla(Percorso, Rapporto);
}
