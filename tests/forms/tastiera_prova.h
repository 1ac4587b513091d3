// The operator at the keyboard: a key goes where the keyboard is, wherever that may be by then.
#pragma once

#include <QApplication>
#include <QString>
#include <QTest>

inline void Batti(Qt::Key tasto, Qt::KeyboardModifiers con = Qt::NoModifier)
{
    QTest::keyClick(QApplication::focusWidget(), tasto, con);
}

/// Any characters, accented ones too.
inline void Batti(const QString &testo)
{
    for (const QChar carattere : testo)
        QTest::sendKeyEvent(QTest::Click, QApplication::focusWidget(), Qt::Key_unknown, QString(carattere),
                            Qt::NoModifier);
}

/// A text in place of the one that stands in the box that has the keyboard.
inline void Riscrivi(const QString &testo)
{
    Batti(Qt::Key_A, Qt::ControlModifier);
    Batti(Qt::Key_Delete);
    Batti(testo);
}
