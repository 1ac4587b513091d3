// The command line of a tool: what is the same in all of them. It opens no file.
#pragma once

#include "core/parole.h"
#include "strumenti/fine_strumento.h"

#include <QCommandLineParser>
#include <QList>

#include <optional>

// What goes wrong in every tool.
inline constexpr Parole IRREPERIBILE = {u"%1 non c'è o non si può leggere",
                                        u"%1 is not there or cannot be read"};
inline constexpr Parole USCITA_PERSA = {u"l'uscita non si può scrivere", u"the output cannot be written"};

class RigaComando
{
public:
    /// What stands on the line beside the options.
    enum class Luoghi
    {
        UnoOPiu,
        UnoAlPiu, ///< a station's folder
        Nessuno,
    };

    /// @param nome of the tool. @param aiuto what --help says. @param opzioni its own, beside --help,
    /// --version and --lingua.
    RigaComando(const QString &nome, const Parole &aiuto, const QList<QCommandLineOption> &opzioni,
                Luoghi luoghi = Luoghi::UnoOPiu);

    /// Takes the arguments, and answers what needs no files.
    /// @return how the run ends, when it ends with this.
    std::optional<FineStrumento> Leggi(const QStringList &argomenti);

    bool Ha(const QString &opzione) const { return m_righe.isSet(opzione); }
    QString Valore(const QString &opzione) const { return m_righe.value(opzione); }
    QStringList Posti() const { return m_righe.positionalArguments(); }

    /// Tells what is wrong, with the tool's name. @return NonGuardato.
    FineStrumento Rifiuta(const QString &errore) const;

private:
    const QString m_nome;
    const Parole m_aiuto;
    const Luoghi m_luoghi;
    QCommandLineParser m_righe;
};
