// An instrument and its line on good days and on bad ones, by chance.
#pragma once

#include <QByteArray>
#include <QRandomGenerator>

class LineaProva;

namespace operatore {

class StrumentoCaso
{
public:
    /// Every line made from now on leads to it; its end leaves them silent.
    explicit StrumentoCaso(quint32 seme);
    ~StrumentoCaso();
    Q_DISABLE_COPY_MOVE(StrumentoCaso)

private:
    void Prepara(LineaProva &linea);
    QByteArray Rispondi(const QByteArray &frame);
    QByteArray Giusta(quint8 codice);
    QByteArray Guasta(QByteArray risposta);
    bool Una_Su(int quante) { return m_caso.bounded(quante) == 0; }

    QRandomGenerator m_caso;
    int m_guasti = 0; ///< one reply in so many is damaged; 0 for none
    int m_passo = 0;  ///< replies of the same kind so far
};

} // namespace operatore
