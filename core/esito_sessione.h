// What the last session with the instrument failed of, for whoever stands on the screen once its form has
// gone. It only tells: nothing is decided by it.
#pragma once

#include <QDateTime>
#include <QString>

struct FineSessione
{
    QString Testo;    ///< what ended the session and what to check, in the operator's language
    QDateTime Quando; ///< when it ended, by the clock in force

    bool operator==(const FineSessione &) const = default;
};

/// The session that ended last; an empty text when it went well, or before the first.
const FineSessione &Sessione_Fine();

/// Notes the end of a session, now. @param testo empty: it went well.
void Sessione_Annota(const QString &testo);
