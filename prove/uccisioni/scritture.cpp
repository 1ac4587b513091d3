#include "prove/uccisioni/scritture.h"

#include "core/modGeneral.h"
#include "prove/uccisioni/vittima.h"
#include "tests/comuni/stazione_prova.h"

#include <QDir>
#include <QElapsedTimer>

#include <span>

namespace uccisioni {

namespace {

constexpr int BASTANO = 10; // differences

/// What is saved, one by one: a value longer than the old one, a shorter one, and none.
struct Valore
{
    const char *Sezione, *Chiave, *Testo;
};

constexpr Valore VALORI[] = {
    {"OFFICINA",         "Denominazione", "Centro revisioni di un nome molto piu lungo di prima"},
    {"CALIBRAZIONE_COM", "S8",            "98"                                                  },
    {"VEICOLO",          "Operatore",     ""                                                    },
};

QString Testo(const char *testo)
{
    return QString::fromLatin1(testo);
}

/// The bytes with one value changed, by nothing but the place of its line.
QByteArray Con_Valore(const QByteArray &byte, const Valore &valore)
{
    const qsizetype sezione = byte.indexOf("\r\n[" + QByteArray(valore.Sezione) + "]\r\n");
    const QByteArray chiave = "\r\n" + QByteArray(valore.Chiave) + '=';
    const qsizetype riga = byte.indexOf(chiave, sezione);
    if (sezione < 0 || riga < 0)
        qFatal("no %s in the configuration", valore.Chiave);
    const qsizetype da = riga + chiave.size();
    return byte.first(da) + valore.Testo + byte.sliced(byte.indexOf("\r\n", da));
}

/// A station whose configuration is saved again and again, and looked at after each death.
class Banco
{
public:
    Banco()
    {
        m_stati.append(m_stazione.Leggi(NOME));
        for (const Valore &valore : VALORI)
            m_stati.append(Con_Valore(m_stati.last(), valore));
    }

    /// @param quanti of the values.
    static void Salva(size_t quanti)
    {
        for (const Valore &valore : std::span(VALORI).first(quanti)) {
            if (!Scrivi_Ini(gFileIni, Testo(valore.Sezione), Testo(valore.Chiave), Testo(valore.Testo)))
                qFatal("a value was not written");
            Passo_Fatto();
        }
    }

    void Prepara() const { m_stazione.Scrivi(NOME, m_stati.first()); }

    void Giudica(const Morte &morte, Scritture &scritture)
    {
        ++(morte.Finita ? scritture.MaiUccise : scritture.Uccise);
        const QByteArray trovato = m_stazione.Leggi(NOME);
        const auto fatte = static_cast<qsizetype>(morte.Passi);
        if (trovato == m_stati[fatte])
            scritture.Prima += morte.Finita ? 0 : 1;
        else if (!morte.Finita && fatte + 1 < m_stati.size() && trovato == m_stati[fatte + 1])
            ++scritture.Dopo;
        else
            scritture.Guaste.append(QStringLiteral("dopo %1 scritture, davanti a %2: %3 byte")
                                        .arg(fatte)
                                        .arg(QString::fromLatin1(morte.Davanti))
                                        .arg(trovato.size()));
        scritture.Avanzi += Togli_Avanzi();
        Scrivi_Ancora(scritture);
    }

private:
    const QString NOME = QStringLiteral("lumira.ini");

    /// What the dead one had locked is free, and the file takes the next value.
    void Scrivi_Ancora(Scritture &scritture) const
    {
        QElapsedTimer orologio;
        orologio.start();
        const bool scritto =
            Scrivi_Ini(gFileIni, QStringLiteral("GENERAL"), QStringLiteral("User"), QStringLiteral("ancora"));
        scritture.Attesa = std::max(scritture.Attesa, orologio.elapsed());
        if (!scritto || !m_stazione.Leggi(NOME).contains("\r\nUser=ancora\r\n"))
            scritture.Guaste.append(QStringLiteral("non si scrive più"));
    }

    int Togli_Avanzi() const
    {
        QDir cartella(m_stazione.Nativo(QString()));
        int tolti = 0;
        for (const QString &nome :
             cartella.entryList({NOME + QStringLiteral(".*")}, QDir::Files | QDir::Hidden))
            tolti += cartella.remove(nome) ? 1 : 0;
        return tolti;
    }

    StazioneProva m_stazione;
    QList<QByteArray> m_stati; // the file after so many writes
};

} // namespace

Scritture Scritture_ACaso(int quante, quint32 seme)
{
    Banco banco;
    Scritture scritture;
    const Lavoro lavoro = [] { Banco::Salva(std::size(VALORI)); };
    Momenti momenti(lavoro, seme);
    while (scritture.Uccise < quante && scritture.Guaste.size() < BASTANO) {
        banco.Prepara();
        const Morte morte = Uccidi_Dopo(lavoro, momenti.Prossimo());
        momenti.Corretto(morte);
        banco.Giudica(morte, scritture);
    }
    return scritture;
}

Scritture Scritture_AOgniConfine()
{
    Banco banco;
    Scritture scritture;
    const Lavoro lavoro = [] {
        Banco::Salva(2);
    }; // the first looks for old leftovers besides; all others are alike
    while (scritture.MaiUccise == 0 && scritture.Guaste.size() < BASTANO) {
        banco.Prepara();
        banco.Giudica(Uccidi_Alla(lavoro, scritture.Chiamate++), scritture);
    }
    return scritture;
}

} // namespace uccisioni
