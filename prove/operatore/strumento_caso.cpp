#include "prove/operatore/strumento_caso.h"

#include "tests/forms/seriale_prova.h"

namespace operatore {

namespace {

constexpr int POSTO_CODICE = 4; // in a frame

/// The commands, as they stand in a frame.
enum CodiceComando : quint8
{
    CodiceMisura = 0x20,
    CodiceLeggiDati = 0x50,
    CodiceScriviDati1 = 0x60,
    CodiceScriviDati2 = 0x80,
    CodiceLeggiTaratura = 0x90,
    CodiceScriviTaratura = 0xA0,
};
constexpr quint8 CODICI[] = {CodiceMisura, CodiceLeggiDati, CodiceScriviDati1, CodiceLeggiTaratura, 0};

QByteArray Faro(QRandomGenerator &caso)
{
    constexpr const char *ESITI[] = {"OO", "O#", "XO", "##", "OX"};
    const QByteArray lux = QByteArray::number(caso.bounded(3000)).rightJustified(4, '0');
    return lux + ESITI[caso.bounded(int(std::size(ESITI)))];
}

} // namespace

StrumentoCaso::StrumentoCaso(quint32 seme) : m_caso(seme)
{
    Linee_Prepara([this](LineaProva &linea) { Prepara(linea); });
}

StrumentoCaso::~StrumentoCaso()
{
    Linee_Prepara({});
}

/// What a session meets is settled when it begins: most go well.
void StrumentoCaso::Prepara(LineaProva &linea)
{
    linea.RifiutaApertura = Una_Su(20);
    linea.RifiutaImpostazioni = Una_Su(30);
    linea.RifiutaUscita = Una_Su(30);
    linea.Ritardo = m_caso.bounded(2500) / (Una_Su(3) ? 1 : 50);
    m_guasti = Una_Su(3) ? 2 + m_caso.bounded(5) : 0;
    m_passo = 0;
    if (Una_Su(8))
        return; // switched off
    linea.Rispondi = [this](const QByteArray &frame) { return Rispondi(frame); };
}

QByteArray StrumentoCaso::Rispondi(const QByteArray &frame)
{
    const QByteArray risposta = Giusta(static_cast<quint8>(frame[POSTO_CODICE]));
    ++m_passo;
    return m_guasti != 0 && Una_Su(m_guasti) ? Guasta(risposta) : risposta;
}

QByteArray StrumentoCaso::Giusta(quint8 codice)
{
    switch (codice) {
    case CodiceMisura:
        return Risposta_Misura(Faro(m_caso), Faro(m_caso), Faro(m_caso), Faro(m_caso));
    case CodiceLeggiDati:
        return Risposta_Dati(
            {"QX5", "Marca", "OM00000", QByteArray::number(m_caso.bounded(1000000)), "31/12/2027", "Rossi"});
    case CodiceLeggiTaratura:
        return Risposta_Taratura({"1000", "0", "100", "101", "102", "103", "104", "105", "106", "107"});
    case CodiceScriviDati1:
    case CodiceScriviDati2:
    case CodiceScriviTaratura:
        return Risposta_Scritto();
    default: // the state: a vehicle is measured sooner or later
        return Risposta_Stato(static_cast<char>('1' + m_caso.bounded(m_passo < 2 ? 2 : 4)));
    }
}

QByteArray StrumentoCaso::Guasta(QByteArray risposta)
{
    const auto posto = static_cast<qsizetype>(m_caso.bounded(quint32(risposta.size())));
    switch (m_caso.bounded(6)) {
    case 0:
        return {};
    case 1:
        return risposta.first(posto);
    case 2:
        return risposta + risposta;
    case 3:
        risposta[posto] = static_cast<char>(m_caso.bounded(256));
        return risposta;
    case 4: { // noise, with no end
        QByteArray rumore;
        for (int i = m_caso.bounded(400); i > 0; --i)
            rumore += static_cast<char>(m_caso.bounded(256));
        return rumore;
    }
    default: // the reply to something else
        return Giusta(CODICI[m_caso.bounded(int(std::size(CODICI)))]);
    }
}

} // namespace operatore
