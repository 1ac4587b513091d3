// A piece of a text that keeps the text alive. It knows no format and no file.
#pragma once

#include <QList>
#include <QString>

/// A piece of a text. Thousands of names may begin at the same place and be nearly as long as the text: as
/// copies they would take its length squared, as pieces they share it.
class Brano
{
public:
    Brano() = default;
    /// The whole text.
    Brano(const QString &testo) : Brano(testo, 0, testo.size()) {}
    /// @param da where it begins, from 0. @param lunghezza in characters; both within the text.
    Brano(const QString &testo, qsizetype da, qsizetype lunghezza)
        : m_testo(testo), m_da(da), m_lunghezza(lunghezza)
    {
    }

    /// Its characters, for as long as this piece or another one of the same text lives.
    QStringView Vista() const { return QStringView(m_testo).sliced(m_da, m_lunghezza); }
    /// A copy of its characters.
    QString Copia() const { return Vista().toString(); }

    bool operator==(const Brano &altro) const { return Vista() == altro.Vista(); }

private:
    QString m_testo;
    qsizetype m_da = 0;
    qsizetype m_lunghezza = 0;
};

using ListaBrani = QList<Brano>;
