// Sessions at random. An instrument that answers right more often than not takes them far; what it does else
// is of every kind, and of bytes that mean nothing.
#include "prove/modello/esplorazione.h"

#include "platform/codifica.h"

#include <QRandomGenerator>

namespace modello {

namespace {

constexpr int EVENTI_AL_MASSIMO = 600;

class Strumento
{
public:
    Strumento(quint32 seme, quint8 modo) : m_caso(seme), m_modo(modo), m_bonta(Fino(30, 95)) {}

    /// A port that is good nine times in ten.
    Porta Scegli_Porta()
    {
        const int quale = Fino(0, 19);
        return quale == 0 ? Porta::Chiusa : quale == 1 ? Porta::Sorda : Porta::Buona;
    }
    /// What a parent leaves: at least one text, mostly five or six.
    QStringList Scegli_Testi()
    {
        QStringList testi;
        for (int restano = Fino(0, 3) == 0 ? Fino(1, 8) : Fino(5, 6); restano > 0; --restano)
            testi.append(Testo_DaAnsi(Rumore(Fino(0, 12))));
        return testi;
    }
    /// What happens next.
    Evento Scegli(const Sessione &sessione)
    {
        if (!m_attesi.isEmpty() && Fino(0, 9) != 0)
            return m_attesi.takeFirst();
        const int sorte = Fino(0, 999);
        if (sorte < 4)
            return {"pulsante", Genere::Pulsante, {}, 0, Fino(0, 199)};
        if (sorte < 8)
            return {"default", Genere::Default, {}, 0, Fino(0, 199)};
        if (sorte < 60)
            return Qualunque();
        if (sessione.Stato != 1 || sorte % 100 >= m_bonta)
            return {"battito", Genere::Battito};
        Spezza(Giusta(sessione.Comando));
        return m_attesi.takeFirst();
    }

private:
    int Fino(int da, int a) { return m_caso.bounded(da, a + 1); }

    QByteArray Rumore(int quanti)
    {
        QByteArray byte;
        while (byte.size() < quanti)
            byte.append(static_cast<char>(Fino(0, 255)));
        return byte;
    }

    QByteArray Testi(int quanti)
    {
        QByteArray testi;
        for (; quanti > 0; --quanti)
            testi += QByteArray(Fino(0, 6), static_cast<char>(Fino(32, 255))) + '\x17';
        return testi;
    }

    QByteArray Giusta(quint8 comando)
    {
        switch (comando) {
        case 1:
            return Risposta(QByteArray("ABC") + (m_modo == 0 ? "112444"[Fino(0, 5)] : '1'));
        case 2: {
            QByteArray record = "ABC";
            for (int k = 0; k < 4; ++k)
                record += QByteArray::number(Fino(1000, 9999)) + "O#X"[Fino(0, 2)] + "O#X"[Fino(0, 2)];
            return Risposta(record);
        }
        case 4:
            return Risposta("ABCU" + Testi(6));
        case 7:
            return Risposta("ABC" + Testi(10));
        default:
            return Risposta("ABC\xFF");
        }
    }

    /// In one batch or in pieces, the time between them up to what a slow line needs, at times doubled or
    /// followed by a beat before its rest.
    void Spezza(const QByteArray &risposta)
    {
        const QByteArray tutto = Fino(0, 19) == 0 ? risposta + risposta : risposta;
        const bool intera = Fino(0, 2) != 0;
        for (qsizetype i = 0; i < tutto.size();) {
            const qsizetype pezzo = intera ? tutto.size() : Fino(1, 40);
            m_attesi.append({"byte", Genere::Byte, tutto.mid(i, pezzo), 0, Fino(0, 30)});
            i += pezzo;
        }
    }

    Evento Qualunque()
    {
        switch (Fino(0, 4)) {
        case 0: // noise, with a start or an end byte more often than by chance
            return {"rumore", Genere::Byte,
                    Rumore(Fino(0, 20)) + QByteArray("\x02\x03x", 3).at(Fino(0, 2)) + Rumore(Fino(0, 20)), 0,
                    Fino(0, 199)};
        case 1: { // damaged on the line
            QByteArray guasta = Giusta(static_cast<quint8>(Fino(1, 8)));
            guasta[Fino(0, static_cast<int>(guasta.size()) - 1)] = static_cast<char>(Fino(0, 255));
            return {"guasta", Genere::Byte, guasta, 0, Fino(0, 199)};
        }
        case 2: // of any length, its check character right
            return {"a caso", Genere::Byte, Risposta(Rumore(Fino(0, 120))), 0, Fino(0, 199)};
        default: {
            Evento evento = Alfabeto()[Fino(0, static_cast<int>(Alfabeto().size()) - 2)];
            evento.Dopo = Fino(0, 199);
            return evento;
        }
        }
    }

    QRandomGenerator m_caso;
    quint8 m_modo;
    int m_bonta;
    QList<Evento> m_attesi;
};

void Conduci(quint32 seme, Estratte &estratte)
{
    const auto modo = static_cast<quint8>(seme % MODI);
    Strumento strumento(seme, modo);
    const Porta porta = strumento.Scegli_Porta();
    Banco banco(modo, porta, strumento.Scegli_Testi());
    int eventi = 0;
    while (!banco.Modello().Finita && banco.Differenza().isEmpty()) {
        const Evento evento = ++eventi < EVENTI_AL_MASSIMO ? strumento.Scegli(banco.Modello())
                                                           : Evento{"pulsante", Genere::Pulsante};
        if (banco.Modello().Offre(evento))
            banco.Accada(evento);
    }
    estratte.Eventi += eventi;
    const Sessione &fine = banco.Modello();
    ++(fine.Errore != 0 ? estratte.Fatali : fine.Esito == 6 ? estratte.Riuscite : estratte.Fallite);
    if (fine.Finita && fine.Errore == 0)
        banco.Dopo_LaFine();
    if (!banco.Differenza().isEmpty())
        estratte.Diverse.append(QStringLiteral("seme %1, modo %2, evento %3: %4")
                                    .arg(seme)
                                    .arg(modo)
                                    .arg(eventi)
                                    .arg(banco.Differenza()));
}

} // namespace

Estratte Estrai(qint64 sessioni, quint32 seme)
{
    Estratte estratte;
    for (; estratte.Sessioni < sessioni && estratte.Diverse.size() < BASTANO; ++estratte.Sessioni)
        Conduci(seme + static_cast<quint32>(estratte.Sessioni), estratte);
    return estratte;
}

} // namespace modello
