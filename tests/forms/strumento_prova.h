// The instrument behind the lines of the tests: it keeps its texts from one session to the next, as the real
// one does, and answers at its own pace.
#pragma once

#include "simulatore/memoria.h"
#include "simulatore/strumento.h"
#include "tests/forms/seriale_prova.h"

#include <QTemporaryDir>

#include <functional>
#include <memory>

/// How long a session that goes to its end may take, and one with an instrument that never answers, in ms.
inline constexpr qint64 DURATA_SESSIONE = 5000;
inline constexpr qint64 DURATA_SILENZIO = 30000;

class StrumentoProva
{
public:
    /// Every line made from now on leads to this instrument, at rest; its end leaves them silent.
    StrumentoProva();
    ~StrumentoProva();
    Q_DISABLE_COPY_MOVE(StrumentoProva)

    /// What the instrument keeps of itself.
    QStringList Testi(Blocco blocco) const;
    void Imposta(Blocco blocco, const QStringList &testi) const;

    QList<QByteArray> Comandi; ///< frames of the station, in order
    /// Called for each frame before it is obeyed.
    std::function<void(const QByteArray &frame)> AlComando;

private:
    QByteArray Prendi(LineaProva &linea, const QByteArray &frame);

    QTemporaryDir m_cartella;
    Memoria m_memoria;
    std::unique_ptr<Strumento> m_strumento;
};

/// What stands between type byte and check character of a command.
QByteArray Carico_Di(const QByteArray &comando);
/// Texts as a command carries them, each closed by its separator.
QByteArray Testi_Chiusi(const QStringList &testi);
