#include "prove/uccisioni/prove.h"

#include "app/modApp.h"
#include "core/codici.h"
#include "core/modGeneral.h"
#include "prove/modello/banco.h"
#include "prove/uccisioni/vittima.h"

#include <QDir>
#include <QFile>

#include <algorithm>

namespace uccisioni {

namespace {

constexpr int BASTANO = 10; // differences

const QString NOME_ACC = QStringLiteral("12345678.acc");
const QString NOME_FAR = QStringLiteral("12345678.far");

/// An instrument that is done at once.
const QByteArray PRONTO = modello::Risposta("ABC4");
const QByteArray MISURA = modello::Risposta("ABC0123O#0456##0250OO0600OO");
constexpr quint8 CHIEDE_STATO = 1;

/// The session of a measure, to its end.
void Misura(modello::Banco &banco)
{
    while (!banco.Modello().Finita) {
        const modello::Sessione &sessione = banco.Modello();
        if (sessione.Stato != 1)
            banco.Accada({"battito", modello::Genere::Battito});
        else
            banco.Accada(
                {"risposta", modello::Genere::Byte, sessione.Comando == CHIEDE_STATO ? PRONTO : MISURA});
    }
    if (banco.Modello().Esito != SessioneCompletata)
        qFatal("the measure was not completed");
}

/// A station with one vehicle that is measured again and again.
class Officina
{
public:
    Officina()
    {
        gDirAcc = gAppPath + QStringLiteral("DIR_FAR\\");
        gModalita = Vero;
        gTipoProva = ProvaConfermata;
        gAltezzaFaro = 65;
        gFileAcc = gDirAcc + NOME_ACC;
        QString nativo = gDirAcc;
        m_cartella.setPath(nativo.replace(u'\\', u'/'));
        m_cartella.mkpath(QStringLiteral("."));
        QFile modelloAcc(QStringLiteral(LUMIRA_SORGENTE "/dati/ModelloAcc.acc"));
        if (!modelloAcc.open(QIODevice::ReadOnly))
            qFatal("no template");
        m_veicolo = modelloAcc.readAll();

        Prepara(false);
        Prova();
        m_risultato = Byte_Di(NOME_FAR);
        if (m_risultato.count("\r\n") != 31 || m_cartella.exists(NOME_ACC))
            qFatal("a test that nobody kills does not come to its end");
    }

    /// From the first frame on.
    static void Prova()
    {
        modello::Banco banco(0, modello::Porta::Buona, modello::PROFILO_IDENTITA);
        Misura(banco);
        Calcola_Esito();
    }

    /// @param gia_fatta the vehicle has a result already.
    void Prepara(bool gia_fatta)
    {
        Scrivi(NOME_ACC, m_veicolo);
        if (gia_fatta)
            Scrivi(NOME_FAR, PRECEDENTE);
        else
            m_cartella.remove(NOME_FAR);
        m_prima = gia_fatta;
    }

    void Giudica(const Morte &morte, Prove &prove) const
    {
        ++(morte.Finita ? prove.MaiUccise : prove.Uccise);
        const bool listato = m_cartella.exists(NOME_ACC);
        const QByteArray risultato = Byte_Di(NOME_FAR);
        const bool comePrima = m_prima ? risultato == PRECEDENTE : !m_cartella.exists(NOME_FAR);
        int *conto = nullptr;
        if (!listato)
            conto = risultato == m_risultato ? &prove.Concluse : nullptr;
        else if (comePrima)
            conto = &prove.SenzaRisultato;
        else if (risultato == m_risultato)
            conto = &prove.ConRisultato;
        else if (risultato.isEmpty())
            conto = &prove.Vuote;
        else if (m_risultato.startsWith(risultato))
            conto = &prove.ParteDelRisultato;
        const bool veicoloIntero = !listato || Byte_Di(NOME_ACC) == m_veicolo;
        if (conto != nullptr && veicoloIntero)
            *conto += morte.Finita ? 0 : 1;
        else
            prove.Guaste.append(QStringLiteral("davanti a %1: veicolo %2, risultato di %3 byte")
                                    .arg(QString::fromLatin1(morte.Davanti))
                                    .arg(listato)
                                    .arg(risultato.size()));
    }

private:
    const QByteArray PRECEDENTE = "[Kandelo]\r\nMarca=di prima\r\n";

    QByteArray Byte_Di(const QString &nome) const
    {
        QFile file(m_cartella.filePath(nome));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    void Scrivi(const QString &nome, const QByteArray &byte) const
    {
        QFile file(m_cartella.filePath(nome));
        if (!file.open(QIODevice::WriteOnly) || file.write(byte) != byte.size())
            qFatal("cannot write %s", qPrintable(nome));
    }

    modello::Stazione m_stazione;
    QDir m_cartella;
    QByteArray m_veicolo, m_risultato;
    bool m_prima = false;
};

Prove A_Caso(Officina &officina, const Lavoro &lavoro, int quante, quint32 seme)
{
    Prove prove;
    officina.Prepara(false);
    Momenti momenti(lavoro, seme);
    while (prove.Uccise < quante && prove.Guaste.size() < BASTANO) {
        officina.Prepara(prove.Uccise % 2 == 1);
        const Morte morte = Uccidi_Dopo(lavoro, momenti.Prossimo());
        momenti.Corretto(morte);
        officina.Giudica(morte, prove);
    }
    return prove;
}

} // namespace

Prove Prove_ACaso(int quante, quint32 seme)
{
    Officina officina;
    return A_Caso(officina, Officina::Prova, quante, seme);
}

Prove Prove_ACasoAllaFine(int quante, quint32 seme)
{
    Officina officina;
    modello::Banco banco(0, modello::Porta::Buona, modello::PROFILO_IDENTITA);
    Misura(banco);
    return A_Caso(officina, Calcola_Esito, quante, seme);
}

Prove Prove_AOgniConfine()
{
    Officina officina;
    modello::Banco banco(0, modello::Porta::Buona, modello::PROFILO_IDENTITA);
    Misura(banco);
    Prove prove;
    for (const bool giaFatta : {false, true}) {
        const int finite = prove.MaiUccise;
        for (int confine = 0; prove.MaiUccise == finite && prove.Guaste.size() < BASTANO; ++confine) {
            officina.Prepara(giaFatta);
            officina.Giudica(Uccidi_Alla(Calcola_Esito, confine), prove);
            ++prove.Chiamate;
        }
    }
    return prove;
}

QList<QByteArray> Prova_Effetti()
{
    Officina officina;
    modello::Banco banco(0, modello::Porta::Buona, modello::PROFILO_IDENTITA);
    Misura(banco);
    officina.Prepara(false);
    return Effetti_Di(Calcola_Esito);
}

} // namespace uccisioni
