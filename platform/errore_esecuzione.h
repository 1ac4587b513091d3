// Run-time errors of the classic set. One that no handler catches ends the program (see applicazione.h).
#pragma once

#include <QString>

#include <exception>

/// The numbers of the classic set that this system raises.
enum class NumeroErrore : int
{
    Overflow = 6,
    IndiceFuoriIntervallo = 9,
    TipoNonCorrispondente = 13,
    NomeFileErrato = 52,
    FileNonTrovato = 53,
    DiscoPieno = 61,
    PermessoNegato = 70,
    PercorsoNonTrovato = 76,
    ValoreProprietaErrato = 380,
    FormGiaVisibile = 400,
    ImmagineNonValida = 481,
    ErroreStampante = 482,
    PortaNonAperta = 8018,
};

/// A run-time error: its number and its description, in the words of the classic set.
class ErroreEsecuzione : public std::exception
{
public:
    explicit ErroreEsecuzione(NumeroErrore numero);
    /// @param numero any number. @param descrizione the text that the error box shows.
    ErroreEsecuzione(int numero, const QString &descrizione);

    int Numero() const { return m_numero; }
    const QString &Descrizione() const { return m_descrizione; }
    const char *what() const noexcept override { return m_testo.constData(); }

private:
    int m_numero;
    QString m_descrizione;
    QByteArray m_testo;
};

/// Raises the error of that number with its own description.
[[noreturn]] void Solleva(NumeroErrore numero);
