// The text of a profile: which lines its bytes are, which values they give, what a write makes of them. Knows
// no file and keeps nothing.
#pragma once

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QString>

#include <optional>

/// A section or key that is asked for, as it is compared: up to its first NUL, without the spaces (only
/// spaces) at both ends, without regard to case.
QString Nome_DaConfrontare(const QString &nome);

/// What a profile's bytes give to read: the first section of each name and the first key of each name in it.
/// Heads are found at once, the keys of a section when one of them is first asked for: the worklist wants the
/// plate of thousands of files and nothing else of them, a station one language of its texts.
class ValoriProfilo
{
public:
    ValoriProfilo() = default;
    explicit ValoriProfilo(const QByteArray &byte);

    /// @param sezione, chiave  as Nome_DaConfrontare gives them.
    /// @return none for a key that is missing or without "="; the latter stands in the way of a later one of
    /// its name.
    std::optional<QString> Valore(const QString &sezione, const QString &chiave);

private:
    /// Where the text of a value stands, its blanks and quotes included.
    struct Tratto
    {
        qsizetype da;
        qsizetype a;
    };
    using Chiavi = QHash<QString, std::optional<Tratto>>; // none for a key without "="
    struct Sezione
    {
        qsizetype da; // behind its head
        qsizetype a;  // the next head, or the end
        std::optional<Chiavi> chiavi;
    };
    Chiavi Chiavi_Di(const Sezione &sezione) const;

    QByteArray m_byte;
    QHash<QString, Sezione> m_sezioni;
};

/// A head or a key as it stands in the file, also one that another hides.
struct RigaProfilo
{
    qint32 Numero;   ///< of the line, from 1
    bool Testa;      ///< of a section; otherwise a key
    QString Nome;    ///< as Nome_DaConfrontare gives it
    bool Uguale;     ///< of a key: it has its "="
    QByteArray Byte; ///< the line without its end
};

/// The heads and keys of a profile, line by line; notes and empty lines are none.
QList<RigaProfilo> Righe_Profilo(QByteArrayView byte);

/// The bytes of a profile with one value changed: in the line that holds the key, in a new one right after
/// the last key of its section, or in a new section at the end. Every other byte stays.
/// @param sezione, chiave, valore  what Profilo_Ammette allows.
QByteArray Profilo_Aggiornato(QByteArray byte, const QString &sezione, const QString &chiave,
                              const QString &valore);
