// A text dragged from another program and let go over a box.
#pragma once

#include "toolkit/controlli.h"

#include <QCoreApplication>
#include <QDropEvent>
#include <QMimeData>

inline void Rilascia(const CasellaTesto &casella, const QString &testo)
{
    QMimeData dati;
    dati.setText(testo);
    const QPoint posto(casella.Widget()->width() - 2, 5);
    QDragEnterEvent entra(posto, Qt::CopyAction, &dati, Qt::LeftButton, {});
    QCoreApplication::sendEvent(casella.Widget(), &entra);
    QDropEvent lascia(posto, Qt::CopyAction, &dati, Qt::LeftButton, {});
    QCoreApplication::sendEvent(casella.Widget(), &lascia);
}
